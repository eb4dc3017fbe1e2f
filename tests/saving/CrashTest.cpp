#include "saving/SaveService.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestPictures.h"

#include <QFileInfo>
#include <QSet>

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <csignal>

namespace Kovrel {

namespace {

// A process of its own that runs some work.
class Child {
public:
    template <class Work>
    explicit Child(Work work) : m_pid(::fork())
    {
        if (m_pid == 0) {
            work();
            ::_exit(0);
        }
    }

    ~Child() { end(); }

    Child(Child&& other) noexcept : m_pid(std::exchange(other.m_pid, 0)) {}

    void kill() { ::kill(m_pid, SIGKILL); }

    int end()
    {
        int status = -1;
        if (m_pid > 0)
            ::waitpid(std::exchange(m_pid, 0), &status, 0);
        return status;
    }

private:
    pid_t m_pid;
};

// A number that parent and children see.
class SharedCounter {
public:
    SharedCounter()
        : m_value(new(::mmap(nullptr, sizeof(std::atomic<int>), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1,
                             0)) std::atomic<int>(0))
    {
    }

    ~SharedCounter() { ::munmap(m_value, sizeof *m_value); }

    std::atomic<int>& operator*() { return *m_value; }

private:
    std::atomic<int>* m_value;
};

const QDateTime date(QDate(2024, 3, 5), QTime(9, 7, 3));

struct CrashTest : testing::Test {
    Testing::TempFolder folder;
    SaveSettings settings{.folder = folder / "shots"};
    QImage image = Testing::testPicture({200, 150}, Testing::Texture::noise);

    void saveOnce(ReservationJournal& journal) const
    {
        SaveService::saveToDefaultLocationReturningPNG(settings, image, date, {}, {}, journal);
    }

    QStringList shots() const { return QDir(settings.folder).entryList(QDir::Files | QDir::Hidden, QDir::Name); }
};

} // namespace

TEST_F(CrashTest, TwoProcessesNeverShareAName)
{
    constexpr int saves = 60;
    {
        std::vector<Child> racers;
        racers.reserve(3);
        for (int racer = 0; racer < 3; ++racer)
            racers.emplace_back([&] {
                ReservationJournal journal(folder / "journal");
                for (int round = 0; round < saves; ++round)
                    saveOnce(journal);
            });
        for (Child& racer : racers)
            EXPECT_EQ(racer.end(), 0);
    }
    EXPECT_EQ(shots().size(), 3 * saves) << "a lost file was overwritten by another process";
    for (const QString& name : shots())
        EXPECT_TRUE(ImageCodec::decodeFile(settings.folder + "/" + name)) << qPrintable(name);
    EXPECT_TRUE(QDir(folder / "journal").entryList(QDir::Files).isEmpty());
}

TEST_F(CrashTest, AKilledSaveLeavesNoPartOfAFile)
{
    int left = 0;
    for (int round = 0; round < 60; ++round) {
        SharedCounter begun;
        Child child([&] {
            ReservationJournal journal(folder / "journal");
            for (;;) {
                saveOnce(journal);
                ++*begun;
            }
        });
        // At another point of the work each time.
        while (*begun < 1 + round % 3)
            ;
        for (volatile int spin = 0; spin < round * 40'000; spin = spin + 1)
            ;
        child.kill();
        child.end();
        ReservationJournal::sweep(folder / "journal");
        for (const QString& name : shots()) {
            if (name.startsWith("."))
                continue; // hidden, and only where the file system knows no nameless files
            EXPECT_TRUE(ImageCodec::decodeFile(settings.folder + "/" + name)) << qPrintable(name);
            QFile::remove(settings.folder + "/" + name);
            ++left;
        }
        EXPECT_TRUE(QDir(folder / "journal").entryList(QDir::Files).isEmpty());
    }
    EXPECT_GE(left, 60);
}

TEST_F(CrashTest, ReservationsOfTheDeadAreSweptAndNothingElse)
{
    ASSERT_TRUE(QDir().mkpath(settings.folder));
    ReservationJournal own(folder / "journal");
    const auto mine = SaveService::uniqueURL(settings.folder, "mine.png", own);
    Child child([&] {
        ReservationJournal journal(folder / "journal");
        SaveService::uniqueURL(settings.folder, "empty.png", journal);
        const auto filled = SaveService::uniqueURL(settings.folder, "filled.png", journal);
        QFile file(filled.path);
        file.open(QIODevice::WriteOnly);
        file.write("x");
        file.close();
        const auto cleared = SaveService::uniqueURL(settings.folder, "cleared.png", journal);
        journal.clear(cleared.path);
        SaveService::uniqueURL(settings.folder, "mine.png", journal);
        ::kill(::getpid(), SIGKILL);
    });
    child.end();
    EXPECT_EQ(shots(), (QStringList{"cleared.png", "empty.png", "filled.png", "mine 2.png", "mine.png"}));
    ReservationJournal::sweep(folder / "journal");
    EXPECT_EQ(shots(), (QStringList{"cleared.png", "filled.png", "mine.png"})) << "ours is still to be written";
    ReservationJournal::sweep(folder / "missing");
}

TEST_F(CrashTest, AJournalThatIsCutOffRemovesNoOtherFile)
{
    ASSERT_TRUE(QDir().mkpath(folder / "journal"));
    for (const QString name : {"a", "a b"})
        QFile(folder / name).open(QIODevice::WriteOnly);
    QFile journal(folder / "journal/reservations-1");
    ASSERT_TRUE(journal.open(QIODevice::WriteOnly));
    journal.write(QString(folder / "a b").toUtf8() + '\0' + QString(folder / "a").toUtf8());
    journal.close();
    ReservationJournal::sweep(folder / "journal");
    EXPECT_EQ(folder.files(), QStringList{"a"}) << "the second path may be the start of another one";
}

} // namespace Kovrel
