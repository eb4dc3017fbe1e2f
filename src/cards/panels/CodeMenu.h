#pragma once

#include "cards/CardCode.h"

#include <QMenu>

namespace Kovrel {

// All that a code says, and then what can be done with it: nothing opens that was not read before. Main thread.
class CodeMenu : public QMenu {
    Q_OBJECT

public:
    explicit CodeMenu(const CardCode& code);

Q_SIGNALS:
    void openWanted(const QUrl& url);
    void copyWanted(const QString& text);
};

} // namespace Kovrel
