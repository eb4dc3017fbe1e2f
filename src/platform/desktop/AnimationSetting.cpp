#include "platform/desktop/AnimationSetting.h"

#include "platform/Guarded.h"
#include "platform/ReplyFromWorker.h"
#include "platform/desktop/Gsettings.h"

#include <QSettings>
#include <QStandardPaths>

namespace Kovrel {

namespace {

QVariant valueIn(const QString& file, const QString& key)
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return QSettings(folder + '/' + file, QSettings::IniFormat).value(key);
}

bool isOnInKde()
{
    const QVariant factor = valueIn("kdeglobals", "KDE/AnimationDurationFactor");
    return !factor.isValid() || factor.toDouble() > 0;
}

bool isOnInGnome()
{
    const auto answer = Gsettings::run({"get", "org.gnome.desktop.interface", "enable-animations"});
    return !answer || answer->trimmed() != "false";
}

bool isOnInGtk()
{
    const QVariant animates = valueIn("gtk-3.0/settings.ini", "Settings/gtk-enable-animations");
    return !animates.isValid() || animates.toBool();
}

} // namespace

bool AnimationSetting::isOn()
{
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").toUpper().split(':');
    if (desktops.contains("KDE"))
        return isOnInKde();
    return desktops.contains("GNOME") ? isOnInGnome() : isOnInGtk();
}

void AnimationSetting::read(MainLoop& loop, Workers& workers, std::function<void(bool)> reply)
{
    replyFromWorker<bool>(loop, workers, Lane::utility, QualityOfService::background, Guarded::orElse(isOn, true),
                          std::move(reply));
}

} // namespace Kovrel
