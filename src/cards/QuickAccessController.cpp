#include "cards/QuickAccessController.h"

#include "cards/CardFace.h"
#include "cards/PileLayout.h"
#include "ports/ReopenLedger.h"
#include "ports/Toasts.h"
#include "ui/ScreenChrome.h"

#include <algorithm>

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

constexpr auto copiedTime = 1600ms;
constexpr QSize usualShape(16, 10);

// Points from the upper left corner of the display.
QRectF usableArea(const Display& display)
{
    const Rect usable = ScreenChrome::anchor(display);
    return {usable.minX() - display.frame.minX(), display.frame.maxY() - usable.maxY(), usable.width, usable.height};
}

} // namespace

QuickAccessController::QuickAccessController(CardServices services, CardViews& views)
    : m_services(std::move(services)),
      m_views(views),
      m_countdowns(m_services.loop, m_services.preferences,
                   {.isLookedAt = [this](QUuid id) { return m_hover.isAt(m_shelf.find(id)->displayID); },
                    .fired = [this](QUuid id, AutoCloseAction action) { timeIsUp(id, action); }}),
      m_work(makeWork()),
      m_scope(m_services.loop, m_services.workers)
{
}

QuickAccessController::~QuickAccessController() = default;

QuickAccessController::Work QuickAccessController::makeWork()
{
    return {.pixels = {m_services, m_shelf},
            .faces = {m_services, m_shelf, m_work.pixels, [this](QUuid id) { faceShown(id); }},
            .codes = {m_services, m_shelf, m_work.pixels, [this](QUuid) { refresh(); }},
            .files = {m_services, m_shelf, m_work.pixels},
            .actions = {m_services,
                        m_shelf,
                        m_work.pixels,
                        m_work.files,
                        {.changed = [this](QUuid) { refresh(); },
                         .copied = [this](QUuid id) { copied(id); },
                         .turned = [this](QUuid id) { pictureChanged(id); }}}};
}

void QuickAccessController::start()
{
    const Ports& ports = m_services.ports;
    if (ports.history) {
        m_subscriptions.push_back(ports.history->onForget([this](QUuid id) { forgotten(id); }));
        m_subscriptions.push_back(ports.history->onPictureChange([this](QUuid id) { pictureChanged(id); }));
    }
    m_subscriptions.push_back(m_services.displays.onChange([this] { relocatePiles(); }));
    m_subscriptions.push_back(
        m_services.preferences.defaults().onChange([this](const QString& key) { settingChanged(key); }));
}

// --- Captures come

bool QuickAccessController::canPresent() const
{
    return homeDisplay().has_value();
}

std::optional<quint32> QuickAccessController::homeDisplay() const
{
    const DisplayList displays = m_services.displays.all();
    return displays.empty() ? std::nullopt : std::optional(displays.front().id);
}

std::optional<quint32> QuickAccessController::displayFor(const std::optional<quint32>& wanted) const
{
    const bool isThere = wanted && displayWithID(m_services.displays.all(), *wanted);
    return isThere && m_services.preferences.get(Settings::previewsFollowMouse) ? wanted : homeDisplay();
}

// The pile makes room, so that the card comes into a free place.
void QuickAccessController::prepareForIncomingCapture(std::optional<quint32> nearDisplay)
{
    m_incoming = displayFor(nearDisplay);
    refresh();
    if (m_incoming)
        m_views.expectCard(m_incoming);
}

void QuickAccessController::settleAfterAbandonedCapture()
{
    m_incoming.reset();
    refresh();
    m_views.expectCard({});
}

void QuickAccessController::present(Card card)
{
    const auto display = displayFor(card.showOn);
    if (!display)
        return;
    const QUuid id = card.result.id;
    takeOut(id);
    m_services.ports.ledger.tell(&ReopenLedger::forgetClosed, id);
    m_shelf.add({.result = card.result,
                 .displayID = *display,
                 .size = CardFace::cardSize(card.result.image.size()),
                 .savedPath = card.savedPath,
                 .isKept = card.baseResult.has_value()});
    m_work.faces.render(id);
    setTemporarilyHidden(false);
    m_countdowns.armTimer(id);
    if (card.didCopyToClipboard)
        copied(id);
}

