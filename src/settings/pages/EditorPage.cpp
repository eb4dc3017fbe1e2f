#include "settings/pages/EditorPage.h"

#include "settings/rows/SettingOptions.h"

namespace Kovrel {

SettingsPage EditorPage::make(Preferences& preferences, const ColorPick& pick)
{
    return {.tab = SettingsTab::editor, .groups = {window(preferences), marks(preferences, pick), kinds(preferences)}};
}

SettingGroup EditorPage::window(Preferences& preferences)
{
    return {
        .title = tr("Window"),
        .rows = {{.label = tr("Escape copies the result and closes"),
                  .control = SettingControls::Toggle(),
                  .binding = SettingBinding::of(preferences, Settings::escCopiesAndCloses),
                  .hint = tr("Otherwise Escape only closes the window. Your marks are kept either way."),
                  .keywords = tr("esc copy close clipboard")},
                 {.label = tr("Measure in"),
                  .control = SettingOptions::choice<MeasureUnit>(
                      {{MeasureUnit::pixels, tr("Pixels")}, {MeasureUnit::points, tr("Points")}}),
                  .binding = SettingBinding::of(preferences, Settings::measureUnit),
                  .hint = tr("Points are pixels divided by the scale of the screen."),
                  .keywords = tr("unit ruler length px pt")}},
    };
}

SettingGroup EditorPage::marks(Preferences& preferences, const ColorPick& pick)
{
    using enum AnnotationFillStyle;
    return {
        .title = tr("New Marks"),
        .rows = {{.label = tr("Colour"),
                  .control = SettingControls::Color{pick},
                  .binding = SettingBinding::of(preferences, Settings::annotationColorHex),
                  .keywords = tr("color annotation arrow")},
                 {.label = tr("Line width"),
                  .control = SettingControls::Slider{.least = 1,
                                                     .most = 20,
                                                     .step = 0.5,
                                                     .text = [](double points) { return tr("%1 pt").arg(points); }},
                  .binding = SettingBinding::of(preferences, Settings::annotationStrokeWidth),
                  .keywords = tr("stroke thickness annotation arrow")},
                 {.label = tr("Shapes are"),
                  .control = SettingOptions::choice<AnnotationFillStyle>({{outline, tr("Outlined")},
                                                                          {translucent, tr("Translucent")},
                                                                          {hatched, tr("Hatched")},
                                                                          {filled, tr("Filled")}}),
                  .binding = SettingBinding::of(preferences, Settings::annotationFillStyle),
                  .keywords = tr("fill rectangle ellipse annotation")},
                 {.label = tr("Rounded corners"),
                  .control = SettingControls::Toggle(),
                  .binding = SettingBinding::of(preferences, Settings::annotationRoundedCorners),
                  .keywords = tr("rectangle annotation")}},
        .help = tr("A tool for which you have chosen something else in the editor keeps that."),
    };
}

SettingGroup EditorPage::kinds(Preferences& preferences)
{
    using enum AnnotationTextStyle;
    return {
        .title = tr("Text, Highlighter and Spotlight"),
        .rows = {{.label = tr("Text stands"),
                  .control = SettingOptions::choice<AnnotationTextStyle>({{plain, tr("By itself")},
                                                                          {stroke, tr("With an outline")},
                                                                          {background, tr("On a plate")},
                                                                          {bubble, tr("In a speech bubble")}}),
                  .binding = SettingBinding::of(preferences, Settings::annotationTextStyle),
                  .keywords = tr("label style annotation")},
                 {.label = tr("Fit the highlighter to lines of text"),
                  .control = SettingControls::Toggle(),
                  .binding = SettingBinding::of(preferences, Settings::highlighterAutoSize),
                  .keywords = tr("marker size automatic")},
                 {.label = tr("Darkness around spotlights"),
                  .control = SettingOptions::percent(0.1, 0.9, 0.05),
                  .binding = SettingBinding::of(preferences, Settings::annotationDimLevel),
                  .keywords = tr("dim shade focus")}},
    };
}

} // namespace Kovrel
