#include "settings/controls/LanguagesField.h"

#include "model/RecogniserLanguage.h"
#include "ui/Label.h"
#include "ui/controls/CheckBox.h"
#include "ui/tokens/Metrics.h"

#include <QGridLayout>
#include <QPointer>

#include <algorithm>

namespace Kovrel {

namespace {

constexpr int columns = 3;

} // namespace

LanguagesField::LanguagesField(SettingControls::Languages kind) : m_kind(std::move(kind))
{
    auto* const list = new QWidget;
    m_grid = new QGridLayout(list);
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setHorizontalSpacing(Spacing::large);
    m_grid->setVerticalSpacing(Spacing::small);
    add(list, 1);
}

void LanguagesField::setTexts(const QString& name, const QString&)
{
    m_name = name;
}

void LanguagesField::setValue(const QVariant& value)
{
    m_chosen = value.toStringList();
    if (!std::exchange(m_isAsked, true))
        load();
    refresh();
}

void LanguagesField::load()
{
    m_kind.load(m_chosen, [self = QPointer(this)](const std::vector<SettingControls::Language>& languages) {
        if (self)
            self->show(languages);
    });
}

void LanguagesField::show(const std::vector<SettingControls::Language>& languages)
{
    for (const auto& language : languages)
        if (language.package.isEmpty())
            addInstalled(language);
        else
            addMissing(language);
    if (m_boxes.empty())
        addNote(tr("No language is installed, so no text can be read."));
    refresh();
}

void LanguagesField::addInstalled(const SettingControls::Language& language)
{
    auto* const box = new CheckBox(language.title);
    box->setAccessibleDescription(m_name);
    const int place = int(m_boxes.size());
    m_grid->addWidget(box, place / columns, place % columns);
    connect(box, &QCheckBox::clicked, this, [this, code = language.code](bool isOn) { toggle(code, isOn); });
    m_boxes.emplace_back(language.code, box);
    setMain(m_boxes.front().second);
}

void LanguagesField::addMissing(const SettingControls::Language& language)
{
    addNote(tr("%1 is not installed: Debian's package %2 brings it.").arg(language.title, language.package));
}

void LanguagesField::addNote(const QString& text)
{
    auto* const label = new Label(TextStyle::body, Label::Role::secondary);
    label->setText(text);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_grid->addWidget(label, m_grid->rowCount(), 0, 1, columns);
}

// The setting may say "de" where the recogniser says "deu".
void LanguagesField::refresh()
{
    for (const auto& [code, box] : m_boxes)
        box->setChecked(std::ranges::any_of(
            m_chosen, [&code](const QString& chosen) { return RecogniserLanguage::model(chosen) == code; }));
}

void LanguagesField::toggle(const QString& code, bool isOn)
{
    QStringList chosen = m_chosen;
    chosen.removeIf([&code](const QString& known) { return RecogniserLanguage::model(known) == code; });
    if (isOn)
        chosen << code;
    Q_EMIT changed(chosen);
}

} // namespace Kovrel