void QuickAccessController::attachCaptureSave(std::shared_ptr<CaptureSave> save, QUuid cardID)
{
    m_work.actions.watch(cardID, std::move(save));
}

void QuickAccessController::attachRecording(std::shared_ptr<CaptureRecording> recording, QUuid cardID)
{
    PiledCard* card = m_shelf.find(cardID);
    if (!card)
        return;
    card->recording = recording;
    recording->whenDone(m_lifeline.guard([this, cardID](const RecordOutcome& outcome) {
        PiledCard* recorded = m_shelf.find(cardID);
        if (!recorded || !outcome)
            return;
        recorded->isKept = true;
        if (recorded->hasFace)
            recorded->letPixelsGo();
    }));
}

void QuickAccessController::faceShown(QUuid id)
{
    PiledCard& card = *m_shelf.find(id);
    const quint32 display = card.displayID;
    if (m_incoming == display)
        m_incoming.reset();
    if (card.isKept)
        card.letPixelsGo();
    if (!card.code)
        m_work.codes.look(id);
    closeTooMany(display);
    refresh();
}

// --- Cards go

void QuickAccessController::timeIsUp(QUuid id, AutoCloseAction action)
{
    if (action == AutoCloseAction::saveAndClose)
        autoSaveBeforeClose(id);
    else
        remove(id);
}

void QuickAccessController::autoSaveBeforeClose(QUuid id)
{
    PiledCard* card = m_shelf.find(id);
    if (card && !std::exchange(card->isClosing, true))
        Scope::start(saveAndClose(id), "Saving a card before it closes");
}

QCoro::Task<> QuickAccessController::saveAndClose(QUuid id)
{
    const std::optional<QString> path = co_await m_scope.join(m_work.actions.ensureSaved(id));
    PiledCard* card = m_shelf.find(id);
    if (!card)
        co_return;
    card->isClosing = false;
    if (!path)
        co_return;
    m_services.ports.toasts.tell(&Toasts::showSaved, *path, card->displayID);
    remove(id);
}

void QuickAccessController::remove(QUuid id)
{
    const PiledCard* card = m_shelf.find(id);
    if (!card)
        return;
    m_services.ports.ledger.tell(&ReopenLedger::rememberClosed, id);
    pointerLeft(id);
    takeOut(id);
    refresh();
}

void QuickAccessController::takeOut(QUuid id)
{
    m_countdowns.forget(id);
    m_shelf.take(id);
    m_work.files.forget(id);
}

void QuickAccessController::dismissAll()
{
    for (const QUuid& id : m_shelf.ids())
        remove(id);
}

// The oldest make room for the newest. Those that were asked to stay do.
void QuickAccessController::closeTooMany(quint32 displayID)
{
    const DisplayList displays = m_services.displays.all();
    const Display* display = displayWithID(displays, displayID);
    if (!display || m_hover.isAt(displayID))
        return;
    std::vector<QSizeF> sizes;
    std::vector<QUuid> closing;
    for (const PiledCard& card : m_shelf.cards())
        if (card.displayID == displayID && card.hasFace)
            sizes.push_back(card.size);
    auto tooMany = sizes.size() - PileLayout::fitting(usableArea(*display), sizes);
    for (auto card = m_shelf.cards().rbegin(); card != m_shelf.cards().rend() && tooMany > 0; ++card) {
        if (card->displayID != displayID || !card->hasFace || m_countdowns.isFrozen(card->id()))
            continue;
        closing.push_back(card->id());
        --tooMany;
    }
    for (const QUuid& id : closing)
        timeIsUp(id, m_shelf.find(id)->isOnlyHere() ? AutoCloseAction::saveAndClose
                                                    : m_services.preferences.get(Settings::previewAutoCloseAction));
}

// --- The history, the displays and the settings change

void QuickAccessController::pictureChanged(QUuid id)
{
    PiledCard* card = m_shelf.find(id);
    if (!card)
        return;
    if (card->isKept)
        card->letPixelsGo();
    // A file that was saved before shows it as it was.
    card->savedPath.reset();
    card->save.reset();
    card->dragFile.reset();
    card->code.reset();
    m_work.files.forget(id);
    m_work.faces.render(id);
    if (m_hover.card() == id)
        prepareFile(id);
    refresh();
}

