#include "platform/recognisers/ReadingSense.h"

#include <gtest/gtest.h>

namespace Kovrel {

TEST(ReadingSense, WhatIsSeenInPicturesIsNoText)
{
    struct Case {
        const char* text;
        float confidence;
        double blankShare;
        bool isText;
    };

    const Case cases[] = {{"A", 0.9f, 0.5, true},
                          {"}", 0.85f, 0.5, true},
                          {"A", 0.5f, 0.5, false},
                          {"\\", 0.99f, 0.8, false},
                          {"~ >", 0.99f, 0.8, false},
                          {"OK", 0.85f, 0.6, true},
                          {"OK", 0.85f, 0, false},
                          {"Oo", 0.55f, 0.6, false},
                          {"Oo", 0.7f, 0.9, false},
                          {"Quit", 0.7f, 0.6, true},
                          {"oh Ke", 0.44f, 0.9, false},
                          {"te -", 0.43f, 0.6, false},
                          {"\"lazy\"", 0.1f, 0.6, true},
                          {"«ge:", 0.3f, 0.6, false},
                          {"*.", 0.95f, 0.6, false},
                          {"Ctrl+S", 0.2f, 0.65, true},
                          {"1.10.2", 0.1f, 0.7, true},
                          {"1.10.2", 0.1f, 0, false},
                          {"a quick brown fox", 0.2f, 0.7, true},
                          {"ae oe Ul 8 GS", 0.3f, 0, false},
                          {"a whole sentence in a photograph", 0.5f, 0, true}};
    for (const Case& c : cases)
        EXPECT_EQ(ReadingSense::isText(QString::fromUtf8(c.text), c.confidence, c.blankShare), c.isText)
            << c.text << ' ' << c.confidence << ' ' << c.blankShare;
}

} // namespace Kovrel
