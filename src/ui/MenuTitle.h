#pragma once

#include "commandline/CommandTable.h"

#include <QCoreApplication>

namespace Kovrel {

// What people read of an entry.
inline QString menuTitle(const MenuEntry& entry)
{
    return QCoreApplication::translate("CommandTable", entry.label);
}

} // namespace Kovrel
