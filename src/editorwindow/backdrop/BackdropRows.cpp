#include "editorwindow/backdrop/BackdropRows.h"

#include "editor/backdrop/BackdropCatalogue.h"
#include "model/HexColor.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>

namespace Kovrel {

namespace {

using Kind = BackdropFill::Kind;
using Chips = std::vector<BackdropChip>;

QString translated(const QString& name)
{
    return QCoreApplication::translate("BackdropCatalogue", name.toUtf8());
}

Chips catalogueOf(BackdropChips row)
{
    Chips chips;
    switch (row) {
    case BackdropChips::pictures:
        for (const auto& [id, name, ground, ridges] : BackdropCatalogue::pictures())
            chips.push_back({id, translated(name), {Kind::picture, id}});
        break;
    case BackdropChips::gradients:
        for (const auto& gradient : BackdropCatalogue::gradients())
            chips.push_back({gradient.id, translated(gradient.name), {Kind::gradient, gradient.id}});
        break;
    case BackdropChips::colors:
        for (const auto& [id, name, hex] : BackdropCatalogue::colors())
            chips.push_back({id, translated(name), {Kind::color, hex}});
        break;
    }
    return chips;
}

// A path in the order of the pictures is a picture of the user's own: nothing else keeps them.
Chips ownOf(BackdropChips row, const Preferences& preferences)
{
    Chips chips;
    if (row == BackdropChips::colors)
        for (const QString& hex : preferences.get(Settings::backdropCustomColors))
            if (HexColor::parse(hex))
                chips.push_back({hex, hex, {Kind::color, hex}, true});
    if (row == BackdropChips::pictures)
        for (const QString& path : preferences.backdropRowOrder(row))
            if (path.startsWith('/'))
                chips.push_back({path, QFileInfo(path).completeBaseName(), {Kind::picture, path}, true});
    return chips;
}

Chips inOrder(Chips chips, const QStringList& order)
{
    Chips sorted;
    for (const QString& id : order)
        if (const auto chip = std::ranges::find(chips, id, &BackdropChip::id); chip != chips.end()) {
            sorted.push_back(std::move(*chip));
            chips.erase(chip);
        }
    std::ranges::move(chips, std::back_inserter(sorted));
    return sorted;
}

Chips all(BackdropChips row, const Preferences& preferences)
{
    Chips chips = catalogueOf(row);
    for (BackdropChip& own : ownOf(row, preferences))
        if (std::ranges::find(chips, own.id, &BackdropChip::id) == chips.end())
            chips.push_back(std::move(own));
    return inOrder(std::move(chips), preferences.backdropRowOrder(row));
}

QStringList ids(const Chips& chips)
{
    QStringList list;
    std::ranges::transform(chips, std::back_inserter(list), &BackdropChip::id);
    return list;
}

// As it is stored.
std::optional<QString> ownValue(BackdropChips row, const QString& value)
{
    const auto color = HexColor::parse(value);
    if (row == BackdropChips::colors && color)
        return HexColor::text(*color);
    return row == BackdropChips::pictures && value.startsWith('/') ? std::optional(value) : std::nullopt;
}

} // namespace

std::vector<BackdropChip> BackdropRows::shown(BackdropChips row, const Preferences& preferences)
{
    Chips chips = all(row, preferences);
    const QStringList hidden = preferences.hiddenBackdropChips(row);
    std::erase_if(chips, [&hidden](const BackdropChip& chip) { return hidden.contains(chip.id); });
    return chips;
}

void BackdropRows::move(BackdropChips row, const QString& id, int place, Preferences& preferences)
{
    QStringList order = ids(all(row, preferences));
    if (!order.removeOne(id))
        return;
    QStringList others = ids(shown(row, preferences));
    others.removeOne(id);
    const bool isLast = place >= others.size();
    order.insert(isLast ? order.size() : order.indexOf(others[std::max(place, 0)]), id);
    preferences.setBackdropRowOrder(order, row);
}

void BackdropRows::hide(BackdropChips row, const QString& id, Preferences& preferences)
{
    const Chips chips = all(row, preferences);
    const auto chip = std::ranges::find(chips, id, &BackdropChip::id);
    if (chip == chips.end())
        return;
    if (!chip->isOwn)
        return preferences.setHiddenBackdropChips(preferences.hiddenBackdropChips(row) << id, row);
    QStringList order = preferences.backdropRowOrder(row);
    order.removeAll(id);
    preferences.setBackdropRowOrder(order, row);
    QStringList colors = preferences.get(Settings::backdropCustomColors);
    if (colors.removeAll(id) > 0)
        preferences.set(Settings::backdropCustomColors, colors);
}

bool BackdropRows::hasHidden(BackdropChips row, const Preferences& preferences)
{
    return shown(row, preferences).size() < all(row, preferences).size();
}

void BackdropRows::restore(BackdropChips row, Preferences& preferences)
{
    preferences.setHiddenBackdropChips({}, row);
}

void BackdropRows::addOwn(BackdropChips row, const QString& value, Preferences& preferences)
{
    const auto own = ownValue(row, value);
    const Chips chips = all(row, preferences);
    if (!own || std::ranges::find(chips, *own, &BackdropChip::id) != chips.end())
        return;
    preferences.setBackdropRowOrder(ids(chips) << *own, row);
    if (row == BackdropChips::colors)
        preferences.set(Settings::backdropCustomColors, preferences.get(Settings::backdropCustomColors) << *own);
}

} // namespace Kovrel
