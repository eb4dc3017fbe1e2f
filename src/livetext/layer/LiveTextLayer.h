#pragma once

#include "livetext/TextLinks.h"
#include "preferences/Preferences.h"

#include <QElapsedTimer>
#include <QTransform>
#include <QWidget>

#include <functional>

class QMenu;

namespace Kovrel {

// Lies over a picture that a widget shows, and makes the text in it selectable as in a document, and what is an address
// or a code a link. An address is shown before it is opened. What is done elsewhere than on text goes to the widget
// below. Main thread.
class LiveTextLayer : public QWidget {
    Q_OBJECT

public:
    struct Doors {
        std::function<void(const QString&)> copy;
        std::function<void(const QUrl&)> open; // http and https only
    };

    // Covers `picture`, whatever size that gets. `preferences` outlives it: people are told of it once.
    LiveTextLayer(QWidget& picture, Preferences& preferences, Doors doors);

    // What was read in a picture of that many pixels; nothing is selected then.
    void setReading(const OCRResult& text, const std::vector<QRCode>& codes, QSize picture);
    void clear();
    // Shades all that is no text, so that it is seen what can be selected.
    void setShaded(bool isShaded);
    // From pixels of the picture to this widget, which lies where the one below does.
    void setPlacement(const QTransform& placement);

    QString selectedText() const { return m_text.text(selection()); }

    void selectAll();
    // False: nothing was selected.
    bool selectNone();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    SelectableText::Range selection() const { return SelectableText::between(m_anchor, m_end); }

    QPointF inPicture(QPointF point) const { return m_fromWidget.map(point); }

    void select(SelectableText::Range range);
    void hover(QPointF point);
    void setHovered(const TextLinks::Link* link);
    void follow(const TextLinks::Link& link);
    bool isOurs(const QKeyEvent& event) const;
    void addActions(QMenu& menu, const TextLinks::Link* link);
    void tellOnce();
    void paintShade(QPainter& painter) const;
    void paintPill(QPainter& painter, const QString& text) const;
    QString pillText() const;

    // What a press began with.
    struct Press {
        QPointF at;
        const TextLinks::Link* link = nullptr;
        bool isOnText = false; // else a drag selects nothing
        bool hasMoved = false;
    };

    Preferences& m_preferences;
    Doors m_doors;
    SelectableText m_text;
    TextLinks m_links;
    QTransform m_toWidget;
    QTransform m_fromWidget;
    SelectableText::Place m_anchor;
    SelectableText::Place m_end;
    std::optional<Press> m_press;
    const TextLinks::Link* m_hovered = nullptr;
    QElapsedTimer m_sinceDoubleClick;
    bool m_isHintShown = false;
    bool m_isShaded = false;
};

} // namespace Kovrel
