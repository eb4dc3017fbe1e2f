#include "editorwindow/crop/CropBar.h"

#include "editor/backdrop/AspectRatio.h"
#include "editor/crop/CropShapes.h"
#include "editorwindow/crop/CropSizeMenu.h"
#include "editorwindow/tools/ChoiceButton.h"
#include "ui/PrimaryButton.h"
#include "ui/controls/RowButton.h"
#include "ui/controls/SymbolButton.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QShowEvent>

#include <cmath>

namespace Kovrel {

namespace {

// The first shapes; those of usualAspectRatios follow.
constexpr int freely = 0;
constexpr int original = 1;
constexpr int named = 2;

constexpr double sameShape = 0.01;

QStringList shapeNames()
{
    QStringList names{CropBar::tr("Free"), CropBar::tr("Original")};
    for (const auto& [width, height] : usualAspectRatios)
        names << QString("%1 : %2").arg(width).arg(height);
    return names;
}

double aspectOf(const Rect& rect)
{
    return rect.width / rect.height;
}

// Below 0: none of them.
int shapeIndex(const std::optional<double>& aspect, const Rect& canvas)
{
    if (!aspect)
        return freely;
    for (size_t index = 0; index < usualAspectRatios.size(); ++index)
        if (std::abs(*aspect - double(usualAspectRatios[index].width) / usualAspectRatios[index].height) < 1e-9)
            return named + int(index);
    return std::abs(*aspect - aspectOf(canvas)) < 1e-9 ? original : -1;
}

} // namespace

CropBar::CropBar(EditorSession& session, const Preferences& preferences, MainLoop& loop, Workers& workers)
    : m_session(session),
      m_readings(loop, workers, preferences, session, [this] { refresh(); }),
      m_layout(new QHBoxLayout(this)),
      m_shape(new ChoiceButton(tr("Shape of the Crop"), shapeNames())),
      m_lock(new SymbolButton("lock", tr("Keep This Shape"))),
      m_size(new RowButton(QString())),
      m_menu(new CropSizeMenu(this, session, m_readings))
{
    setAccessibleName(tr("Crop"));
    m_layout->setContentsMargins(Spacing::medium, Spacing::small, Spacing::medium, Spacing::small);
    m_layout->setSpacing(Spacing::small);
    m_lock->setCheckable(true);
    m_size->setFocusPolicy(Qt::TabFocus);
    m_size->setToolTip(tr("Output Size"));
    m_layout->addWidget(m_shape);
    m_layout->addWidget(m_lock);
    m_layout->addWidget(m_size);
    m_layout->addStretch(1);
    addButton(tr("Reset"), &CropBar::reset);
    addButton(tr("Cancel"), &CropBar::cancel);
    auto* const done = new PrimaryButton(tr("Crop"));
    done->setFocusPolicy(Qt::TabFocus);
    done->setAccessibleName(tr("Apply the Crop"));
    connect(done, &QPushButton::clicked, this, &CropBar::apply);
    m_layout->addWidget(done);
    connect(m_shape, &ChoiceButton::chosen, this, &CropBar::chooseShape);
    connect(m_lock, &SymbolButton::clicked, this, &CropBar::lock);
    connect(m_size, &QPushButton::clicked, this, [this] { offerSizes(m_size->mapToGlobal(QPoint())); });
    connect(m_menu, &CropSizeMenu::closed, this, &CropBar::watch);
    m_changes = session.onChange([this] { refresh(); });
    hold({});
}

void CropBar::addButton(const QString& text, void (CropBar::*action)())
{
    auto* const button = new RowButton(text);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QPushButton::clicked, this, action);
    m_layout->addWidget(button);
}

// --- What is shown

void CropBar::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous()) // not when the window comes back from having been minimized
        m_before = m_session.document().composition;
    watch();
    refresh();
}

void CropBar::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    watch();
}

// Nothing is weighed that nobody sees.
void CropBar::watch()
{
    m_readings.setWanted(isVisible() || m_menu->isVisible());
}

void CropBar::offerSizes(QPoint globalPosition)
{
    m_readings.setWanted(true);
    m_menu->popUp(globalPosition);
}

void CropBar::refresh()
{
    const QString size = CropSizeMenu::summary(m_session.document().composition.outputSize, m_readings);
    m_size->setText(size);
    m_size->setAccessibleName(tr("Output Size: %1").arg(size));
    m_size->updateGeometry();
    if (m_menu->isVisible())
        m_menu->refresh();
}

void CropBar::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.fillRect(rect(), theme.card);
    painter.fillRect(QRect(0, 0, width(), 1), theme.separator);
}

// --- The shape

Rect CropBar::crop() const
{
    return m_session.document().composition.crop.value_or(m_session.capture().canvas());
}

void CropBar::hold(std::optional<double> aspect)
{
    m_aspect = aspect;
    m_shape->setChoice(shapeIndex(aspect, m_session.capture().canvas()));
    m_lock->setChecked(aspect.has_value());
    Q_EMIT aspectChosen(aspect);
}

// One that the crop has already stays as it is.
void CropBar::chooseShape(int index)
{
    const Rect canvas = m_session.capture().canvas();
    if (index == freely)
        return hold({});
    const double aspect = index == original ? aspectOf(canvas)
                                            : double(usualAspectRatios[size_t(index - named)].width) /
                                                  usualAspectRatios[size_t(index - named)].height;
    hold(aspect);
    if (std::abs(aspectOf(crop()) / aspect - 1) > sameShape)
        take(CropShapes::shaped(crop(), canvas, aspect, m_session.capture().scale),
             m_session.document().composition.outputSize);
}

void CropBar::lock(bool isLocked)
{
    hold(isLocked ? std::optional(aspectOf(crop())) : std::nullopt);
}

// --- The end

void CropBar::take(std::optional<Rect> crop, const CropOutputSize& size)
{
    EditorDocument next = m_session.document();
    next.composition.crop = crop;
    next.composition.outputSize = size;
    m_session.change(std::move(next));
}

void CropBar::reset()
{
    hold({});
    take({}, {});
}

void CropBar::cancel()
{
    take(m_before.crop, m_before.outputSize);
    apply();
}

void CropBar::apply()
{
    m_session.setTool(EditorTool::select);
}

} // namespace Kovrel
