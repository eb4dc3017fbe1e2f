#include "saving/ClipboardService.h"

#include "platform/Guarded.h"
#include "platform/ImageCodec.h"

#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <memory>
#include <mutex>

namespace Kovrel {

namespace {

const QString pngType = "image/png";
const QString jpegType = "image/jpeg";
const QString tiffType = "image/tiff";

constexpr double lossless = 1;

// Made by whoever asks first; others wait for him. Then the pixels go.
ClipboardOffer tiffOf(const QImage& image)
{
    struct Made {
        std::once_flag once;
        QImage image;
        QByteArray bytes;
    };

    const auto made = std::make_shared<Made>();
    made->image = image;
    return {tiffType, [made] {
                std::call_once(made->once, [&] {
                    made->bytes = ClipboardService::tiffData(std::exchange(made->image, {})).value_or(QByteArray());
                });
                return made->bytes;
            }};
}

ClipboardOffer known(const QString& type, const QByteArray& bytes)
{
    return {type, [bytes] { return bytes; }};
}

QByteArray uriOf(const QString& path)
{
    return QUrl::fromLocalFile(path).toEncoded();
}

ClipboardOffer uriListOf(const QString& path)
{
    return known("text/uri-list", uriOf(path) + "\r\n");
}

ClipboardOffer pngOf(std::shared_ptr<EncodedPng> png)
{
    return {pngType, [png = std::move(png)] { return png->bytes().value_or(QByteArray()); }};
}

std::optional<QByteArray> contentOf(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray bytes = file.readAll();
    return file.error() == QFileDevice::NoError ? std::optional(bytes) : std::nullopt;
}

struct TypedBytes {
    QString type;
    QByteArray bytes;
};

std::optional<TypedBytes> pngOrTiff(const QImage& image, const ClipboardService::MakeBytes& png)
{
    if (const auto bytes = png ? png() : std::nullopt)
        return TypedBytes{pngType, *bytes};
    if (const auto bytes = ClipboardService::tiffData(image))
        return TypedBytes{tiffType, *bytes};
    return std::nullopt;
}

} // namespace

void ClipboardService::copy(const QImage& image, std::shared_ptr<EncodedPng> png)
{
    ++m_copyGeneration;
    putImage(image, png ? std::move(png) : std::make_shared<EncodedPng>(image));
}

void ClipboardService::putImage(const QImage& image, const std::shared_ptr<EncodedPng>& png)
{
    m_clipboard.put({pngOf(png), tiffOf(image)});
}

void ClipboardService::copyFile(const QString& path, int generation, bool force, Reply<bool> copied)
{
    const QString type = pasteboardType(path).value_or(QString());
    const int own = force && !type.isEmpty() ? ++m_copyGeneration : generation;
    Scope::start(readAndPut(path, type, own, std::move(copied)), "copying a file");
}

QCoro::Task<> ClipboardService::readAndPut(QString path, QString type, int generation, Reply<bool> copied)
{
    const auto read =
        Guarded::orElse([path, type] { return type.isEmpty() ? std::nullopt : contentOf(path); }, std::nullopt);
    const auto bytes = co_await m_scope.onWorker(Lane::clipboard, read);
    if (!bytes) {
        copied(false);
        co_return;
    }
    if (generation == m_copyGeneration) {
        m_clipboard.put({known(type, *bytes), uriListOf(path)});
    }
    copied(true);
}

// File managers of several desktops paste files only where they are told that these are copied, not cut.
void ClipboardService::copyAsFile(const QString& path, std::shared_ptr<EncodedPng> png)
{
    ++m_copyGeneration;
    m_clipboard.put(
        {uriListOf(path), known("x-special/gnome-copied-files", "copy\n" + uriOf(path)), pngOf(std::move(png))});
}

void ClipboardService::copyInBackground(const QImage& image, MakeBytes png, int generation)
{
    Scope::start(makeAndPut(image, std::move(png), generation), "copying a picture");
}

QCoro::Task<> ClipboardService::makeAndPut(QImage image, MakeBytes png, int generation)
{
    const auto make = Guarded::orElse([image, png] { return pngOrTiff(image, png); }, std::nullopt);
    const auto made = co_await m_scope.onWorker(Lane::clipboard, make);
    if (generation != m_copyGeneration)
        co_return;
    if (made)
        m_clipboard.put({known(made->type, made->bytes)});
    else
        putImage(image, std::make_shared<EncodedPng>(image));
}

void ClipboardService::copyText(const QString& text)
{
    ++m_copyGeneration;
    m_clipboard.putText(text);
}

std::optional<QString> ClipboardService::pasteboardType(const QString& path)
{
    const QString extension = QFileInfo(path).suffix().toLower();
    if (extension == "png")
        return pngType;
    if (extension == "jpg" || extension == "jpeg")
        return jpegType;
    return std::nullopt;
}

std::optional<QByteArray> ClipboardService::tiffData(const QImage& image)
{
    const auto bytes = ImageCodec::encode(image, ImageFormat::tiff, lossless);
    return bytes ? std::optional(*bytes) : std::nullopt;
}

} // namespace Kovrel
