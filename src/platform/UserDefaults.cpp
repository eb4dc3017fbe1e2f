#include "platform/UserDefaults.h"

#include "platform/Workers.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QSaveFile>
#include <QSettings>

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

bool writeChange(const QString& path, const QString& key, const std::optional<QVariant>& value)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QSettings file(path, QSettings::IniFormat);
    if (value)
        file.setValue(key, *value);
    else
        file.remove(key);
    file.sync();
    if (file.status() != QSettings::AccessError)
        return true;
    qCWarning(log, "Preferences can't be written to %s; \"%s\" holds for this run only", qUtf8Printable(path),
              qUtf8Printable(key));
    return false;
}

bool isReadableLine(const QByteArray& line)
{
    return line.isEmpty() || line.startsWith('[') || line.startsWith(';') || line.contains('=');
}

// QSettings loses the rest of a file when it writes one with a bad line, as a cut-off one has at its end. So the file
// is copied aside and replaced by its readable lines.
void repair(const QString& path)
{
    const QString copy = path + ".unreadable-" + QString::number(QDateTime::currentMSecsSinceEpoch());
    if (!QFile::copy(path, copy)) {
        qCWarning(log, "Preferences in %s are damaged and can't be copied aside; what can be read is used",
                  qUtf8Printable(path));
        return;
    }
    qCWarning(log, "Preferences in %s are damaged; what can be read is used, a copy is kept as %s",
              qUtf8Printable(path), qUtf8Printable(copy));
    QFile damaged(path);
    QSaveFile repaired(path);
    if (!damaged.open(QIODevice::ReadOnly) || !repaired.open(QIODevice::WriteOnly))
        return;
    for (const QByteArray& line : damaged.readAll().split('\n'))
        if (isReadableLine(line.trimmed()))
            repaired.write(line + '\n');
    repaired.commit();
}

} // namespace

UserDefaults::UserDefaults(QString path, Workers* workers) : m_path(std::move(path)), m_workers(workers)
{
    load();
}

void UserDefaults::load()
{
    const QSettings file(m_path, QSettings::IniFormat);
    for (const QString& key : file.allKeys())
        m_stored.insert(key, file.value(key));
    // The format is judged only when the keys are read.
    if (file.status() == QSettings::FormatError)
        repair(m_path);
    else if (file.status() == QSettings::AccessError)
        qCWarning(log, "Preferences in %s can't be read; the defaults are used", qUtf8Printable(m_path));
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

bool UserDefaults::set(const QString& key, const QVariant& value)
{
    return change(key, value);
}

bool UserDefaults::remove(const QString& key)
{
    return change(key, std::nullopt);
}

bool UserDefaults::change(const QString& key, std::optional<QVariant> value)
{
    {
        const QMutexLocker locked(&m_lock);
        if (value)
            m_stored.insert(key, *value);
        else
            m_stored.remove(key);
    }
    if (m_workers)
        m_workers->submit(Lane::utility, [path = m_path, key, value] { writeChange(path, key, value); });
    const bool isStored = m_workers || writeChange(m_path, key, value);
    m_observers.notify(key);
    return isStored;
}

Subscription UserDefaults::onChange(std::function<void(const QString&)> callback)
{
    return m_observers.add(std::move(callback));
}

} // namespace Kovrel
