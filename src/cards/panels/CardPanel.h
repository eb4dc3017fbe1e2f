#pragma once

#include "cards/CardGesture.h"
#include "cards/CardLook.h"
#include "cards/panels/CardChrome.h"
#include "platform/MainLoop.h"
#include "ui/FloatingPanel.h"

namespace Kovrel {

class CodePill;

// The window of one card. What is done to it is told, and done by others. Main thread.
class CardPanel : public FloatingPanel {
    Q_OBJECT

public:
    // What can't change once it is made.
    struct Style {
        bool isComposited = false;
        PreviewPosition position = PreviewPosition::bottomRight;
        CardChrome::Offer offer;
        Display display;

        bool operator==(const Style&) const = default;
    };

    // Shapes and loop outlive it.
    CardPanel(PanelShapes& shapes, const MainLoop& loop, Style style);

    const Style& style() const { return m_style; }

    const Display& display() const { return m_style.display; }

    const CardLook& look() const { return m_look; }

    void setLook(const CardLook& look);
    // The buttons show; also without a pointer, as for a picture of it.
    void setHovered(bool isHovered);
    // The pointer is no longer on it, whatever the toolkit has told.
    void leave();
    // Some time has passed.
    void turnRing();

Q_SIGNALS:
    void entered();
    void left();
    void performed(CardQuickAction action);
    void freezeWanted();
    void opened();
    void menuWanted(QPoint globalPosition);
    void codeClicked(QPoint globalPosition);
    // Points along the screen, from where it was pressed: on the way, and when it was let go.
    void slid(double distance);
    void released(double distance);
    void draggedOut();

protected:
    void paintContent(QPainter& painter, const QRectF& card) override;
    void resizeEvent(QResizeEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void enter();
    bool isHovered() const;
    QRectF pictureRoom() const;
    QRectF ringPlace() const;
    double pictureRadius() const;
    void setCode(const std::optional<CardCode>& code);
    void arrange();
    void paintBadges(QPainter& painter) const;

    struct Press {
        QPointF from; // global points
        CardGesture::Kind kind = CardGesture::Kind::none;
    };

    const MainLoop& m_loop;
    Style m_style;
    CardLook m_look;
    CardChrome* m_chrome;
    CodePill* m_pill = nullptr; // while there is a code
    std::optional<Press> m_press;
};

} // namespace Kovrel
