#include "app/commands/PreferencesCommand.h"

#include "commandline/Command.h"
#include "model/KeyCombo.h"
#include "preferences/PreferenceTable.h"
#include "preferences/Settings.h"

#include <QUrl>

#include <cmath>
#include <expected>

namespace Kovrel {

namespace {

QString shown(const UserDefaults& defaults, const QString& key, SettingType type)
{
    return PreferenceTable::text(PreferenceTable::value(defaults, key, type), type);
}

std::expected<QVariant, QString> parsedNumber(const QString& text, SettingType type)
{
    bool isNumber = false;
    QVariant value =
        type == SettingType::integer ? QVariant(text.toLongLong(&isNumber)) : QVariant(text.toDouble(&isNumber));
    if (!isNumber || !std::isfinite(value.toDouble()))
        return std::unexpected("takes a number");
    return value;
}

std::expected<QVariant, QString> parsedCombo(const QString& text)
{
    if (text == "none")
        return QVariant(0);
    const auto combo = KeyCombo::fromText(text);
    if (!combo)
        return std::unexpected("takes a combination like Super+Shift+4, or none");
    if (!combo->canBeHotkey())
        return std::unexpected("takes a combination with a modifier: " + combo->text() +
                               " could not be typed any more");
    return QVariant(combo->stored());
}

// A folder as its path or its URL.
std::expected<QVariant, QString> parsedFolder(const QString& text)
{
    const QUrl url = text.startsWith('/') ? QUrl::fromLocalFile(text) : QUrl(text, QUrl::StrictMode);
    if (!url.isLocalFile() || !url.path().startsWith('/'))
        return std::unexpected("takes the absolute path of a folder, or its file: URL");
    return QVariant(url.toEncoded());
}

QStringList splitList(const QString& text)
{
    QStringList items;
    for (const QString& item : text.split(',', Qt::SkipEmptyParts))
        items << item.trimmed();
    return items;
}

// What a text on the command line means for a setting, or what it should have been.
std::expected<QVariant, QString> parsed(const QString& text, const Setting& setting)
{
    switch (setting.type) {
    case SettingType::boolean:
        if (text != "true" && text != "false")
            return std::unexpected("takes true or false");
        return QVariant(text == "true");
    case SettingType::integer:
    case SettingType::real:
        return parsedNumber(text, setting.type);
    case SettingType::text:
        if (!setting.choices.isEmpty() && !setting.choices.contains(text))
            return std::unexpected("takes one of: " + setting.choices.join(", "));
        return QVariant(text);
    case SettingType::data:
        return setting.key == Settings::saveLocationBookmark.name ? parsedFolder(text) : QVariant(text.toUtf8());
    case SettingType::textList:
        return QVariant(splitList(text));
    case SettingType::keyCombo:
        return parsedCombo(text);
    }
    return std::unexpected("can't be set");
}

CommandAnswer list(const UserDefaults& defaults)
{
    CommandAnswer answer;
    for (const Setting& setting : PreferenceTable::settings()) {
        const QString key = QString::fromLatin1(setting.key);
        answer.output +=
            key + " = " + shown(defaults, key, setting.type) + (defaults.isStored(key) ? "" : "  (default)") + '\n';
    }
    return answer;
}

Reply<UserDefaults::Stored> answerTo(const Reply<CommandAnswer>& reply)
{
    return [reply](const UserDefaults::Stored& stored) {
        reply(stored ? CommandAnswer()
                     : CommandAnswer{.exitCode = CommandLine::failed,
                                     .error = "the setting could not be stored: " + stored.error()});
    };
}

void assign(UserDefaults& defaults, const QString& key, const Setting& setting, const QString& text,
            const Reply<CommandAnswer>& reply)
{
    if (const auto value = parsed(text, setting))
        defaults.set(key, *value, answerTo(reply));
    else
        reply({.exitCode = CommandLine::usageError, .error = key + ' ' + value.error()});
}

} // namespace

void PreferencesCommand::run(UserDefaults& defaults, const QStringList& operands, const Reply<CommandAnswer>& reply)
{
    if (operands[0] == "list") {
        reply(list(defaults));
        return;
    }
    const QString& key = operands[1];
    const auto setting = PreferenceTable::find(key);
    if (!setting)
        reply({.exitCode = CommandLine::nothingThere, .error = "there is no setting \"" + key + '"'});
    else if (operands[0] == "get")
        reply({.output = shown(defaults, key, setting->type) + '\n'});
    else if (operands[0] == "set")
        assign(defaults, key, *setting, operands[2], reply);
    else
        defaults.remove(key, answerTo(reply));
}

} // namespace Kovrel
