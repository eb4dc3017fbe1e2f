#pragma once

#include "platform/LoginItem.h"

namespace Kovrel {

// The login item as a file of the autostart folder, which every desktop looks into. What the
// user has written into it by hand, or the desktop's own settings have, is believed.
class AutostartEntry : public LoginItem {
public:
    // `path` is the user's own file; `program` is absolute.
    AutostartEntry(QString path, QString program);

    static QString usualPath();
    static QString thisProgram();

    bool isOn() const override;
    std::expected<void, QString> set(bool isOn) override;

private:
    QString m_path;
    QString m_program;
};

} // namespace Kovrel
