#include "settings/SettingRowView.h"

#include "settings/RemarkLine.h"
#include "settings/controls/SettingFields.h"
#include "ui/Label.h"
#include "ui/Questions.h"
#include "ui/controls/PlainButton.h"
#include "ui/controls/SymbolButton.h"
#include "ui/tokens/Metrics.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPointer>

namespace Kovrel {

namespace {

constexpr int margin = 10; // above and below
constexpr int broadField = 260;

} // namespace

SettingRowView::SettingRowView(SettingRow row) : m_row(std::move(row))
{
    m_field = SettingFields::make(m_row.control);
    m_remark = new RemarkLine;
    auto* const layout = new QGridLayout(this);
    layout->setContentsMargins(Spacing::large, margin, Spacing::large, margin);
    layout->setHorizontalSpacing(Spacing::large);
    layout->setVerticalSpacing(2 * Spacing::tight);
    layout->setColumnStretch(0, 1);
    makeResetButton();
    QWidget* const texts = makeTexts();
    layout->addWidget(texts, 0, 0, Qt::AlignVCenter);
    if (m_field->isWide()) {
        layout->addWidget(m_field, 2, 0, 1, 2);
        layout->addWidget(m_reset, 0, 1, Qt::AlignTop);
    } else {
        layout->addWidget(makeControls(), 0, 1, Qt::AlignVCenter);
    }
    if (m_field->isWide() || m_field->sizeHint().width() < broadField * Typography::scale())
        texts->layout()->addWidget(m_hint);
    else
        layout->addWidget(m_hint, 1, 0, 1, 2); // beside such a control it would be squeezed
    layout->addWidget(m_remark, 3, 0, 1, 2);
    m_field->setTexts(m_row.label, m_row.hint);
    connect(m_field, &SettingField::changed, this, &SettingRowView::change);
    if (m_row.binding.observe)
        m_observed = m_row.binding.observe([this] { refresh(); });
    refresh();
}

QWidget* SettingRowView::makeTexts()
{
    m_label = new Label(TextStyle::control);
    m_label->setText(m_row.label);
    m_hint = new Label(TextStyle::body, Label::Role::secondary);
    m_hint->setText(m_row.hint);
    if (m_row.hint.isEmpty())
        m_hint->hide(); // but never shown here: without a parent it would be a window
    auto* const texts = new QWidget;
    auto* const layout = new QVBoxLayout(texts);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Spacing::tight);
    layout->addWidget(m_label);
    return texts;
}

QWidget* SettingRowView::makeControls()
{
    auto* const controls = new QWidget;
    m_field->setParent(controls); // first, where the tabulator goes to it before the way back
    auto* const layout = new QHBoxLayout(controls);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Spacing::small);
    layout->addWidget(m_reset);
    if (m_row.action) {
        auto* const button = new PlainButton(m_row.action->title);
        button->setAccessibleDescription(m_row.label);
        connect(button, &QPushButton::clicked, this, [this] { m_row.action->perform(window()->windowHandle()); });
        layout->addWidget(button);
    }
    layout->addWidget(m_field);
    return controls;
}

// Its place is kept free, so that nothing moves when it comes.
void SettingRowView::makeResetButton()
{
    m_reset = new SymbolButton("arrow.uturn.backward", tr("Reset “%1”").arg(m_row.label));
    QSizePolicy policy = m_reset->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_reset->setSizePolicy(policy);
    connect(m_reset, &QPushButton::clicked, this, [this] {
        m_field->takeFocus(); // which the button is about to lose
        m_row.binding.reset();
    });
}

bool SettingRowView::takeFocus()
{
    if (m_field->isEnabled())
        m_field->takeFocus();
    return m_field->isEnabled();
}

void SettingRowView::refresh()
{
    const SettingBinding& binding = m_row.binding;
    const bool isEnabled = !m_row.isEnabled || m_row.isEnabled();
    if (binding.read)
        m_field->setValue(binding.read());
    m_field->setEnabled(isEnabled);
    m_label->setEnabled(isEnabled);
    m_hint->setEnabled(isEnabled);
    m_reset->setVisible(binding.reset && binding.isChanged && binding.isChanged());
    refreshRemark();
}

void SettingRowView::refreshRemark()
{
    if (!m_row.remark)
        return;
    m_row.remark([self = QPointer(this), generation = ++m_remarkGeneration](const SettingRemark& remark) {
        if (self && generation == self->m_remarkGeneration)
            self->m_remark->setRemark(remark);
    });
}

void SettingRowView::change(const QVariant& value)
{
    const auto question = m_row.question ? m_row.question(value) : std::nullopt;
    if (question)
        Questions::ask(*this, *question, [this, value] { write(value); }, [this] { refresh(); });
    else
        write(value);
}

void SettingRowView::write(const QVariant& value)
{
    m_row.binding.write(value);
    if (m_row.changed)
        m_row.changed();
}

} // namespace Kovrel
