#pragma once

#include "settings/rows/SettingRow.h"
#include "ui/Label.h"

namespace Kovrel {

// What is said below a setting as it is now. It takes no room while there is nothing to say.
class RemarkLine : public Label {
    Q_OBJECT

public:
    RemarkLine();

    void setRemark(const SettingRemark& remark);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void takeLook();

    bool m_isWarning = false;
};

} // namespace Kovrel
