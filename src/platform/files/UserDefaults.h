#pragma once

#include "platform/Lifeline.h"
#include "platform/Observers.h"
#include "platform/Reply.h"
#include "platform/files/SettingsFile.h"

#include <QHash>
#include <QMutex>
#include <QVariant>

#include <expected>
#include <optional>

namespace Kovrel {

class MainLoop;
class Workers;

// The user's settings as plain key/value pairs in one INI file, with a registration domain below them: a value that
// was never set reads as its registered default, and nothing is written for it. Reads never touch the disk and are
// safe on any thread; a value that can't be read as the wanted type reads as the registered default, and without one
// as the type's zero. Setting is done on the main thread; the file is written on a worker, other programs' changes to
// other keys kept. A file that can't be read whole is first copied aside; what can't be written is told to whoever
// asks, else logged, holds for this run, and is tried again with the next change.
class UserDefaults {
public:
    // Whether the file has it. The error is one line for people.
    using Stored = std::expected<void, QString>;

    // Reads the file at once. Without workers each change is written before `set` returns.
    explicit UserDefaults(QString path);
    UserDefaults(QString path, MainLoop& loop, Workers& workers);

    void registerDefaults(const QHash<QString, QVariant>& defaults);

    // The stored value, else the registered one, else an invalid one.
    QVariant object(const QString& key) const;
    bool isStored(const QString& key) const;

    bool boolean(const QString& key) const;
    qint64 integer(const QString& key) const;
    double real(const QString& key) const;
    QString text(const QString& key) const;
    QByteArray data(const QString& key) const;
    QStringList textList(const QString& key) const;

    // The value holds at once; `stored` is told later, and without workers before this returns.
    void set(const QString& key, const QVariant& value, const Reply<Stored>& stored = {});
    void remove(const QString& key, const Reply<Stored>& stored = {});

    // Called on the main thread after a value was set or removed here.
    Subscription onChange(std::function<void(const QString& key)> callback);

    // How the last write went: a failure until one succeeds, and with it all that was changed before. Main thread, as
    // is the call when a write has ended.
    const Stored& lastWrite() const { return m_lastWrite; }

    Subscription onWrite(std::function<void()> callback) { return m_writes.add(std::move(callback)); }

private:
    struct Background {
        MainLoop& loop;
        Workers& workers;
    };

    template <class T>
    T read(const QString& key, std::optional<T> (*convert)(const QVariant&)) const;
    void load();
    void change(const QString& key, const std::optional<QVariant>& value, const Reply<Stored>& stored);
    void write(const Reply<Stored>& stored);
    void written(const SettingsFile::Changes& changes, const Stored& outcome);

    SettingsFile m_file;
    std::optional<Background> m_background;
    mutable QMutex m_lock;
    IniText::Values m_stored;
    QHash<QString, QVariant> m_registered;
    Observers<const QString&> m_observers;
    SettingsFile::Changes m_unwritten; // of which it is not known yet that the file has them
    Stored m_lastWrite;
    Observers<> m_writes;
    Lifeline m_lifeline;
};

} // namespace Kovrel
