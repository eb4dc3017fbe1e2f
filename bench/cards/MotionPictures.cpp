#include "bench/cards/MotionPictures.h"

#include "bench/cards/CardRig.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "ui/tokens/Motion.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>

#include <qpa/qplatformwindow.h>

namespace Kovrel {

using namespace std::chrono_literals;

namespace {

constexpr QSize screenSize(300, 350);
constexpr int framesInARow = 9;
constexpr int rows = 3;
constexpr auto betweenFrames = 30ms;

class Film {
public:
    void roll(const QImage& capture)
    {
        startRow();
        present(capture);
        take(framesInARow);
        m_loop.advance(2s);
        startRow();
        m_rig.controller.prepareForIncomingCapture(1);
        take(4);
        const QUuid second = present(capture);
        take(framesInARow - 4);
        m_loop.advance(2s);
        startRow();
        drag(second);
        take(framesInARow - 3);
    }

    QImage picture() const { return m_picture; }

private:
    static DisplayList screens()
    {
        const Rect frame{0, 0, double(screenSize.width()), double(screenSize.height())};
        return {{.id = 1,
                 .name = QGuiApplication::primaryScreen()->name(),
                 .frame = frame,
                 .visibleFrame = frame,
                 .pixelRect = QRect({}, screenSize),
                 .isPrimary = true}};
    }

    QUuid present(const QImage& capture)
    {
        const QUuid id = m_rig.present(capture);
        do
            m_loop.runPosted();
        while (m_workers.runAll() > 0);
        return id;
    }

    void startRow() { m_next = QPoint(0, m_next.y() + screenSize.height()); }

    void take(int frames)
    {
        for (; frames > 0; --frames) {
            takeFrame();
            m_loop.advance(betweenFrames);
        }
    }

    void takeFrame()
    {
        QImage frame(screenSize, QImage::Format_RGB32);
        QPainter painter(&frame);
        QLinearGradient desktop(0, 0, screenSize.width(), screenSize.height());
        desktop.setColorAt(0, QColor("#dfe9f5"));
        desktop.setColorAt(1, QColor("#1b2a41"));
        painter.fillRect(frame.rect(), desktop);
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* panel = qobject_cast<CardPanel*>(widget); panel && panel->isVisible())
                paint(painter, *panel);
        painter.end();
        QPainter(&m_picture).drawImage(m_next, frame);
        m_next.rx() += screenSize.width();
    }

    static void paint(QPainter& painter, CardPanel& panel)
    {
        QImage card(panel.size(), QImage::Format_ARGB32_Premultiplied);
        card.fill(Qt::transparent);
        panel.render(&card, {}, {}, QWidget::DrawChildren);
        painter.setOpacity(panel.windowOpacity());
        painter.drawImage(panel.windowHandle()->handle()->geometry().topLeft(), card);
    }

    // Three frames towards the edge, and off.
    void drag(QUuid card)
    {
        mouse(card, QEvent::MouseButtonPress, 0);
        for (const int way : {20, 50, 80}) {
            mouse(card, QEvent::MouseMove, way);
            take(1);
        }
        mouse(card, QEvent::MouseButtonRelease, 80);
    }

    void mouse(QUuid card, QEvent::Type type, int way)
    {
        const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, {50, 50}, QPointF(200 + way, 250), button, Qt::LeftButton, {});
        QCoreApplication::sendEvent(m_rig.panels.panel(card), &event);
    }

    Testing::FakeMainLoop m_loop;
    Testing::FakeWorkers m_workers;
    Bench::CardRig m_rig{m_loop, m_workers, screens()};
    QImage m_picture{screenSize.width() * framesInARow, screenSize.height() * rows, QImage::Format_RGB32};
    QPoint m_next{0, -screenSize.height()};
};

} // namespace

QImage MotionPictures::ofCards(const QImage& capture)
{
    const bool wasReduced = Motion::shared().isReduced();
    Motion::shared().setReduced(false);
    Film film;
    film.roll(capture);
    Motion::shared().setReduced(wasReduced);
    return film.picture();
}

} // namespace Kovrel
