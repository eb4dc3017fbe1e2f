#include "editorwindow/EditorHandout.h"

#include "editorwindow/EditorToasts.h"
#include "platform/Guarded.h"
#include "platform/PicturePrinter.h"
#include "platform/Workers.h"
#include "ports/CaptureDelivery.h"
#include "preferences/Preferences.h"
#include "ui/FileDrag.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

namespace Kovrel {

namespace {

using Path = std::optional<QString>;

constexpr QSize faceSize(400, 400); // pixels that are enough for what the pointer carries

} // namespace

EditorHandout::EditorHandout(EditorServices& services, EditorSession& session, EditorKeeping& keeping)
    : m_services(services),
      m_session(session),
      m_keeping(keeping),
      m_files(services.temporaryFolder),
      m_scope(services.loop, services.workers)
{
}

SaveSettings EditorHandout::settings() const
{
    const Preferences& preferences = m_services.preferences;
    return {.formatAuto = preferences.get(Settings::saveFormatAuto),
            .format = preferences.get(Settings::imageFormat),
            .quality = preferences.get(Settings::jpegQuality),
            .fileNameTemplate = preferences.get(Settings::fileNameTemplate)};
}

// A file that looks as the document does now.
QCoro::Task<Path> EditorHandout::find()
{
    const EditorDocument document = m_session.document();
    const Path kept = co_await m_scope.reply<Path>([this](auto done) { m_keeping.file(std::move(done)); });
    if (m_session.document() != document)
        co_return std::nullopt;
    co_return !kept && m_written && m_written->first == document ? m_written->second : kept;
}

QCoro::Task<EditorHandout::Made> EditorHandout::make()
{
    const Path known = co_await find();
    const EditorDocument document = m_session.document();
    const QImage picture = co_await m_scope.reply<QImage>([this](auto done) { m_keeping.render(std::move(done)); });
    const auto job = [known, picture, files = m_files, settings = settings(), date = m_services.loop.date()] {
        if (picture.isNull())
            return Made();
        const bool isThere = known && QFileInfo(*known).isFile();
        const auto png = std::make_shared<EncodedPng>(picture);
        png->bytes();
        return Made{isThere ? known : files.writeTempImage(settings, picture, date), png,
                    picture.scaled(faceSize, Qt::KeepAspectRatio, Qt::SmoothTransformation)};
    };
    Made made = co_await m_scope.onWorker(Lane::editorSave, Guarded::orElse(job, Made()));
    if (!made.file)
        EditorToasts::warn(m_services.ports, tr("The picture can't be handed out"), tr("Its file can't be written."));
    else if (made.file != known)
        m_written = {document, *made.file};
    co_return made;
}

// --- Dragged

void EditorHandout::prepareDrag()
{
    m_made.reset();
    m_handle.clear();
    Scope::start(prepare(++m_round), "preparing a drag");
}

QCoro::Task<> EditorHandout::prepare(quint64 round)
{
    Made made = co_await make();
    if (round != m_round || !made.file)
        co_return;
    m_made = std::move(made);
    if (m_handle)
        runDrag();
}

void EditorHandout::drag(QWidget& handle)
{
    m_handle = &handle;
    if (m_made)
        runDrag();
}

// Everything may have gone when it returns.
void EditorHandout::runDrag()
{
    const Made made = *std::exchange(m_made, std::nullopt);
    QWidget* const handle = m_handle;
    m_handle.clear();
    if (QGuiApplication::mouseButtons().testFlag(Qt::LeftButton))
        FileDrag::run(*handle, {*made.file, made.png->bytes().value_or(QByteArray())}, made.face,
                      handle->devicePixelRatioF());
}

// --- Copied

void EditorHandout::copyAsFile()
{
    Scope::start(copyWhenMade(), "copying a picture as a file");
}

QCoro::Task<> EditorHandout::copyWhenMade()
{
    const Made made = co_await make();
    const auto& delivery = m_services.ports.delivery;
    if (!made.file || !delivery)
        co_return;
    delivery->copyAsFile(*made.file, made.png);
    EditorToasts::sayCopied(m_services.ports, tr("Copied as a file"));
}

// --- Printed

void EditorHandout::print(const QString& title, QWindow* parent)
{
    Scope::start(printWhenMade(title, parent), "printing a picture");
}

QCoro::Task<> EditorHandout::printWhenMade(QString title, QPointer<QWindow> parent)
{
    const QImage picture = co_await m_scope.reply<QImage>([this](auto done) { m_keeping.render(std::move(done)); });
    PicturePrinter::Outcome outcome = std::unexpected(tr("The picture can't be made."));
    if (!picture.isNull() && m_services.printer)
        outcome = co_await m_scope.reply<PicturePrinter::Outcome>(
            [&](auto done) { m_services.printer->print(picture, title, parent, std::move(done)); });
    if (!outcome)
        EditorToasts::warn(m_services.ports, tr("Not printed"), outcome.error());
}

} // namespace Kovrel