void QuickAccessController::forgotten(QUuid id)
{
    m_services.ports.ledger.tell(&ReopenLedger::forgetClosed, id);
    PiledCard* card = m_shelf.find(id);
    if (!card)
        return;
    card->isKept = false;
    card->dragFile.reset();
    if (card->result.image.isNull() && !card->savedPath) {
        pointerLeft(id);
        takeOut(id);
    }
    refresh();
}

void QuickAccessController::settingChanged(const QString& key)
{
    if (key == Settings::previewsFollowMouse.name)
        relocatePiles();
    else if (key == Settings::previewPosition.name)
        refresh();
    else
        refreshTimersForPreferenceChange();
}

void QuickAccessController::relocatePiles()
{
    const DisplayList displays = m_services.displays.all();
    for (const QUuid& id : m_shelf.ids()) {
        PiledCard& card = *m_shelf.find(id);
        const auto display = displayFor(card.displayID);
        if (!display)
            break; // they wait for one
        if (display != card.displayID) {
            pointerLeft(id);
            card.displayID = *display;
            m_countdowns.resumeTimer(id);
        }
        if (displayWithID(displays, card.displayID)->scale != card.faceScale)
            m_work.faces.render(id);
    }
    refresh();
}

// --- Hidden

bool QuickAccessController::setHiddenForCapture(bool isHidden)
{
    const bool was = this->isHidden();
    m_isHiddenForCapture = isHidden;
    return this->isHidden() != was && applyHidden();
}

void QuickAccessController::setTemporarilyHidden(bool isHidden)
{
    const bool was = this->isHidden();
    m_isTemporarilyHidden = isHidden;
    if (this->isHidden() != was)
        applyHidden();
}

bool QuickAccessController::applyHidden()
{
    m_countdowns.setColumnsHidden(isHidden());
    if (isHidden())
        m_hover.clear();
    else
        for (const QUuid& id : m_shelf.ids())
            m_countdowns.resumeTimer(id);
    refresh();
    return m_views.setHidden(isHidden());
}

// --- Somebody looks

void QuickAccessController::pointerEntered(QUuid id)
{
    const PiledCard* card = m_shelf.find(id);
    if (!card || isHidden())
        return;
    m_hover.setCard(id);
    setHover(true, card->displayID, PileHover::Reason::pointer);
    prepareFile(id);
}

void QuickAccessController::pointerLeft(QUuid id)
{
    if (m_hover.card() != id)
        return;
    m_hover.setCard({});
    if (const PiledCard* card = m_shelf.find(id))
        setHover(false, card->displayID, PileHover::Reason::pointer);
}

void QuickAccessController::prepareFile(QUuid id)
{
    file(id, m_lifeline.guard([this, id](const std::optional<QString>& path) {
        PiledCard* card = m_shelf.find(id);
        if (!card)
            return;
        card->dragFile = path;
        refresh();
    }));
}

void QuickAccessController::setDragged(QUuid id, bool on)
{
    hold(id, PileHover::Reason::drag, on);
}

void QuickAccessController::quickActionsMenuOpened(QUuid id)
{
    hold(id, PileHover::Reason::menu, true);
}

void QuickAccessController::quickActionsMenuClosed(QUuid id)
{
    hold(id, PileHover::Reason::menu, false);
}

void QuickAccessController::hold(QUuid id, PileHover::Reason reason, bool on)
{
    if (const auto pile = m_hover.take(id, reason))
        setHover(false, *pile, reason);
    const PiledCard* card = m_shelf.find(id);
    if (!on || !card)
        return;
    m_hover.remember(id, reason, card->displayID);
    setHover(true, card->displayID, reason);
}

Subscription QuickAccessController::onHoverChange(std::function<void(std::optional<QUuid>)> observer)
{
    return m_hover.onCardChange(std::move(observer));
}

// --- Countdowns

void QuickAccessController::setHover(bool on, quint32 pile, PileHover::Reason reason)
{
    if (!m_hover.set(on, pile, reason))
        return;
    if (on) {
        m_countdowns.cancelAllTimers(m_shelf.idsOn(pile));
    } else {
        closeTooMany(pile);
        armAll(m_shelf.idsOn(pile));
    }
    refresh();
}

