// history_kill [ROUNDS [PROGRAMS]]: a program that records, edits, files and deletes captures as fast as it can is
// killed at random moments, under load; or several at the same time on one folder. After each time the next start must
// have all that was reported as done. Ends with 1 when anything was lost, came back or was left in parts.

#include "history/CaptureHistoryStore.h"
#include "history/files/HistoryIndexFile.h"
#include "history/files/OrphanSweep.h"
#include "platform/ImageCodec.h"
#include "platform/desktop/QtMainLoop.h"
#include "platform/desktop/ThreadWorkers.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestPictures.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QThread>

#include <csignal>
#include <cstdio>
#include <sys/prctl.h>
#include <unistd.h>
#include <utime.h>

using namespace Kovrel;

namespace {

// --- The program that is killed

// Does one thing after the other to a history, and tells on standard output what is done.
class Worker {
public:
    explicit Worker(const QString& folder)
        : m_defaults(folder + "/kovrel.conf"),
          m_ocr(m_loop, m_workers, folder + "/History", [this](QUuid id) { return m_store.status(id); }, {}),
          m_store({m_loop, m_workers, m_preferences, m_ocr, folder + "/History"})
    {
        Preferences::registerDefaults(m_defaults);
        m_preferences.set(Settings::historyRetentionCount, 20000);
        m_store.start();
        m_store.whenLoaded([this] {
            say("loaded", QUuid());
            next();
        });
    }

private:
    static constexpr int mostRecordings = 6;
    static constexpr int mostEntries = 60;

    static void say(const char* what, QUuid id)
    {
        const QByteArray line = QByteArray(what) + ' ' + id.toByteArray(QUuid::WithoutBraces) + '\n';
        [[maybe_unused]] const ssize_t written = ::write(STDOUT_FILENO, line.constData(), size_t(line.size()));
    }

    void next()
    {
        perform(int(m_random.bounded(10)));
        m_loop.after(std::chrono::milliseconds(m_random.bounded(4)), [this] { next(); });
    }

    void perform(int choice)
    {
        const bool isFull = m_store.entries().size() > mostEntries;
        if (m_store.entries().isEmpty() || (choice < 4 && !isFull))
            record();
        else if (isFull || choice == 5)
            discard();
        else if (choice == 4)
            edit();
        else if (choice == 6)
            remove();
        else if (choice == 7 && m_store.canUndoRemoval())
            m_store.undoRemoval();
        else
            file();
    }

    QUuid any()
    {
        const auto& entries = m_store.entries();
        return entries[m_random.bounded(entries.size())].id;
    }

    void record()
    {
        if (m_recordings == mostRecordings)
            return;
        ++m_recordings;
        const QUuid id = QUuid::createUuid();
        m_store
            .record({.id = id,
                     .image = Testing::testPicture({200, 150}, Testing::Texture::noise, m_random.generate()),
                     .date = QDateTime::currentDateTime()},
                    {}, {})
            ->whenDone([this, id](const RecordOutcome& outcome) {
                --m_recordings;
                say(outcome ? "recorded" : "failed", id);
            });
    }

    void edit()
    {
        const QUuid id = any();
        m_store.updateImage({.id = id,
                             .flattened = Testing::testPicture({90, 60}, Testing::Texture::noise, m_random.generate()),
                             .annotations = {{.kind = Annotation::Kind::line, .points = {{1, 1}, {5, 5}}}}},
                            [id](const auto& done) {
                                if (done)
                                    say("edited", id);
                            });
    }

    void discard()
    {
        const QUuid id = any();
        say("deleting", id);
        m_store.discard(id);
        m_store.whenSettled([id] { say("gone", id); });
    }

    void remove()
    {
        const QUuid id = any();
        say("deleting", id);
        m_store.remove({id});
    }

    void file()
    {
        if (m_store.lists().size() < 3)
            m_store.createList(m_store.defaultName(), m_store.nextColor());
        const auto& lists = m_store.lists();
        m_store.moveToList({any(), any()}, lists[m_random.bounded(int(lists.size()))].id);
        m_store.setTitle(any(), QString::number(m_random.generate()));
    }

    QtMainLoop m_loop;
    ThreadWorkers m_workers;
    UserDefaults m_defaults;
    Preferences m_preferences{m_defaults};
    CaptureOCRStore m_ocr;
    CaptureHistoryStore m_store;
    QRandomGenerator m_random{QRandomGenerator::securelySeeded()};
    int m_recordings = 0;
};

int runWorker(int argc, char** argv)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    QCoreApplication application(argc, argv);
    Worker worker(argv[2]);
    return QCoreApplication::exec();
}

// --- The one that kills it

struct Counts {
    int recorded = 0;
    int edited = 0;
    int deleted = 0;
    int lost = 0;
    int cameBack = 0;
    int setAside = 0;
    int parts = 0;
    int orphans = 0;
    int orphansLeft = 0;

