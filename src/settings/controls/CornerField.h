#pragma once

#include "model/PreviewPosition.h"
#include "settings/controls/SettingField.h"

#include <map>

class QAbstractButton;

namespace Kovrel {

// A picture of a screen, of which a corner is chosen.
class CornerField : public SettingField {
    Q_OBJECT

public:
    CornerField();

    void setValue(const QVariant& value) override;
    void setTexts(const QString& name, const QString& description) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    class Corner;

    std::map<PreviewPosition, QAbstractButton*> m_corners;
};

} // namespace Kovrel
