#include "cards/panels/CodePill.h"

#include "cards/panels/CardPainting.h"
#include "ui/tokens/CardTokens.h"

#include <QPainter>

#include <cmath>

namespace Kovrel {

namespace {

constexpr qsizetype mostShown = 80; // characters, of which fewer fit

} // namespace

CodePill::CodePill(const CardCode& code, QWidget* parent) : QAbstractButton(parent)
{
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
    setText(code.shown(mostShown));
    setAccessibleName(tr("QR code: %1").arg(text()));
}

QSize CodePill::sizeHint() const
{
    const QSizeF size = CardPainting::pillSize(text());
    return {int(std::ceil(size.width())), int(std::ceil(size.height()))};
}

void CodePill::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    CardPainting::pill(painter, rect(), underMouse() ? CardTokens::glassHovered : CardTokens::glass, "qrcode",
                       CardTokens::onGlass, text());
}

} // namespace Kovrel
