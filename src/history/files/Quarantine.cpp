#include "history/files/Quarantine.h"

#include "editor/json/JSONElements.h"
#include "platform/files/AtomicFile.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.history")

const QString mark = "-unreadable-";

bool mentions(std::string_view text, const QSet<QUuid>& ids)
{
    const QByteArray upper = QByteArray(text.data(), qsizetype(text.size())).toUpper();
    return std::ranges::any_of(
        ids, [&](QUuid id) { return upper.contains(id.toByteArray(QUuid::WithoutBraces).toUpper()); });
}

// Nothing where no record is left.
QByteArray without(const QSet<QUuid>& ids, const QByteArray& copy)
{
    const auto array = JSONElements::inArray({copy.constData(), size_t(copy.size())});
    if (!array)
        return {};
    QByteArrayList kept;
    JSONElements elements(*array);
    const auto keep = [&](std::string_view element) {
        if (!JSONElements::isBlank(element) && !mentions(element, ids))
            kept << QByteArray(element.data(), qsizetype(element.size()));
    };
    while (const auto element = elements.next())
        keep(*element);
    keep(elements.rest());
    return kept.isEmpty() ? QByteArray() : '[' + kept.join(',') + ']';
}

// A name that is not taken: two may be put aside within a second.
QString freePlace(const QString& stem)
{
    qint64 seconds = QDateTime::currentSecsSinceEpoch();
    const auto path = [&]() -> QString { return stem + mark + QString::number(seconds) + ".json"; };
    while (QFileInfo::exists(path()))
        ++seconds;
    return path();
}

} // namespace

bool Quarantine::take(const QString& path, Original original) const
{
    const QString place = freePlace(path.chopped(5)); // ".json"
    const bool isTaken = original == Original::moves ? QFile::rename(path, place) : QFile::copy(path, place);
    if (isTaken)
        QFile::setPermissions(place, QFile::ReadOwner | QFile::WriteOwner);
    qCWarning(log, "%s can't be read wholly; %s %s", qUtf8Printable(path),
              isTaken ? "it is kept as" : "it could not be kept as", qUtf8Printable(place));
    return isTaken;
}

bool Quarantine::isAmong(const QStringList& names)
{
    return std::ranges::any_of(names, [](const QString& name) { return name.startsWith("index" + mark); });
}

QStringList Quarantine::copies() const
{
    QStringList names = m_files.names().value_or(QStringList());
    names.removeIf([](const QString& name) { return !name.contains(mark) || HistoryFiles::owner(name); });
    return names;
}

void Quarantine::forget(const QSet<QUuid>& ids) const
{
    for (const QString& name : copies()) {
        const QString path = m_files.folder() + '/' + name;
        QFile file(path);
        const QByteArray copy = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        if (!mentions({copy.constData(), size_t(copy.size())}, ids))
            continue;
        const QByteArray rest = without(ids, copy);
        if (rest.isEmpty() || !AtomicFile::write(path, rest, AtomicFile::Access::onlyOwner))
            QFile::remove(path);
    }
}

} // namespace Kovrel
