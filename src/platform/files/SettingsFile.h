#pragma once

#include "platform/files/IniText.h"

#include <QHash>

#include <expected>
#include <optional>

namespace Kovrel {

// The file in which settings are kept: an INI file for its user alone. Errors are one line for people. Any thread, and
// several programs at the same time.
class SettingsFile {
public:
    using Changes = QHash<QString, std::optional<QVariant>>;

    explicit SettingsFile(QString path) : m_path(std::move(path)) {}

    QString path() const { return m_path; }

    // What is stored; nothing where there is no file. A damaged file is copied aside and replaced by what can be read
    // of it.
    std::expected<IniText::Values, QString> read() const;

    // Stores values, or removes those that are none, and keeps all others. What can't be read is not replaced.
    std::expected<void, QString> change(const Changes& changes) const;

private:
    std::expected<IniText::Content, QString> content() const;
    std::expected<void, QString> write(const IniText::Values& values) const;
    void repair(const IniText::Values& readable) const;

    QString m_path;
};

} // namespace Kovrel
