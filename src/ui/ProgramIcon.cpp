#include "ui/ProgramIcon.h"

#include "ui/LookChanges.h"
#include "ui/tokens/Typography.h"

#include <QPainter>

namespace Kovrel {

namespace {

constexpr double side = 56;
// The drawing leaves a margin, which stays outside, so that its plate stands in line with what is below.
constexpr int marginShare = 14;

} // namespace

ProgramIcon::ProgramIcon() : m_icon(":/com.kovrel.Kovrel.svg")
{
    takeSize();
    connect(&LookChanges::shared(), &LookChanges::changed, this, &ProgramIcon::takeSize);
}

void ProgramIcon::takeSize()
{
    const int size = int(side * Typography::scale());
    setFixedSize(size, size);
}

void ProgramIcon::paintEvent(QPaintEvent*)
{
    const int margin = width() / marginShare;
    QPainter painter(this);
    m_icon.paint(&painter, rect().adjusted(-margin, -margin, margin, margin));
}

} // namespace Kovrel
