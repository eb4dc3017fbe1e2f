#include "bench/HistorySample.h"

#include "history/files/HistoryIndexFile.h"
#include "history/files/ThumbnailFile.h"
#include "platform/ImageCodec.h"

#include <QDir>
#include <QFile>

#include <filesystem>

namespace Kovrel::Bench {

namespace {

struct Files {
    QString base;
    QString thumbnail;
    QSize size;
};

void put(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("can't write %s", qUtf8Printable(path));
}

Files store(const QString& folder, int number, const QImage& picture)
{
    const QString stem = QString("%1/source-%2").arg(folder).arg(number);
    Files files{stem + ".png", stem + ".jpg", picture.size()};
    put(files.base, ImageCodec::encode(picture, ImageFormat::png, 1).value());
    put(files.thumbnail, ThumbnailFile::encoded(picture).value());
    return files;
}

HistoryEntry capture(int number, const QSize& size)
{
    constexpr std::array applications{"Firefox", "Terminal", "Text Editor", "Files", "Inkscape", "Mail", "Calculator"};
    constexpr std::array modes{"area", "window", "fullScreen", "area", "lastArea", "ocrRegion", "timed"};
    const QString application = applications[size_t(number * 3) % applications.size()];
    return {.id = QUuid::createUuid(),
            .date = QDateTime::currentDateTimeUtc().addSecs(-1700 * qint64(number)),
            .mode = modes[size_t(number) % modes.size()],
            .pixelScale = 1,
            .savedPath = number % 4 == 1
                             ? std::optional(QString("/home/me/Documents/Kovrel/Screenshot %1.png").arg(number))
                             : std::nullopt,
            .title = number % 9 == 2 ? std::optional(QString("Bill %1 for the landlord").arg(number)) : std::nullopt,
            .sourceBundleID = "org.example." + application,
            .sourceAppName = application,
            .pixelWidth = size.width(),
            .pixelHeight = size.height()};
}

HistoryList list(const char* name, int color, const QList<HistoryEntry>& entries, int every)
{
    HistoryList list{.id = QUuid::createUuid(),
                     .name = name,
                     .colorHex = HistoryList::palette[size_t(color)].hex,
                     .createdAt = QDateTime::currentDateTimeUtc(),
                     .entryIDs = {}};
    for (int number = color; number < int(entries.size()) && list.entryIDs.size() < 200; number += every)
        list.entryIDs.push_back(entries[number].id);
    return list;
}

} // namespace

HistoryState HistorySample::make(const HistoryFiles& files, int count, const std::vector<QImage>& pictures)
{
    QDir().mkpath(files.folder());
    std::vector<Files> sources;
    sources.reserve(pictures.size());
    for (size_t number = 0; number < pictures.size(); ++number)
        sources.push_back(store(files.folder(), int(number), pictures[number]));
    HistoryState state;
    for (int number = 0; number < count; ++number) {
        const Files& source = sources[size_t(number) % sources.size()];
        state.entries << capture(number, source.size);
        const QUuid id = state.entries.back().id;
        std::filesystem::create_hard_link(source.base.toStdString(), files.base(id).toStdString());
        std::filesystem::create_hard_link(source.thumbnail.toStdString(), files.thumbnail(id).toStdString());
    }
    if (count > 0)
        state.lists = {list("Receipts", 3, state.entries, 11), list("Bug reports", 6, state.entries, 13),
                       list("Ideas for the kitchen", 8, state.entries, 17)};
    HistoryIndexFile(files).write({}, state, {}).value();
    return state;
}

} // namespace Kovrel::Bench
