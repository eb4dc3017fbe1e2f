#include "preferences/PreferenceTable.h"

#include "model/VirtualKeys.h"
#include "preferences/Settings.h"

#include <algorithm>

namespace Kovrel {

namespace {

// Filled by the rows below, in their order.
std::vector<Setting>& table()
{
    static std::vector<Setting> settings;
    return settings;
}

template <class T>
QStringList choicesOf()
{
    QStringList texts;
    if constexpr (std::is_enum_v<T>)
        for (const auto& entry : RawStrings<T>::table)
            texts << QString::fromLatin1(entry.second);
    return texts;
}

template <class T>
SettingKey<T> row(const char* key, T registered, const char* meaning)
{
    table().push_back({key, SettingValue<T>::type, SettingValue<T>::stored(registered), meaning, choicesOf<T>()});
    return {key, registered};
}

// A row of a setting that has no registered value.
template <class T>
SettingKey<T> unregistered(const char* key, const char* meaning, T fallback = {})
{
    table().push_back({key, SettingValue<T>::type, {}, meaning, choicesOf<T>()});
    return {key, fallback};
}

Hotkey hotkey(quint32 modifiers, quint32 keyCode)
{
    return KeyCombo{keyCode, modifiers};
}

constexpr quint32 superShift = KeyCombo::command | KeyCombo::shift;
constexpr quint32 controlAlt = KeyCombo::control | KeyCombo::option;

} // namespace

// --- The rows: what a setting's key is in the file, what it reads as while the user has set nothing, what it means

const auto Settings::afterCaptureActions =
    row("afterCaptureActions", AfterCaptureActions(AfterCaptureAction::showCard),
        "what happens after a capture: 1 card, 2 copy, 4 save, 8 editor, 16 pin");
const auto Settings::previewDurationSeconds =
    row("previewDurationSeconds", 5.0, "seconds before a card closes by itself; negative: never");
const auto Settings::previewAutoCloseAction =
    row("previewAutoCloseAction", AutoCloseAction::justClose, "what closing by itself does");
const auto Settings::previewsFollowMouse =
    row("previewsFollowMouse", true, "cards appear on the screen under the pointer");
const auto Settings::previewPosition =
    row("previewPosition", PreviewPosition::bottomRight, "corner where cards pile up");
const auto Settings::imageFormat = row("imageFormat", ImageFormat::png, "format of saved images");
const auto Settings::saveFormatAuto = row("saveFormatAuto", false, "choose the format by the picture");
const auto Settings::backdropLooksExpanded = row("backdropLooksExpanded", false, "backdrop panel: looks unfolded");
const auto Settings::backdropGradientsExpanded =
    row("backdropGradientsExpanded", false, "backdrop panel: gradients unfolded");
const auto Settings::backdropPicturesExpanded =
    row("backdropPicturesExpanded", false, "backdrop panel: pictures unfolded");
const auto Settings::backdropColorsExpanded = row("backdropColorsExpanded", false, "backdrop panel: colours unfolded");
const auto Settings::retinaDownscale = row("retinaDownscale", false, "reduce high-density captures to 1x when saving");
const auto Settings::jpegQuality = row("jpegQuality", 0.9, "quality of JPEG and HEIC files, 0 to 1");
const auto Settings::windowBackdropStyle =
    row("windowBackdropStyle", WindowBackdropStyle::wallpaper, "what window captures are set on");
const auto Settings::windowBackdropColorHex =
    row("windowBackdropColorHex", QString("#FFFFFF"), "colour of the \"solidColor\" window backdrop");
const auto Settings::fileNameTemplate =
    row("fileNameTemplate", QString("Screenshot %Y-%m-%d at %H.%M.%S"), "template of file names");
const auto Settings::captureSound = row("captureSound", CaptureSound::pop, "sound of the shutter");
const auto Settings::soundVolume = row("soundVolume", 1.0, "volume of the shutter, 0 to 1");
const auto Settings::playToastSound = row("playToastSound", true, "toasts play their sound");
const auto Settings::showCursorInCapture =
    row("showCursorInCapture", true, "draw the pointer into full-screen captures");
const auto Settings::freezeScreenDuringSelection =
    row("freezeScreenDuringSelection", false, "show frozen screens while an area is selected");
const auto Settings::hideChromeFromRecordings =
    row("hideChromeFromRecordings", true, "hide Kovrel's own windows while a capture runs");
const auto Settings::selfTimerSeconds = row("selfTimerSeconds", 5, "length of the self-timer; below 1 counts as 5");
const auto Settings::annotationColorHex = row("annotationColorHex", QString("#FF3B30"), "colour of new marks");
const auto Settings::annotationStrokeWidth = row("annotationStrokeWidth", 4.0, "stroke width of new marks, in points");
const auto Settings::annotationFillStyle =
    row("annotationFillStyle", AnnotationFillStyle::outline, "fill of new shapes");
const auto Settings::annotationRoundedCorners =
    row("annotationRoundedCorners", false, "rectangles with rounded corners");
const auto Settings::annotationDimLevel = row("annotationDimLevel", 0.5, "how dark a spotlight's surroundings are");
const auto Settings::highlighterAutoSize = row("highlighterAutoSize", true, "the highlighter fits itself to the text");
const auto Settings::escCopiesAndCloses =
    row("escCopiesAndCloses", true, "Escape in the editor copies the result and closes");
const auto Settings::lastEditorTool = row("lastEditorTool", EditorTool::arrow, "tool selected when the editor opens");
const auto Settings::redactTool = row("redactTool", RedactTool::pixelate, "kind of redaction");
const auto Settings::historyEnabled = row("historyEnabled", true, "record captures in the history");
const auto Settings::declinedMoveToApplications =
    row("declinedMoveToApplications", false, "the offer to move the program was declined");
const auto Settings::historyRetentionCount = row("historyRetentionCount", 50, "captures kept in the history");
const auto Settings::historyAllName =
    row("historyAllName", QString("All"), "name of the history's list of all captures");
const auto Settings::hasCompletedOnboarding = row("hasCompletedOnboarding", false, "the first-run window was finished");
const auto Settings::measureHintSeen = row("measureHintSeen", false, "the hint of the measuring tool was shown");
const auto Settings::liveTextHintSeen = row("liveTextHintSeen", false, "the hint about selectable text was shown");
const auto Settings::measureUnit = row("measureUnit", MeasureUnit::pixels, "unit of measured lengths");
const auto Settings::defaultEditorNudgeShown =
    row("defaultEditorNudgeShown", false, "the default-editor suggestion was shown");
const auto Settings::hotkeyArea = row("hotkeyArea", hotkey(superShift, VirtualKeys::digit4), "Capture Area");
const auto Settings::hotkeyFullScreen =
    row("hotkeyFullScreen", hotkey(superShift, VirtualKeys::digit3), "Capture Full Screen");
const auto Settings::hotkeyWindow = row("hotkeyWindow", hotkey(superShift, VirtualKeys::digit5), "Capture Window");
const auto Settings::hotkeyLastArea =
    row("hotkeyLastArea", hotkey(superShift, VirtualKeys::digit6), "Capture Last Area");
const auto Settings::hotkeySelfTimer =
    row("hotkeySelfTimer", hotkey(superShift, VirtualKeys::digit8), "Capture with Self-Timer");
const auto Settings::hotkeyExtractText =
    row("hotkeyExtractText", hotkey(superShift, VirtualKeys::digit2), "Extract Text");
const auto Settings::hotkeyPickColor = row("hotkeyPickColor", hotkey(controlAlt, VirtualKeys::c), "Pick Color");
const auto Settings::hotkeyReopenClosedCapture =
    row("hotkeyReopenClosedCapture", hotkey(controlAlt, VirtualKeys::z), "Reopen Closed Capture");
const auto Settings::hotkeyHistory = row("hotkeyHistory", hotkey(superShift, VirtualKeys::s), "Recent Captures");
const auto Settings::hotkeyMeasure = unregistered<Hotkey>("hotkeyMeasure", "Measure Screen");
const auto Settings::saveLocationBookmark =
    unregistered<QByteArray>("saveLocationBookmark", "URL of the chosen save folder");
const auto Settings::lastRunBuild = unregistered<QString>("lastRunBuild", "build number of the last run");
const auto Settings::traceCapture = unregistered<bool>("traceCapture", "write the timing of captures to the log");
const auto Settings::settingsSelectedTab =
    unregistered<QString>("settingsSelectedTab", "selected tab of the settings window");
const auto Settings::annotationTextStyle =
    unregistered("annotationTextStyle", "style of text marks", AnnotationTextStyle::bubble);
const auto Settings::lastBackdrop = unregistered<QByteArray>("lastBackdrop", "last backdrop of the editor");
const auto Settings::backdropPresets = unregistered<QByteArray>("backdropPresets", "saved backdrop presets");
const auto Settings::backdropCustomColors =
    unregistered<QStringList>("backdropCustomColors", "custom backdrop colours");
const auto Settings::backdropPictureOrder =
    unregistered<QStringList>("backdropPictureOrder", "order of the backdrop pictures");
const auto Settings::backdropColorOrder =
    unregistered<QStringList>("backdropColorOrder", "order of the backdrop colours");
const auto Settings::backdropGradientOrder =
    unregistered<QStringList>("backdropGradientOrder", "order of the backdrop gradients");
const auto Settings::backdropPicturesHidden =
    unregistered<QStringList>("backdropPicturesHidden", "hidden backdrop pictures");
const auto Settings::backdropColorsHidden =
    unregistered<QStringList>("backdropColorsHidden", "hidden backdrop colours");
const auto Settings::backdropGradientsHidden =
    unregistered<QStringList>("backdropGradientsHidden", "hidden backdrop gradients");
const auto Settings::savedSwatches = unregistered<QStringList>("savedSwatches", "favourite colours");
const auto Settings::textLanguages =
    unregistered<QStringList>("textLanguages", "languages of recognised text, like en, de; none: those of the desktop");
const auto Settings::notedTextLanguages =
    unregistered<QStringList>("notedTextLanguages", "textLanguages as they were when text was read last");
const auto Settings::textLanguagesChosen =
    unregistered<QString>("textLanguagesChosen", "when it was noted that textLanguages are others");
const auto Settings::toolTipDelay = unregistered<int>("NSInitialToolTipDelay", "milliseconds before a tool tip shows");
const auto Settings::selectionHintShownCount =
    unregistered<int>("selectionHintShownCount", "how often the selection's hint was shown");
const auto Settings::disabledNativeHotkeys = unregistered<QStringList>(
    "kovrelDisabledNativeHotKeys", "the desktop's screenshot shortcuts that are switched off");
const auto Settings::takenDesktopShortcuts =
    unregistered<QByteArray>("takenDesktopShortcuts", "what those were before, to be given back");
const auto Settings::editorWindowSize = unregistered<QString>("editorWindowSize", "last size of the editor");
const auto Settings::historyWindowSize =
    unregistered<QString>("historyWindowSize", "last size of the window of recent captures");
const auto Settings::checksForUpdates =
    row("checksForUpdates", true, "ask the package manager once a day whether there is a newer Kovrel");

// --- Looking things up

namespace {

bool isPerTool(const QString& key)
{
    const QString names[] = {Settings::annotationColorHex.name, Settings::annotationStrokeWidth.name,
                             Settings::annotationFillStyle.name, Settings::annotationRoundedCorners.name};
    return std::ranges::find(names, key) != std::end(names);
}

} // namespace

std::span<const Setting> PreferenceTable::settings()
{
    return table();
}

std::optional<Setting> PreferenceTable::find(const QString& key)
{
    const qsizetype dot = key.indexOf('.');
    const QString base = dot < 0 ? key : key.left(dot);
    if (dot >= 0 && (!fromRawString<EditorTool>(key.mid(dot + 1)) || !isPerTool(base)))
        return std::nullopt;
    for (Setting setting : table()) {
        if (base == QLatin1StringView(setting.key)) {
            if (dot >= 0)
                setting.registered = {};
            return setting;
        }
    }
    return std::nullopt;
}

QStringList PreferenceTable::keys()
{
    QStringList keys;
    for (const Setting& setting : table()) {
        const QString key = QString::fromLatin1(setting.key);
        keys << key;
        if (isPerTool(key))
            for (const auto& [tool, name] : RawStrings<EditorTool>::table)
                keys << key + '.' + QLatin1StringView(name);
    }
    return keys;
}

QVariant PreferenceTable::value(const UserDefaults& defaults, const QString& key, SettingType type)
{
    switch (type) {
    case SettingType::boolean:
        return defaults.boolean(key);
    case SettingType::integer:
    case SettingType::keyCombo:
        return defaults.integer(key);
    case SettingType::real:
        return defaults.real(key);
    case SettingType::text:
        return defaults.text(key);
    case SettingType::data:
        return defaults.data(key);
    case SettingType::textList:
        return defaults.textList(key);
    }
    return {};
}

QString PreferenceTable::text(const QVariant& value, SettingType type)
{
    switch (type) {
    case SettingType::boolean:
        return value.toBool() ? "true" : "false";
    case SettingType::integer:
        return QString::number(value.toLongLong());
    case SettingType::real:
        return QString::number(value.toDouble());
    case SettingType::text:
        return value.toString();
    case SettingType::data:
        return QString::fromUtf8(value.toByteArray());
    case SettingType::textList:
        return value.toStringList().join(", ");
    case SettingType::keyCombo: {
        const auto combo = KeyCombo::fromStored(value.toLongLong());
        return combo ? combo->text() : "none";
    }
    }
    return {};
}

QHash<QString, QVariant> PreferenceTable::registeredDefaults()
{
    QHash<QString, QVariant> defaults;
    for (const Setting& setting : table())
        if (setting.registered.isValid())
            defaults.insert(QString::fromLatin1(setting.key), setting.registered);
    return defaults;
}

} // namespace Kovrel
