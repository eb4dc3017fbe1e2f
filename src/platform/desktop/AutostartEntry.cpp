#include "platform/desktop/AutostartEntry.h"

#include "platform/files/AtomicFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace Kovrel {

namespace {

constexpr qint64 longestEntry = 1 << 16; // bytes

// As desktop entries have it: quoted, then escaped as any other text.
QString quoted(const QString& program)
{
    QString text;
    for (const QChar character : program) {
        if (QStringView(u"\"`$\\").contains(character))
            text += '\\';
        text += character;
    }
    text.replace('\\', "\\\\").replace('%', "%%");
    return '"' + text + '"';
}

QByteArray entryFor(const QString& program)
{
    return "[Desktop Entry]\nType=Application\nName=Kovrel\nExec=" + quoted(program).toUtf8() +
           " --background\nIcon=com.kovrel.Kovrel\nTerminal=false\nStartupNotify=false\n"
           "X-GNOME-Autostart-enabled=true\n";
}

// The value of a key in the entry's own group; empty where it has none.
QByteArray valueOf(const QByteArray& entry, const QByteArray& key)
{
    bool isInGroup = false;
    for (const QByteArray& line : entry.split('\n')) {
        const QByteArray text = line.trimmed();
        if (text.startsWith('['))
            isInGroup = text == "[Desktop Entry]";
        const qsizetype equals = text.indexOf('=');
        if (isInGroup && equals > 0 && text.left(equals).trimmed() == key)
            return text.mid(equals + 1).trimmed();
    }
    return {};
}

} // namespace

AutostartEntry::AutostartEntry(QString path, QString program) : m_path(std::move(path)), m_program(std::move(program))
{
}

QString AutostartEntry::usualPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           "/autostart/com.kovrel.Kovrel.desktop";
}

QString AutostartEntry::thisProgram()
{
    return QCoreApplication::applicationFilePath();
}

bool AutostartEntry::isOn() const
{
    QFile file(m_path);
    if (!QFileInfo(m_path).isFile() || !file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray entry = file.read(longestEntry);
    return !valueOf(entry, "Exec").isEmpty() && valueOf(entry, "Hidden") != "true" &&
           valueOf(entry, "X-GNOME-Autostart-enabled") != "false";
}

std::expected<void, QString> AutostartEntry::set(bool isOn)
{
    if (!isOn) {
        QFile file(m_path);
        if (file.exists() && !file.remove())
            return std::unexpected(m_path + ": " + file.errorString());
        return {};
    }
    QDir().mkpath(QFileInfo(m_path).path());
    const auto written = AtomicFile::write(m_path, entryFor(m_program), AtomicFile::Access::everyoneReads);
    return written ? std::expected<void, QString>() : std::unexpected(written.error().message);
}

} // namespace Kovrel
