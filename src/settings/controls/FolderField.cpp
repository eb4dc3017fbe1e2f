#include "settings/controls/FolderField.h"

#include "ui/controls/LineField.h"
#include "ui/controls/PlainButton.h"

#include <QPointer>

namespace Kovrel {

FolderField::FolderField(SettingControls::Folder kind) : m_kind(std::move(kind)), m_path(new LineField)
{
    auto* const button = new PlainButton(tr("Choose…"));
    m_button = button;
    m_path->setReadOnly(true);
    add(m_path, 1);
    add(m_button);
    setMain(m_button);
    connect(button, &QPushButton::clicked, this, &FolderField::choose);
}

void FolderField::setValue(const QVariant& value)
{
    m_path->setText(value.toString());
    m_path->setCursorPosition(0);
}

void FolderField::setTexts(const QString& name, const QString& description)
{
    m_path->setAccessibleName(name);
    m_button->setAccessibleName(tr("Choose: %1").arg(name));
    m_button->setAccessibleDescription(description);
}

void FolderField::choose()
{
    m_kind.choose(m_path->text(), window()->windowHandle(),
                  [self = QPointer(this)](const std::optional<QString>& folder) {
                      if (self && folder)
                          Q_EMIT self->changed(*folder);
                  });
}

} // namespace Kovrel
