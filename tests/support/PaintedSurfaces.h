#pragma once

#include "platform/OverlaySurfaces.h"

#include <QPainter>

namespace Kovrel::Testing {

// Keeps what the surface of one display would show, and how much of it was painted.
struct PaintedSurfaces : OverlaySurfaces {
    // Shaded as a whole. `pixelRect` is the display's.
    PaintedSurfaces(const QImage& screen, const QRect& pixelRect, Ground ground, QColor shade)
        : pixelRect(pixelRect),
          ground(ground),
          shadeColor(std::move(shade)),
          bare(screen),
          shown(screen.size(), ground == Ground::frozen ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied)
    {
        PaintedSurfaces::shade(pixelRect);
        painted = 0;
    }

    void prewarm() override {}

    void expectOpening() override {}

    void open(Opening, Handlers, Reply<Outcome>) override {}

    void takePointer(Reply<bool>) override {}

    void reveal(const QRect& rootPixels) override
    {
        fill(rootPixels, [&](QPainter& painter, const QRect& part) {
            if (ground == Ground::frozen)
                painter.drawImage(part, bare, part);
            else
                painter.fillRect(part, Qt::transparent);
        });
    }

    void shade(const QRect& rootPixels) override
    {
        fill(rootPixels, [&](QPainter& painter, const QRect& part) {
            if (ground == Ground::frozen) {
                painter.drawImage(part, bare, part);
                painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
            }
            painter.fillRect(part, shadeColor);
        });
    }

    void put(QPoint rootPixel, const QImage& pixels) override
    {
        fill(QRect(rootPixel, pixels.size()),
             [&](QPainter& painter, const QRect& part) { painter.drawImage(part, pixels); });
    }

    void setCursor(std::function<OverlayCursor(const Display&)>) override {}

    void movePointer(QPoint) override {}

    void raise() override {}

    void close() override {}

    template <class Draw>
    void fill(const QRect& rootPixels, Draw draw)
    {
        QPainter painter(&shown);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        draw(painter, rootPixels.translated(-pixelRect.topLeft()));
        painted += qint64(rootPixels.width()) * rootPixels.height();
    }

    QRect pixelRect;
    Ground ground;
    QColor shadeColor;
    QImage bare;
    QImage shown;
    qint64 painted = 0;
};

} // namespace Kovrel::Testing
