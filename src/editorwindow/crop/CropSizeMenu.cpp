#include "editorwindow/crop/CropSizeMenu.h"

#include "editor/crop/CropSizes.h"
#include "ui/Ground.h"
#include "ui/Label.h"
#include "ui/controls/RowButton.h"
#include "ui/controls/SymbolButton.h"
#include "ui/tokens/Metrics.h"
#include "ui/tokens/Theme.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QLocale>
#include <QPainter>
#include <QScreen>
#include <QSignalBlocker>

#include <algorithm>

namespace Kovrel {

namespace {

constexpr QSize fieldSize(80, 30);

// The width comes first, also in a line that is read from the right.
QString pixelText(QSize size)
{
    const QString text = QString("%1 × %2").arg(size.width()).arg(size.height());
    return QGuiApplication::isRightToLeft() ? QChar(0x2066) + text + QChar(0x2069) : text;
}

QString byteText(qsizetype bytes)
{
    return QLocale().formattedDataSize(bytes, bytes < 1'000'000 ? 0 : 1, QLocale::DataSizeSIFormat);
}

// How much less than all of it, or more.
QString differenceText(qsizetype bytes, qsizetype all)
{
    const int percent = all > 0 ? qRound(100.0 * double(bytes - all) / double(all)) : 0;
    return percent == 0 ? QString() : QString("  %1%2 %").arg(percent < 0 ? "−" : "+").arg(std::abs(percent));
}

} // namespace

CropSizeMenu::CropSizeMenu(QWidget* parent, EditorSession& session, const CropReadings& readings)
    : QWidget(parent, Qt::Popup | Qt::FramelessWindowHint), m_session(session), m_readings(readings)
{
    setAccessibleName(tr("Output Size"));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(Spacing::small, Spacing::small, Spacing::small, Spacing::small);
    layout->setSpacing(Spacing::tight);
    for (const double fraction : CropSizes::fractions) {
        auto* const row = new RowButton(QString());
        connect(row, &QPushButton::clicked, this, [this, fraction] {
            choose(CropOutputSize::ofFraction(fraction));
            hide();
        });
        layout->addWidget(row);
        m_rows.push_back(row);
    }
    layout->addWidget(makeTypedRow());
}

QWidget* CropSizeMenu::makeTypedRow()
{
    auto* const row = new QWidget;
    auto* const layout = new QHBoxLayout(row);
    layout->setContentsMargins(Spacing::small, Spacing::tight, Spacing::tight, Spacing::tight);
    layout->setSpacing(Spacing::tight + Spacing::tight);
    m_width = makeField(tr("Width in pixels"), &CropSizeMenu::typeWidth);
    m_height = makeField(tr("Height in pixels"), &CropSizeMenu::typeHeight);
    m_lock = new SymbolButton("lock", tr("Keep the shape"));
    m_lock->setCheckable(true);
    connect(m_lock, &SymbolButton::clicked, this, &CropSizeMenu::lock);
    auto* const times = new Label(TextStyle::body);
    times->setText("×");
    layout->addWidget(m_width);
    layout->addWidget(times);
    layout->addWidget(m_height);
    layout->addStretch(1);
    layout->addWidget(m_lock);
    return row;
}

QLineEdit* CropSizeMenu::makeField(const QString& name, void (CropSizeMenu::*typed)())
{
    auto* const field = new QLineEdit;
    field->setMinimumSize(fieldSize);
    field->setAlignment(Qt::AlignRight);
    field->setAccessibleName(name);
    field->setToolTip(name);
    connect(field, &QLineEdit::editingFinished, this, typed);
    return field;
}

// --- What is shown

QString CropSizeMenu::summary(const CropOutputSize& choice, const CropReadings& readings)
{
    const QString size = pixelText(CropSizes::pixels(choice, readings.crop()));
    const auto reading = readings.reading(choice);
    return reading ? QString("%1  ·  %2 %3").arg(size, rawString(reading->format).toUpper(), byteText(reading->bytes))
                   : size;
}

void CropSizeMenu::refresh()
{
    const QSize crop = m_readings.crop();
    const auto all = m_readings.reading({});
    for (size_t index = 0; index < m_rows.size(); ++index) {
        const CropOutputSize offered = CropOutputSize::ofFraction(CropSizes::fractions[index]);
        m_rows[index]->setText(QString("%1%2 %   %3")
                                   .arg(offered == choice() ? QString("✓ ") : QString())
                                   .arg(qRound(100 * offered.fraction))
                                   .arg(pixelText(CropSizes::pixels(offered, crop))));
        m_rows[index]->setAccessibleName(m_rows[index]->text());
        const auto reading = m_readings.reading(offered);
        const QString tag = reading && all ? differenceText(reading->bytes, all->bytes) : QString();
        m_rows[index]->setKeys(reading ? rawString(reading->format).toUpper() + ' ' + byteText(reading->bytes) + tag
                                       : QString("…"));
    }
    const QSize chosen = CropSizes::pixels(choice(), crop);
    const QSignalBlocker blockers[] = {QSignalBlocker(m_width), QSignalBlocker(m_height)};
    m_width->setText(QString::number(chosen.width()));
    m_height->setText(QString::number(chosen.height()));
    m_lock->setChecked(CropSizes::isAspectLocked(choice()));
    if (isVisible())
        adjustSize();
}

void CropSizeMenu::popUp(QPoint globalPosition)
{
    setPalette(Theme::current().palette());
    refresh();
    adjustSize();
    const QScreen* const on = screen();
    const QPoint above = globalPosition - QPoint(0, height());
    move(on && above.y() < on->availableGeometry().top() ? globalPosition : above);
    show();
    m_rows.front()->setFocus(Qt::PopupFocusReason);
}

void CropSizeMenu::paintEvent(QPaintEvent*)
{
    const Theme& theme = Theme::current();
    QPainter painter(this);
    painter.fillRect(rect(), theme.card);
    Ground{.color = theme.card, .edge = theme.cardEdge}.paint(painter, rect());
}

void CropSizeMenu::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    Q_EMIT closed();
}

// --- Choosing

void CropSizeMenu::choose(const CropOutputSize& choice)
{
    EditorDocument next = m_session.document();
    next.composition.outputSize = choice;
    m_session.change(std::move(next));
    refresh();
}

void CropSizeMenu::typeWidth()
{
    const QSize crop = m_readings.crop();
    const auto width = CropSizes::typedSide(m_width->text());
    if (!width || *width == CropSizes::pixels(choice(), crop).width())
        return refresh();
    choose(CropSizes::typedWidth(*width, choice(), crop, m_lock->isChecked()));
}

void CropSizeMenu::typeHeight()
{
    const QSize crop = m_readings.crop();
    const auto height = CropSizes::typedSide(m_height->text());
    if (!height || *height == CropSizes::pixels(choice(), crop).height())
        return refresh();
    choose(CropSizes::typedHeight(*height, choice(), crop, m_lock->isChecked()));
}

void CropSizeMenu::lock(bool isLocked)
{
    choose(CropSizes::withAspectLock(isLocked, choice(), m_readings.crop()));
}

} // namespace Kovrel
