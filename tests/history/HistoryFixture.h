#pragma once

#include "history/CaptureHistoryStore.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestPictures.h"

#include <QFile>

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel::Testing {

// A history in a folder of its own, whose time and lanes the test drives.
struct HistoryFixture : testing::Test {
    // The store and what it needs, as one run of the program has it.
    struct Run {
        explicit Run(HistoryFixture& fixture)
            : preferences(fixture.defaults),
              ocr(fixture.loop, fixture.workers, fixture.folder.path(), [this](QUuid id) { return store.status(id); },
                  {}),
              store({.loop = fixture.loop,
                     .workers = fixture.workers,
                     .preferences = preferences,
                     .ocr = ocr,
                     .folder = fixture.folder.path(),
                     .rescue = [&fixture](const CaptureResult& result, const auto&, const QString&) {
                         fixture.rescued << result.id;
                     }})
        {
        }

        Preferences preferences;
        CaptureOCRStore ocr;
        CaptureHistoryStore store;
    };

    HistoryFixture() { Preferences::registerDefaults(defaults); }

    std::unique_ptr<Run> started()
    {
        auto next = std::make_unique<Run>(*this);
        next->store.start();
        settle();
        return next;
    }

    // A new start of the program, without or with a proper end.
    void kill() { run.reset(); }

    void restart()
    {
        run->store.prepareToEnd();
        settle();
        run.reset();
        run = started();
    }

    void settle()
    {
        do
            loop.runPosted();
        while (workers.runAll() > 0);
        loop.runPosted();
    }

    static QUuid id(int number) { return QUuid(uint(number), 0, 0x4000, 0x80, 0, 0, 0, 0, 0, 0, 1); }

    static QString name(int number) { return id(number).toString(QUuid::WithoutBraces).toUpper(); }

    CaptureResult capture(int number) const
    {
        return {.id = id(number),
                .image = testPicture({40, 30}, Texture::blocks, quint32(number)),
                .mode = CaptureMode::window,
                .date = firstDate.addSecs(number),
                .pixelScale = 2,
                .sourceApp = SourceApp{"Editor", "org.example.Editor"}};
    }

    std::shared_ptr<CaptureRecording> record(int number, std::shared_ptr<CaptureSave> save = {})
    {
        return store().record(capture(number), std::move(save), {});
    }

    void recordUpTo(int last)
    {
        for (int number = 1; number <= last; ++number) {
            record(number);
            settle();
        }
    }

    CaptureHistoryStore& store() { return run->store; }

    // The numbers of captures, as their identities say them.
    static std::vector<int> numbers(const auto& entries)
    {
        std::vector<int> all;
        all.reserve(size_t(std::ranges::distance(entries)));
        for (const HistoryEntry& entry : entries)
            all.push_back(int(entry.id.data1));
        return all;
    }

    std::vector<int> entries() { return numbers(store().entries()); }

    QByteArray read(const QString& file) const
    {
        QFile found(folder / file);
        return found.open(QIODevice::ReadOnly) ? found.readAll() : QByteArray();
    }

    void write(const QString& file, const QByteArray& bytes) const
    {
        QFile target(folder / file);
        ASSERT_TRUE(target.open(QIODevice::WriteOnly));
        target.write(bytes);
    }

    QStringList filesOf(int number) const { return folder.files().filter(name(number)); }

    const QDateTime firstDate{QDate(2024, 3, 5), QTime(9, 7, 3)};
    FakeMainLoop loop;
    FakeWorkers workers;
    TempFolder folder;
    TempFolder settings;
    UserDefaults defaults{settings / "kovrel.conf"};
    QList<QUuid> rescued;
    std::unique_ptr<Run> run;
};

} // namespace Kovrel::Testing
