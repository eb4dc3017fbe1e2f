#include "editor/document/UndoHistory.h"

#include <gtest/gtest.h>

#include <random>

namespace Kovrel {

namespace {

EditorDocument changed(EditorDocument document, std::mt19937& random)
{
    auto& marks = document.marks;
    const size_t index = marks.empty() ? 0 : random() % marks.size();
    switch (marks.empty() ? 0 : random() % 7) {
    case 0:
    case 1:
        marks.insert(marks.begin() + qptrdiff(index), Annotation{.points = {{double(random() % 100), 1}}});
        break;
    case 2:
        marks.erase(marks.begin() + qptrdiff(index));
        break;
    case 3:
        marks[index].points[0].x = double(random() % 100);
        break;
    case 4:
        std::rotate(marks.begin(), marks.begin() + qptrdiff(index), marks.end());
        break;
    case 5:
        document.composition.crop = Rect{0, 0, double(random() % 100), 10};
        break;
    default:
        document.composition.backdrop.padding = double(random() % 10) / 10;
    }
    return document;
}

} // namespace

TEST(UndoHistoryTest, EveryStepComesBackAndForth)
{
    for (unsigned seed = 0; seed < 40; ++seed) {
        std::mt19937 random(seed);
        UndoHistory history;
        std::vector<EditorDocument> states{{}};
        size_t now = 0;
        for (int round = 0; round < 200; ++round) {
            const auto choice = random() % 4;
            if (choice == 0 && history.canUndo()) {
                ASSERT_EQ(history.undone(states[now]), states[now - 1]) << "seed " << seed;
                --now;
            } else if (choice == 1 && history.canRedo()) {
                ASSERT_EQ(history.redone(states[now]), states[now + 1]) << "seed " << seed;
                ++now;
            } else if (const EditorDocument next = changed(states[now], random); next != states[now]) {
                history.record(states[now], next);
                states.resize(++now);
                states.push_back(next);
            }
            EXPECT_EQ(history.canUndo(), now > 0);
            EXPECT_EQ(history.canRedo(), now + 1 < states.size());
        }
    }
}

TEST(UndoHistoryTest, StepsOfOneKeyAreOneUntilTheyAreSealed)
{
    UndoHistory history;
    std::vector<EditorDocument> states(1);
    const auto step = [&](double padding, const QString& key) {
        EditorDocument next = states.back();
        next.composition.backdrop.padding = padding;
        history.record(states.back(), next, key);
        states.push_back(next);
    };
    step(0.3, "padding");
    step(0.4, "padding");
    history.seal();
    step(0.5, "padding");
    step(0.6, "corners");
    EditorDocument document = states.back();
    for (const int expected : {3, 2, 0}) {
        document = history.undone(document);
        EXPECT_EQ(document, states[size_t(expected)]);
    }
    EXPECT_FALSE(history.canUndo());
}

TEST(UndoHistoryTest, WhatComesBackToWhereItBeganIsNoStep)
{
    UndoHistory history;
    EditorDocument one;
    EditorDocument other;
    other.marks.push_back({.points = {{1, 1}}});
    history.record(one, other, "drag");
    history.record(other, one, "drag");
    EXPECT_FALSE(history.canUndo());
    history.record(one, one);
    EXPECT_FALSE(history.canUndo());
}

TEST(UndoHistoryTest, ADragThatCameBackAndGoesOnDoesNotJoinTheStepBeforeIt)
{
    UndoHistory history;
    std::vector<EditorDocument> states(1);
    const auto step = [&](double padding) {
        EditorDocument next = states.back();
        next.composition.backdrop.padding = padding;
        history.record(states.back(), next, "padding");
        states.push_back(next);
    };
    step(0.3);
    history.seal();
    for (const double padding : {0.4, 0.3, 0.5})
        step(padding);
    EXPECT_EQ(history.undone(states.back()), states[1]);
}

TEST(UndoHistoryTest, ANewStepForgetsWhatWasTakenBackAndNeverJoinsIt)
{
    UndoHistory history;
    EditorDocument one;
    EditorDocument two;
    two.composition.backdrop.padding = 0.5;
    EditorDocument three;
    three.composition.backdrop.padding = 0.6;
    history.record(one, two, "padding");
    one = history.undone(two);
    history.record(one, three, "padding");
    EXPECT_FALSE(history.canRedo());
    EXPECT_EQ(history.undone(three), EditorDocument());
}

} // namespace Kovrel
