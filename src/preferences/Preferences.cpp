#include "preferences/Preferences.h"

#include "preferences/PreferenceTable.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>

namespace Kovrel {

namespace {

const SettingKey<QStringList>& orderKey(BackdropChips chips)
{
    switch (chips) {
    case BackdropChips::pictures:
        return Settings::backdropPictureOrder;
    case BackdropChips::colors:
        return Settings::backdropColorOrder;
    case BackdropChips::gradients:
        return Settings::backdropGradientOrder;
    }
    Q_UNREACHABLE();
}

const SettingKey<QStringList>& hiddenKey(BackdropChips chips)
{
    switch (chips) {
    case BackdropChips::pictures:
        return Settings::backdropPicturesHidden;
    case BackdropChips::colors:
        return Settings::backdropColorsHidden;
    case BackdropChips::gradients:
        return Settings::backdropGradientsHidden;
    }
    Q_UNREACHABLE();
}

} // namespace

void Preferences::registerDefaults(UserDefaults& defaults)
{
    defaults.registerDefaults(PreferenceTable::registeredDefaults());
}

int Preferences::selfTimerSeconds() const
{
    const int seconds = get(Settings::selfTimerSeconds);
    return seconds < 1 ? 5 : std::min(seconds, 24 * 60 * 60);
}

QString Preferences::toolColorHex(EditorTool tool) const
{
    if (const QString own = get(Settings::annotationColorHex.of(tool)); !own.isEmpty())
        return own;
    // Yellow is what a marker is expected to be, whatever colour arrows have.
    if (tool == EditorTool::highlighter || tool == EditorTool::text)
        return "#FFDC2C";
    return get(Settings::annotationColorHex);
}

void Preferences::setToolColorHex(const QString& hex, EditorTool tool)
{
    set(Settings::annotationColorHex.of(tool), hex);
}

double Preferences::toolStrokeWidth(EditorTool tool) const
{
    if (const double own = get(Settings::annotationStrokeWidth.of(tool)); own > 0)
        return own;
    // Both rectangle tools make the same mark, so a width chosen for one is expected of the other.
    const auto twin = tool == EditorTool::rectangle         ? std::optional(EditorTool::rectangleFilled)
                      : tool == EditorTool::rectangleFilled ? std::optional(EditorTool::rectangle)
                                                            : std::nullopt;
    if (twin)
        if (const double width = get(Settings::annotationStrokeWidth.of(*twin)); width > 0)
            return width;
    return get(Settings::annotationStrokeWidth);
}

AnnotationFillStyle Preferences::toolFillStyle(EditorTool tool) const
{
    const AnnotationFillStyle usual = tool == EditorTool::rectangle         ? AnnotationFillStyle::outline
                                      : tool == EditorTool::rectangleFilled ? AnnotationFillStyle::filled
                                                                            : get(Settings::annotationFillStyle);
    return get(SettingKey<AnnotationFillStyle>{Settings::annotationFillStyle.of(tool).name, usual});
}

void Preferences::setToolFillStyle(AnnotationFillStyle style, EditorTool tool)
{
    set(Settings::annotationFillStyle.of(tool), style);
}

bool Preferences::toolRoundedCorners(EditorTool tool) const
{
    const auto own = Settings::annotationRoundedCorners.of(tool);
    return get(isStored(own) ? own : Settings::annotationRoundedCorners);
}

QStringList Preferences::backdropRowOrder(BackdropChips chips) const
{
    return get(orderKey(chips));
}

void Preferences::setBackdropRowOrder(const QStringList& order, BackdropChips chips)
{
    set(orderKey(chips), order);
}

QStringList Preferences::hiddenBackdropChips(BackdropChips chips) const
{
    return get(hiddenKey(chips));
}

void Preferences::setHiddenBackdropChips(const QStringList& hidden, BackdropChips chips)
{
    set(hiddenKey(chips), hidden);
}

QString Preferences::defaultSaveDirectory()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)).filePath("Kovrel");
}

bool Preferences::ensureDefaultSaveDirectoryExists()
{
    return QDir().mkpath(defaultSaveDirectory());
}

std::optional<QString> Preferences::chosenSaveDirectory() const
{
    const QUrl chosen = QUrl::fromEncoded(get(Settings::saveLocationBookmark), QUrl::StrictMode);
    return chosen.isLocalFile() ? std::optional(chosen.toLocalFile()) : std::nullopt;
}

QString Preferences::resolvedSaveDirectory() const
{
    const auto chosen = chosenSaveDirectory();
    return chosen && QFileInfo(*chosen).isDir() ? *chosen : defaultSaveDirectory();
}

void Preferences::setSaveDirectory(const QString& path)
{
    set(Settings::saveLocationBookmark, QUrl::fromLocalFile(path).toEncoded());
}

} // namespace Kovrel
