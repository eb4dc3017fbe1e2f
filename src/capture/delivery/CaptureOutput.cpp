#include "capture/delivery/CaptureOutput.h"

#include "platform/Guarded.h"
#include "platform/files/PrivateFolder.h"
#include "saving/SaveService.h"

#include <QDesktopServices>
#include <QLoggingCategory>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.capture")

// What a worker needs to save one capture.
struct SaveJob {
    SaveSettings settings; // but for the folder, which takes a look at the disk to tell
    const Preferences* preferences;
    CaptureResult result;
    std::optional<QString> outputPath;
    std::shared_ptr<EncodedPng> png;
    std::shared_ptr<ReservationJournal> journal;
    QString rescueFolder;
};

SaveService::Result saveIntoFolder(const SaveJob& job, const QString& folder)
{
    SaveSettings settings = job.settings;
    settings.folder = folder;
    const bool wantsWholePng =
        !settings.downscale && SaveService::resolvedFormat(settings, job.result.image) == ImageFormat::png;
    return SaveService::saveToDefaultLocationReturningPNG(
        settings, job.result.image, job.result.date, job.result.pixelScale,
        wantsWholePng ? job.png->bytes() : std::nullopt, *job.journal);
}

// The capture must not be lost because its place can't be written.
SaveOutcome rescue(const SaveJob& job, const QString& failedFolder, const QString& reason)
{
    PrivateFolder::make(job.rescueFolder);
    for (const QString& folder : {Preferences::defaultSaveDirectory(), job.rescueFolder}) {
        if (folder == failedFolder)
            continue;
        if (const auto saved = saveIntoFolder(job, folder))
            return std::unexpected(CaptureOutput::tr("%1; kept as %2").arg(reason, saved->path));
    }
    return std::unexpected(reason);
}

SaveOutcome run(const SaveJob& job)
{
    const QString folder = job.outputPath ? QString() : job.preferences->resolvedSaveDirectory();
    const auto saved = job.outputPath ? SaveService::saveTo(job.result.image, *job.outputPath, job.settings.quality)
                                      : saveIntoFolder(job, folder);
    if (saved)
        return saved->path;
    return rescue(job, folder, saved.error().message);
}

} // namespace

CaptureOutput::CaptureOutput(MainLoop& loop, Workers& workers, Preferences& preferences, Displays& displays,
                             ClipboardService& clipboard, std::shared_ptr<ReservationJournal> journal,
                             QString rescueFolder)
    : m_preferences(preferences),
      m_displays(displays),
      m_clipboard(clipboard),
      m_journal(std::move(journal)),
      m_rescueFolder(std::move(rescueFolder)),
      m_loop(loop),
      m_scope(loop, workers)
{
}

SaveSettings CaptureOutput::saveSettings() const
{
    const DisplayList displays = m_displays.all();
    const Display* primary = primaryDisplay(displays);
    return {
        .formatAuto = m_preferences.get(Settings::saveFormatAuto),
        .format = m_preferences.get(Settings::imageFormat),
        .quality = m_preferences.get(Settings::jpegQuality),
        .downscale = m_preferences.get(Settings::retinaDownscale),
        .mainScreenScale = primary ? primary->scale : 2.0,
        .fileNameTemplate = m_preferences.get(Settings::fileNameTemplate),
        .folder = {},
    };
}

std::shared_ptr<CaptureSave> CaptureOutput::save(CaptureResult result, std::optional<QString> outputPath,
                                                 std::shared_ptr<EncodedPng> png)
{
    auto save = std::make_shared<CaptureSave>();
    ++m_pendingSaves;
    Scope::start(saveInBackground(std::move(result), std::move(outputPath), std::move(png), save), "Saving a capture");
    return save;
}

QCoro::Task<> CaptureOutput::saveInBackground(CaptureResult result, std::optional<QString> outputPath,
                                              std::shared_ptr<EncodedPng> png, std::shared_ptr<CaptureSave> save)
{
    const SaveJob job{
        .settings = saveSettings(),
        .preferences = &m_preferences,
        .result = std::move(result),
        .outputPath = std::move(outputPath),
        .png = std::move(png),
        .journal = m_journal,
        .rescueFolder = m_rescueFolder,
    };
    SaveOutcome outcome;
    try {
        outcome = co_await m_scope.onWorker(Lane::save, Guarded::orReason([job] { return run(job); }));
    } catch (const std::exception&) { // no thread could be had
        outcome = std::unexpected(Guarded::reason());
    }
    save->finish(std::move(outcome));
    if (--m_pendingSaves == 0 && m_whenSaved)
        std::exchange(m_whenSaved, nullptr)();
}

void CaptureOutput::afterPendingSaves(std::chrono::milliseconds deadline, std::function<void()> work)
{
    if (m_pendingSaves == 0) {
        work();
        return;
    }
    m_whenSaved = std::move(work);
    m_loop.after(deadline, [this] {
        if (m_whenSaved)
            std::exchange(m_whenSaved, nullptr)();
    });
}

void CaptureOutput::copy(CaptureResult result, std::shared_ptr<EncodedPng> png)
{
    m_clipboard.copy(result.image, std::move(png));
}

void CaptureOutput::copyText(const QString& text)
{
    m_clipboard.copyText(text);
}

void CaptureOutput::openLink(const QUrl& url)
{
    if (!QDesktopServices::openUrl(url))
        qCWarning(log, "%s could not be opened", qUtf8Printable(url.toString()));
}

} // namespace Kovrel
