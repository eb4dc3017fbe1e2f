#include "history/HistoryPictures.h"

#include "editor/json/AnnotationJson.h"
#include "platform/ImageCodec.h"
#include "platform/files/RegularFile.h"

#include <QFile>

namespace Kovrel {

namespace {

constexpr qint64 mostJsonBytes = qint64(1) << 30; // marks may hold pictures

QImage picture(const QString& path)
{
    return ImageCodec::decodeFile(path).value_or(QImage());
}

} // namespace

void HistoryPictures::full(QUuid id, Reply<QImage> reply)
{
    read<QImage>(id, [id](const HistoryFiles& files) { return picture(files.full(id)); }, std::move(reply));
}

void HistoryPictures::base(QUuid id, Reply<QImage> reply)
{
    read<QImage>(id, [id](const HistoryFiles& files) { return picture(files.base(id)); }, std::move(reply));
}

void HistoryPictures::fullPath(QUuid id, Reply<QString> reply)
{
    const auto find = [id](const HistoryFiles& files) {
        const QString path = files.full(id);
        return QFile::exists(path) ? path : QString();
    };
    read<QString>(id, find, std::move(reply));
}

void HistoryPictures::annotations(QUuid id, Reply<std::optional<std::vector<Annotation>>> reply)
{
    const auto find = [id](const HistoryFiles& files) {
        const auto json = RegularFile::read(files.annotations(id), mostJsonBytes);
        return json ? AnnotationJson::decoded(*json) : std::nullopt;
    };
    read<std::optional<std::vector<Annotation>>>(id, find, std::move(reply));
}

void HistoryPictures::backdrop(QUuid id, Reply<std::optional<EditorBackdrop>> reply)
{
    const auto find = [id](const HistoryFiles& files) {
        const auto json = RegularFile::read(files.backdrop(id), mostJsonBytes);
        return json ? EditorBackdrop::decode(*json) : std::nullopt;
    };
    read<std::optional<EditorBackdrop>>(id, find, std::move(reply));
}

} // namespace Kovrel
