#include "historywindow/grid/EntryTexts.h"

#include "history/search/HistorySearch.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace Kovrel {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(EntryTexts)
};

} // namespace

QString EntryTexts::title(const HistoryEntry& entry)
{
    if (entry.title && !entry.title->isEmpty())
        return *entry.title;
    if (entry.savedPath)
        return QFileInfo(*entry.savedPath).completeBaseName();
    if (entry.sourceAppName && !entry.sourceAppName->isEmpty())
        return *entry.sourceAppName;
    return HistorySearch::label(entry.mode).value_or(Texts::tr("Capture"));
}

QString EntryTexts::moment(const QDateTime& date, const QDateTime& now, const QLocale& locale)
{
    const QDateTime local = date.toLocalTime();
    const QString time = locale.toString(local.time(), QLocale::ShortFormat);
    const qint64 days = local.date().daysTo(now.toLocalTime().date());
    if (days == 0)
        return Texts::tr("Today %1").arg(time);
    if (days == 1)
        return Texts::tr("Yesterday %1").arg(time);
    if (days > 1 && days < 7)
        return QString("%1 %2").arg(locale.dayName(local.date().dayOfWeek()), time);
    return QString("%1 %2").arg(locale.toString(local.date(), QLocale::ShortFormat), time);
}

QString EntryTexts::fullDate(const QDateTime& date, const QLocale& locale)
{
    const QDateTime local = date.toLocalTime();
    return QString("%1 %2").arg(locale.toString(local.date(), QLocale::LongFormat),
                                locale.toString(local.time(), QLocale::ShortFormat));
}

QString EntryTexts::size(const HistoryEntry& entry)
{
    if (!entry.pixelWidth || !entry.pixelHeight)
        return {};
    return QString("%1 \u00d7 %2").arg(*entry.pixelWidth).arg(*entry.pixelHeight);
}

} // namespace Kovrel
