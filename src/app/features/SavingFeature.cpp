#include "app/features/SavingFeature.h"

#include "app/foundation/AppPaths.h"
#include "platform/files/HiddenFile.h"
#include "platform/files/PrivateFolder.h"
#include "saving/DragFiles.h"
#include "settings/pages/SavingPage.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace Kovrel {

SavingFeature::SavingFeature(Foundation& foundation, Ports& ports)
    : m_foundation(foundation),
      m_clipboard(foundation.loop, foundation.workers, foundation.desktop->clipboard()),
      m_editorSaves(foundation.loop, foundation.workers),
      m_output(foundation.loop, foundation.workers, foundation.preferences, foundation.desktop->displays(), m_clipboard,
               foundation.desktop->fileManager(), std::make_shared<ReservationJournal>(AppPaths::reservationFolder()),
               AppPaths::unsavedFolder())
{
    ports.delivery.offer(m_output);
}

void SavingFeature::start(const Launch&)
{
    if (!m_foundation.preferences.isStored(Settings::saveLocationBookmark))
        ensureDefaultSaveFolder();
    sweepTemporaryFiles();
}

void SavingFeature::ensureDefaultSaveFolder()
{
    m_foundation.workers.submit(Lane::utility, [] { Preferences::ensureDefaultSaveDirectoryExists(); });
}

void SavingFeature::sweepTemporaryFiles()
{
    const QString temporaryFolder = AppPaths::temporaryFolder();
    PrivateFolder::make(temporaryFolder);
    m_foundation.workers.submit(Lane::utility, [temporaryFolder, preferences = &m_foundation.preferences] {
        DragFiles(temporaryFolder).sweepDragTemp();
        ReservationJournal::sweep(AppPaths::reservationFolder());
        for (const QString& folder :
             {preferences->resolvedSaveDirectory(), Preferences::defaultSaveDirectory(), AppPaths::unsavedFolder(),
              AppPaths::dataFolder(), QFileInfo(AppPaths::preferencesFile()).path()})
            HiddenFile::sweep(folder);
    });
}

void SavingFeature::finishPending(std::chrono::milliseconds deadline, std::function<void()> done)
{
    const auto until = m_foundation.loop.now() + deadline;
    m_editorSaves.afterPendingEditorSaves(double(deadline.count()) / 1000, [this, until, done = std::move(done)] {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(until - m_foundation.loop.now());
        m_output.afterPendingSaves(std::max(left, std::chrono::milliseconds(0)), done);
    });
}

std::vector<SettingsPage> SavingFeature::settingsPages()
{
    return SavingPage::make(
        {m_foundation.loop, m_foundation.workers, m_foundation.desktop->filePanel(), m_foundation.preferences});
}

std::unique_ptr<Feature> makeSavingFeature(Foundation& foundation, Ports& ports)
{
    return std::make_unique<SavingFeature>(foundation, ports);
}

} // namespace Kovrel
