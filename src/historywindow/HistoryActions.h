#pragma once

#include "history/CaptureHistoryStore.h"
#include "model/ToastContent.h"
#include "ports/Ports.h"
#include "saving/SaveWithPanel.h"

#include <QCoreApplication>
#include <QList>

namespace Kovrel {

// What can be done with captures of the history, besides what the store does by itself. What fails says so in a toast.
// Main thread; files and codecs are elsewhere.
class HistoryActions {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::HistoryActions)

public:
    struct Services {
        MainLoop& loop;
        Workers& workers;
        Preferences& preferences;
        CaptureHistoryStore& store;
        Ports& ports;
        FilePanel& filePanel;
        FileManager& fileManager;
    };

    explicit HistoryActions(Services services);

    // What a double click does: the first of editing, showing as a card and copying that there is.
    void open(QUuid id);
    void copy(QUuid id);
    void copyText(QUuid id);
    // For nobody who waits.
    void readText(QUuid id, Reply<OCROutcome> reply);
    // What somebody has selected of the text.
    void copyPart(const QString& text);
    void openLink(const QUrl& target);
    // Into the save folder. What has been saved already is saved again.
    void save(QList<QUuid> ids);
    // `window` is what the panel belongs to; may be null.
    void saveAs(QUuid id, QPointer<QWindow> window);
    // The file that was saved, or the history's own.
    void reveal(QUuid id);

    bool canReopen() const;
    // As cards.
    void reopen(const QList<QUuid>& ids);

    bool canPin() const;
    void pin(const QList<QUuid>& ids);

    bool canEdit() const;
    void edit(QUuid id);

private:
    QCoro::Task<> copyNow(QUuid id);
    QCoro::Task<> copyTextNow(QUuid id);
    QCoro::Task<> readTextNow(QUuid id, Reply<OCROutcome> reply);
    QCoro::Task<OCROutcome> text(QUuid id, QualityOfService qos);
    QCoro::Task<> saveNow(QList<QUuid> ids);
    QCoro::Task<> saveAsNow(QUuid id, QPointer<QWindow> window);
    QCoro::Task<> revealNow(QUuid id);
    QCoro::Task<> editNow(QUuid id);
    QCoro::Task<> pinNow(QList<QUuid> ids);
    QCoro::Task<QImage> pixels(QUuid id);
    Wait<std::optional<CaptureHistory::Reopened>> load(QUuid id);
    void tell(ToastContent toast);
    void tellMissing();

    Services m_services;
    SaveWithPanel m_saveWithPanel;
    Scope m_scope;
};

} // namespace Kovrel
