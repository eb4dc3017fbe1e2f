#include "cards/CardFiles.h"

#include "platform/Guarded.h"
#include "ports/CaptureFiles.h"

#include <QDir>
#include <QFileInfo>

namespace Kovrel {

CardFiles::CardFiles(CardServices services, CardShelf& shelf, CardPixels& pixels)
    : m_services(std::move(services)),
      m_shelf(shelf),
      m_pixels(pixels),
      m_dragFiles(m_services.temporaryFolder),
      m_scope(m_services.loop, m_services.workers)
{
}

void CardFiles::file(QUuid id, Reply<Path> reply)
{
    Scope::start(find(id, std::move(reply)), "Making the file of a card");
}

QCoro::Task<> CardFiles::find(QUuid id, Reply<Path> reply)
{
    Path path = co_await saved(id);
    if (!path && m_services.ports.files)
        path = co_await m_scope.reply<Path>([&](auto done) { m_services.ports.files->file(id, std::move(done)); });
    if (!path)
        path = co_await written(id);
    reply(path);
}

QCoro::Task<bool> CardFiles::exists(QString path)
{
    const auto look = [path] { return QFileInfo(path).isFile(); };
    const bool isThere = co_await m_scope.onWorker(Lane::clipboard, Guarded::orElse(look, false));
    co_return isThere;
}

QCoro::Task<CardFiles::Path> CardFiles::saved(QUuid id)
{
    const PiledCard* card = m_shelf.find(id);
    const Path path = card ? card->savedPath : std::nullopt;
    if (!path)
        co_return std::nullopt;
    const bool isThere = co_await exists(*path);
    PiledCard* now = m_shelf.find(id);
    if (!isThere && now && now->savedPath == path)
        now->savedPath.reset();
    co_return isThere ? path : std::nullopt;
}

QCoro::Task<CardFiles::Path> CardFiles::written(QUuid id)
{
    const auto known = m_written.find(id);
    const QString before = known == m_written.end() ? QString() : known->second;
    const bool isThere = co_await exists(before);
    if (isThere)
        co_return before;
    const std::optional<CaptureResult> capture = co_await m_scope.join(m_pixels.capture(id));
    if (!capture)
        co_return std::nullopt;
    const SaveSettings settings{.format = m_services.preferences.get(Settings::imageFormat),
                                .quality = m_services.preferences.get(Settings::jpegQuality),
                                .fileNameTemplate = m_services.preferences.get(Settings::fileNameTemplate)};
    const auto write = [files = m_dragFiles, settings, image = capture->image, date = capture->date]() -> Path {
        return files.writeTempImage(settings, image, date);
    };
    const Path path = co_await m_scope.onWorker(Lane::clipboard, Guarded::orElse(write, Path()));
    if (path)
        m_written[id] = *path;
    if (!m_shelf.find(id))
        forget(id);
    co_return m_shelf.find(id) ? path : std::nullopt;
}

void CardFiles::forget(QUuid id)
{
    const auto found = m_written.find(id);
    if (found == m_written.end())
        return;
    // It has a folder of its own.
    const auto remove = [folder = QFileInfo(found->second).path()] { QDir(folder).removeRecursively(); };
    m_services.workers.submit(Lane::utility, remove);
    m_written.erase(found);
}

} // namespace Kovrel
