#include "cards/PreviewDuration.h"

#include <QCoreApplication>

#include <algorithm>

namespace Kovrel {

namespace {

constexpr double longest = 86400; // seconds; a setting may say anything
constexpr double kept = -1;

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(PreviewDuration)
};

} // namespace

PreviewDuration PreviewDuration::of(double seconds)
{
    PreviewDuration duration;
    if (seconds >= 0)
        duration.m_time = std::chrono::microseconds(qint64(1e6 * std::min(seconds, longest)));
    return duration;
}

std::vector<PreviewDuration> PreviewDuration::choices()
{
    return {of(5), of(10), of(15), of(30), keepUntilClosed()};
}

QString PreviewDuration::helpText(const QString& reopenKeys)
{
    return Texts::tr(
               "A preview closes on its own once this runs out. Hovering one holds its countdown, and %1 brings back "
               "the last one that closed.")
        .arg(reopenKeys);
}

double PreviewDuration::seconds() const
{
    return m_time ? double(m_time->count()) / 1e6 : kept;
}

QString PreviewDuration::title() const
{
    return m_time ? Texts::tr("Close after %1 seconds").arg(seconds()) : Texts::tr("Keep previews until I close them");
}

} // namespace Kovrel
