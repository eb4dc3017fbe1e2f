#pragma once

#include "platform/x11/X11Connection.h"

#include <QAbstractNativeEventFilter>
#include <QDrag>
#include <QPointer>

namespace Kovrel {

// Answers programs that take what is dragged out of ours and don't say when it was dropped, as those made with GTK 4.
// The toolkit tells drags apart by that time, and refuses them. Main thread.
class X11DragAnswers : public QAbstractNativeEventFilter {
public:
    explicit X11DragAnswers(std::unique_ptr<X11Connection> connection);

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    bool answer(const xcb_selection_request_event_t& request);

    std::unique_ptr<X11Connection> m_connection;
    QPointer<QDrag> m_drag; // the last one; the toolkit keeps it until the other program has taken what was dropped
};

} // namespace Kovrel
