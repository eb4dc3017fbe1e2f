#include "platform/desktop/GnomeShortcuts.h"

#include "platform/desktop/Gsettings.h"

#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace Kovrel {

namespace {

// Nothing here is static: shortcuts are given back also while a process exits, when such objects are gone.
struct Schema {
    const char* name;
    std::vector<QString> keys;
};

std::vector<Schema> schemas()
{
    return {
        {"org.gnome.shell.keybindings", {"screenshot", "screenshot-window", "show-screenshot-ui"}},
        {"org.gnome.settings-daemon.plugins.media-keys",
         {"screenshot", "area-screenshot", "window-screenshot", "screenshot-clip", "area-screenshot-clip",
          "window-screenshot-clip"}},
    };
}

// The texts of a list, or the one text of a setting that older versions have: ['<Super>a', '<Super>b'], '<Super>a',
// @as [].
QStringList textsOf(const QString& value)
{
    const QRegularExpression text("'([^']*)'|\"([^\"]*)\"");
    QStringList texts;
    for (const QRegularExpressionMatch& match : text.globalMatch(value))
        if (!match.captured(0).mid(1).chopped(1).isEmpty())
            texts << match.captured(0).mid(1).chopped(1);
    return texts;
}

QString quoted(const QString& text)
{
    return '\'' + text + '\'';
}

QString listOf(const QStringList& texts)
{
    return texts.isEmpty() ? QString("@as []") : "['" + texts.join("', '") + "']";
}

// GTK's names of the modifiers.
std::optional<quint32> modifierNamed(const QString& name)
{
    const QHash<QString, quint32> modifiers{{"super", KeyCombo::command},   {"mod4", KeyCombo::command},
                                            {"shift", KeyCombo::shift},     {"shft", KeyCombo::shift},
                                            {"alt", KeyCombo::option},      {"mod1", KeyCombo::option},
                                            {"control", KeyCombo::control}, {"ctrl", KeyCombo::control},
                                            {"ctl", KeyCombo::control},     {"primary", KeyCombo::control}};
    const auto found = modifiers.constFind(name.toLower());
    return found == modifiers.constEnd() ? std::nullopt : std::optional(*found);
}

} // namespace

std::vector<ShortcutSwitches::Shortcut> GnomeShortcuts::shortcuts()
{
    std::vector<Shortcut> found;
    for (const Schema& schema : schemas()) {
        const auto values = Gsettings::run({"list-recursively", schema.name});
        if (!values)
            continue;
        for (const QString& line : values->split('\n')) { // schema, key, value
            const QString key = line.section(' ', 1, 1);
            if (std::ranges::find(schema.keys, key) != schema.keys.end())
                found.push_back({schema.name + QString('/') + key, textsOf(line.section(' ', 2))});
        }
    }
    return found;
}

bool GnomeShortcuts::set(const Shortcut& shortcut)
{
    const QString schema = shortcut.id.section('/', 0, 0);
    const QString key = shortcut.id.section('/', 1);
    const auto present = Gsettings::run({"get", schema, key});
    if (!present)
        return false;
    const bool isList = present->contains('[');
    const QString value = isList ? listOf(shortcut.accelerators) : quoted(shortcut.accelerators.value(0));
    return Gsettings::run({"set", schema, key, value}).has_value();
}

std::optional<KeyCombo> GnomeShortcuts::combo(const QString& accelerator) const
{
    const QRegularExpression modifier("<([^>]*)>");
    quint32 modifiers = 0;
    for (const QRegularExpressionMatch& match : modifier.globalMatch(accelerator)) {
        const auto bit = modifierNamed(match.captured(1));
        if (!bit)
            return std::nullopt;
        modifiers |= *bit;
    }
    auto combo = KeyCombo::fromText(QString(accelerator).remove(modifier));
    if (combo)
        combo->modifiers |= modifiers;
    return combo;
}

} // namespace Kovrel