    int faults() const { return lost + cameBack + setAside + parts + orphansLeft; }
};

class Killer {
public:
    explicit Killer(QString program) : m_program(std::move(program)) {}

    void round(int programs)
    {
        std::vector<QProcess> workers{size_t(programs)};
        for (QProcess& worker : workers)
            worker.start(m_program, {"--worker", m_folder.path()});
        for (QProcess& worker : workers) {
            worker.waitForStarted();
            worker.waitForReadyRead();
        }
        for (QProcess& worker : workers)
            kill(worker);
        check();
    }

    const Counts& counts() const { return m_counts; }

private:
    void kill(QProcess& worker)
    {
        QThread::usleep(m_random.bounded(400'000));
        ::kill(pid_t(worker.processId()), SIGKILL);
        worker.waitForFinished();
        for (const QByteArray& line : worker.readAllStandardOutput().trimmed().split('\n'))
            take(line);
    }

    void take(const QByteArray& line)
    {
        const QUuid id(line.mid(line.indexOf(' ') + 1));
        if (line.startsWith("recorded ")) {
            ++m_counts.recorded;
            m_expected.insert(id);
        } else if (line.startsWith("edited ")) {
            ++m_counts.edited;
            m_edited.insert(id);
        } else if (line.startsWith("deleting ")) {
            m_deleted.insert(id);
        } else if (line.startsWith("gone ")) {
            ++m_counts.deleted;
            m_gone.insert(id);
        }
    }

    // As the next start finds it.
    void check()
    {
        const HistoryState state = HistoryIndexFile(m_files).load().value();
        const QSet<QUuid> there = state.ids();
        // One may be deleted before it is reported.
        const QSet<QUuid> expected = m_expected - m_deleted;
        m_counts.lost += int((expected - there).size());
        m_counts.cameBack += int((m_gone & there).size());
        sweep(there);
        for (const QUuid id : m_edited)
            m_counts.lost += expected.contains(id) && !QFileInfo::exists(m_files.edited(id));
        for (const QString& name : names()) {
            m_counts.setAside += name.contains("-unreadable-");
            m_counts.parts += !isWhole(name);
        }
    }

    static bool isOrphan(const QString& name, const QSet<QUuid>& there)
    {
        const auto owner = HistoryFiles::owner(name);
        return owner && !there.contains(*owner);
    }

    QStringList names() const { return m_files.names().value(); }

    int orphans(const QSet<QUuid>& there) const
    {
        return int(std::ranges::count_if(names(), [&](const QString& name) { return isOrphan(name, there); }));
    }

    // What was left behind becomes as old as the limit, and is swept then.
    void sweep(const QSet<QUuid>& there)
    {
        m_counts.orphans += orphans(there);
        const auto time = QDateTime::currentSecsSinceEpoch() - OrphanSweep::age.count() - 1;
        const utimbuf times{time, time};
        for (const QString& name : names())
            if (isOrphan(name, there))
                ::utime(QFile::encodeName(m_files.folder() + '/' + name), &times);
        OrphanSweep::run(m_files, there);
        m_counts.orphansLeft += orphans(there);
    }

    bool isWhole(const QString& name) const
    {
        const QString path = m_files.folder() + '/' + name;
        if (name.endsWith(".png") || name.endsWith(".jpg"))
            return ImageCodec::decodeFile(path).has_value();
        return name == ".lock" || name == "." || name == ".." || (name.endsWith(".json") && QFileInfo(path).size() > 1);
    }

    QString m_program;
    Testing::TempFolder m_folder;
    HistoryFiles m_files{m_folder / "History"};
    QSet<QUuid> m_expected;
    QSet<QUuid> m_edited;
    QSet<QUuid> m_deleted; // or about to be
    QSet<QUuid> m_gone;
    Counts m_counts;
    QRandomGenerator m_random{QRandomGenerator::securelySeeded()};
};

} // namespace

int main(int argc, char** argv)
{
    if (argc == 3 && std::string_view(argv[1]) == "--worker")
        return runWorker(argc, argv);
    QCoreApplication application(argc, argv);
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 500;
    const int programs = argc > 2 ? std::atoi(argv[2]) : 1;
    Killer killer(QCoreApplication::applicationFilePath());
    for (int round = 0; round < rounds; ++round)
        killer.round(programs);
    const Counts& counts = killer.counts();
    std::printf("killed  recorded  edited  deleted | lost  came back  set aside  parts  orphans  after the sweep\n");
    std::printf("%6d  %8d  %6d  %7d | %4d  %9d  %9d  %5d  %7d  %15d\n", rounds, counts.recorded, counts.edited,
                counts.deleted, counts.lost, counts.cameBack, counts.setAside, counts.parts, counts.orphans,
                counts.orphansLeft);
    return counts.faults() == 0 ? 0 : 1;
}
