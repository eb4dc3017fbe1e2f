#pragma once

#include "cards/CardFiles.h"
#include "imaging/QuarterTurn.h"
#include "model/ToastContent.h"
#include "platform/Lifeline.h"

#include <QCoreApplication>

namespace Kovrel {

// What can be done with the capture of one card. What fails says so in a toast on the card's display. Main thread;
// files and codecs are elsewhere.
class CardActions {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::CardActions)

public:
    struct Callbacks {
        std::function<void(QUuid)> changed; // what its card shows
        std::function<void(QUuid)> copied;
        std::function<void(QUuid)> turned; // its picture is another one
    };

    CardActions(CardServices services, CardShelf& shelf, CardPixels& pixels, CardFiles& files, Callbacks callbacks);

    bool canEdit() const;
    bool canPin() const;

    void copy(QUuid id);
    // Into the save folder, unless there is a file of it already.
    void save(QUuid id);
    // In the file manager, saved if it was not: what people look for is in their folder.
    void reveal(QUuid id);
    // The card shows how a save goes that somebody else began.
    void watch(QUuid id, std::shared_ptr<CaptureSave> save);
    void edit(QUuid id);
    void pin(QUuid id);
    void rotate(QUuid id, QuarterTurn turn);

    // Waits for the save that is under way and saves what has no file yet, or none any more. Answers where it is;
    // nothing when that failed or the card has gone.
    QCoro::Task<std::optional<QString>> ensureSaved(QUuid id);

private:
    using Captured = std::optional<CaptureResult>;

    QCoro::Task<> copyNow(QUuid id);
    QCoro::Task<> saveNow(QUuid id);
    QCoro::Task<> revealNow(QUuid id);
    QCoro::Task<> editNow(QUuid id);
    QCoro::Task<> pinNow(QUuid id);
    QCoro::Task<> rotateNow(QUuid id, QuarterTurn turn);
    QCoro::Task<> rotateHere(QUuid id, QuarterTurn turn);
    void saveEnded(QUuid id, const SaveOutcome& outcome);
    void tell(QUuid id, ToastContent toast);
    void tellMissing(QUuid id);

    CardServices m_services;
    CardShelf& m_shelf;
    CardPixels& m_pixels;
    CardFiles& m_files;
    Callbacks m_callbacks;
    Lifeline m_lifeline;
    Scope m_scope;
};

} // namespace Kovrel
