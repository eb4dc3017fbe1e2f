#pragma once

#include "cards/CardActions.h"
#include "cards/CardCodes.h"
#include "cards/CardCountdowns.h"
#include "cards/CardFaces.h"
#include "cards/CardFiles.h"
#include "cards/CardQuickAction.h"
#include "cards/CardViews.h"
#include "cards/PileHover.h"
#include "ports/CardPile.h"

namespace Kovrel {

// The piles of cards: which there are, where they stand, what becomes of them. It takes no part in how they look.
// Main thread.
class QuickAccessController : public CardPile {
public:
    // What is done with a card by others than this.
    using Elsewhere = std::function<void(CardQuickAction, QUuid)>;

    // `views` outlives it.
    QuickAccessController(CardServices services, CardViews& views);
    ~QuickAccessController() override;

    // From now on it hears of the history, the displays and the settings.
    void start();

    bool canPresent() const override;
    void prepareForIncomingCapture(std::optional<quint32> nearDisplay) override;
    void settleAfterAbandonedCapture() override;
    void present(Card card) override;
    void attachCaptureSave(std::shared_ptr<CaptureSave> save, QUuid cardID) override;
    void attachRecording(std::shared_ptr<CaptureRecording> recording, QUuid cardID) override;
    bool setHiddenForCapture(bool isHidden) override;

    bool hasCards() const override { return !m_shelf.cards().empty(); }

    void setTemporarilyHidden(bool isHidden) override;

    bool isTemporarilyHidden() const override { return m_isTemporarilyHidden; }

    // --- What the views tell

    void pointerEntered(QUuid card);
    void pointerLeft(QUuid card);
    // A double click: edits, or copies where there is no editor.
    void open(QUuid card);
    // Hold the countdowns of the card's pile while it is dragged out, or its menu is open.
    void setDragged(QUuid card, bool on);
    void quickActionsMenuOpened(QUuid card);
    void quickActionsMenuClosed(QUuid card);

    // --- Countdowns

    void setHover(bool on, quint32 pile, PileHover::Reason reason);
    void holdCountdowns(CountdownHold hold, bool on) override;
    void toggleFreeze(QUuid card);
    void refreshTimersForPreferenceChange();
    void autoSaveBeforeClose(QUuid card);

    // --- Actions

    // Whatever can be done with a card, by its buttons, its menu and its chords.
    void perform(CardQuickAction action, QUuid card);
    bool canPerform(CardQuickAction action) const;

    void setElsewhere(Elsewhere elsewhere) { m_elsewhere = std::move(elsewhere); }

    void remove(QUuid card);
    void dismissAll();

    // The real file of a card, for other programs; nothing where there is none.
    void file(QUuid card, Reply<std::optional<QString>> reply) { m_work.files.file(card, std::move(reply)); }

    // Null for none; valid until the next change.
    const PiledCard* card(QUuid id) const { return m_shelf.find(id); }

    std::optional<QUuid> hoveredCardID() const { return m_hover.card(); }

    Subscription onHoverChange(std::function<void(std::optional<QUuid>)> observer);

private:
    // What is done for cards, elsewhere.
    struct Work {
        CardPixels pixels;
        CardFaces faces;
        CardCodes codes;
        CardFiles files;
        CardActions actions;
    };

    Work makeWork();
    QCoro::Task<> saveAndClose(QUuid card);
    void timeIsUp(QUuid card, AutoCloseAction action);
    void faceShown(QUuid card);
    void copied(QUuid card);
    void pictureChanged(QUuid card);
    void forgotten(QUuid card);
    void hold(QUuid card, PileHover::Reason reason, bool on);
    void prepareFile(QUuid card);
    void settingChanged(const QString& key);
    void relocatePiles();
    void closeTooMany(quint32 display);
    void takeOut(QUuid card);
    void armAll(const std::vector<QUuid>& cards);
    std::optional<quint32> homeDisplay() const;
    std::optional<quint32> displayFor(const std::optional<quint32>& wanted) const;

    bool isHidden() const { return m_isHiddenForCapture || m_isTemporarilyHidden; }

    bool applyHidden();
    void refresh();
    std::vector<CardLook> looks() const;
    CardLook lookOf(const PiledCard& card, const QRectF& place) const;

    CardServices m_services;
    CardViews& m_views;
    CardShelf m_shelf;
    PileHover m_hover;
    CardCountdowns m_countdowns;
    Elsewhere m_elsewhere;
    std::optional<quint32> m_incoming; // where a card is about to come
    bool m_isHiddenForCapture = false;
    bool m_isTemporarilyHidden = false;
    std::vector<Subscription> m_subscriptions;
    Lifeline m_lifeline;
    Work m_work;
    Scope m_scope;
};

} // namespace Kovrel
