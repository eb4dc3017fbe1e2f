#include "historywindow/UndoBar.h"

#include "ui/Ground.h"
#include "ui/Label.h"
#include "ui/controls/RowButton.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"

#include <QBoxLayout>
#include <QPainter>

namespace Kovrel {

UndoBar::UndoBar()
{
    m_text = new Label(TextStyle::control);
    auto* undo = new RowButton(tr("Undo"));
    undo->setKeys(QKeySequence(QKeySequence::Undo).toString(QKeySequence::NativeText));
    connect(undo, &QPushButton::clicked, this, &UndoBar::undone);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(Spacing::medium, Spacing::tight, Spacing::tight, Spacing::tight);
    layout->addWidget(m_text, 1);
    layout->addWidget(undo);
    hide();
}

void UndoBar::show(const QString& text)
{
    m_text->setText(text);
    QWidget::show();
}

void UndoBar::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    Ground{theme.accentGround, theme.cardEdge, Radius::group}.paint(painter, rect());
}

} // namespace Kovrel
