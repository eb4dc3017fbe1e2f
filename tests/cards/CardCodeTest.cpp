#include "cards/CardCode.h"

#include <gtest/gtest.h>

namespace Kovrel {

TEST(CardCodeTest, OnlyWebAddressesOpen)
{
    for (const char* payload : {"https://example.org/a?b=c", "http://example.org"})
        EXPECT_EQ(CardCode{payload}.link(), QUrl(payload)) << payload;
    for (const char* payload : {"javascript:alert(1)", "file:///etc/passwd", "kovrel://capture", "example.org",
                                "https://exa mple.org", "WIFI:S:net;P:secret;;", ""})
        EXPECT_FALSE(CardCode{payload}.link()) << payload;
}

TEST(CardCodeTest, NothingInItIsObeyedWhenItIsShown)
{
    struct Case {
        QString payload;
        QString shown;
    };

    const Case cases[] = {
        {"plain", "plain"},
        {"two\nlines\tand  blanks", "two lines and blanks"},
        {"\x1b[31mred", "\\x1b[31mred"},
        {QString("https://example.org/") + QChar(0x202E) + "gpj", "https://example.org/%E2%80%AEgpj"},
        {QString("user") + QChar(0x202E) + "gpj.exe", "usergpj.exe"},
        {QString::fromUtf8("https://\xd0\xb0pple.com"), "https://xn--pple-43d.com"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(CardCode{c.payload}.shown(60), c.shown);

    const QString endless = QString(2000, 'x') + QString(2000, QChar(7));
    EXPECT_EQ(CardCode{endless}.shown(60).size(), 60);
    EXPECT_TRUE(CardCode{endless}.shown(60).endsWith(QChar(0x2026)));
    EXPECT_EQ(CardCode{QString(4096, QChar(7))}.shown(60).size(), 60);
}

} // namespace Kovrel
