#include "platform/files/IniText.h"

#include <QDataStream>
#include <QIODevice>
#include <QSettings>

#include <atomic>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Kovrel {

namespace {

// A file that is nowhere on disk.
class MemoryFile {
public:
    explicit MemoryFile(const QByteArray& content) : m_descriptor(::memfd_create("kovrel-settings", MFD_CLOEXEC))
    {
        m_isWhole = ::write(m_descriptor, content.constData(), size_t(content.size())) == content.size();
        // What was once read under a name is read again only when the file's size or time is another one.
        static std::atomic<time_t> lastTime = 0;
        const timespec time{++lastTime, 0};
        const timespec times[] = {time, time};
        ::futimens(m_descriptor, times);
    }

    ~MemoryFile() { ::close(m_descriptor); }

    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    bool isWhole() const { return m_isWhole; }

    QString path() const { return "/proc/self/fd/" + QString::number(m_descriptor); }

private:
    int m_descriptor;
    bool m_isWhole;
};

bool isPlainInKey(QChar letter)
{
    return letter.unicode() < 0x80 && (letter.isLetterOrNumber() || QStringView(u"_-.").contains(letter));
}

QString keyText(QStringView key)
{
    QString text;
    for (const QChar letter : key) {
        const auto code = letter.unicode();
        if (isPlainInKey(letter))
            text += letter;
        else if (letter == '/')
            text += '\\';
        else
            text += code > 0xff ? QString("%U%1").arg(code, 4, 16, QChar('0'))
                                : QString("%%1").arg(code, 2, 16, QChar('0')).toUpper();
    }
    return text;
}

// Control characters as numbers, which end where the next letter is no digit of theirs.
QString escaped(const QString& text)
{
    QString result;
    bool followsNumber = false;
    for (const QChar letter : text) {
        const auto code = letter.unicode();
        const bool isDigit = code < 0x80 && QStringView(u"0123456789abcdefABCDEF").contains(letter);
        const bool isNumber = code < 0x20 || code == 0x7f || (followsNumber && isDigit);
        if (isNumber)
            result += "\\x" + QString::number(code, 16);
        else if (letter == '"' || letter == '\\')
            result += QString('\\') + letter;
        else
            result += letter;
        followsNumber = isNumber;
    }
    return result;
}

QString quotedIfNeeded(const QString& text)
{
    const bool isPlain = text == text.trimmed() && !text.contains(';') && !text.contains(',') && !text.contains('=');
    const QString inner = escaped(text);
    return isPlain && !inner.contains('\\') ? inner : '"' + inner + '"';
}

// A text that looks like one of the forms of other types starts with one more sign.
QString textForm(const QString& text)
{
    return text.startsWith('@') ? '@' + text : text;
}

QString bytesForm(const char* type, const QByteArray& bytes)
{
    return QString::fromLatin1(type) + '(' + QString::fromLatin1(bytes) + ')';
}

QString streamForm(const QVariant& value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_4_0);
    stream << value;
    return bytesForm("@Variant", bytes);
}

QString listText(const QStringList& list)
{
    QStringList items;
    for (const QString& item : list)
        items << quotedIfNeeded(textForm(item));
    return list.isEmpty() ? QString("@Invalid()") : items.join(", ");
}

QString valueText(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return "@Invalid()";
    case QMetaType::QStringList:
        return listText(value.toStringList());
    case QMetaType::QByteArray:
        return quotedIfNeeded(bytesForm("@ByteArray", value.toByteArray()));
    default:
        return quotedIfNeeded(value.canConvert<QString>() ? textForm(value.toString()) : streamForm(value));
    }
}

QString sectionText(const QString& section)
{
    if (section.isEmpty())
        return "General";
    return section.compare("general", Qt::CaseInsensitive) == 0 ? QString("%General") : keyText(section);
}

} // namespace

// QSettings reads files only, and would wait for the other end of a pipe: it gets what was read already.
std::optional<IniText::Content> IniText::parse(const QByteArray& text)
{
    const MemoryFile memory(text);
    if (!memory.isWhole())
        return std::nullopt;
    const QSettings file(memory.path(), QSettings::IniFormat);
    Content content;
    for (const QString& key : file.allKeys())
        content.values.insert(key, file.value(key));
    // Judged only when the keys are read.
    if (file.status() == QSettings::AccessError)
        return std::nullopt;
    content.isDamaged = file.status() == QSettings::FormatError;
    return content;
}

QByteArray IniText::of(const Values& values)
{
    QMap<QString, QString> sections;
    for (auto value = values.begin(); value != values.end(); ++value) {
        const qsizetype slash = value.key().indexOf('/');
        const QString section = slash < 0 ? QString() : value.key().left(slash);
        sections[section] += keyText(QStringView(value.key()).mid(slash + 1)) + '=' + valueText(*value) + '\n';
    }
    QString text;
    for (auto section = sections.begin(); section != sections.end(); ++section)
        text += (text.isEmpty() ? "[" : "\n[") + sectionText(section.key()) + "]\n" + *section;
    return text.toUtf8();
}

} // namespace Kovrel
