#include "settings/pages/SavingPage.h"

#include "platform/FilePanel.h"
#include "platform/MainLoop.h"
#include "platform/ReplyFromWorker.h"
#include "saving/FileNameFormatter.h"
#include "settings/rows/SettingOptions.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace Kovrel {

namespace {

constexpr qsizetype longestName = 230; // bytes, which leaves room for a counter and the extension

enum class FolderState { usable, absent, readOnly };

FolderState stateOf(const QString& folder)
{
    const QFileInfo info(folder);
    if (!info.isDir())
        return FolderState::absent;
    return info.isWritable() ? FolderState::usable : FolderState::readOnly;
}

} // namespace

std::vector<SettingsPage> SavingPage::make(const Services& services)
{
    return {{.tab = SettingsTab::afterCapture, .groups = {actions(services.preferences)}},
            {.tab = SettingsTab::saving, .groups = {files(services), pictures(services.preferences)}}};
}

SettingGroup SavingPage::actions(Preferences& preferences)
{
    const auto row = [&](AfterCaptureAction action, const QString& label, const QString& keywords) {
        return SettingRow{.label = label,
                          .control = SettingControls::Toggle(),
                          .binding = SettingBinding::of(preferences, action),
                          .keywords = keywords};
    };
    using enum AfterCaptureAction;
    return {.title = tr("After Each Capture"),
            .rows = {row(showCard, tr("Show a card"), tr("preview thumbnail")),
                     row(copy, tr("Copy it to the clipboard"), tr("paste")),
                     row(save, tr("Save it to the folder of captures"), tr("file disk automatically")),
                     row(openEditor, tr("Open it in the editor"), tr("annotate mark")),
                     row(pin, tr("Pin it to the screen"), tr("float above"))},
            .help = tr("A capture with which nothing of that can be done is saved in any case.")};
}

SettingGroup SavingPage::files(const Services& services)
{
    return {.title = tr("Files"), .rows = {folder(services), fileName(services)}};
}

SettingRow SavingPage::folder(const Services& services)
{
    const auto explain = [](FolderState state) -> SettingRemark {
        const QString place = QDir::toNativeSeparators(Preferences::defaultSaveDirectory());
        switch (state) {
        case FolderState::usable:
            return {};
        case FolderState::absent:
            return {tr("This folder is not there. Until it is, captures are kept in %1.").arg(place), true};
        case FolderState::readOnly:
            return {tr("Kovrel can't write to this folder. Captures are kept in %1 instead.").arg(place), true};
        }
        Q_UNREACHABLE();
    };
    return {.label = tr("Save captures to"),
            .control = SettingControls::Folder{[&panel = services.panel](const QString& path, QWindow* parent,
                                                                         Reply<std::optional<QString>> reply) {
                panel.askForFolder(path, parent, std::move(reply));
            }},
            .binding = SettingBinding::saveFolder(services.preferences),
            .keywords = tr("location directory destination path where"),
            .remark = [services, explain](const Reply<SettingRemark>& reply) {
                const auto chosen = services.preferences.chosenSaveDirectory();
                if (!chosen) // the usual one is made when it is needed
                    return reply({});
                replyFromWorker<FolderState>(
                    services.loop, services.workers, Lane::utility,
                    [folder = *chosen]() noexcept { return stateOf(folder); },
                    [reply, explain](FolderState state) { reply(explain(state)); });
            }};
}

SettingRow SavingPage::fileName(const Services& services)
{
    return {.label = tr("Filename template"),
            .control = SettingControls::Text(),
            .binding = SettingBinding::of(services.preferences, Settings::fileNameTemplate),
            .hint = tr("%Y year, %m month, %d day, %H hour, %M minute, %S second"),
            .keywords = tr("name pattern date time"),
            .remark = [services](const Reply<SettingRemark>& reply) {
                const Preferences& preferences = services.preferences;
                reply(templateRemark(preferences.get(Settings::fileNameTemplate),
                                     rawString(preferences.get(Settings::imageFormat)), services.loop.date()));
            }};
}

SettingRemark SavingPage::templateRemark(const QString& fileNameTemplate, const QString& extension,
                                         const QDateTime& date)
{
    const QString name = FileNameFormatter::format(fileNameTemplate, date);
    if (name.toUtf8().size() > longestName)
        return {tr("This name is too long for a file and is cut off."), true};
    const QString example = tr("Example: %1").arg(name + '.' + extension);
    static const QRegularExpression forbidden("%(?![YmdHMS])[^/:\\\\?*|\"<>]?|[/:\\\\?*|\"<>]");
    if (const auto match = forbidden.match(fileNameTemplate); match.hasMatch())
        return {tr("“%1” can't be part of a name and becomes a hyphen. %2").arg(match.captured(), example), true};
    return {example};
}

SettingGroup SavingPage::pictures(Preferences& preferences)
{
    const auto isLossy = [&preferences] {
        const ImageFormat format = preferences.get(Settings::imageFormat);
        return preferences.get(Settings::saveFormatAuto) || format == ImageFormat::jpeg || format == ImageFormat::heic;
    };
    return {
        .title = tr("Pictures"),
        .rows = {{.label = tr("Choose the format automatically"),
                  .control = SettingControls::Toggle(),
                  .binding = SettingBinding::of(preferences, Settings::saveFormatAuto),
                  .hint = tr("Auto saves JPEG for large opaque screenshots and PNG when there's transparency or fine "
                             "UI detail."),
                  .keywords = tr("auto type file png jpeg")},
                 format(preferences),
                 {.label = tr("Quality of JPEG and HEIC"),
                  .control = SettingOptions::percent(0.1, 1, 0.05),
                  .binding = SettingBinding::of(preferences, Settings::jpegQuality),
                  .hint = tr("Less makes smaller files."),
                  .keywords = tr("compression size lossy"),
                  .isEnabled = isLossy},
                 {.label = tr("Resize high-density screenshots"),
                  .control = SettingControls::Toggle(),
                  .binding = SettingBinding::of(preferences, Settings::retinaDownscale),
                  .hint = tr("One pixel of the file for each point of the screen."),
                  .keywords = tr("retina hidpi scale downscale smaller 1x")}},
    };
}

SettingRow SavingPage::format(Preferences& preferences)
{
    return {.label = tr("Format"),
            .control = SettingOptions::choice<ImageFormat>({{ImageFormat::png, tr("PNG")},
                                                            {ImageFormat::jpeg, tr("JPEG")},
                                                            {ImageFormat::heic, tr("HEIC")},
                                                            {ImageFormat::tiff, tr("TIFF")}}),
            .binding = SettingBinding::of(preferences, Settings::imageFormat),
            .keywords = tr("type file jpg heif tif picture image"),
            .isEnabled = [&preferences] { return !preferences.get(Settings::saveFormatAuto); }};
}

} // namespace Kovrel
