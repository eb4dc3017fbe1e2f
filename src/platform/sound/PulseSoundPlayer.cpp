#include "platform/sound/PulseSoundPlayer.h"

#include "platform/plugins/PluginSoundPlayer.h"

#include <QFile>

#include <array>
#include <tuple>

namespace Kovrel {

namespace {

// A service that is well answers within some milliseconds.
constexpr auto patience = std::chrono::milliseconds(500);
constexpr std::array sounds{"apple", "pop", "glass"};
constexpr pa_sample_spec format{.format = PA_SAMPLE_S16LE, .rate = 48000, .channels = 1};
constexpr qsizetype waveHeader = 44; // as the sounds' own program writes it

QByteArray samplesOf(const QString& sound)
{
    QFile file(":/sounds/" + sound + ".wav");
    return file.open(QIODevice::ReadOnly) ? file.readAll().mid(waveHeader) : QByteArray();
}

QByteArray nameAtService(const QString& sound)
{
    return "kovrel-" + sound.toUtf8();
}

struct StreamDeleter {
    void operator()(pa_stream* stream) const
    {
        pa_stream_disconnect(stream);
        pa_stream_unref(stream);
    }
};

} // namespace

SoundPlayer::Outcome PulseSoundPlayer::open()
{
    return openUntil(QDeadlineTimer(patience));
}

SoundPlayer::Outcome PulseSoundPlayer::play(const QString& sound, double volume)
{
    const QDeadlineTimer deadline(patience);
    Outcome outcome = openUntil(deadline);
    if (outcome)
        outcome = start(sound, volume, deadline);
    if (!outcome)
        forget();
    return outcome;
}

void PulseSoundPlayer::close()
{
    noticeLoss();
    const QDeadlineTimer deadline(patience);
    for (const char* sound : sounds)
        if (m_isReady)
            std::ignore =
                finish(pa_context_remove_sample(m_context.get(), nameAtService(sound), nullptr, nullptr), deadline);
    forget();
}

SoundPlayer::Outcome PulseSoundPlayer::openUntil(const QDeadlineTimer& deadline)
{
    noticeLoss();
    if (m_isReady)
        return {};
    Outcome outcome = connect(deadline);
    for (const char* sound : sounds)
        if (outcome)
            outcome = upload(sound, deadline);
    if (outcome)
        m_isReady = true;
    else
        forget();
    return outcome;
}

SoundPlayer::Outcome PulseSoundPlayer::connect(const QDeadlineTimer& deadline)
{
    m_loop.reset(pa_mainloop_new());
    m_context.reset(m_loop ? pa_context_new(pa_mainloop_get_api(m_loop.get()), "Kovrel") : nullptr);
    if (!m_context)
        throw std::bad_alloc();
    // Starting a service would mean to wait for it.
    if (pa_context_connect(m_context.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0)
        return failure();
    return serveUntil([this] { return pa_context_get_state(m_context.get()) == PA_CONTEXT_READY; }, deadline);
}

SoundPlayer::Outcome PulseSoundPlayer::upload(const QString& sound, const QDeadlineTimer& deadline)
{
    const QByteArray samples = samplesOf(sound);
    const std::unique_ptr<pa_stream, StreamDeleter> stream(
        pa_stream_new(m_context.get(), nameAtService(sound), &format, nullptr));
    const auto isIn = [&](pa_stream_state_t state) {
        return [&stream, state] {
            const pa_stream_state_t now = pa_stream_get_state(stream.get());
            return now == state || now == PA_STREAM_FAILED;
        };
    };
    if (!stream || pa_stream_connect_upload(stream.get(), size_t(samples.size())) < 0)
        return failure();
    if (const Outcome ready = serveUntil(isIn(PA_STREAM_READY), deadline); !ready)
        return ready;
    if (pa_stream_write(stream.get(), samples.constData(), size_t(samples.size()), nullptr, 0, PA_SEEK_RELATIVE) < 0 ||
        pa_stream_finish_upload(stream.get()) < 0)
        return failure();
    const Outcome done = serveUntil(isIn(PA_STREAM_TERMINATED), deadline);
    return done && pa_stream_get_state(stream.get()) == PA_STREAM_FAILED ? failure() : done;
}

SoundPlayer::Outcome PulseSoundPlayer::start(const QString& sound, double volume, const QDeadlineTimer& deadline)
{
    const Properties properties(pa_proplist_new());
    pa_proplist_sets(properties.get(), PA_PROP_MEDIA_ROLE, "event");
    quint32 index = PA_INVALID_INDEX;
    const auto started = [](pa_context*, quint32 answer, void* into) { *static_cast<quint32*>(into) = answer; };
    const Outcome outcome = finish(pa_context_play_sample_with_proplist(m_context.get(), nameAtService(sound), nullptr,
                                                                        pa_sw_volume_from_linear(volume),
                                                                        properties.get(), started, &index),
                                   deadline);
    return outcome && index == PA_INVALID_INDEX ? failure() : outcome;
}

SoundPlayer::Outcome PulseSoundPlayer::finish(pa_operation* operation, const QDeadlineTimer& deadline)
{
    if (!operation)
        return failure();
    const Outcome outcome =
        serveUntil([operation] { return pa_operation_get_state(operation) != PA_OPERATION_RUNNING; }, deadline);
    pa_operation_cancel(operation); // its answer would come after what it is written into
    pa_operation_unref(operation);
    return outcome;
}

SoundPlayer::Outcome PulseSoundPlayer::serveUntil(const std::function<bool()>& condition,
                                                  const QDeadlineTimer& deadline)
{
    while (!condition()) {
        if (!PA_CONTEXT_IS_GOOD(pa_context_get_state(m_context.get())))
            return failure();
        const qint64 left = deadline.remainingTimeNSecs() / 1000;
        if (left <= 0)
            return std::unexpected("the audio service does not answer");
        if (pa_mainloop_prepare(m_loop.get(), int(left)) < 0 || pa_mainloop_poll(m_loop.get()) < 0 ||
            pa_mainloop_dispatch(m_loop.get()) < 0)
            return failure();
    }
    return {};
}

// A service that ended since the last call has closed the connection.
void PulseSoundPlayer::noticeLoss()
{
    if (!m_context)
        return;
    while (pa_mainloop_iterate(m_loop.get(), 0, nullptr) > 0) {
    }
    if (pa_context_get_state(m_context.get()) != PA_CONTEXT_READY)
        forget();
}

SoundPlayer::Outcome PulseSoundPlayer::failure() const
{
    return std::unexpected(QString::fromUtf8(pa_strerror(pa_context_errno(m_context.get()))));
}

void PulseSoundPlayer::forget()
{
    m_isReady = false;
    if (m_context)
        pa_context_disconnect(m_context.get());
    m_context.reset();
    m_loop.reset();
}

extern "C" Q_DECL_EXPORT SoundPlayer* kovrelMakeSoundPlayer()
{
    return new PulseSoundPlayer;
}

static_assert(std::is_same_v<PluginSoundPlayer::Factory, decltype(&kovrelMakeSoundPlayer)>);

} // namespace Kovrel
