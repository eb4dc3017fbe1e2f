#include "editor/backdrop/BackdropPresets.h"

#include "editor/json/BoundedJSON.h"

#include <algorithm>

namespace Kovrel {

namespace {

using Json = nlohmann::ordered_json;

constexpr qsizetype mostBytes = 1 << 20;

std::optional<BackdropPreset> presetFrom(const nlohmann::json& entry)
{
    if (!entry.is_object() || !entry.contains("name") || !entry["name"].is_string() || !entry.contains("backdrop"))
        return std::nullopt;
    const auto backdrop = EditorBackdrop::fromJson(entry["backdrop"]);
    if (!backdrop)
        return std::nullopt;
    return BackdropPreset{QString::fromStdString(entry["name"].get<std::string>()), *backdrop};
}

} // namespace

std::vector<BackdropPreset> BackdropPresets::stored(const Preferences& preferences)
{
    std::vector<BackdropPreset> presets;
    const auto list = boundedJSON(preferences.get(Settings::backdropPresets), mostBytes);
    if (list.is_array())
        for (const auto& entry : list)
            if (auto preset = presetFrom(entry))
                presets.push_back(*std::move(preset));
    return presets;
}

void BackdropPresets::store(const std::vector<BackdropPreset>& presets, Preferences& preferences)
{
    Json list = Json::array();
    for (const auto& [name, backdrop] : presets)
        list.push_back({{"name", name.toStdString()}, {"backdrop", backdrop.toJson()}});
    preferences.set(Settings::backdropPresets,
                    QByteArray::fromStdString(list.dump(-1, ' ', false, Json::error_handler_t::replace)));
}

void BackdropPresets::save(const BackdropPreset& preset, Preferences& preferences)
{
    const QString name = preset.name.trimmed();
    if (name.isEmpty() || preset.backdrop.isNone())
        return;
    auto presets = stored(preferences);
    const auto found = std::ranges::find(presets, name, &BackdropPreset::name);
    if (found != presets.end())
        found->backdrop = preset.backdrop;
    else
        presets.push_back({name, preset.backdrop});
    store(presets, preferences);
}

void BackdropPresets::rename(const QString& from, const QString& to, Preferences& preferences)
{
    const QString name = to.trimmed();
    auto presets = stored(preferences);
    const bool isThere = std::ranges::find(presets, from, &BackdropPreset::name) != presets.end();
    if (!isThere || name.isEmpty() || name == from)
        return;
    std::erase_if(presets, [&](const BackdropPreset& preset) { return preset.name == name; });
    std::ranges::find(presets, from, &BackdropPreset::name)->name = name;
    store(presets, preferences);
}

void BackdropPresets::remove(const QString& name, Preferences& preferences)
{
    auto presets = stored(preferences);
    std::erase_if(presets, [&](const BackdropPreset& preset) { return preset.name == name; });
    store(presets, preferences);
}

EditorBackdrop BackdropPresets::last(const Preferences& preferences)
{
    return EditorBackdrop::decode(preferences.get(Settings::lastBackdrop)).value_or(EditorBackdrop());
}

void BackdropPresets::setLast(const EditorBackdrop& backdrop, Preferences& preferences)
{
    preferences.set(Settings::lastBackdrop, backdrop.encode());
}

} // namespace Kovrel
