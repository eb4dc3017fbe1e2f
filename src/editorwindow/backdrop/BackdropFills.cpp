#include "editorwindow/backdrop/BackdropFills.h"

#include "editor/backdrop/BackdropLooks.h"
#include "editorwindow/backdrop/BackdropRows.h"
#include "model/HexColor.h"
#include "ui/tokens/Metrics.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QInputDialog>
#include <QMenu>
#include <QStandardPaths>
#include <QVBoxLayout>

#include <algorithm>

namespace Kovrel {

namespace {

using Kind = BackdropFill::Kind;
using Swatch = SwatchSection::Swatch;

constexpr QLatin1String nothing("none");
constexpr QLatin1String addition("add");
constexpr QLatin1String ownPrefix("own:");
constexpr QLatin1String givenPrefix("given:");

Swatch addingSwatch(const QString& name)
{
    return {.id = addition, .name = name, .symbol = "plus", .isMovable = false};
}

QString translatedLook(const QString& name)
{
    return QCoreApplication::translate("BackdropLooks", name.toUtf8());
}

// The whole backdrop behind an id of the looks.
std::optional<BackdropPreset> lookOf(const QString& id, const Preferences& preferences)
{
    const auto found = [&id](const std::vector<BackdropPreset>& looks,
                             QLatin1String prefix) -> std::optional<BackdropPreset> {
        const auto look =
            std::ranges::find_if(looks, [&](const BackdropPreset& one) { return prefix + one.name == id; });
        return look == looks.end() ? std::nullopt : std::optional(*look);
    };
    const auto given = found(BackdropLooks::all(), givenPrefix);
    return given ? given : found(BackdropPresets::stored(preferences), ownPrefix);
}

} // namespace

BackdropFills::BackdropFills(BackdropEditing& editing, BackdropSwatches& swatches, Preferences& preferences)
    : m_editing(editing), m_swatches(swatches), m_preferences(preferences)
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Spacing::small);
    m_looks = addSection(tr("Looks"), Settings::backdropLooksExpanded);
    connect(m_looks, &SwatchSection::chosen, this, &BackdropFills::chooseLook);
    connect(m_looks, &SwatchSection::menuWanted, this, &BackdropFills::offerLook);
    addRow(tr("Gradients"), BackdropChips::gradients, Settings::backdropGradientsExpanded);
    addRow(tr("Pictures"), BackdropChips::pictures, Settings::backdropPicturesExpanded);
    addRow(tr("Colours"), BackdropChips::colors, Settings::backdropColorsExpanded);
    refresh();
}

SwatchSection* BackdropFills::addSection(const QString& title, const SettingKey<bool>& isUnfolded)
{
    auto* const section = new SwatchSection(title);
    section->setUnfolded(m_preferences.get(isUnfolded));
    connect(section, &SwatchSection::unfolded, this,
            [this, &isUnfolded](bool unfolded) { m_preferences.set(isUnfolded, unfolded); });
    layout()->addWidget(section);
    return section;
}

SwatchSection* BackdropFills::addRow(const QString& title, BackdropChips row, const SettingKey<bool>& isUnfolded)
{
    SwatchSection* const section = addSection(title, isUnfolded);
    m_rows[row] = section;
    connect(section, &SwatchSection::chosen, this, [this, row](const QString& id) { chooseFill(row, id); });
    connect(section, &SwatchSection::menuWanted, this,
            [this, row](const QString& id, QPoint at) { offerFill(row, id, at); });
    connect(section, &SwatchSection::moved, this, [this, row](const QString& id, int place) {
        BackdropRows::move(row, id, place, m_preferences);
        refresh();
    });
    return section;
}

// --- What is shown

void BackdropFills::refresh()
{
    const EditorBackdrop shown = m_editing.backdrop();
    refreshLooks(shown);
    for (const auto& [row, section] : m_rows)
        refreshRow(row, shown);
}

void BackdropFills::refreshLooks(const EditorBackdrop& shown)
{
    std::vector<Swatch> swatches{
        {.id = nothing, .name = tr("No Backdrop"), .symbol = "nosign", .isMovable = false, .isChosen = shown.isNone()}};
    const auto add = [&](const std::vector<BackdropPreset>& looks, QLatin1String prefix) {
        const bool isOwn = prefix == ownPrefix;
        for (const BackdropPreset& look : looks)
            swatches.push_back({.id = prefix + look.name,
                                .name = isOwn ? look.name : translatedLook(look.name),
                                .picture = [this, backdrop = look.backdrop](
                                               QSize pixels) { return m_swatches.look(backdrop, pixels); },
                                .isMovable = false,
                                .isChosen = look.backdrop == shown});
    };
    add(BackdropPresets::stored(m_preferences), ownPrefix);
    add(BackdropLooks::all(), givenPrefix);
    if (!shown.isNone())
        swatches.push_back(addingSwatch(tr("Save This Backdrop…")));
    m_looks->setSwatches(swatches);
}

