#pragma once

#include <QApplication>

namespace Kovrel {

// The toolkit's application, in which what the handler of an event throws, as where memory or threads are short, costs
// that event and not the program. Main thread.
class SturdyApplication : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace Kovrel
