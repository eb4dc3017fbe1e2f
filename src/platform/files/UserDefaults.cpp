#include "platform/files/UserDefaults.h"

#include "platform/Guarded.h"
#include "platform/ReplyFromWorker.h"

#include <QLoggingCategory>

#include <cmath>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.preferences")

// Values come back from the file as strings, so every conversion starts from what the text means, and anything that
// does not mean the wanted type is refused instead of becoming a zero.

std::optional<bool> toBoolean(const QVariant& value)
{
    const QString text = value.toString().toLower();
    if (text == "true" || text == "1")
        return true;
    if (text == "false" || text == "0")
        return false;
    return std::nullopt;
}

std::optional<qint64> toInteger(const QVariant& value)
{
    bool isNumber = false;
    const qint64 number = value.toString().toLongLong(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

std::optional<double> toReal(const QVariant& value)
{
    bool isNumber = false;
    const double number = value.toString().toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

// An unquoted comma in a file edited by hand makes a list of what was meant as one text.
std::optional<QString> toText(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::QStringList:
        return value.toStringList().join(", ");
    case QMetaType::QByteArray:
    case QMetaType::UnknownType:
        return std::nullopt;
    default:
        return value.canConvert<QString>() ? std::optional(value.toString()) : std::nullopt;
    }
}

std::optional<QByteArray> toData(const QVariant& value)
{
    return value.typeId() == QMetaType::QByteArray ? std::optional(value.toByteArray()) : std::nullopt;
}

// A list of one text is written as that text.
std::optional<QStringList> toTextList(const QVariant& value)
{
    if (value.typeId() == QMetaType::QStringList)
        return value.toStringList();
    return value.typeId() == QMetaType::QString ? std::optional(QStringList{value.toString()}) : std::nullopt;
}

void logFailure(const QString& key, const UserDefaults::Stored& stored)
{
    if (!stored)
        qCWarning(log, "\"%s\" holds for this run only: %s", qUtf8Printable(key), qUtf8Printable(stored.error()));
}

} // namespace

UserDefaults::UserDefaults(QString path) : m_file(std::move(path))
{
    load();
}

UserDefaults::UserDefaults(QString path, MainLoop& loop, Workers& workers)
    : m_file(std::move(path)), m_background(Background{loop, workers})
{
    load();
}

void UserDefaults::load()
{
    if (const auto stored = m_file.read())
        m_stored = *stored;
    else
        qCWarning(log, "Preferences can't be read, the defaults are used: %s", qUtf8Printable(stored.error()));
}

void UserDefaults::registerDefaults(const QHash<QString, QVariant>& defaults)
{
    const QMutexLocker locked(&m_lock);
    m_registered.insert(defaults);
}

QVariant UserDefaults::object(const QString& key) const
{
    const QMutexLocker locked(&m_lock);
    const auto stored = m_stored.constFind(key);
    return stored != m_stored.constEnd() ? *stored : m_registered.value(key);
}

bool UserDefaults::isStored(const QString& key) const
{
    const QMutexLocker locked(&m_lock);
    return m_stored.contains(key);
}

template <class T>
T UserDefaults::read(const QString& key, std::optional<T> (*convert)(const QVariant&)) const
{
    const QMutexLocker locked(&m_lock);
    if (const auto stored = convert(m_stored.value(key)))
        return *stored;
    return convert(m_registered.value(key)).value_or(T{});
}

bool UserDefaults::boolean(const QString& key) const
{
    return read(key, toBoolean);
}

qint64 UserDefaults::integer(const QString& key) const
{
    return read(key, toInteger);
}

double UserDefaults::real(const QString& key) const
{
    return read(key, toReal);
}

QString UserDefaults::text(const QString& key) const
{
    return read(key, toText);
}

QByteArray UserDefaults::data(const QString& key) const
{
    return read(key, toData);
}

QStringList UserDefaults::textList(const QString& key) const
{
    return read(key, toTextList);
}

void UserDefaults::set(const QString& key, const QVariant& value, const Reply<Stored>& stored)
{
    change(key, value, stored);
}

void UserDefaults::remove(const QString& key, const Reply<Stored>& stored)
{
    change(key, std::nullopt, stored);
}

void UserDefaults::change(const QString& key, const std::optional<QVariant>& value, const Reply<Stored>& stored)
{
    {
        const QMutexLocker locked(&m_lock);
        if (value)
            m_stored.insert(key, *value);
        else
            m_stored.remove(key);
    }
    m_unwritten.insert(key, value);
    write(stored ? stored : [key](const Stored& outcome) { logFailure(key, outcome); });
    m_observers.notify(key);
}

void UserDefaults::write(const Reply<Stored>& stored)
{
    const auto write = [file = m_file, changes = m_unwritten] { return file.change(changes); };
    const auto noted =
        m_lifeline.guard([this, changes = m_unwritten](const Stored& outcome) { written(changes, outcome); });
    const Reply<Stored> answer = [noted, stored](const Stored& outcome) {
        noted(outcome);
        stored(outcome);
    };
    if (m_background)
        replyFromWorker<Stored>(m_background->loop, m_background->workers, Lane::utility, Guarded::orReason(write),
                                answer);
    else
        answer(write());
}

// What was changed once more meanwhile is still to be written.
void UserDefaults::written(const SettingsFile::Changes& changes, const Stored& outcome)
{
    m_lastWrite = outcome;
    if (outcome)
        m_unwritten.removeIf([&](const auto& change) {
            return changes.contains(change.key()) && changes[change.key()] == change.value();
        });
    m_writes.notify();
}

Subscription UserDefaults::onChange(std::function<void(const QString&)> callback)
{
    return m_observers.add(std::move(callback));
}

} // namespace Kovrel
