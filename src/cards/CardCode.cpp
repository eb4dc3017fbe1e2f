#include "cards/CardCode.h"

#include "model/text/PrintableText.h"
#include "model/text/WebLink.h"

namespace Kovrel {

namespace {

// Marks that turn the direction of text around can make an address read like another.
QString withoutInvisibleMarks(QString text)
{
    return text.removeIf([](QChar c) { return c.category() == QChar::Other_Format; });
}

} // namespace

QString CardCode::shown(qsizetype most) const
{
    // The address that would be opened, as it is sent: letters that look alike are told apart in it.
    const auto url = link();
    const QString text = url ? QString::fromLatin1(url->toEncoded()) : payload.left(4 * most);
    const QString line = PrintableText::of(withoutInvisibleMarks(text).simplified());
    return line.size() > most ? line.left(most - 1) + QChar(0x2026) : line;
}

std::optional<QUrl> CardCode::link() const
{
    return WebLink::of(payload);
}

} // namespace Kovrel
