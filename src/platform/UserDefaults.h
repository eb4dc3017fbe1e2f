#pragma once

#include "platform/Observers.h"

#include <QHash>
#include <QMutex>
#include <QVariant>

#include <optional>

namespace Kovrel {

class Workers;

// The user's settings as plain key/value pairs in one INI file, with a registration domain below them: a value that
// was never set reads as its registered default, and nothing is written for it. Reads never touch the disk and are
// safe on any thread; a value that can't be read as the wanted type reads as the registered default, and without one
// as the type's zero. Setting is done on the main thread; the file is written on a worker, other programs' changes to
// other keys kept. A file that can't be read whole is first copied aside, one that can't be written is logged, and the
// settings then hold for this run.
class UserDefaults {
public:
    // Reads the file at once. Without workers each change is written before `set` returns.
    explicit UserDefaults(QString path, Workers* workers = nullptr);

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

    // False when the file could not be written; with workers that is only logged.
    bool set(const QString& key, const QVariant& value);
    bool remove(const QString& key);

    // Called on the main thread after a value was set or removed here.
    Subscription onChange(std::function<void(const QString& key)> callback);

private:
    template <class T>
    T read(const QString& key, std::optional<T> (*convert)(const QVariant&)) const;
    void load();
    bool change(const QString& key, std::optional<QVariant> value);

    QString m_path;
    Workers* m_workers;
    mutable QMutex m_lock;
    QHash<QString, QVariant> m_stored;
    QHash<QString, QVariant> m_registered;
    Observers<const QString&> m_observers;
};

} // namespace Kovrel
