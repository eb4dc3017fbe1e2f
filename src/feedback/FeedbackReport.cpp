#include "feedback/FeedbackReport.h"

#include "preferences/PreferenceTable.h"

namespace Kovrel {

namespace {

QString displayLine(const Display& display)
{
    const QRect& pixels = display.pixelRect;
    return QString("%1: %2x%3 at %4,%5, scale %6%7")
        .arg(display.name)
        .arg(pixels.width())
        .arg(pixels.height())
        .arg(pixels.x())
        .arg(pixels.y())
        .arg(display.scale)
        .arg(display.isPrimary ? ", primary" : "");
}

QString section(const QString& title, const QStringList& lines)
{
    if (lines.isEmpty())
        return title + ": none\n";
    return title + ":\n  " + lines.join("\n  ") + '\n';
}

// Of a few words or numbers, none of which is the user's own.
bool canBeTold(const Setting& setting)
{
    switch (setting.type) {
    case SettingType::boolean:
    case SettingType::integer:
    case SettingType::real:
    case SettingType::keyCombo:
        return true;
    case SettingType::text:
        return !setting.choices.isEmpty();
    case SettingType::data:
    case SettingType::textList:
        return false;
    }
    return false;
}

} // namespace

QString FeedbackReport::text(const Facts& facts, const PersonalTraces& traces)
{
    QStringList displays;
    for (const Display& display : facts.displays)
        displays << displayLine(display);
    const QString desktop = facts.desktop.isEmpty() ? QString("unknown") : facts.desktop;
    const QString text = "Kovrel " + facts.version + "\nSystem: " + facts.system + "\nDesktop: " + desktop + ", " +
                         facts.sessionType + " session, " + (facts.isComposited ? "composited" : "not composited") +
                         '\n' + section("Displays", displays) + section("Libraries", facts.libraries) +
                         section("Changed settings", facts.settings) + section("Log", facts.log);
    return traces.removed(text);
}

QStringList FeedbackReport::changedSettings(const UserDefaults& defaults)
{
    QStringList lines;
    for (const QString& key : PreferenceTable::keys()) {
        const Setting setting = *PreferenceTable::find(key);
        const QString value = PreferenceTable::text(PreferenceTable::value(defaults, key, setting.type), setting.type);
        if (defaults.isStored(key) && value != PreferenceTable::text(setting.registered, setting.type))
            lines << key + (canBeTold(setting) ? " = " + value : QString(" is set"));
    }
    return lines;
}

} // namespace Kovrel
