#pragma once

#include <QAbstractButton>
#include <QButtonGroup>

namespace Kovrel {

namespace ExclusiveFocus {

// Of the buttons in a group the tabulator goes to the chosen one, and arrow keys to the others. Qt sees to it only once
// one of them has had the keyboard.
inline void follow(QButtonGroup& group)
{
    QObject::connect(&group, &QButtonGroup::buttonToggled, &group, [&group] {
        for (QAbstractButton* button : group.buttons())
            button->setFocusPolicy(button->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
    });
}

} // namespace ExclusiveFocus

} // namespace Kovrel
