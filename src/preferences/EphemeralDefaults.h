#pragma once

#include "platform/files/UserDefaults.h"

namespace Kovrel {

// A read-only look at the settings, for values that are read once. Wrong types and missing values give nothing; any
// thread.
class EphemeralDefaults {
public:
    explicit EphemeralDefaults(const UserDefaults& defaults) : m_defaults(defaults) {}

    QVariant object(const QString& key) const { return m_defaults.object(key); }

    QByteArray data(const QString& key) const { return m_defaults.data(key); }

    QString string(const QString& key) const { return m_defaults.text(key); }

    QStringList stringArray(const QString& key) const { return m_defaults.textList(key); }

    QVariantList array(const QString& key) const { return object(key).toList(); }

    QVariantMap dictionary(const QString& key) const { return object(key).toMap(); }

    bool boolean(const QString& key) const { return m_defaults.boolean(key); }

private:
    const UserDefaults& m_defaults;
};

} // namespace Kovrel
