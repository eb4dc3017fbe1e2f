#include "saving/SaveService.h"

#include <QFile>
#include <QFileInfo>
#include <QTextBoundaryFinder>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace Kovrel {

namespace {

constexpr int lastCounter = 9999;
constexpr qsizetype longestCounter = 6; // " 10000"
constexpr qsizetype usualLongestName = 255;

struct NameParts {
    QString base;
    QString extension; // with its dot
};

NameParts partsOf(const QString& fileName)
{
    const qsizetype dot = fileName.lastIndexOf(u'.');
    return dot > 0 ? NameParts{fileName.left(dot), fileName.mid(dot)} : NameParts{fileName, {}};
}

// The longest start of whole characters, as people see them, that fits into so many bytes.
QString shortened(const QString& text, qsizetype bytes)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype end = text.size();
    while (end > 0 && QFile::encodeName(text.left(end)).size() > bytes) {
        finder.setPosition(end);
        end = qMax<qsizetype>(finder.toPreviousBoundary(), 0);
    }
    return text.left(end);
}

qsizetype longestNameIn(const QString& folder)
{
    const long longest = ::pathconf(QFile::encodeName(folder), _PC_NAME_MAX);
    return longest > 0 ? longest : usualLongestName;
}

// The system's error, 0 when the file was made.
int reserve(const QString& path, ReservationJournal& journal)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat status{};
    if (::lstat(name, &status) == 0)
        return EEXIST; // not ours, so not to be noted
    journal.note(path);
    const int descriptor = ::open(name, O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0644);
    const int error = descriptor < 0 ? errno : 0;
    if (descriptor >= 0)
        ::close(descriptor);
    else
        journal.clear(path);
    return error;
}

// With room for some more bytes behind the base.
NameParts fittingParts(const QString& folder, const QString& fileName, qsizetype spare)
{
    NameParts parts = partsOf(fileName);
    const qsizetype extension = QFile::encodeName(parts.extension).size();
    parts.base = shortened(parts.base, longestNameIn(folder) - extension - spare);
    return parts;
}

} // namespace

QString SaveService::fittingName(const QString& folder, const QString& fileName)
{
    const NameParts parts = fittingParts(folder, fileName, 0);
    return parts.base + parts.extension;
}

SaveService::UniquePath SaveService::uniqueURL(const QString& folder, const QString& fileName,
                                               ReservationJournal& journal)
{
    const NameParts parts = fittingParts(folder, fileName, longestCounter);
    const auto candidate = [&](const QString& counter) {
        return QString(folder + "/" + parts.base + counter + parts.extension);
    };

    QString path = candidate({});
    int error = reserve(path, journal);
    for (int counter = 2; error == EEXIST && counter <= lastCounter; ++counter) {
        path = candidate(" " + QString::number(counter));
        error = reserve(path, journal);
    }
    if (error == EEXIST)
        return {candidate(" " + QString::number(lastCounter + 1)), false, 0};
    return {path, error == 0, error};
}

} // namespace Kovrel