void BackdropFills::refreshRow(BackdropChips row, const EditorBackdrop& shown)
{
    std::vector<Swatch> swatches;
    for (const BackdropChip& chip : BackdropRows::shown(row, m_preferences))
        swatches.push_back({.id = chip.id,
                            .name = chip.name,
                            .picture = [this, fill = chip.fill](QSize pixels) { return m_swatches.fill(fill, pixels); },
                            .isChosen = chip.fill == shown.fill});
    if (row != BackdropChips::gradients)
        swatches.push_back(addingSwatch(row == BackdropChips::colors ? tr("Add Colour…") : tr("Add Picture…")));
    m_rows[row]->setSwatches(swatches);
}

// --- Choosing

void BackdropFills::chooseLook(const QString& id)
{
    if (id == addition)
        return savePreset();
    if (id == nothing)
        return m_editing.setFill(EditorBackdrop::none.fill);
    if (const auto look = lookOf(id, m_preferences))
        m_editing.apply(look->backdrop);
}

void BackdropFills::chooseFill(BackdropChips row, const QString& id)
{
    if (id == addition)
        return row == BackdropChips::colors ? addColor() : addPicture();
    const auto chips = BackdropRows::shown(row, m_preferences);
    const auto chip = std::ranges::find(chips, id, &BackdropChip::id);
    if (chip != chips.end())
        m_editing.setFill(chip->fill);
}

// --- Menus

void BackdropFills::offerLook(const QString& id, QPoint globalPosition)
{
    const auto look = id.startsWith(ownPrefix) ? lookOf(id, m_preferences) : std::nullopt;
    if (!look)
        return;
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("Rename…"), this, [this, name = look->name] {
        askForName(tr("Rename Backdrop"), name,
                   [this, name](const QString& next) { BackdropPresets::rename(name, next, m_preferences); });
    });
    menu->addAction(tr("Delete"), this, [this, name = look->name] {
        BackdropPresets::remove(name, m_preferences);
        refresh();
    });
    menu->popup(globalPosition);
}

void BackdropFills::offerFill(BackdropChips row, const QString& id, QPoint globalPosition)
{
    const auto chips = BackdropRows::shown(row, m_preferences);
    const auto chip = std::ranges::find(chips, id, &BackdropChip::id);
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (chip != chips.end())
        menu->addAction((chip->isOwn ? tr("Remove “%1”") : tr("Hide “%1”")).arg(chip->name), this, [this, row, id] {
            BackdropRows::hide(row, id, m_preferences);
            refresh();
        });
    QAction* const restore = menu->addAction(tr("Show All Hidden"), this, [this, row] {
        BackdropRows::restore(row, m_preferences);
        refresh();
    });
    restore->setEnabled(BackdropRows::hasHidden(row, m_preferences));
    menu->popup(globalPosition);
}

// --- Adding

void BackdropFills::askForName(const QString& title, const QString& suggestion,
                               std::function<void(const QString&)> named)
{
    auto* const dialog = new QInputDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(title);
    dialog->setLabelText(tr("Name:"));
    dialog->setTextValue(suggestion);
    connect(dialog, &QInputDialog::textValueSelected, this, [this, named = std::move(named)](const QString& name) {
        named(name);
        refresh();
    });
    dialog->open();
}

void BackdropFills::savePreset()
{
    const auto count = BackdropPresets::stored(m_preferences).size();
    askForName(tr("Save Backdrop"), tr("My Backdrop %1").arg(count + 1),
               [this](const QString& name) { BackdropPresets::save({name, m_editing.backdrop()}, m_preferences); });
}

void BackdropFills::addColor()
{
    const BackdropFill fill = m_editing.backdrop().fill;
    const auto begin = fill.kind == Kind::color ? HexColor::parse(fill.value) : std::nullopt;
    auto* const dialog = new QColorDialog(begin.value_or(QColor()), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setOption(QColorDialog::ShowAlphaChannel);
    connect(dialog, &QColorDialog::colorSelected, this,
            [this](const QColor& color) { takeOwn(BackdropChips::colors, Kind::color, HexColor::text(color)); });
    dialog->open();
}

void BackdropFills::addPicture()
{
    auto* const dialog =
        new QFileDialog(this, tr("Add Picture"), QStandardPaths::writableLocation(QStandardPaths::PicturesLocation));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setMimeTypeFilters(
        {"image/png", "image/jpeg", "image/heif", "image/tiff", "image/webp", "application/octet-stream"});
    connect(dialog, &QFileDialog::fileSelected, this,
            [this](const QString& path) { takeOwn(BackdropChips::pictures, Kind::picture, path); });
    dialog->open();
}

void BackdropFills::takeOwn(BackdropChips row, Kind kind, const QString& value)
{
    BackdropRows::addOwn(row, value, m_preferences);
    m_editing.setFill({kind, value});
    refresh();
}

} // namespace Kovrel
