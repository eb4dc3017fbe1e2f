#pragma once

#include "preferences/Preferences.h"

#include <QCoreApplication>

#include <expected>

namespace Kovrel {

// The settings as one file, JSON, that another computer can read. What belongs to this computer or this run alone is
// not in it.
class SettingsTransfer {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::SettingsTransfer)

public:
    // What a file holds.
    struct Content {
        QHash<QString, QVariant> values; // as they are stored
        QStringList unknown;             // keys that this version does not know: they are left out
    };

    // What the user has set. Main thread.
    static QByteArray toJson(const UserDefaults& defaults);
    // The failure is one line for people. Any thread.
    static std::expected<Content, QString> fromJson(const QByteArray& json);
    // Everything is as in the content then; what it does not have is as nobody had set it. Main thread.
    static void apply(const Content& content, UserDefaults& defaults);

    // Both block on the disk. The failure is one line for people.
    static std::expected<void, QString> write(const QString& path, const QByteArray& json);
    static std::expected<Content, QString> read(const QString& path);

private:
    static QStringList keys();
};

} // namespace Kovrel
