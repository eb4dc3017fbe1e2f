#include "capture/delivery/CaptureOutput.h"

#include "platform/Guarded.h"
#include "platform/files/PrivateFolder.h"
#include "saving/SaveService.h"

#include <QDesktopServices>
#include <QFileInfo>
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

SaveService::MakePng wholePng(const SaveJob& job)
{
    return [png = job.png] { return png->bytes(); };
}

SaveService::Result saveIntoFolder(const SaveJob& job, const QString& folder)
{
    SaveSettings settings = job.settings;
    settings.folder = folder;
    return SaveService::saveToDefaultLocationReturningPNG(settings, job.result.image, job.result.date,
                                                          job.result.pixelScale, wholePng(job), *job.journal);
}

// The capture must not be lost because its place can't be written.
SaveOutcome rescue(const SaveJob& job, const QString& failedFolder, const QString& reason)
{
    PrivateFolder::make(job.rescueFolder);
    for (const QString& folder : {Preferences::defaultSaveDirectory(), job.rescueFolder}) {
        if (folder == failedFolder)
            continue;
        if (const auto saved = saveIntoFolder(job, folder))
            return std::unexpected(
                SaveProblem{CaptureOutput::tr("%1; kept as %2").arg(reason, saved->path), saved->path});
    }
    return std::unexpected(SaveProblem{reason});
}

QString folderOf(const SaveJob& job)
{
    return job.preferences->chosenSaveDirectory().value_or(Preferences::defaultSaveDirectory());
}

// What keeps a chosen folder from taking files, in one line; the default one is made when it is missing.
QString faultOf(const QString& folder)
{
    const QFileInfo info(folder);
    if (folder.isEmpty() || folder == Preferences::defaultSaveDirectory() || info.isDir())
        return {};
    return info.exists() ? CaptureOutput::tr("%1 is no folder").arg(folder)
                         : CaptureOutput::tr("The folder %1 is not there").arg(folder);
}

SaveOutcome run(const SaveJob& job)
{
    const QString folder = job.outputPath ? QString() : folderOf(job);
    if (const QString fault = faultOf(folder); !fault.isEmpty())
        return rescue(job, folder, fault);
    const auto saved = job.outputPath
                           ? SaveService::saveTo(job.result.image, *job.outputPath, job.settings.quality, wholePng(job))
                           : saveIntoFolder(job, folder);
    if (saved)
        return saved->path;
    return rescue(job, folder, saved.error().message);
}

} // namespace

CaptureOutput::CaptureOutput(MainLoop& loop, Workers& workers, Preferences& preferences, Displays& displays,
                             ClipboardService& clipboard, FileManager& fileManager,
                             std::shared_ptr<ReservationJournal> journal, QString rescueFolder)
    : m_preferences(preferences),
      m_displays(displays),
      m_clipboard(clipboard),
      m_fileManager(fileManager),
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
        outcome = std::unexpected(SaveProblem{Guarded::reason()});
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

void CaptureOutput::copyAsFile(const QString& path, std::shared_ptr<EncodedPng> png)
{
    m_clipboard.copyAsFile(path, std::move(png));
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
