#include "saving/FileNameFormatter.h"

#include <gtest/gtest.h>

namespace Kovrel {

TEST(FileNameFormatter, Templates)
{
    const QDateTime date(QDate(2024, 3, 5), QTime(9, 7, 3));
    const std::vector<std::pair<QString, QString>> cases{
        {"Screenshot %Y-%m-%d at %H.%M.%S", "Screenshot 2024-03-05 at 09.07.03"},
        {"///", "---"},
        {"", "Kovrel"},
        {"%Y%Y", "20242024"},
        {"%q 100%", "-q 100-"},
        {"%%Y", "-2024"},
        {R"(a/b:c\d?e%f*g|h"i<j>k)", "a-b-c-d-e-f-g-h-i-j-k"},
        {" . ", " . "},
        {"ä 😀 %S", "ä 😀 03"},
    };
    for (const auto& [fileNameTemplate, expected] : cases)
        EXPECT_EQ(FileNameFormatter::format(fileNameTemplate, date), expected) << qPrintable(fileNameTemplate);
}

TEST(FileNameFormatter, NoFileIsHiddenByItsName)
{
    EXPECT_EQ(FileNameFormatter::format(".%Y", QDateTime(QDate(2026, 3, 5), QTime(9, 7))), "-2026");
}

TEST(FileNameFormatter, TimesAreLocalAndYearsHaveFourDigits)
{
    const QDateTime local(QDate(812, 1, 2), QTime(23, 0));
    EXPECT_EQ(FileNameFormatter::format("%Y %H", local), "0812 23");
    EXPECT_EQ(FileNameFormatter::format("%Y %H", local.toUTC()), "0812 23");
}

} // namespace Kovrel
