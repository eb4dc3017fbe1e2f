#include "editor/backdrop/BackdropCatalogue.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

namespace Kovrel {

namespace {

using Picture = BackdropPicture;

// Its stops evenly apart.
BackdropGradient soft(const char* id, const char* name, double angleDegrees, std::initializer_list<const char*> colors,
                      std::vector<BackdropGradient::Blob> blobs)
{
    BackdropGradient gradient{id, name, {}, angleDegrees, std::move(blobs)};
    for (const char* const color : colors)
        gradient.stops.push_back({color, double(gradient.stops.size()) / double(colors.size() - 1)});
    return gradient;
}

// Each goes between neighbouring hues; its blobs bring light into one corner and weight into the one across from it.
std::vector<BackdropGradient> madeGradients()
{
    return {
        soft("lagoon", QT_TRANSLATE_NOOP("BackdropCatalogue", "Lagoon"), 45, {"#2F6BFF", "#37C8E6"},
             {{"#7B5CFF", 0.05, 0.95, 0.93, 0.75}, {"#8FF3DF", 0.95, 0.9, 0.85, 0.7}}),
        soft("dawn", QT_TRANSLATE_NOOP("BackdropCatalogue", "Dawn"), 60, {"#FF9A8B", "#FFC3A0", "#FFE3C2"},
             {{"#FF6A95", 0.0, 0.1, 0.93, 0.7}, {"#FFF3DE", 0.9, 0.95, 0.78, 0.8}}),
        soft("dusk", QT_TRANSLATE_NOOP("BackdropCatalogue", "Dusk"), 270, {"#2B1B5A", "#7A3A8C", "#F2786B"},
             {{"#FFB27A", 0.8, 0.0, 0.85, 0.75}, {"#1A1240", 0.1, 0.95, 0.85, 0.7}}),
        soft("orchid", QT_TRANSLATE_NOOP("BackdropCatalogue", "Orchid"), 30, {"#8A4DFF", "#E36BD6"},
             {{"#FF9BC7", 0.95, 0.85, 0.85, 0.8}, {"#5030D8", 0.0, 0.1, 0.93, 0.7}}),
        soft("meadow", QT_TRANSLATE_NOOP("BackdropCatalogue", "Meadow"), 60, {"#3FB27F", "#B5E38A"},
             {{"#F4F3A8", 0.9, 0.9, 0.78, 0.7}, {"#1E8A7A", 0.05, 0.15, 0.93, 0.7}}),
        soft("glacier", QT_TRANSLATE_NOOP("BackdropCatalogue", "Glacier"), 70, {"#BFD9F2", "#EAF4FB"},
             {{"#A6C4F0", 0.05, 0.1, 0.93, 0.7}, {"#FFFFFF", 0.85, 0.9, 0.78, 0.8}}),
        soft("ember", QT_TRANSLATE_NOOP("BackdropCatalogue", "Ember"), 35, {"#D7263D", "#F46036", "#F9A03F"},
             {{"#FFD37A", 0.95, 0.95, 0.78, 0.8}, {"#8C1C4B", 0.0, 0.0, 0.85, 0.75}}),
        soft("peach", QT_TRANSLATE_NOOP("BackdropCatalogue", "Peach"), 120, {"#FFB199", "#FFD9C0"},
             {{"#FF8FA3", 0.9, 0.1, 0.85, 0.65}, {"#FFF1DB", 0.15, 0.9, 0.78, 0.8}}),
        soft("lavender", QT_TRANSLATE_NOOP("BackdropCatalogue", "Lavender"), 50, {"#B9A7F5", "#E9D9FB"},
             {{"#8FB4FF", 0.0, 0.9, 0.85, 0.7}, {"#FBD3EC", 0.95, 0.2, 0.78, 0.75}}),
        soft("indigo", QT_TRANSLATE_NOOP("BackdropCatalogue", "Indigo"), 45, {"#1B1F6B", "#4049D9"},
             {{"#7C6CFF", 0.9, 0.9, 0.85, 0.75}, {"#0C1040", 0.05, 0.05, 0.85, 0.7}}),
        soft("midnight", QT_TRANSLATE_NOOP("BackdropCatalogue", "Midnight"), 60, {"#0B1020", "#1E2A4A"},
             {{"#3A4F8F", 0.85, 0.95, 0.85, 0.7}, {"#2A1E52", 0.05, 0.5, 0.78, 0.6}}),
        soft("aurora", QT_TRANSLATE_NOOP("BackdropCatalogue", "Northern light"), 80, {"#0B2B40", "#136F63"},
             {{"#4BE3A4", 0.7, 0.9, 0.78, 0.65}, {"#6A5AE0", 0.05, 0.75, 0.85, 0.7}}),
        soft("coral", QT_TRANSLATE_NOOP("BackdropCatalogue", "Coral reef"), 20, {"#FF6F61", "#FF9E7A"},
             {{"#FFC79A", 0.9, 0.95, 0.78, 0.75}, {"#E0457B", 0.0, 0.1, 0.93, 0.75}}),
        soft("mint", QT_TRANSLATE_NOOP("BackdropCatalogue", "Mint"), 60, {"#A8E6CF", "#E3F9EC"},
             {{"#7AD7D0", 0.05, 0.1, 0.93, 0.7}, {"#FBFFE8", 0.9, 0.9, 0.78, 0.7}}),
        soft("honey", QT_TRANSLATE_NOOP("BackdropCatalogue", "Honey"), 55, {"#F6B73C", "#FFE29A"},
             {{"#F08A3C", 0.0, 0.1, 0.85, 0.7}, {"#FFF6D6", 0.9, 0.9, 0.78, 0.75}}),
        soft("berry", QT_TRANSLATE_NOOP("BackdropCatalogue", "Berry"), 40, {"#5B1160", "#B0256F", "#F0567A"},
             {{"#FF9A8F", 0.98, 0.95, 0.7, 0.7}, {"#2E0B52", 0.0, 0.05, 0.85, 0.7}}),
        soft("iris", QT_TRANSLATE_NOOP("BackdropCatalogue", "Iris"), 315, {"#5566F5", "#A27BF2", "#F3A6C8"},
             {{"#FFD6C9", 0.95, 0.05, 0.78, 0.8}, {"#3FA9F5", 0.05, 0.95, 0.78, 0.7}}),
        soft("sand", QT_TRANSLATE_NOOP("BackdropCatalogue", "Sand"), 60, {"#E6D5B8", "#F7EEDD"},
             {{"#D9BFA0", 0.05, 0.1, 0.85, 0.65}, {"#FFFBF2", 0.9, 0.95, 0.78, 0.8}}),
        soft("fog", QT_TRANSLATE_NOOP("BackdropCatalogue", "Fog"), 75, {"#C9D0D8", "#EEF1F4"},
             {{"#B4BFCC", 0.05, 0.1, 0.93, 0.7}, {"#FFFFFF", 0.85, 0.95, 0.78, 0.7}}),
        soft("graphite", QT_TRANSLATE_NOOP("BackdropCatalogue", "Graphite"), 60, {"#1D1F24", "#3B3F47"},
             {{"#5A606B", 0.9, 0.95, 0.78, 0.6}, {"#121317", 0.05, 0.05, 0.78, 0.6}}),
    };
}

Picture::Ridge dune(double level, double slope, double phase, const char* crest, const char* foot, double shade = 0.16)
{
    return {.level = level,
            .slope = slope,
            .waves = {{0.05, 1.3, phase}, {0.014, 0.47, phase * 2.3}},
            .crest = crest,
            .foot = foot,
            .depth = 0.4,
            .followsWaves = true,
            .shade = shade,
            .shadeReach = 0.12};
}

Picture dunes()
{
    return {"dunes",
            QT_TRANSLATE_NOOP("BackdropCatalogue", "Dunes"),
            {"", "", {{"#F7D9B8", 0}, {"#F2B999", 0.5}, {"#C98FA0", 1}}, 90, {{"#FFF0D0", 0.7, 0.62, 0.35, 0.9}}},
            {dune(0.52, 0.06, 0.1, "#E9A983", "#D98E75", 0), dune(0.42, -0.12, 0.45, "#E0946E", "#C4735F"),
             dune(0.24, 0.16, 0.8, "#CC7A5C", "#9E5450"), dune(0.14, -0.16, 0.25, "#A95B4E", "#6E3744")}};
}

Picture::Ridge sheet(double level, double phase, const char* crest, const char* foot)
{
    return {.level = level,
            .slope = 0.12,
            .waves = {{0.07, 0.9, phase}, {0.03, 0.41, phase * 1.7}},
            .crest = crest,
            .foot = foot,
            .depth = 0.3,
            .shade = 0.2,
            .shadeReach = 0.08};
}

Picture paper()
{
    return {"paper",
            QT_TRANSLATE_NOOP("BackdropCatalogue", "Paper"),
            {"", "", {{"#FDF6EC", 0}, {"#F7E7D8", 1}}, 60, {}},
            {sheet(0.72, 0.0, "#F6D9CB", "#F2CBBB"), sheet(0.53, 0.35, "#EDB7AC", "#E8A79E"),
             sheet(0.35, 0.7, "#C98F9B", "#BE8292"), sheet(0.17, 0.1, "#8F7391", "#806585"),
             sheet(-0.01, 0.5, "#5B5878", "#4C4A68")}};
}

Picture::Ridge wave(double level, double phase, const char* crest, const char* foot, double shade = 0.12)
{
    return {.level = level,
            .slope = -0.05,
            .waves = {{0.035, 0.55, phase}, {0.012, 0.27, phase * 3.1}},
            .crest = crest,
            .foot = foot,
            .depth = 0.2,
            .shade = shade,
            .shadeReach = 0.05};
}

Picture waves()
{
    return {"waves",
            QT_TRANSLATE_NOOP("BackdropCatalogue", "Waves"),
            {"", "", {{"#CFEFF3", 0}, {"#F3FBF6", 1}}, 90, {{"#FFE9C9", 0.75, 0.95, 0.4, 0.8}}},
            {wave(0.66, 0.0, "#B3E5EA", "#8FD3DE", 0), wave(0.53, 0.3, "#82CBDB", "#5DB4CE"),
             wave(0.39, 0.65, "#4FA6C8", "#3589B4"), wave(0.25, 0.15, "#2C7BAA", "#1F5F92"),
             wave(0.1, 0.5, "#1C5588", "#123A66")}};
}

Picture::Ridge mountain(double level, double phase, const char* crest, const char* foot)
{
    return {.level = level,
            .waves = {{0.06, 0.8, phase},
                      {0.028, 0.31, phase * 2.7},
                      {0.011, 0.13, phase * 5.3},
                      {0.004, 0.056, phase * 7.9}},
            .crest = crest,
            .foot = foot,
            .depth = 0.28};
}

Picture mist()
{
    return {"mist",
            QT_TRANSLATE_NOOP("BackdropCatalogue", "Mist"),
            {"", "", {{"#F3EDE6", 0}, {"#DCE4EC", 0.5}, {"#B7C7DB", 1}}, 90, {{"#FFF7E8", 0.3, 0.75, 0.4, 0.8}}},
            {mountain(0.58, 0.1, "#A9BDD3", "#DCE6EE"), mountain(0.44, 0.6, "#86A0BD", "#C6D5E2"),
             mountain(0.29, 0.35, "#5F7E9F", "#A5BBCF"), mountain(0.13, 0.85, "#3A587A", "#7E9AB4")}};
}

Picture::Ridge curtain(double level, double slope, double phase, const char* crest, const char* foot)
{
    return {.level = level,
            .slope = slope,
            .waves = {{0.06, 0.7, phase}, {0.03, 0.33, phase * 1.9}},
            .crest = crest,
            .foot = foot,
            .depth = 0.5,
            .followsWaves = true,
            .softness = 0.22};
}

Picture aurora()
{
    return {"aurora",
            QT_TRANSLATE_NOOP("BackdropCatalogue", "Aurora"),
            {"", "", {{"#0A1A2F", 0}, {"#071022", 1}}, 90, {{"#27406F", 0.5, 0.1, 0.6, 0.6}}},
            {curtain(0.78, 0.1, 0.2, "#7C5CFFA0", "#7C5CFF00"),
             curtain(0.62, -0.14, 0.55, "#2FD6B4B0", "#2FD6B400"),
             curtain(0.42, 0.12, 0.85, "#57F0A0A0", "#1BA0C800"),
             {.level = 0.12,
              .waves = {{0.03, 0.6, 0.2}, {0.014, 0.21, 0.5}, {0.005, 0.08, 0.1}},
              .crest = "#050B18",
              .foot = "#03070F"}}};
}

Picture::Ridge fold(double level, double phase, const char* crest, const char* foot)
{
    return {.level = level,
            .slope = 0.5,
            .waves = {{0.1, 1.1, phase}, {0.04, 0.52, phase * 1.6}},
            .crest = crest,
            .foot = foot,
            .depth = 0.3,
            .followsWaves = true,
            .softness = 0.05,
            .shade = 0.24,
            .shadeReach = 0.22};
}

Picture silk()
{
    return {"silk",
            QT_TRANSLATE_NOOP("BackdropCatalogue", "Silk"),
            {"", "", {{"#4B2E83", 0}, {"#7E57C2", 1}}, 60, {{"#B794F6", 0.2, 0.9, 0.5, 0.7}}},
            {fold(0.62, 0.1, "#A98BEA", "#5E3BA6"), fold(0.38, 0.35, "#C1A5F7", "#6C44B8"),
             fold(0.12, 0.62, "#E3B5F2", "#8A4FC0"), fold(-0.16, 0.9, "#F5C6E6", "#B25CB8")}};
}

Picture mesh()
{
    return {"mesh",
            QT_TRANSLATE_NOOP("BackdropCatalogue", "Mesh"),
            {"",
             "",
             {{"#F6E7FF", 0}, {"#DDEBFF", 1}},
             30,
             {{"#FF9EC4", 0.15, 0.85, 0.63, 0.95},
              {"#8FB8FF", 0.85, 0.8, 0.68, 0.95},
              {"#A7F0DA", 0.8, 0.15, 0.63, 0.9},
              {"#FFD59A", 0.2, 0.15, 0.6, 0.95},
              {"#C9A7FF", 0.5, 0.52, 0.45, 0.75}}},
            {}};
}

Picture horizon()
{
    return {"horizon",
            QT_TRANSLATE_NOOP("BackdropCatalogue", "Horizon"),
            {"",
             "",
             {{"#FFC97A", 0}, {"#FF8A6B", 0.35}, {"#B4539A", 0.7}, {"#3B2C7A", 1}},
             90,
             {{"#FFF3C4", 0.5, 0.36, 0.26, 1}}},
            {{.level = 0.34,
              .waves = {{0.002, 0.3, 0.1}},
              .crest = "#E9807F",
              .foot = "#3A2A6E",
              .depth = 0.34,
              .softness = 0.004},
             {.level = 0.1,
              .slope = 0.1,
              .waves = {{0.03, 0.7, 0.3}, {0.012, 0.19, 0.8}},
              .crest = "#2B1C52",
              .foot = "#1A1038"}}};
}

template <class Fill>
const Fill* find(const std::vector<Fill>& fills, const QString& id)
{
    const auto found = std::ranges::find(fills, id, &Fill::id);
    return found == fills.end() ? nullptr : &*found;
}

} // namespace

const std::vector<BackdropGradient>& BackdropCatalogue::gradients()
{
    static const std::vector<BackdropGradient> gradients = madeGradients();
    return gradients;
}

const std::vector<BackdropPicture>& BackdropCatalogue::pictures()
{
    static const std::vector<BackdropPicture> pictures{dunes(), aurora(), paper(), waves(),
                                                       mist(),  silk(),   mesh(),  horizon()};
    return pictures;
}

const std::vector<BackdropColor>& BackdropCatalogue::colors()
{
    static const std::vector<BackdropColor> colors{
        {"white", QT_TRANSLATE_NOOP("BackdropCatalogue", "White"), "#FFFFFF"},
        {"pearl", QT_TRANSLATE_NOOP("BackdropCatalogue", "Pearl"), "#F1F2F4"},
        {"silver", QT_TRANSLATE_NOOP("BackdropCatalogue", "Silver"), "#C5C9D0"},
        {"slate", QT_TRANSLATE_NOOP("BackdropCatalogue", "Slate"), "#5B6472"},
        {"charcoal", QT_TRANSLATE_NOOP("BackdropCatalogue", "Charcoal"), "#24272D"},
        {"black", QT_TRANSLATE_NOOP("BackdropCatalogue", "Black"), "#000000"},
        {"coral", QT_TRANSLATE_NOOP("BackdropCatalogue", "Coral"), "#FF7A6B"},
        {"apricot", QT_TRANSLATE_NOOP("BackdropCatalogue", "Apricot"), "#FFC38F"},
        {"butter", QT_TRANSLATE_NOOP("BackdropCatalogue", "Butter"), "#FBE6A2"},
        {"sage", QT_TRANSLATE_NOOP("BackdropCatalogue", "Sage"), "#B4D2B0"},
        {"teal", QT_TRANSLATE_NOOP("BackdropCatalogue", "Teal"), "#3FA7A3"},
        {"sky", QT_TRANSLATE_NOOP("BackdropCatalogue", "Sky"), "#9CCBF5"},
        {"indigo", QT_TRANSLATE_NOOP("BackdropCatalogue", "Indigo"), "#5661D6"},
        {"lilac", QT_TRANSLATE_NOOP("BackdropCatalogue", "Lilac"), "#CDB9F0"},
    };
    return colors;
}

const BackdropGradient* BackdropCatalogue::gradient(const QString& id)
{
    return find(gradients(), id);
}

const BackdropPicture* BackdropCatalogue::picture(const QString& id)
{
    return find(pictures(), id);
}

} // namespace Kovrel
