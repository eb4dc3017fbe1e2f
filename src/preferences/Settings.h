#pragma once

#include "model/AnnotationFillStyle.h"
#include "model/AnnotationTextStyle.h"
#include "model/AutoCloseAction.h"
#include "model/CaptureSound.h"
#include "model/ImageFormat.h"
#include "model/MeasureUnit.h"
#include "model/PreviewPosition.h"
#include "model/RedactTool.h"
#include "model/WindowBackdropStyle.h"
#include "preferences/SettingValue.h"

namespace Kovrel {

// The keys of all settings. Each has its row in the PreferenceTable: a key without one can't be linked.
namespace Settings {

extern const SettingKey<AfterCaptureActions> afterCaptureActions;
extern const SettingKey<double> previewDurationSeconds;
extern const SettingKey<AutoCloseAction> previewAutoCloseAction;
extern const SettingKey<bool> previewsFollowMouse;
extern const SettingKey<PreviewPosition> previewPosition;
extern const SettingKey<ImageFormat> imageFormat;
extern const SettingKey<bool> saveFormatAuto;
extern const SettingKey<bool> backdropLooksExpanded;
extern const SettingKey<bool> backdropGradientsExpanded;
extern const SettingKey<bool> backdropPicturesExpanded;
extern const SettingKey<bool> backdropColorsExpanded;
extern const SettingKey<bool> retinaDownscale;
extern const SettingKey<double> jpegQuality;
extern const SettingKey<WindowBackdropStyle> windowBackdropStyle;
extern const SettingKey<QString> windowBackdropColorHex;
extern const SettingKey<QString> fileNameTemplate;
extern const SettingKey<CaptureSound> captureSound;
extern const SettingKey<double> soundVolume;
extern const SettingKey<bool> playToastSound;
extern const SettingKey<bool> showCursorInCapture;
extern const SettingKey<bool> freezeScreenDuringSelection;
extern const SettingKey<bool> hideChromeFromRecordings;
extern const SettingKey<int> selfTimerSeconds;
extern const SettingKey<QString> annotationColorHex;
extern const SettingKey<double> annotationStrokeWidth;
extern const SettingKey<AnnotationFillStyle> annotationFillStyle;
extern const SettingKey<bool> annotationRoundedCorners;
extern const SettingKey<double> annotationDimLevel;
extern const SettingKey<bool> highlighterAutoSize;
extern const SettingKey<bool> escCopiesAndCloses;
extern const SettingKey<EditorTool> lastEditorTool;
extern const SettingKey<RedactTool> redactTool;
extern const SettingKey<bool> historyEnabled;
extern const SettingKey<bool> declinedMoveToApplications;
extern const SettingKey<int> historyRetentionCount;
extern const SettingKey<QString> historyAllName;
extern const SettingKey<bool> hasCompletedOnboarding;
extern const SettingKey<bool> measureHintSeen;
extern const SettingKey<bool> liveTextHintSeen;
extern const SettingKey<MeasureUnit> measureUnit;
extern const SettingKey<bool> defaultEditorNudgeShown;
extern const SettingKey<Hotkey> hotkeyArea;
extern const SettingKey<Hotkey> hotkeyFullScreen;
extern const SettingKey<Hotkey> hotkeyWindow;
extern const SettingKey<Hotkey> hotkeyLastArea;
extern const SettingKey<Hotkey> hotkeySelfTimer;
extern const SettingKey<Hotkey> hotkeyExtractText;
extern const SettingKey<Hotkey> hotkeyPickColor;
extern const SettingKey<Hotkey> hotkeyReopenClosedCapture;
extern const SettingKey<Hotkey> hotkeyHistory;
extern const SettingKey<Hotkey> hotkeyMeasure;
extern const SettingKey<QByteArray> saveLocationBookmark;
extern const SettingKey<QString> lastRunBuild;
extern const SettingKey<bool> traceCapture;
extern const SettingKey<QString> settingsSelectedTab;
extern const SettingKey<AnnotationTextStyle> annotationTextStyle;
extern const SettingKey<QByteArray> lastBackdrop;
extern const SettingKey<QByteArray> backdropPresets;
extern const SettingKey<QStringList> backdropCustomColors;
extern const SettingKey<QStringList> backdropPictureOrder;
extern const SettingKey<QStringList> backdropColorOrder;
extern const SettingKey<QStringList> backdropGradientOrder;
extern const SettingKey<QStringList> backdropPicturesHidden;
extern const SettingKey<QStringList> backdropColorsHidden;
extern const SettingKey<QStringList> backdropGradientsHidden;
extern const SettingKey<QStringList> savedSwatches;
extern const SettingKey<QStringList> textLanguages;
extern const SettingKey<QStringList> notedTextLanguages;
extern const SettingKey<QString> textLanguagesChosen;
extern const SettingKey<int> toolTipDelay;
extern const SettingKey<int> selectionHintShownCount;
extern const SettingKey<QStringList> disabledNativeHotkeys;
extern const SettingKey<QByteArray> takenDesktopShortcuts;
extern const SettingKey<QString> editorWindowSize;
extern const SettingKey<QString> historyWindowSize;
extern const SettingKey<bool> checksForUpdates;

} // namespace Settings

} // namespace Kovrel
