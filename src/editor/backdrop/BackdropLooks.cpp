#include "editor/backdrop/BackdropLooks.h"

namespace Kovrel {

namespace {

using Kind = BackdropFill::Kind;

// Each is a kind of picture that people make: a slide, a page of a manual, a card in a thread.
std::vector<BackdropPreset> made()
{
    return {
        {QT_TRANSLATE_NOOP("BackdropLooks", "Hover"), {.fill = {Kind::gradient, "lagoon"}, .padding = 0.2}},
        {QT_TRANSLATE_NOOP("BackdropLooks", "Paper"),
         {.fill = {Kind::color, "#FFFFFF"},
          .padding = 0.16,
          .shadow = Shadow::subtle(),
          .shadowOpacity = 1,
          .corners = 6}},
        {QT_TRANSLATE_NOOP("BackdropLooks", "Stage"),
         {.fill = {Kind::gradient, "midnight"},
          .padding = 0.24,
          .shadow = Shadow::deep(),
          .shadowOpacity = 1,
          .corners = 14}},
        {QT_TRANSLATE_NOOP("BackdropLooks", "Window Light"),
         {.fill = {Kind::gradient, "peach"},
          .padding = 0.22,
          .shadow = Shadow::deep(),
          .shadowLight = {0.7, 0.7},
          .shadowOpacity = 0.6,
          .corners = 8}},
        {QT_TRANSLATE_NOOP("BackdropLooks", "Passe-Partout"),
         {.fill = {Kind::gradient, "glacier"},
          .padding = 0.14,
          .shadow = Shadow::subtle(),
          .corners = 4,
          .frame = 0.6,
          .frameColorHex = "#FFFFFF"}},
        {QT_TRANSLATE_NOOP("BackdropLooks", "Glass Rim"),
         {.fill = {Kind::gradient, "orchid"},
          .padding = 0.18,
          .shadowOpacity = 0.5,
          .corners = 16,
          .frame = 0.2,
          .frameFollowsPage = true}},
        {QT_TRANSLATE_NOOP("BackdropLooks", "Slide"),
         {.fill = {Kind::gradient, "indigo"}, .padding = 0.18, .corners = 12, .aspect = AspectRatio{16, 9}}},
        {QT_TRANSLATE_NOOP("BackdropLooks", "Square"),
         {.fill = {Kind::gradient, "dawn"}, .padding = 0.16, .corners = 12, .aspect = AspectRatio{1, 1}}},
    };
}

} // namespace

const std::vector<BackdropPreset>& BackdropLooks::all()
{
    static const std::vector<BackdropPreset> looks = made();
    return looks;
}

} // namespace Kovrel
