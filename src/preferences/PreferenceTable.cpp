#include "preferences/PreferenceTable.h"

#include "model/AnnotationFillStyle.h"
#include "model/AnnotationTextStyle.h"
#include "model/AutoCloseAction.h"
#include "model/CaptureSound.h"
#include "model/EditorTool.h"
#include "model/ImageFormat.h"
#include "model/KeyCombo.h"
#include "model/MeasureUnit.h"
#include "model/PreviewPosition.h"
#include "model/RedactTool.h"
#include "model/WindowBackdropStyle.h"

#include <array>

namespace Kovrel {

namespace {

using enum SettingType;

template <class Enum>
QStringList choicesOf()
{
    QStringList texts;
    for (const auto& entry : RawStrings<Enum>::table)
        texts << QString::fromLatin1(entry.second);
    return texts;
}

qint64 combo(quint32 modifiers, quint32 keyCode)
{
    return KeyCombo{keyCode, modifiers}.stored();
}

constexpr quint32 superShift = KeyCombo::command | KeyCombo::shift;
constexpr quint32 controlAlt = KeyCombo::control | KeyCombo::option;

const std::vector<Setting>& table()
{
    static const std::vector<Setting> settings{
        {"afterCaptureActions", integer, 1, "what happens after a capture: 1 card, 2 copy, 4 save, 8 editor, 16 pin"},
        {"previewDurationSeconds", real, 5.0, "seconds before a card closes by itself; negative: never"},
        {"previewAutoCloseAction", text, "justClose", "what closing by itself does", choicesOf<AutoCloseAction>()},
        {"previewsFollowMouse", boolean, true, "cards appear on the screen under the pointer"},
        {"previewPosition", text, "bottomRight", "corner where cards pile up", choicesOf<PreviewPosition>()},
        {"imageFormat", text, "png", "format of saved images", choicesOf<ImageFormat>()},
        {"saveFormatAuto", boolean, false, "choose the format by the picture"},
        {"backdropLooksExpanded", boolean, false, "backdrop panel: looks unfolded"},
        {"backdropGradientsExpanded", boolean, false, "backdrop panel: gradients unfolded"},
        {"backdropPicturesExpanded", boolean, false, "backdrop panel: pictures unfolded"},
        {"backdropColorsExpanded", boolean, false, "backdrop panel: colours unfolded"},
        {"retinaDownscale", boolean, false, "reduce high-density captures to 1x when saving"},
        {"jpegQuality", real, 0.9, "quality of JPEG and HEIC files, 0 to 1"},
        {"windowBackdropStyle", text, "wallpaper", "what window captures are set on", choicesOf<WindowBackdropStyle>()},
        {"windowBackdropColorHex", text, "#FFFFFF", "colour of the \"solidColor\" window backdrop"},
        {"fileNameTemplate", text, "Screenshot %Y-%m-%d at %H.%M.%S", "template of file names"},
        {"captureSound", text, "pop", "sound of the shutter", choicesOf<CaptureSound>()},
        {"soundVolume", real, 1.0, "volume of the shutter, 0 to 1"},
        {"playToastSound", boolean, true, "toasts play their sound"},
        {"showCursorInCapture", boolean, true, "draw the pointer into full-screen captures"},
        {"freezeScreenDuringSelection", boolean, false, "show frozen screens while an area is selected"},
        {"hideChromeFromRecordings", boolean, true, "hide Kovrel's own windows while a capture runs"},
        {"selfTimerSeconds", integer, 5, "length of the self-timer; below 1 counts as 5"},
        {"annotationColorHex", text, "#FF3B30", "colour of new marks"},
        {"annotationStrokeWidth", real, 4.0, "stroke width of new marks, in points"},
        {"annotationFillStyle", text, "outline", "fill of new shapes", choicesOf<AnnotationFillStyle>()},
        {"annotationRoundedCorners", boolean, false, "rectangles with rounded corners"},
        {"annotationDimLevel", real, 0.5, "how dark a spotlight's surroundings are"},
        {"highlighterAutoSize", boolean, true, "the highlighter fits itself to the text"},
        {"escCopiesAndCloses", boolean, true, "Escape in the editor copies the result and closes"},
        {"lastEditorTool", text, "arrow", "tool selected when the editor opens", choicesOf<EditorTool>()},
        {"redactTool", text, "pixelate", "kind of redaction", choicesOf<RedactTool>()},
        {"historyEnabled", boolean, true, "record captures in the history"},
        {"declinedMoveToApplications", boolean, false, "the offer to move the program was declined"},
        {"historyRetentionCount", integer, 50, "captures kept in the history"},
        {"historyAllName", text, "All", "name of the history's list of all captures"},
        {"hasCompletedOnboarding", boolean, false, "the first-run window was finished"},
        {"measureHintSeen", boolean, false, "the hint of the measuring tool was shown"},
        {"liveTextHintSeen", boolean, false, "the hint about selectable text was shown"},
        {"measureUnit", text, "px", "unit of measured lengths", choicesOf<MeasureUnit>()},
        {"defaultEditorNudgeShown", boolean, false, "the default-editor suggestion was shown"},

        {"hotkeyArea", keyCombo, combo(superShift, 21), "Capture Area"},
        {"hotkeyFullScreen", keyCombo, combo(superShift, 20), "Capture Full Screen"},
        {"hotkeyWindow", keyCombo, combo(superShift, 23), "Capture Window"},
        {"hotkeyLastArea", keyCombo, combo(superShift, 22), "Capture Last Area"},
        {"hotkeySelfTimer", keyCombo, combo(superShift, 28), "Capture with Self-Timer"},
        {"hotkeyExtractText", keyCombo, combo(superShift, 19), "Extract Text"},
        {"hotkeyPickColor", keyCombo, combo(controlAlt, 8), "Pick Color"},
        {"hotkeyReopenClosedCapture", keyCombo, combo(controlAlt, 6), "Reopen Closed Capture"},
        {"hotkeyHistory", keyCombo, combo(superShift, 1), "Recent Captures"},

        {"saveLocationBookmark", data, {}, "URL of the chosen save folder"},
        {"lastRunBuild", text, {}, "build number of the last run"},
        {"traceCapture", boolean, {}, "write the timing of captures to the log"},
        {"settingsSelectedTab", text, {}, "selected tab of the settings window"},
        {"annotationTextStyle", text, {}, "style of text marks", choicesOf<AnnotationTextStyle>()},
        {"lastBackdrop", data, {}, "last backdrop of the editor"},
        {"backdropPresets", data, {}, "saved backdrop presets"},
        {"backdropCustomColors", textList, {}, "custom backdrop colours"},
        {"backdropPictureOrder", textList, {}, "order of the backdrop pictures"},
        {"backdropColorOrder", textList, {}, "order of the backdrop colours"},
        {"backdropGradientOrder", textList, {}, "order of the backdrop gradients"},
        {"backdropPicturesHidden", textList, {}, "hidden backdrop pictures"},
        {"backdropColorsHidden", textList, {}, "hidden backdrop colours"},
        {"backdropGradientsHidden", textList, {}, "hidden backdrop gradients"},
        {"savedSwatches", textList, {}, "favourite colours"},
        {"textLanguages", textList, {}, "languages of recognised text, like en, de; none: those of the desktop"},
        {"NSInitialToolTipDelay", integer, {}, "milliseconds before a tool tip shows"},
        {"selectionHintShownCount", integer, {}, "how often the selection's hint was shown"},
        {"kovrelDisabledNativeHotKeys", textList, {}, "the desktop's screenshot shortcuts that are switched off"},
        {"takenDesktopShortcuts", data, {}, "what those were before, to be given back"},
    };
    return settings;
}

constexpr std::array perToolKeys{"annotationColorHex", "annotationStrokeWidth", "annotationFillStyle",
                                 "annotationRoundedCorners"};

} // namespace

std::span<const Setting> PreferenceTable::settings()
{
    return table();
}

std::optional<Setting> PreferenceTable::find(const QString& key)
{
    const qsizetype dot = key.indexOf('.');
    const QString base = dot < 0 ? key : key.left(dot);
    if (dot >= 0 && (!fromRawString<EditorTool>(key.mid(dot + 1)) ||
                     std::find(perToolKeys.begin(), perToolKeys.end(), base) == perToolKeys.end()))
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

QHash<QString, QVariant> PreferenceTable::registeredDefaults()
{
    QHash<QString, QVariant> defaults;
    for (const Setting& setting : table())
        if (setting.registered.isValid())
            defaults.insert(QString::fromLatin1(setting.key), setting.registered);
    return defaults;
}

} // namespace Kovrel
