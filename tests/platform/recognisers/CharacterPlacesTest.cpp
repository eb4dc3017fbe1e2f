#include "platform/recognisers/CharacterPlaces.h"

#include "platform/recognisers/CharacterOrder.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

using Boxes = std::vector<std::optional<QRectF>>;

// A line of ink, 20 pixels high: pieces from one column to another.
QImage inkOf(const std::vector<std::pair<int, int>>& pieces)
{
    QImage ink(pieces.back().second + 10, 20, QImage::Format_Grayscale8);
    ink.fill(255);
    for (const auto& [left, right] : pieces)
        for (int y = 4; y < 16; ++y)
            for (int x = left; x < right; ++x)
                ink.scanLine(y)[x] = 0;
    return ink;
}

// As the recogniser tells it: a box of 4 for each character, wherever, none for spaces.
Boxes roughly(const QString& text)
{
    Boxes boxes;
    for (qsizetype at = 0; at < text.size(); ++at)
        boxes.push_back(text[at] == u' ' ? std::nullopt : std::optional(QRectF(double(at) * 4, 0, 4, 20)));
    return boxes;
}

std::vector<int> centers(const Boxes& boxes)
{
    std::vector<int> all;
    for (const auto& box : boxes)
        all.push_back(box ? qRound(box->center().x()) : -1);
    return all;
}

} // namespace

TEST(CharacterPlaces, CharactersStandWhereTheirInkIs)
{
    struct Case {
        const char* what;
        QString text;
        std::vector<std::pair<int, int>> pieces;
        std::vector<int> centers; // empty: as they were
    };

    const Case cases[] = {
        {"a piece for each", "abim", {{0, 10}, {12, 22}, {24, 28}, {30, 46}}, {5, 17, 26, 38}},
        {"two words", "ab imo", {{0, 10}, {12, 22}, {32, 36}, {38, 54}, {56, 66}}, {5, 17, -1, 34, 46, 61}},
        {"two that touch", "aoimo", {{0, 21}, {24, 28}, {30, 46}, {48, 58}}, {5, 16, 26, 38, 53}},
        {"a quotation mark in two pieces", "\"moil", {{0, 2}, {4, 6}, {8, 24}, {26, 36}, {38, 42}, {44, 48}},
         {3, 16, 31, 40, 46}},
        {"a gap in a word as wide as a space", "am io", {{0, 10}, {20, 36}, {46, 50}, {52, 62}}, {}},
        {"all as wide", "wiwiw", {{0, 10}, {13, 17}, {20, 30}, {33, 37}, {40, 50}}, {}},
        {"letters that are joined", QString::fromUtf8("سلام"), {{0, 30}, {34, 44}}, {}},
        {"less ink than words", "a b", {{0, 10}}, {}},
    };
    for (const Case& each : cases) {
        Boxes boxes = roughly(each.text);
        const std::vector<int> before = centers(boxes);
        CharacterPlaces::followInk(each.text, inkOf(each.pieces), boxes);
        EXPECT_EQ(centers(boxes), each.centers.empty() ? before : each.centers) << each.what;
    }
}

TEST(CharacterOrder, WhatStandsBeforeWhatItFollowsHasNoPlace)
{
    struct Case {
        QString text;
        std::vector<int> places; // of boxes of 2; -1: none
        std::vector<bool> kept;
    };

    const Case cases[] = {
        {"7, an", {41, 60, -1, 44, 46}, {true, false, false, true, true}},
        {"abc", {0, 4, 8}, {true, true, true}},
        {"abc", {0, 4, 4}, {true, true, true}}, // a word that has one box
        {"abcd", {10, 0, 4, 8}, {false, true, true, true}},
        {QString::fromUtf8("שלום"), {30, 20, 25, 0}, {true, false, true, true}},
        {QString::fromUtf8("aש b"), {9, 5, -1, 0}, {true, true, false, true}},
        {"", {}, {}},
    };
    for (const Case& each : cases) {
        Boxes boxes;
        for (const int place : each.places)
            boxes.push_back(place < 0 ? std::nullopt : std::optional(QRectF(place, 0, 2, 20)));
        CharacterOrder::dropStrays(each.text, boxes);
        std::vector<bool> kept;
        for (const auto& box : boxes)
            kept.push_back(box.has_value());
        EXPECT_EQ(kept, each.kept) << each.text.toStdString();
    }
}

} // namespace Kovrel
