#pragma once

#include "platform/Displays.h"
#include "platform/FileManager.h"
#include "platform/Scope.h"
#include "ports/CaptureDelivery.h"
#include "preferences/Preferences.h"
#include "saving/ClipboardService.h"
#include "saving/ReservationJournal.h"
#include "saving/SaveSettings.h"

#include <QCoreApplication>

namespace Kovrel {

// Where finished captures go: the save folder, the clipboard. A capture that can't be saved where it should go is kept
// in the default folder, else among the program's own data, and the failure says where. Main thread.
class CaptureOutput : public CaptureDelivery {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::CaptureOutput)

public:
    CaptureOutput(MainLoop& loop, Workers& workers, Preferences& preferences, Displays& displays,
                  ClipboardService& clipboard, FileManager& fileManager, std::shared_ptr<ReservationJournal> journal,
                  QString rescueFolder);

    std::shared_ptr<CaptureSave> save(CaptureResult result, std::optional<QString> outputPath,
                                      std::shared_ptr<EncodedPng> png) override;
    void copy(CaptureResult result, std::shared_ptr<EncodedPng> png) override;
    void copyAsFile(const QString& path, std::shared_ptr<EncodedPng> png) override;
    void copyText(const QString& text) override;

    void reveal(const QString& path) override { m_fileManager.reveal(path); }

    void openLink(const QUrl& url) override;

    // Runs the work once no save is in flight, at the latest after the deadline.
    void afterPendingSaves(std::chrono::milliseconds deadline, std::function<void()> work);

private:
    // As they are now, but for the folder.
    SaveSettings saveSettings() const;
    QCoro::Task<> saveInBackground(CaptureResult result, std::optional<QString> outputPath,
                                   std::shared_ptr<EncodedPng> png, std::shared_ptr<CaptureSave> save);

    Preferences& m_preferences;
    Displays& m_displays;
    ClipboardService& m_clipboard;
    FileManager& m_fileManager;
    std::shared_ptr<ReservationJournal> m_journal;
    QString m_rescueFolder;
    int m_pendingSaves = 0;
    std::function<void()> m_whenSaved; // waits for the last of them
    MainLoop& m_loop;
    Scope m_scope;
};

} // namespace Kovrel
