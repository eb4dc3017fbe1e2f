#include "editorwindow/backdrop/BackdropControls.h"

#include "editorwindow/backdrop/AlignmentPad.h"
#include "editorwindow/backdrop/LightPad.h"
#include "editorwindow/tools/ChoiceButton.h"
#include "ui/Label.h"
#include "ui/controls/ColorWell.h"
#include "ui/tokens/Metrics.h"

#include <QCheckBox>
#include <QVBoxLayout>

#include <algorithm>

namespace Kovrel {

namespace {

// So that what is beside the names begins at one place.
int nameWidth()
{
    return int(72 * Typography::scale());
}

QString percent(double amount)
{
    return QString("%1 %").arg(qRound(100 * amount));
}

QString points(double amount)
{
    return QString::number(qRound(amount));
}

QStringList shapeNames()
{
    QStringList names{BackdropControls::tr("Automatic")};
    for (const auto& [width, height] : usualAspectRatios)
        names << QString("%1 : %2").arg(width).arg(height);
    return names;
}

int shapeIndex(const std::optional<AspectRatio>& aspect)
{
    if (!aspect)
        return 0;
    const auto* const found = std::ranges::find(usualAspectRatios, *aspect);
    return found == usualAspectRatios.end() ? -1 : int(found - usualAspectRatios.begin()) + 1;
}

Label* makeLabel(TextStyle style, const QString& text)
{
    auto* const label = new Label(style);
    label->setText(text);
    return label;
}

const std::array<Shadow, 4>& shadows()
{
    static const std::array known{Shadow::none(), Shadow::subtle(), Shadow::soft(), Shadow::deep()};
    return known;
}

} // namespace

BackdropControls::BackdropControls(BackdropEditing& editing, Preferences& preferences, ColorPick pick)
    : m_editing(editing), m_layout(new QVBoxLayout(this))
{
    m_layout->setContentsMargins(Spacing::tight + Spacing::tight, 0, Spacing::tight, 0);
    m_layout->setSpacing(Spacing::small);
    addTitle(tr("Layout"));
    addAmount(tr("Padding"), {0, 1, 0.01}, &EditorBackdrop::padding, "padding");
    addAmount(tr("Corners"), {0, 60, 1}, &EditorBackdrop::corners, "corners");
    addAmount(tr("Blur"), {0, 0.2, 0.005}, &EditorBackdrop::blur, "blur");
    m_blur = m_amounts.back().slider;
    addShape();
    m_layout->addWidget(makeSwitch(tr("Even out margins"), &EditorBackdrop::autoBalance));
    addPads();
    addTitle(tr("Shadow"));
    addShadow();
    addTitle(tr("Frame"));
    addFrame(preferences, std::move(pick));
    refresh();
}

// --- What there is

void BackdropControls::addTitle(const QString& text)
{
    m_layout->addSpacing(Spacing::small);
    m_layout->addWidget(makeLabel(TextStyle::control, text));
    m_title = text;
}

void BackdropControls::addAmount(const QString& name, AmountSlider::Range range, double EditorBackdrop::* field,
                                 const QString& part)
{
    auto* const slider = new AmountSlider(name, range, range.most > 1 ? points : percent);
    slider->setNameWidth(nameWidth());
    slider->setSpokenName(m_title + ' ' + name);
    m_layout->addWidget(slider);
    m_amounts.push_back({slider, field});
    connect(slider, &AmountSlider::amountChosen, this, [this, field, part](double amount) {
        m_editing.change(part, [field, amount](EditorBackdrop& backdrop) { backdrop.*field = amount; });
    });
    connect(slider, &AmountSlider::finished, this, [this] { m_editing.finish(); });
}

void BackdropControls::addChoice(const QString& name, ChoiceButton* button)
{
    auto* const row = new QHBoxLayout;
    Label* const label = makeLabel(TextStyle::caption, name);
    label->setFixedWidth(nameWidth());
    row->setSpacing(Spacing::tight);
    row->addWidget(label);
    row->addWidget(button, 1);
    m_layout->addLayout(row);
}

void BackdropControls::addShape()
{
    m_aspect = new ChoiceButton(tr("Shape"), shapeNames());
    addChoice(tr("Shape"), m_aspect);
    connect(m_aspect, &ChoiceButton::chosen, this, [this](int index) {
        choose([index](EditorBackdrop& backdrop) {
            backdrop.aspect = index == 0 ? std::nullopt : std::optional(usualAspectRatios[size_t(index - 1)]);
        });
    });
}

void BackdropControls::addPads()
{
    m_alignment = new AlignmentPad;
    m_light = new LightPad;
    auto* const grid = new QGridLayout;
    grid->addWidget(makeLabel(TextStyle::caption, tr("Position")), 0, 0);
    grid->addWidget(makeLabel(TextStyle::caption, tr("Light")), 0, 1);
    grid->addWidget(m_alignment, 1, 0, Qt::AlignLeft | Qt::AlignVCenter);
    grid->addWidget(m_light, 1, 1, Qt::AlignLeft);
    m_layout->addLayout(grid);
    connect(m_alignment, &AlignmentPad::alignmentChosen, this, [this](CardAlignment alignment) {
        choose([alignment](EditorBackdrop& backdrop) { backdrop.alignment = alignment; });
    });
    connect(m_light, &LightPad::lightChosen, this, [this](const ShadowLight& light) {
        m_editing.change("light", [light](EditorBackdrop& backdrop) { backdrop.shadowLight = light; });
    });
    connect(m_light, &LightPad::finished, this, [this] { m_editing.finish(); });
}

void BackdropControls::addShadow()
{
    m_shadow = new ChoiceButton(tr("Shadow"), {tr("None"), tr("Subtle"), tr("Soft"), tr("Deep")});
    addChoice(tr("Kind"), m_shadow);
    connect(m_shadow, &ChoiceButton::chosen, this,
            [this](int index) { choose([index](EditorBackdrop& one) { one.shadow = shadows()[size_t(index)]; }); });
    addAmount(tr("Strength"), {0, 1, 0.01}, &EditorBackdrop::shadowOpacity, "shadow");
}

void BackdropControls::addFrame(Preferences& preferences, ColorPick pick)
{
    addAmount(tr("Width"), {0, 1, 0.01}, &EditorBackdrop::frame, "frame");
    m_frameColor = new ColorWell([&preferences] { return preferences.get(Settings::savedSwatches); }, std::move(pick));
    m_frameColor->setToolTip(tr("Colour of the Frame"));
    m_frameColor->setAccessibleName(m_frameColor->toolTip());
    auto* const row = new QHBoxLayout;
    row->addWidget(m_frameColor);
    row->addWidget(makeSwitch(tr("Colour of the page"), &EditorBackdrop::frameFollowsPage), 1);
    m_layout->addLayout(row);
    connect(m_frameColor, &ColorWell::colorChosen, this, [this](const QString& hex) {
        choose([hex](EditorBackdrop& backdrop) {
            backdrop.frameColorHex = hex;
            backdrop.frameFollowsPage = false;
        });
    });
}

QCheckBox* BackdropControls::makeSwitch(const QString& name, bool EditorBackdrop::* field)
{
    auto* const box = new QCheckBox(name);
    box->setFont(Typography::font(TextStyle::caption));
    box->setFocusPolicy(Qt::TabFocus);
    m_switches.emplace_back(box, field);
    connect(box, &QCheckBox::clicked, this,
            [this, field](bool isOn) { choose([field, isOn](EditorBackdrop& backdrop) { backdrop.*field = isOn; }); });
    return box;
}

// A step of its own.
void BackdropControls::choose(const std::function<void(EditorBackdrop&)>& change)
{
    EditorBackdrop next = m_editing.backdrop();
    change(next);
    m_editing.apply(next);
}

// --- What is shown

void BackdropControls::refresh()
{
    const EditorBackdrop shown = m_editing.backdrop();
    setEnabled(!shown.isNone());
    for (const auto& [slider, field] : m_amounts)
        slider->setAmount(shown.*field);
    for (const auto& [box, field] : m_switches)
        box->setChecked(shown.*field);
    m_blur->setVisible(shown.fill.kind == BackdropFill::Kind::picture);
    m_alignment->setAlignment(shown.alignment);
    m_light->setLight(shown.shadowLight);
    m_aspect->setChoice(shapeIndex(shown.aspect));
    const auto* const shadow = std::ranges::find(shadows(), shown.shadow);
    m_shadow->setChoice(shadow == shadows().end() ? -1 : int(shadow - shadows().begin()));
    m_frameColor->setColor(shown.frameColorHex);
}

} // namespace Kovrel
