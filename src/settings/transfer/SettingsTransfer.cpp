#include "settings/transfer/SettingsTransfer.h"

#include "platform/files/AtomicFile.h"
#include "preferences/PreferenceTable.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>

namespace Kovrel {

namespace {

constexpr qint64 longestFile = 4 << 20; // bytes
const QString formatName = "com.kovrel.settings";

bool staysHere(const QString& key)
{
    const QString names[] = {Settings::lastRunBuild.name,          Settings::hasCompletedOnboarding.name,
                             Settings::disabledNativeHotkeys.name, Settings::takenDesktopShortcuts.name,
                             Settings::notedTextLanguages.name,    Settings::textLanguagesChosen.name};
    return std::ranges::find(names, key) != std::end(names);
}

QJsonValue jsonOf(const UserDefaults& defaults, const QString& key, SettingType type)
{
    const QVariant value = PreferenceTable::value(defaults, key, type);
    return type == SettingType::data ? QJsonValue(QString::fromUtf8(value.toByteArray()))
                                     : QJsonValue::fromVariant(value);
}

bool isInteger(const QJsonValue& value)
{
    return value.isDouble() && std::trunc(value.toDouble()) == value.toDouble() && std::abs(value.toDouble()) < 0x1p53;
}

bool isTextList(const QJsonValue& value)
{
    const QJsonArray items = value.toArray();
    return value.isArray() && std::ranges::all_of(items, [](const auto& item) { return QJsonValue(item).isString(); });
}

// Nothing where the value makes no sense for the setting.
std::optional<QVariant> valueOf(const QJsonValue& json, const Setting& setting)
{
    switch (setting.type) {
    case SettingType::boolean:
        return json.isBool() ? std::optional(QVariant(json.toBool())) : std::nullopt;
    case SettingType::integer:
    case SettingType::keyCombo:
        return isInteger(json) ? std::optional(QVariant(json.toInteger())) : std::nullopt;
    case SettingType::real:
        return json.isDouble() ? std::optional(QVariant(json.toDouble())) : std::nullopt;
    case SettingType::text:
        if (!json.isString() || (!setting.choices.isEmpty() && !setting.choices.contains(json.toString())))
            return std::nullopt;
        return json.toString();
    case SettingType::data:
        return json.isString() ? std::optional(QVariant(json.toString().toUtf8())) : std::nullopt;
    case SettingType::textList:
        return isTextList(json) ? std::optional(QVariant(json.toVariant().toStringList())) : std::nullopt;
    }
    return std::nullopt;
}

} // namespace

QStringList SettingsTransfer::keys()
{
    QStringList keys = PreferenceTable::keys();
    keys.removeIf(staysHere);
    return keys;
}

QByteArray SettingsTransfer::toJson(const UserDefaults& defaults)
{
    QJsonObject values;
    for (const QString& key : keys())
        if (defaults.isStored(key))
            values.insert(key, jsonOf(defaults, key, PreferenceTable::find(key)->type));
    return QJsonDocument(QJsonObject{{"format", formatName}, {"version", 1}, {"settings", values}}).toJson();
}

std::expected<SettingsTransfer::Content, QString> SettingsTransfer::fromJson(const QByteArray& json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (document["format"].toString() != formatName) {
        const bool isOurs = json.contains(formatName.toUtf8());
        return std::unexpected(isOurs ? tr("This file of settings is damaged or cut off.")
                                      : tr("This is no file of Kovrel's settings."));
    }
    if (document["version"].toInt() != 1 || !document["settings"].isObject())
        return std::unexpected(tr("This file of settings is from another version of Kovrel."));
    Content content;
    const QJsonObject values = document["settings"].toObject();
    const QStringList known = keys();
    for (auto entry = values.begin(); entry != values.end(); ++entry) {
        if (!known.contains(entry.key())) {
            content.unknown << entry.key();
            continue;
        }
        const auto value = valueOf(entry.value(), *PreferenceTable::find(entry.key()));
        if (!value)
            return std::unexpected(tr("The value of “%1” in this file makes no sense.").arg(entry.key()));
        content.values.insert(entry.key(), *value);
    }
    return content;
}

void SettingsTransfer::apply(const Content& content, UserDefaults& defaults)
{
    for (const QString& key : keys()) {
        const auto value = content.values.find(key);
        if (value == content.values.end() && defaults.isStored(key))
            defaults.remove(key);
        if (value != content.values.end() && !(defaults.isStored(key) && defaults.object(key) == *value))
            defaults.set(key, *value);
    }
}

std::expected<void, QString> SettingsTransfer::write(const QString& path, const QByteArray& json)
{
    const auto written = AtomicFile::write(path, json, AtomicFile::Access::onlyOwner);
    return written ? std::expected<void, QString>() : std::unexpected(written.error().message);
}

std::expected<SettingsTransfer::Content, QString> SettingsTransfer::read(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return std::unexpected(tr("%1 can't be read.").arg(path));
    if (file.size() > longestFile)
        return std::unexpected(tr("This is no file of Kovrel's settings."));
    return fromJson(file.readAll());
}

} // namespace Kovrel
