#include "editorwindow/EditorKeeping.h"

#include "editor/EditedPicture.h"
#include "editor/document/CroppedCapture.h"
#include "platform/Guarded.h"
#include "platform/Workers.h"
#include "ports/CaptureDelivery.h"
#include "ports/CaptureFiles.h"
#include "preferences/Preferences.h"

#include <QLoggingCategory>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.editor")

std::function<QImage()> rendering(EditorCapture capture, EditorDocument document, MeasureUnit unit)
{
    const auto job = [capture = std::move(capture), document = std::move(document), unit] {
        return EditedPicture::rendered(capture, document, unit);
    };
    return Guarded::orElse(job, QImage());
}

} // namespace

EditorKeeping::EditorKeeping(EditorServices& services, EditorSession& session, std::optional<QString> savedPath,
                             Kind kind)
    : m_services(services),
      m_session(session),
      m_savedPath(std::move(savedPath)),
      m_kind(kind),
      m_isToBeAdded(kind == Kind::file && !(services.ports.edits && services.ports.edits->has(session.capture().id))),
      m_opened(session.document()),
      m_inHistory(m_opened),
      m_inFile(m_opened),
      m_changes(session.onChange([this] { noteSoon(); })),
      m_scope(services.loop, services.workers)
{
}

EditorKeeping::~EditorKeeping()
{
    m_services.loop.cancel(m_timer);
}

// --- The history

bool EditorKeeping::isKept() const
{
    const auto& edits = m_services.ports.edits;
    return edits && (m_isToBeAdded ? edits->takesNew() : edits->has(m_session.capture().id));
}

bool EditorKeeping::isChanged() const
{
    return m_kind == Kind::file ? m_session.document() != m_inFile : !isNoted();
}

void EditorKeeping::noteSoon()
{
    if (m_timer == 0 && !isNoted())
        m_timer = m_services.loop.after(notingInterval, [this] { note(); });
}

void EditorKeeping::add()
{
    m_isToBeAdded = false;
    m_isAdded = true;
    m_services.ports.edits->add(m_session.capture(), m_savedPath.value_or(QString()));
}

// A crop is carried out at the end only: until then it can be undone.
void EditorKeeping::note()
{
    m_timer = 0;
    if (!isKept())
        return;
    if (m_isKeeping || isNoted())
        return noteSoon();
    EditorDocument document = m_session.document();
    document.composition.crop.reset();
    const auto noted = [this, shown = m_session.document()](const Kept& outcome) {
        if (outcome)
            m_inHistory = shown;
    };
    Scope::start(keep(std::move(document), false, noted), "noting what is edited");
}

void EditorKeeping::keepForGood(Reply<Kept> reply)
{
    m_services.loop.cancel(std::exchange(m_timer, 0));
    m_changes = {};
    if (m_isAdded && m_session.document() == m_opened) {
        m_services.ports.edits->remove(m_session.capture().id);
        return reply({});
    }
    Scope::start(keep(m_session.document(), true, std::move(reply)), "keeping what was edited");
}

QCoro::Task<> EditorKeeping::keep(EditorDocument document, bool isForGood, Reply<Kept> reply)
{
    m_isKeeping = true;
    if (m_isToBeAdded && isKept())
        add();
    const EditorCapture& capture = m_session.capture();
    const bool isCropped = isForGood && document.composition.crop;
    const auto job = rendering(capture, document, m_services.preferences.get(Settings::measureUnit));
    QImage flattened = co_await m_scope.onWorker(Lane::editorSave, job);
    CroppedCapture cropped = CroppedCapture::of(capture, std::move(document));
    if (!isCropped)
        cropped.capture.image = {};
    Kept kept = std::unexpected(tr("There is no history."));
    if (const auto& edits = m_services.ports.edits; edits && !flattened.isNull())
        kept = co_await m_scope.reply<Kept>([&](auto done) {
            edits->keep({std::move(cropped.capture), std::move(cropped.document), std::move(flattened), m_savedPath},
                        done);
        });
    m_isKeeping = false;
    if (!kept)
        qCWarning(log, "An edit was not kept: %s", qUtf8Printable(kept.error()));
    reply(kept);
}

// --- Files and the clipboard

// What is noted in the history is not cropped yet.
void EditorKeeping::file(Reply<std::optional<QString>> reply) const
{
    const auto& files = m_services.ports.files;
    const bool isNotedAsItLooks = m_kind == Kind::capture && !m_session.document().composition.crop;
    if (!isChanged() && isNotedAsItLooks && files)
        return files->file(m_session.capture().id, std::move(reply));
    const auto path = isChanged() || m_kind == Kind::capture ? std::nullopt : m_savedPath;
    m_services.loop.post([reply = std::move(reply), path] { reply(path); });
}

void EditorKeeping::render(Reply<QImage> reply)
{
    Scope::start(renderInBackground(std::move(reply)), "rendering what was edited");
}

QCoro::Task<> EditorKeeping::renderInBackground(Reply<QImage> reply)
{
    const auto job =
        rendering(m_session.capture(), m_session.document(), m_services.preferences.get(Settings::measureUnit));
    const QImage picture = co_await m_scope.onWorker(Lane::editorSave, job);
    reply(picture);
}

CaptureResult EditorKeeping::resultOf(QImage picture) const
{
    return {.id = m_session.capture().id,
            .image = std::move(picture),
            .date = QDateTime::currentDateTime(),
            .pixelScale = m_session.capture().scale};
}

void EditorKeeping::save(std::optional<QString> path, std::function<void(const SaveOutcome&)> done)
{
    write(path ? path : m_savedPath, std::move(done));
}

void EditorKeeping::saveCopy(std::function<void(const SaveOutcome&)> done)
{
    write(std::nullopt, std::move(done));
}

void EditorKeeping::write(std::optional<QString> path, std::function<void(const SaveOutcome&)> done)
{
    const EditorDocument document = m_session.document();
    render([this, document, path = std::move(path), done = std::move(done)](const QImage& picture) {
        const auto& delivery = m_services.ports.delivery;
        if (picture.isNull() || !delivery)
            return done(std::unexpected(SaveProblem{.message = tr("The picture can't be made.")}));
        const auto save = delivery->save(resultOf(picture), path, std::make_shared<EncodedPng>(picture));
        // A save may outlive the window that asked for it.
        save->whenDone(m_lifeline.guard([this, document, done](const SaveOutcome& outcome) {
            if (outcome)
                saved(document, *outcome);
            done(outcome);
        }));
    });
}

// The history then has it at least as late as the file, by which it is known for that file's picture.
void EditorKeeping::saved(const EditorDocument& document, const QString& path)
{
    m_savedPath = path;
    m_inFile = document;
    if (m_kind == Kind::file && (m_isAdded || document != m_opened)) {
        m_inHistory.reset();
        note();
    }
}

void EditorKeeping::copy(std::function<void()> done)
{
    render([this, done = std::move(done)](const QImage& picture) {
        if (!picture.isNull())
            m_services.ports.delivery.tell(&CaptureDelivery::copy, resultOf(picture),
                                           std::make_shared<EncodedPng>(picture));
        done();
    });
}

} // namespace Kovrel
