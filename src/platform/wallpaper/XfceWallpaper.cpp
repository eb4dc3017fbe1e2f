#include "platform/wallpaper/XfceWallpaper.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

namespace Kovrel {

namespace {

using Fit = Wallpaper::Fit;

constexpr int patienceMilliseconds = 1000;

// By the numbers of "image-style", of which 0 is no picture.
constexpr Fit fits[] = {Fit::covering,  Fit::centred,  Fit::tiled,  Fit::stretched,
                        Fit::contained, Fit::covering, Fit::spanned};

QVariant ask(const QString& property)
{
    auto call = QDBusMessage::createMethodCall("org.xfce.Xfconf", "/org/xfce/Xfconf", "org.xfce.Xfconf", "GetProperty");
    call.setAutoStartService(false);
    call.setArguments({"xfce4-desktop", property});
    const QDBusMessage answer = QDBusConnection::sessionBus().call(call, QDBus::Block, patienceMilliseconds);
    if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty())
        return {};
    return answer.arguments().front().value<QDBusVariant>().variant();
}

// Red, green, blue and alpha from 0 to 1.
QColor colourOf(const QVariant& value)
{
    QList<QVariant> parts = value.toList();
    if (value.canConvert<QDBusArgument>())
        value.value<QDBusArgument>() >> parts;
    const auto part = [&](qsizetype index) {
        const QVariant& number = parts.at(index);
        return float(std::clamp(number.canConvert<QDBusVariant>() ? number.value<QDBusVariant>().variant().toDouble()
                                                                  : number.toDouble(),
                                0.0, 1.0));
    };
    return parts.size() < 3 ? QColor(Qt::black) : QColor::fromRgbF(part(0), part(1), part(2));
}

} // namespace

std::optional<Wallpaper> XfceWallpaper::of(const QString& monitor)
{
    const QString base = "/backdrop/screen0/monitor" + monitor + "/workspace0/";
    const QString path = ask(base + "last-image").toString();
    const QVariant style = ask(base + "image-style");
    if (path.isEmpty() && !style.isValid())
        return {};
    const auto fit = size_t(style.isValid() ? style.toInt() : 5);
    Wallpaper wallpaper{.path = fit == 0 ? QString() : path,
                        .fit = fit < std::size(fits) ? fits[fit] : Fit::covering,
                        .colour = colourOf(ask(base + "rgba1")),
                        .otherColour = colourOf(ask(base + "rgba2"))};
    const int shading = ask(base + "color-style").toInt();
    if (shading == 1 || shading == 2)
        wallpaper.gradient = shading == 1 ? Qt::Horizontal : Qt::Vertical;
    return wallpaper;
}

} // namespace Kovrel
