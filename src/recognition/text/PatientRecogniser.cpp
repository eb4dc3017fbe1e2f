#include "recognition/text/PatientRecogniser.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <condition_variable>
#include <future>
#include <mutex>
#include <thread>

#include <sys/resource.h>
#include <unistd.h>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.ocr")

// Low enough to step aside, high enough to end a line soon when somebody waits behind it.
constexpr int lowPriority = 10;

// The calling thread, and those that it starts, for the rest of their lives.
void standBehindOthers()
{
    ::setpriority(PRIO_PROCESS, id_t(::gettid()), lowPriority);
}

} // namespace

// What the thread that recognises and the one that waits for it share.
class PatientRecogniser::Attempt {
public:
    // The recogniser's: it is stopped with the asker, and when it is abandoned.
    std::stop_source stop;

    void noteProgress(double share, const std::function<void(double)>& tell)
    {
        const std::scoped_lock lock(m_lock);
        ++m_steps;
        m_changed.notify_all();
        if (tell && !m_isAbandoned)
            tell(share);
    }

    void finish()
    {
        const std::scoped_lock lock(m_lock);
        m_isDone = true;
        m_changed.notify_all();
    }

    // Whether it has finished; else it is abandoned.
    bool wait(const std::stop_token& asker, const Patience& patience)
    {
        std::unique_lock lock(m_lock);
        for (int steps = -1; !m_isDone && steps != m_steps;) {
            steps = m_steps;
            m_changed.wait_for(lock, asker, patience.withoutProgress, [&] { return m_isDone || steps != m_steps; });
        }
        if (!m_isDone && asker.stop_requested())
            m_changed.wait_for(lock, patience.onceStopped, [this] { return m_isDone; });
        m_isAbandoned = !m_isDone;
        return m_isDone;
    }

private:
    std::mutex m_lock;
    std::condition_variable_any m_changed;
    int m_steps = 0;
    bool m_isDone = false;
    bool m_isAbandoned = false;
};

TextRecogniser::Outcome PatientRecogniser::recognise(const QImage& picture, const Request& request)
{
    recogniser();
    const auto attempt = std::make_shared<Attempt>();
    const std::stop_callback stopping(request.stop, [&attempt] { attempt->stop.request_stop(); });
    Request own = request;
    own.stop = attempt->stop.get_token();
    own.progress = [attempt, tell = request.progress](double share) { attempt->noteProgress(share, tell); };
    std::packaged_task<Outcome()> task(
        [recogniser = m_recogniser, picture, own] { return recogniser->recognise(picture, own); });
    std::future<Outcome> outcome = task.get_future();
    std::thread thread([task = std::move(task), attempt, mayHurry = request.mayHurry]() mutable {
        if (!mayHurry)
            standBehindOthers();
        task();
        attempt->finish();
    });
    if (attempt->wait(request.stop, m_patience)) {
        thread.join();
        return outcome.get();
    }
    thread.detach();
    attempt->stop.request_stop();
    m_recogniser.reset();
    qCWarning(log, "The text recogniser makes no progress and is left to itself; the next picture gets a new one");
    return std::unexpected(
        Failure{QCoreApplication::translate("PatientRecogniser",
                                            "The recognition of the text came to a standstill and was given up."),
                request.stop.stop_requested() ? Failure::Reason::cancelled : Failure::Reason::failed});
}

TextRecogniser& PatientRecogniser::recogniser()
{
    if (!m_recogniser)
        m_recogniser = m_make();
    return *m_recogniser;
}

QStringList PatientRecogniser::installedLanguages()
{
    return recogniser().installedLanguages();
}

QDateTime PatientRecogniser::modelsChanged(const QStringList& languages)
{
    return recogniser().modelsChanged(languages);
}

void PatientRecogniser::releaseMemory()
{
    if (m_recogniser)
        m_recogniser->releaseMemory();
}

} // namespace Kovrel
