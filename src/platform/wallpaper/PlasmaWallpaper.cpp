#include "platform/wallpaper/PlasmaWallpaper.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <map>

namespace Kovrel {

namespace {

using Fit = Wallpaper::Fit;
using Group = std::map<QString, QString>;

// As QML's Image counts them.
constexpr Fit fits[] = {Fit::stretched, Fit::contained, Fit::covering, Fit::tiled,
                        Fit::tiled,     Fit::tiled,     Fit::centred};

// By their headers, as "[Containments][1]".
std::map<QString, Group> groupsIn(const QString& file)
{
    std::map<QString, Group> groups;
    QString header;
    for (const QString& line : file.split('\n')) {
        if (line.startsWith('['))
            header = line.trimmed();
        else if (const auto equals = line.indexOf('='); equals > 0)
            groups[header][line.left(equals)] = line.mid(equals + 1).trimmed();
    }
    return groups;
}

QColor colourOf(const QString& text)
{
    const QStringList parts = text.split(',');
    return parts.size() < 3 ? QColor(Qt::black) : QColor(parts[0].toInt(), parts[1].toInt(), parts[2].toInt());
}

// A package holds one picture in several sizes, which are their names; the one that is nearest to the display's.
QString nearestIn(const QString& package, QSize display)
{
    QString nearest;
    int least = INT_MAX;
    for (const QFileInfo& file : QDir(package + "/contents/images").entryInfoList(QDir::Files)) {
        const QStringList sides = file.completeBaseName().split('x');
        const int difference = sides.size() == 2 ? std::abs(sides[0].toInt() - display.width()) : INT_MAX - 1;
        if (difference < least) {
            least = difference;
            nearest = file.filePath();
        }
    }
    return nearest;
}

QString pictureOf(const QString& image, QSize display)
{
    const QUrl url(image);
    const QString path = url.isLocalFile() ? url.toLocalFile() : image;
    return QFileInfo(path).isDir() ? nearestIn(path, display) : path;
}

} // namespace

std::optional<Wallpaper> PlasmaWallpaper::from(const QString& file, int screen, QSize display)
{
    auto groups = groupsIn(file);
    for (auto& [header, group] : groups) {
        if (!group.contains("wallpaperplugin") || group["lastScreen"] != QString::number(screen))
            continue;
        Group& settings = groups[header + "[Wallpaper][" + group["wallpaperplugin"] + "][General]"];
        const QColor colour = colourOf(settings["Color"]);
        if (group["wallpaperplugin"] == "org.kde.color")
            return Wallpaper{.path = {}, .colour = colour};
        if (settings["Image"].isEmpty())
            continue;
        const auto fit = size_t(settings.contains("FillMode") ? settings["FillMode"].toInt() : 2);
        return Wallpaper{.path = pictureOf(settings["Image"], display),
                         .fit = fit < std::size(fits) ? fits[fit] : Fit::covering,
                         .colour = colour};
    }
    return {};
}

} // namespace Kovrel
