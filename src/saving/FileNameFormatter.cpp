#include "saving/FileNameFormatter.h"

namespace Kovrel {

QString FileNameFormatter::format(const QString& fileNameTemplate, const QDateTime& date)
{
    const QDateTime local = date.toLocalTime();
    const QDate day = local.date();
    const QTime time = local.time();
    const auto padded = [](int number, int width) { return QString::number(number).rightJustified(width, u'0'); };

    QString name = fileNameTemplate;
    name.replace("%Y", padded(day.year(), 4));
    name.replace("%m", padded(day.month(), 2));
    name.replace("%d", padded(day.day(), 2));
    name.replace("%H", padded(qMax(time.hour(), 0), 2));
    name.replace("%M", padded(qMax(time.minute(), 0), 2));
    name.replace("%S", padded(qMax(time.second(), 0), 2));
    for (QChar& character : name)
        if (QStringView(u"/:\\?%*|\"<>").contains(character))
            character = u'-';
    // A file whose name begins with a dot is not shown.
    if (name.startsWith(u'.'))
        name[0] = u'-';
    return name.isEmpty() ? "Kovrel" : name;
}

} // namespace Kovrel
