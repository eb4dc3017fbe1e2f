#include "editorwindow/IncomingPictures.h"

#include "editor/session/Sticker.h"
#include "platform/ImageCodec.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

#include <algorithm>

namespace Kovrel {

namespace {

const QString uriList = "text/uri-list";

// Those without losses first; a program offers the same picture in several.
const QStringList imageTypes{"image/png",  "image/tiff", "image/bmp",  "image/x-bmp", "image/jpeg",
                             "image/webp", "image/heic", "image/heif", "image/avif",  "image/gif"};

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(IncomingPictures)
};

QStringList localFiles(const QMimeData& data)
{
    QStringList files;
    for (const QUrl& url : data.urls())
        if (url.isLocalFile())
            files << url.toLocalFile();
    return files;
}

} // namespace

QStringList IncomingPictures::mimeTypes()
{
    return imageTypes + QStringList{uriList};
}

bool IncomingPictures::mayBeIn(const QMimeData& data)
{
    return std::ranges::any_of(mimeTypes(), [&](const QString& type) { return data.hasFormat(type); });
}

IncomingPictures IncomingPictures::in(const QMimeData& data)
{
    if (const QStringList files = localFiles(data); !files.isEmpty())
        return {files, {}};
    const auto type = std::ranges::find_if(imageTypes, [&](const QString& one) { return data.hasFormat(one); });
    return {{}, type == imageTypes.end() ? QByteArray() : data.data(*type)};
}

IncomingPictures::Decoded IncomingPictures::decoded(const EditorCapture& capture) const
{
    Decoded result;
    const auto take = [&](const auto& picture, const QString& refusal) {
        if (picture)
            result.pictures.push_back(Sticker::bounded(*picture, capture));
        else
            result.refused = refusal;
    };
    if (files.isEmpty())
        take(ImageCodec::decode(bytes), Texts::tr("This is no picture that can be read."));
    for (const QString& file : files.first(std::min(files.size(), mostFiles)))
        take(ImageCodec::decodeFile(file),
             Texts::tr("%1 is no picture that can be read.").arg(QFileInfo(file).fileName()));
    if (files.size() > mostFiles)
        result.refused = Texts::tr("These are more than %1 pictures; the others were left out.").arg(mostFiles);
    return result;
}

} // namespace Kovrel
