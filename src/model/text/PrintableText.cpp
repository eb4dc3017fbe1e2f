#include "model/text/PrintableText.h"

namespace Kovrel {

QString PrintableText::of(const QString& text)
{
    QString shown;
    shown.reserve(text.size());
    for (const QChar c : text)
        if (c.category() == QChar::Other_Control && c != u'\n' && c != u'\t')
            shown += QString("\\x%1").arg(int(c.unicode()), 2, 16, QChar('0'));
        else
            shown += c;
    return shown;
}

} // namespace Kovrel
