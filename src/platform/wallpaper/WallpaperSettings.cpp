#include "platform/wallpaper/WallpaperSettings.h"

#include "platform/desktop/Gsettings.h"
#include "platform/wallpaper/PlasmaWallpaper.h"
#include "platform/wallpaper/XfceWallpaper.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QUrl>

#include <map>

namespace Kovrel {

namespace {

using Fit = Wallpaper::Fit;

const std::map<QString, Fit> fits{{"wallpaper", Fit::tiled},     {"centered", Fit::centred}, {"scaled", Fit::contained},
                                  {"stretched", Fit::stretched}, {"zoom", Fit::covering},    {"spanned", Fit::spanned}};

QString unquoted(const QString& value)
{
    return value.startsWith('\'') ? value.mid(1, value.size() - 2) : value;
}

// Of lines as "org.gnome.desktop.background picture-options 'zoom'".
std::map<QString, QString> valuesIn(const QString& listing)
{
    std::map<QString, QString> values;
    for (const QString& line : listing.split('\n', Qt::SkipEmptyParts))
        values[line.section(' ', 1, 1)] = unquoted(line.section(' ', 2));
    return values;
}

// A picture that changes with the time of the day is a list of pictures; the first one stands for all.
QString firstPictureOf(const QString& path)
{
    QFile file(path);
    if (!path.endsWith(".xml") || !file.open(QIODevice::ReadOnly))
        return path;
    static const QRegularExpression picture(">\\s*(/[^<]+\\.\\w+)\\s*<");
    return picture.match(QString::fromUtf8(file.read(1 << 16))).captured(1);
}

std::optional<Wallpaper> ofGsettings(const QString& schema)
{
    const auto listing = Gsettings::run({"list-recursively", schema});
    if (!listing)
        return {};
    const auto scheme = Gsettings::run({"get", "org.gnome.desktop.interface", "color-scheme"});
    return WallpaperSettings::fromGsettings(*listing, scheme && scheme->contains("prefer-dark"));
}

std::optional<Wallpaper> ofPlasma(const Display& display, const DisplayList& all)
{
    QFile file(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
               "/plasma-org.kde.plasma.desktop-appletsrc");
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const auto place = std::ranges::find(all, display.id, &Display::id);
    return PlasmaWallpaper::from(QString::fromUtf8(file.readAll()), int(place - all.begin()), display.pixelRect.size());
}

} // namespace

std::optional<Wallpaper> WallpaperSettings::fromGsettings(const QString& listing, bool isDark)
{
    auto values = valuesIn(listing);
    if (!values.contains("picture-options"))
        return {};
    QString picture = values["picture-filename"]; // MATE's
    if (picture.isEmpty())
        picture = QUrl(values[isDark && values.contains("picture-uri-dark") ? "picture-uri-dark" : "picture-uri"])
                      .toLocalFile();
    const auto fit = fits.find(values["picture-options"]);
    Wallpaper wallpaper{
        .path = fit == fits.end() ? QString() : firstPictureOf(picture),
        .fit = fit == fits.end() ? Fit::covering : fit->second,
        .colour = QColor(values["primary-color"]),
        .otherColour = QColor(values["secondary-color"]),
    };
    const QString shading = values["color-shading-type"];
    if (shading.startsWith("vertical"))
        wallpaper.gradient = Qt::Vertical;
    else if (shading.startsWith("horizontal"))
        wallpaper.gradient = Qt::Horizontal;
    return wallpaper;
}

std::optional<Wallpaper> WallpaperSettings::of(const Display& display, const DisplayList& all)
{
    // Names of desktops, the most special one first: "ubuntu:GNOME".
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").toUpper().split(':');
    const auto is = [&](const char* name) { return desktops.contains(name); };
    if (is("X-CINNAMON") || is("CINNAMON"))
        return ofGsettings("org.cinnamon.desktop.background");
    if (is("MATE"))
        return ofGsettings("org.mate.background");
    if (is("KDE"))
        return ofPlasma(display, all);
    if (is("XFCE"))
        return XfceWallpaper::of(display.name);
    if (is("GNOME") || is("UNITY") || is("BUDGIE"))
        return ofGsettings("org.gnome.desktop.background");
    return {};
}

} // namespace Kovrel
