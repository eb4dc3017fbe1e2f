#include "editorwindow/backdrop/BackdropPanel.h"

#include "editorwindow/backdrop/BackdropControls.h"
#include "editorwindow/backdrop/BackdropFills.h"
#include "ui/controls/ScrollColumn.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"
#include "ui/tokens/Typography.h"

#include <QPainter>
#include <QStyle>
#include <QVBoxLayout>

namespace Kovrel {

namespace {

constexpr int contentWidth = 276; // four swatches and their margins

} // namespace

BackdropPanel::BackdropPanel(EditorSession& session, Preferences& preferences, MainLoop& loop, Workers& workers,
                             ColorPick pick)
    : m_session(session),
      m_editing(session, preferences),
      m_swatches(loop, workers, session.capture(), [this] { update(); })
{
    setFixedWidth(int(contentWidth * Typography::scale()) + style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    setAccessibleName(tr("Backdrop"));
    m_fills = new BackdropFills(m_editing, m_swatches, preferences);
    m_controls = new BackdropControls(m_editing, preferences, std::move(pick));
    auto* const content = new QWidget;
    auto* const column = new QVBoxLayout(content);
    column->setContentsMargins(Spacing::medium, Spacing::small, Spacing::small, Spacing::medium);
    column->setSpacing(Spacing::small);
    column->addWidget(m_fills);
    column->addWidget(m_controls);
    column->addStretch(1);
    auto* const scroll = new ScrollColumn;
    scroll->setContent(content);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 0, 0, 0);
    layout->addWidget(scroll);
    m_changes = session.onChange([this] {
        if (isVisible() && m_session.document().composition.backdrop != m_shown)
            refresh();
    });
}

void BackdropPanel::refresh()
{
    m_shown = m_session.document().composition.backdrop;
    m_fills->refresh();
    m_controls->refresh();
}

// Settings may have been changed by another editor meanwhile.
void BackdropPanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    refresh();
}

void BackdropPanel::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.fillRect(rect(), theme.card);
    painter.fillRect(QRect(0, 0, 1, height()), theme.separator);
}

} // namespace Kovrel
