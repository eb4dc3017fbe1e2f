#include "cards/panels/CardPanels.h"

#include "cards/QuickAccessController.h"
#include "cards/panels/CodeMenu.h"
#include "ui/FileDrag.h"
#include "ui/MenuPlace.h"
#include "ui/tokens/Motion.h"

#include <QPointer>

#include <algorithm>
#include <set>

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

constexpr double flight = 48;  // points that a card flies when it comes
constexpr double retreat = 14; // and when it goes
constexpr int ringSteps = 40;  // that can be told apart
constexpr auto ringFastest = 100ms;
constexpr auto ringSlowest = 1000ms;

QRect rootPixels(const CardPanel& panel, QPointF origin)
{
    const QSizeF size = panel.look().place.size() * panel.display().scale;
    return {origin.toPoint(), size.toSize()};
}

} // namespace

CardPanels::CardPanels(Services services) : m_services(services), m_motion(services.loop, [this] { moveAll(); }) {}

CardPanels::~CardPanels()
{
    m_services.loop.cancel(m_rings);
    for (const auto& [card, shown] : m_shown)
        delete shown.panel;
}

CardPanel* CardPanels::panel(QUuid card) const
{
    const auto found = m_shown.find(card);
    return found == m_shown.end() || found->second.isLeaving ? nullptr : found->second.panel;
}

// --- Coming, moving, going

void CardPanels::show(const std::vector<CardLook>& cards)
{
    const DisplayList displays = m_services.displays.all();
    std::set<QUuid> staying;
    for (const CardLook& look : cards) {
        const Display* display = displayWithID(displays, look.displayID);
        if (!display)
            continue;
        staying.insert(look.id);
        showCard(look, *display);
    }
    for (auto next = m_shown.begin(); next != m_shown.end();) {
        const auto card = next++;
        if (!staying.contains(card->first) && !card->second.isLeaving)
            leave(card->first);
    }
    moveAll();
    keepRingsTurning();
}

void CardPanels::showCard(const CardLook& look, const Display& display)
{
    // A window that was made for another display has other pixels.
    if (const auto known = m_shown.find(look.id);
        known != m_shown.end() && (known->second.isLeaving || known->second.panel->style() != style(display))) {
        close(look.id);
        // Nobody can leave it any more. Later, since this is told while cards are shown.
        m_services.loop.post([panels = QPointer(this), card = look.id] {
            if (panels)
                panels->m_controller->pointerLeft(card);
        });
    }
    const PileMotion::Pose at = home(look, display);
    if (const auto known = m_shown.find(look.id); known != m_shown.end()) {
        known->second.panel->setLook(look);
        m_motion.moveTo(look.id, at, Motion::shared().moving());
        return;
    }
    CardPanel* panel = takePanel(display);
    panel->setLook(look);
    listen(panel, look.id);
    m_motion.place(look.id, {.origin = at.origin - QPointF(outwards(flight, display), 0), .opacity = 0});
    m_motion.moveTo(look.id, at, m_isHidden || !m_services.displays.isComposited() ? 0ms : Motion::shared().moving());
    put(look.id, m_shown[look.id] = {.panel = panel, .pose = m_motion.pose(look.id)});
    if (m_isHidden)
        panel->vanish();
    else
        panel->appear();
}

// To open a window takes as long as to make a face, half of it in the server.
void CardPanels::expectCard(std::optional<quint32> displayID)
{
    const DisplayList displays = m_services.displays.all();
    const Display* display = displayID ? displayWithID(displays, *displayID) : nullptr;
    if (display && m_spare && m_spare->style() == style(*display))
        return;
    m_spare.reset(display ? makePanel(*display) : nullptr);
    if (!display)
        return;
    m_spare->place(*display, QRect(display->pixelRect.topLeft(), QSize(1, 1)));
    if (m_services.displays.isComposited())
        m_spare->openUnseen();
}

CardPanel* CardPanels::takePanel(const Display& display)
{
    std::unique_ptr<CardPanel> spare = std::move(m_spare);
    return spare && spare->style() == style(display) ? spare.release() : makePanel(display);
}

CardPanel* CardPanels::makePanel(const Display& display) const
{
    return new CardPanel(m_services.shapes, m_services.loop, style(display));
}

CardPanel::Style CardPanels::style(const Display& display) const
{
    CardPanel::Style style{.isComposited = m_services.displays.isComposited(),
                           .position = m_services.preferences.get(Settings::previewPosition),
                           .offer = {.actions = {}, .hasMenu = bool(m_openMenu)},
                           .display = display};
    for (const auto action :
         {CardQuickAction::copy, CardQuickAction::save, CardQuickAction::edit, CardQuickAction::pin})
        if (m_controller->canPerform(action))
            style.offer.actions.push_back(action);
    return style;
}

void CardPanels::leave(QUuid card)
{
    Shown& shown = m_shown.at(card);
    if (m_isHidden || !m_services.displays.isComposited()) {
        close(card);
        return;
    }
    shown.isLeaving = true;
    shown.panel->disconnect(this);
    shown.panel->setHovered(false);
    const CardLook& look = shown.panel->look();
    const Display& display = shown.panel->display();
    const double slid = std::abs(shown.pose.origin.x() - home(look, display).origin.x()) / display.scale;
    // One that is flicked goes on beyond the edge.
    const double distance = slid >= CardGesture::flickedAway ? look.place.width() : retreat;
    const QPointF way(outwards(distance, display), 0);
    m_motion.moveTo(card, {.origin = shown.pose.origin + way, .opacity = 0}, Motion::shared().disappearing());
}

void CardPanels::close(QUuid card)
{
    m_motion.forget(card);
    CardPanel* panel = m_shown.at(card).panel;
    m_shown.erase(card);
    panel->disconnect(this);
    panel->vanish();
    panel->deleteLater();
}

