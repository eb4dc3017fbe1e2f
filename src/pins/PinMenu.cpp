#include "pins/PinMenu.h"

#include "ui/Symbols.h"
#include "ui/tokens/Theme.h"

namespace Kovrel {

namespace {

struct Entry {
    const char* title;
    const char* symbol;
};

constexpr Entry entryOf(PinQuickAction action)
{
    switch (action) {
    case PinQuickAction::edit:
        return {QT_TRANSLATE_NOOP("Kovrel::PinMenu", "Edit"), "pencil"};
    case PinQuickAction::copyImage:
        return {QT_TRANSLATE_NOOP("Kovrel::PinMenu", "Copy Image"), "doc.on.doc"};
    case PinQuickAction::save:
        return {QT_TRANSLATE_NOOP("Kovrel::PinMenu", "Save"), "square.and.arrow.down"};
    case PinQuickAction::actualSize:
        return {QT_TRANSLATE_NOOP("Kovrel::PinMenu", "Actual Size"), "arrow.up.left.and.arrow.down.right"};
    case PinQuickAction::unpin:
        return {QT_TRANSLATE_NOOP("Kovrel::PinMenu", "Unpin"), "pin.slash"};
    case PinQuickAction::close:
        break;
    }
    return {QT_TRANSLATE_NOOP("Kovrel::PinMenu", "Close"), "xmark"};
}

} // namespace

PinMenu::PinMenu(QWidget& pin, const std::function<bool(PinQuickAction)>& canPerform, bool isSaved) : QMenu(&pin)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setPalette(Theme::current().palette());
    for (const PinQuickAction action : allPinQuickActions) {
        if (action == PinQuickAction::unpin) // what stands below ends the pin
            addSeparator();
        if (!canPerform(action))
            continue;
        const Entry entry = entryOf(action);
        const bool isDone = action == PinQuickAction::save && isSaved;
        addAction(Symbols::icon(entry.symbol), isDone ? tr("Saved") : tr(entry.title), this, [this, action] {
            Q_EMIT chosen(action);
        })->setEnabled(!isDone);
    }
}

} // namespace Kovrel
