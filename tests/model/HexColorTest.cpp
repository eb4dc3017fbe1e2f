#include "model/HexColor.h"

#include <gtest/gtest.h>

namespace Kovrel {

TEST(HexColor, ReadsSixAndEightDigits)
{
    EXPECT_EQ(HexColor::parse(u"#12AB34"), QColor(0x12, 0xAB, 0x34));
    EXPECT_EQ(HexColor::parse(u"12ab34"), QColor(0x12, 0xAB, 0x34));
    EXPECT_EQ(HexColor::parse(u"#12AB3480"), QColor(0x12, 0xAB, 0x34, 0x80));
    EXPECT_EQ(HexColor::parse(u"#12AB3400"), QColor(0x12, 0xAB, 0x34, 0));
    for (const char16_t* const text : {u"", u"#", u"#123", u"#12345", u"#1234567", u"#GGGGGG", u"red", u"##12AB34",
                                       u"+12AB3", u" 12AB3", u"#１２ＡＢ３４"})
        EXPECT_FALSE(HexColor::parse(text)) << QString::fromUtf16(text).toStdString();
}

TEST(HexColor, WritesWhatItReads)
{
    for (const char* const text : {"#12AB34", "#000000", "#FFFFFF", "#12AB3480", "#FFFFFF00"})
        EXPECT_EQ(HexColor::text(*HexColor::parse(QString(text))), text);
}

} // namespace Kovrel
