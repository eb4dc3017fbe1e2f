#pragma once

#include "platform/SoundPlayer.h"

#include <QDeadlineTimer>

#include <functional>
#include <memory>

#include <pulse/pulseaudio.h>

namespace Kovrel {

// Plays through PulseAudio, or PipeWire in its place. The sounds are handed over once and kept by the service, so that
// starting one is a single message. The connection is served only inside the calls: no thread, nothing wakes up in
// between.
class PulseSoundPlayer : public SoundPlayer {
public:
    Outcome open() override;
    Outcome play(const QString& sound, double volume) override;
    void close() override;

private:
    template <auto free>
    struct Deleter {
        template <class T>
        void operator()(T* object) const
        {
            free(object);
        }
    };

    using Loop = std::unique_ptr<pa_mainloop, Deleter<pa_mainloop_free>>;
    using Context = std::unique_ptr<pa_context, Deleter<pa_context_unref>>;
    using Properties = std::unique_ptr<pa_proplist, Deleter<pa_proplist_free>>;

    Outcome openUntil(const QDeadlineTimer& deadline);
    Outcome connect(const QDeadlineTimer& deadline);
    Outcome upload(const QString& sound, const QDeadlineTimer& deadline);
    Outcome start(const QString& sound, double volume, const QDeadlineTimer& deadline);
    Outcome finish(pa_operation* operation, const QDeadlineTimer& deadline);
    // Serves the connection until the condition holds; fails at the deadline and when the service has gone.
    Outcome serveUntil(const std::function<bool()>& condition, const QDeadlineTimer& deadline);
    void noticeLoss();
    Outcome failure() const;
    void forget();

    Loop m_loop;
    Context m_context;
    bool m_isReady = false; // every sound lies with the service
};

} // namespace Kovrel
