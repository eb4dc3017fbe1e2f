#include "cards/menu/CardFileActions.h"

namespace Kovrel {

bool CardFileActions::canPerform(CardQuickAction action) const
{
    if (action == CardQuickAction::openInMail)
        return m_programs.canMail();
    return action == CardQuickAction::quickLook || action == CardQuickAction::openWith;
}

void CardFileActions::perform(CardQuickAction action, const QString& path)
{
    if (action == CardQuickAction::quickLook)
        m_programs.open(path);
    else if (action == CardQuickAction::openInMail)
        m_programs.mail(path);
}

} // namespace Kovrel
