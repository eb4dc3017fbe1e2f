#include "pins/PinController.h"

#include "imaging/Resampling.h"
#include "pins/PinMenu.h"
#include "pins/PinPanel.h"
#include "platform/Guarded.h"
#include "platform/ReplyFromWorker.h"
#include "ports/CaptureDelivery.h"
#include "ports/CaptureEditors.h"
#include "ports/CaptureHistory.h"
#include "ports/Captures.h"
#include "ports/CardPile.h"
#include "ports/ReopenLedger.h"
#include "ports/SaveFailureToast.h"
#include "ports/Toasts.h"

namespace Kovrel {

PinController::PinController(PinServices services)
    : m_services(services), m_displayChanges(services.displays.onChange([this] {
          for (const auto& [id, pinned] : m_pins)
              pinned.panel->relocate();
      }))
{
}

PinController::~PinController()
{
    for (const auto& [id, pinned] : std::exchange(m_pins, {}))
        delete pinned.panel;
}

void PinController::start()
{
    if (m_services.ports.history)
        m_pictureChanges = m_services.ports.history->onPictureChange([this](QUuid id) { pictureChanged(id); });
}

// --- Coming and going

void PinController::pin(CaptureResult result)
{
    if (const auto known = m_pins.find(result.id); known != m_pins.end()) {
        known->second.panel->raise();
        return;
    }
    const auto show = m_lifeline.guard([this, result](const std::optional<PointerPosition>& pointer) {
        this->show(result, pointer ? pointer->displayID : result.displayID);
    });
    m_services.pointer.position(show);
}

void PinController::show(CaptureResult result, std::optional<quint32> displayID)
{
    const DisplayList displays = m_services.displays.all();
    if (displays.empty() || result.image.isNull() || m_pins.contains(result.id))
        return;
    const Display* wanted = displayID ? displayWithID(displays, *displayID) : nullptr;
    auto* panel = new PinPanel(result.image, result.pixelScale, m_services.displays, m_services.shapes,
                               [this](auto... request) { resample(std::move(request)...); });
    panel->setButtons(canPerform(PinQuickAction::unpin), canPerform(PinQuickAction::edit));
    panel->setChromeHidden(m_isChromeHidden);
    follow(*panel, result.id);
    panel->spawnOn(wanted ? *wanted : displays.front(), int(m_pins.size()));
    const QUuid id = result.id;
    m_pins.emplace(id, Pinned{.result = std::move(result), .panel = panel});
}

void PinController::follow(PinPanel& panel, QUuid id)
{
    QObject::connect(&panel, &PinPanel::clicked, &panel,
                     [this, id](PinGeometry::Button button) { clicked(button, id); });
    QObject::connect(&panel, &QObject::destroyed, m_lifeline.guard([this, id](QObject*) { m_pins.erase(id); }));
    QObject::connect(&panel, &PinPanel::menuWanted, &panel, [this, id](QPoint position) { showMenu(position, id); });
}

// The panel may be in the middle of handling a click.
std::optional<PinController::Pinned> PinController::take(QUuid id)
{
    auto taken = m_pins.extract(id);
    if (!taken)
        return {};
    taken.mapped().panel->vanish();
    taken.mapped().panel->deleteLater();
    return std::move(taken.mapped());
}

bool PinController::setHiddenForCapture(bool isHidden)
{
    m_isChromeHidden = isHidden;
    bool changesScreen = false;
    for (const auto& [id, pinned] : m_pins)
        changesScreen |= pinned.panel->setChromeHidden(isHidden);
    return changesScreen;
}

// --- What can be done

void PinController::clicked(PinGeometry::Button button, QUuid id)
{
    using enum PinGeometry::Button;
    if (button == close)
        perform(PinQuickAction::close, id);
    else if (button == unpin)
        perform(PinQuickAction::unpin, id);
    else if (button == PinGeometry::Button::edit)
        perform(PinQuickAction::edit, id);
}

void PinController::showMenu(QPoint globalPosition, QUuid id)
{
    const auto pinned = m_pins.find(id);
    if (pinned == m_pins.end())
        return;
    const auto can = [this](PinQuickAction action) { return canPerform(action); };
    auto* menu = new PinMenu(*pinned->second.panel, can, pinned->second.isSaved);
    QObject::connect(menu, &PinMenu::chosen, menu, [this, id](PinQuickAction action) { perform(action, id); });
    menu->popup(globalPosition);
}

bool PinController::canPerform(PinQuickAction action) const
{
    const Ports& ports = m_services.ports;
    switch (action) {
    case PinQuickAction::edit:
        return bool(ports.editors);
    case PinQuickAction::copyImage:
    case PinQuickAction::save:
        return bool(ports.delivery);
    case PinQuickAction::unpin:
        return bool(ports.cards);
    case PinQuickAction::actualSize:
    case PinQuickAction::close:
        break;
    }
    return true;
}

void PinController::perform(PinQuickAction action, QUuid id)
{
    const auto found = m_pins.find(id);
    if (found == m_pins.end() || !canPerform(action))
        return;
    switch (action) {
    case PinQuickAction::edit:
        return edit(found->second.result);
    case PinQuickAction::copyImage:
        return copy(found->second.result);
    case PinQuickAction::save:
        return save(found->second);
    case PinQuickAction::actualSize:
        return found->second.panel->actualSize();
    case PinQuickAction::unpin:
        return bringCard(*take(id));
    case PinQuickAction::close:
        take(id);
        return;
    }
}

// It was edited or turned, by the card, the history's window or the editor.
void PinController::pictureChanged(QUuid id)
{
    if (!m_pins.contains(id))
        return;
    const auto show = [this, id](const std::optional<CaptureHistory::Reopened>& recorded) {
        const auto pinned = m_pins.find(id);
        if (!recorded || recorded->result.image.isNull() || pinned == m_pins.end())
            return;
        pinned->second.result = recorded->result;
        pinned->second.panel->setPicture(recorded->result.image, recorded->result.pixelScale);
    };
    m_services.ports.history->load(id, m_lifeline.guard(show));
}

// With the marks that it has in the history, where it is there.
void PinController::edit(const CaptureResult& result)
{
    const Ports& ports = m_services.ports;
    const auto open = [&ports, result](const std::optional<CaptureHistory::Reopened>& recorded) {
        ports.editors.tell(&CaptureEditors::open, recorded ? recorded->base : result);
    };
    if (ports.history)
        ports.history->load(result.id, open);
    else
        open({});
}

void PinController::copy(const CaptureResult& result)
{
    const Ports& ports = m_services.ports;
    ports.delivery->copy(result, std::make_shared<EncodedPng>(result.image));
    ports.toasts.tell(&Toasts::present,
                      ToastContent{.message = tr("Copied"), .icon = "doc.on.clipboard.fill", .copied = true},
                      m_pins.at(result.id).panel->display().id, true);
}

void PinController::save(const Pinned& pinned)
{
    const CaptureResult& result = pinned.result;
    const auto save = m_services.ports.delivery->save(result, {}, std::make_shared<EncodedPng>(result.image));
    save->whenDone(m_lifeline.guard([this, id = result.id, display = pinned.panel->display().id](
                                        const SaveOutcome& outcome) { saveEnded(id, display, outcome); }));
}

void PinController::saveEnded(QUuid id, quint32 display, const SaveOutcome& outcome)
{
    const Ports& ports = m_services.ports;
    if (!outcome) {
        ports.toasts.tell(&Toasts::present, SaveFailureToast::of(outcome.error(), ports), display, true);
        return;
    }
    ports.ledger.tell(&ReopenLedger::rememberSavedFile, id, *outcome);
    ports.history.tell(&CaptureHistory::setSavedPath, id, *outcome);
    ports.toasts.tell(&Toasts::showSaved, *outcome, display);
    if (const auto pinned = m_pins.find(id); pinned != m_pins.end())
        pinned->second.isSaved = true;
}

// From the history, with all that is known of it there; else as it is.
void PinController::bringCard(const Pinned& pinned)
{
    const Ports& ports = m_services.ports;
    const auto present = [&ports, result = pinned.result, display = pinned.panel->display().id](bool hasCome) {
        if (!hasCome)
            ports.cards.tell(&CardPile::present, CardPile::Card{.result = result, .showOn = display});
    };
    if (ports.captures)
        ports.captures->presentFromHistory(pinned.result.id, present);
    else
        present(false);
}

void PinController::resample(QImage picture, QSize size, Reply<QImage> reply)
{
    const auto job = [picture, size] { return Resampling::resampledExactly(picture, size).value_or(QImage()); };
    replyFromWorker<QImage>(m_services.loop, m_services.workers, Lane::utility, Guarded::orElse(job, QImage()),
                            std::move(reply));
}

} // namespace Kovrel
