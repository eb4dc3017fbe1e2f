#include "editor/marks/RedactionSources.h"

#include "imaging/GaussianBlur.h"
#include "imaging/Pixelation.h"

#include <QColorSpace>
#include <QPainter>

namespace Kovrel {

namespace {

QImage plain(const QImage& image)
{
    return image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
}

// What is transparent in the capture stays so, also where colours have spread to.
QImage covered(QImage source, const QImage& capture)
{
    if (!source.isNull() && capture.hasAlphaChannel()) {
        QPainter painter(&source);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        painter.drawImage(0, 0, capture);
    }
    source.setColorSpace(capture.colorSpace());
    return source;
}

} // namespace

QImage RedactionSources::blurred(const QImage& capture, double exportScale)
{
    const QImage pixels = plain(capture);
    return covered(GaussianBlur::blurred(pixels, blurSigma(exportScale), GaussianBlur::Edges::repeated), pixels);
}

QImage RedactionSources::pixelated(const QImage& capture, double exportScale)
{
    const QImage pixels = plain(capture);
    return covered(Pixelation::pixelated(pixels, pixelateCell(exportScale)), pixels);
}

} // namespace Kovrel