void QuickAccessController::holdCountdowns(CountdownHold hold, bool on)
{
    if (m_countdowns.holdCountdowns(hold, on))
        armAll(m_shelf.ids());
    refresh();
}

void QuickAccessController::toggleFreeze(QUuid id)
{
    if (!m_shelf.find(id))
        return;
    m_countdowns.toggleFreeze(id);
    refresh();
}

void QuickAccessController::refreshTimersForPreferenceChange()
{
    if (!m_countdowns.takePreferenceChange())
        return;
    armAll(m_shelf.ids());
    refresh();
}

void QuickAccessController::armAll(const std::vector<QUuid>& cards)
{
    for (const QUuid& id : cards)
        m_countdowns.armTimer(id);
}

// --- Actions

bool QuickAccessController::canPerform(CardQuickAction action) const
{
    switch (action) {
    case CardQuickAction::edit:
        return m_work.actions.canEdit();
    case CardQuickAction::pin:
        return m_work.actions.canPin();
    case CardQuickAction::quickLook:
    case CardQuickAction::openWith:
    case CardQuickAction::openInMail:
        return bool(m_elsewhere);
    default:
        return true;
    }
}

void QuickAccessController::perform(CardQuickAction action, QUuid id)
{
    if (action == CardQuickAction::closeAll) {
        dismissAll();
        return;
    }
    if (!m_shelf.find(id) || !canPerform(action))
        return;
    switch (action) {
    case CardQuickAction::copy:
        return m_work.actions.copy(id);
    case CardQuickAction::save:
        return m_work.actions.save(id);
    case CardQuickAction::edit:
        return m_work.actions.edit(id);
    case CardQuickAction::pin:
        return m_work.actions.pin(id);
    case CardQuickAction::rotateLeft:
        return m_work.actions.rotate(id, QuarterTurn::left);
    case CardQuickAction::rotateRight:
        return m_work.actions.rotate(id, QuarterTurn::right);
    case CardQuickAction::showInFinder:
        return m_work.actions.reveal(id);
    case CardQuickAction::temporarilyHide:
        return setTemporarilyHidden(true);
    case CardQuickAction::close:
        return remove(id);
    default:
        return m_elsewhere(action, id);
    }
}

void QuickAccessController::open(QUuid id)
{
    perform(m_work.actions.canEdit() ? CardQuickAction::edit : CardQuickAction::copy, id);
}

void QuickAccessController::copied(QUuid id)
{
    PiledCard* card = m_shelf.find(id);
    if (!card)
        return;
    card->copiedUntil = m_services.loop.now() + copiedTime;
    refresh();
    m_services.loop.after(copiedTime, m_lifeline.guard([this] { refresh(); }));
}

// --- What is seen

void QuickAccessController::refresh()
{
    m_views.show(looks());
}

std::vector<CardLook> QuickAccessController::looks() const
{
    const PreviewPosition position = m_services.preferences.get(Settings::previewPosition);
    std::vector<CardLook> looks;
    for (const Display& display : m_services.displays.all()) {
        std::vector<const PiledCard*> pile;
        std::vector<QSizeF> sizes;
        const size_t room = m_incoming == display.id ? 1 : 0;
        if (room)
            sizes.push_back(CardFace::cardSize(usualShape));
        for (const PiledCard& card : m_shelf.cards())
            if (card.displayID == display.id && card.hasFace) {
                pile.push_back(&card);
                sizes.push_back(card.size);
            }
        const auto places = PileLayout::places(usableArea(display), position, sizes);
        for (size_t index = 0; index < pile.size(); ++index)
            looks.push_back(lookOf(*pile[index], places[index + room]));
    }
    return looks;
}

CardLook QuickAccessController::lookOf(const PiledCard& card, const QRectF& place) const
{
    return {.id = card.id(),
            .displayID = card.displayID,
            .place = place,
            .face = card.face,
            .countdown = m_countdowns.countdown(card.id()),
            .isFrozen = m_countdowns.isFrozen(card.id()),
            .isSaving = card.isSaving(),
            .isSaved = card.savedPath.has_value(),
            .isCopied = m_services.loop.now() < card.copiedUntil,
            .code = card.code,
            .dragFile = card.dragFile};
}

} // namespace Kovrel