PileMotion::Pose CardPanels::home(const CardLook& look, const Display& display) const
{
    return {.origin = display.pixelRect.topLeft() + look.place.topLeft() * display.scale, .opacity = 1};
}

double CardPanels::outwards(double points, const Display& display) const
{
    return points * display.scale * CardGesture::edge(m_services.preferences.get(Settings::previewPosition));
}

void CardPanels::put(QUuid card, Shown& shown)
{
    shown.pose = m_motion.pose(card);
    shown.size = shown.panel->look().place.size();
    shown.panel->place(shown.panel->display(), rootPixels(*shown.panel, shown.pose.origin));
    if (m_services.displays.isComposited())
        shown.panel->setWindowOpacity(shown.pose.opacity);
}

void CardPanels::moveAll()
{
    for (auto& [card, shown] : m_shown)
        if (shown.pose != m_motion.pose(card) || shown.panel->look().place.size() != shown.size)
            put(card, shown);
    closeArrived();
}

void CardPanels::closeArrived()
{
    std::vector<QUuid> gone;
    for (const auto& [card, shown] : m_shown)
        if (shown.isLeaving && !m_motion.isMoving(card))
            gone.push_back(card);
    for (const QUuid& card : gone)
        close(card);
}

bool CardPanels::setHidden(bool isHidden)
{
    m_isHidden = isHidden;
    const bool changes = !m_shown.empty();
    std::vector<QUuid> leaving;
    for (auto& [card, shown] : m_shown) {
        if (shown.isLeaving) {
            leaving.push_back(card);
        } else if (isHidden) {
            shown.panel->setHovered(false);
            shown.panel->vanish();
        } else {
            shown.panel->reappear();
        }
    }
    for (const QUuid& card : leaving)
        close(card);
    keepRingsTurning();
    return changes;
}

// --- Rings

void CardPanels::keepRingsTurning()
{
    std::optional<std::chrono::milliseconds> pause;
    for (const auto& [card, shown] : m_shown)
        if (const Countdown& countdown = shown.panel->look().countdown; countdown.isRunning())
            pause = std::min(pause.value_or(ringSlowest),
                             duration_cast<std::chrono::milliseconds>(countdown.total) / ringSteps);
    if (m_isHidden || !pause)
        m_services.loop.cancel(std::exchange(m_rings, 0));
    else if (m_rings == 0)
        m_rings = m_services.loop.after(std::max(*pause, ringFastest), [this] { turnRings(); });
}

void CardPanels::turnRings()
{
    m_rings = 0;
    for (const auto& [card, shown] : m_shown)
        if (shown.panel->look().countdown.isRunning())
            shown.panel->turnRing();
    keepRingsTurning();
}

// --- What is done to cards

void CardPanels::listen(CardPanel* panel, QUuid card)
{
    connect(panel, &CardPanel::entered, this, [this, card] { m_controller->pointerEntered(card); });
    connect(panel, &CardPanel::left, this, [this, card] { m_controller->pointerLeft(card); });
    connect(panel, &CardPanel::performed, this,
            [this, card](CardQuickAction action) { m_controller->perform(action, card); });
    connect(panel, &CardPanel::freezeWanted, this, [this, card] { m_controller->toggleFreeze(card); });
    connect(panel, &CardPanel::opened, this, [this, card] { m_controller->open(card); });
    connect(panel, &CardPanel::menuWanted, this, [this, card](QPoint position) { openMenu(card, position); });
    connect(panel, &CardPanel::codeClicked, this, [this, card](QPoint position) { openCode(card, position); });
    connect(panel, &CardPanel::slid, this, [this, card](double distance) { slide(card, distance); });
    connect(panel, &CardPanel::released, this, [this, card](double distance) { letGo(card, distance); });
    connect(panel, &CardPanel::draggedOut, this, [this, card] { dragOut(card); });
}

void CardPanels::slide(QUuid card, double distance)
{
    const CardPanel& panel = *m_shown.at(card).panel;
    PileMotion::Pose pose = home(panel.look(), panel.display());
    pose.origin.rx() += distance * panel.display().scale;
    m_motion.place(card, pose);
    moveAll();
}

void CardPanels::letGo(QUuid card, double distance)
{
    const CardPanel& panel = *m_shown.at(card).panel;
    if (std::abs(distance) >= CardGesture::flickedAway)
        m_controller->remove(card);
    else
        m_motion.moveTo(card, home(panel.look(), panel.display()), Motion::shared().moving());
}

// The card may go while it is dragged. That the pointer has left it meanwhile the toolkit does not always tell.
void CardPanels::dragOut(QUuid card)
{
    const CardPanel& panel = *m_shown.at(card).panel;
    const CardLook look = panel.look();
    const double scale = panel.display().scale;
    m_controller->setDragged(card, true);
    FileDrag::run(*this, {*look.dragFile, {}}, look.face, scale);
    m_controller->setDragged(card, false);
    if (CardPanel* const dragged = this->panel(card))
        dragged->leave();
}

void CardPanels::openMenu(QUuid card, QPoint position)
{
    if (m_openMenu)
        m_openMenu(card, position);
}

void CardPanels::openCode(QUuid card, QPoint position)
{
    auto* menu = new CodeMenu(*m_shown.at(card).panel->look().code);
    connect(menu, &CodeMenu::openWanted, this, &CardPanels::linkWanted);
    connect(menu, &CodeMenu::copyWanted, this, &CardPanels::textWanted);
    connect(menu, &QMenu::aboutToHide, this, [this, card] { m_controller->quickActionsMenuClosed(card); });
    m_controller->quickActionsMenuOpened(card);
    MenuPlace::open(*menu, position);
}

} // namespace Kovrel
