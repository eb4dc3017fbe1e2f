#include "history/files/HistoryJson.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace Kovrel {

namespace {

const QUuid first("{a1b2c3d4-0000-4000-8000-00000000000f}");
const QByteArray firstText = "A1B2C3D4-0000-4000-8000-00000000000F";
const QByteArray plainJson = "{\"id\":\"" + firstText + "\",\"date\":731234567.25,\"mode\":\"area\",\"pixelScale\":2}";

QDateTime dateOf(double seconds)
{
    return QDateTime(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC).addMSecs(qint64(seconds * 1000));
}

HistoryEntry plainEntry()
{
    return {.id = first, .date = dateOf(731234567.25), .mode = "area", .pixelScale = 2};
}

} // namespace

TEST(HistoryJsonTest, RecordsAreStoredToTheLetter)
{
    HistoryEntry full = plainEntry();
    full.date = dateOf(-1);
    full.savedPath = "/a/\u00e4\n\".png";
    full.title = "";
    full.sourceBundleID = "org.example";
    full.sourceAppName = "Example";
    full.pixelWidth = 40;
    full.pixelHeight = 30;
    full.listOnly = true;
    full.subject = CaptureSubject{{1, 2.5, 30, 20}, 9.5};
    EXPECT_EQ(HistoryJson::encoded(QList{plainEntry(), full}),
              QByteArray("[" + plainJson + ",{\"id\":\"" + firstText +
                         R"(","date":-1,"mode":"area","pixelScale":2,"savedPath":"/a/)"
                         "\u00e4"
                         R"(\n\".png","title":"","sourceBundleID":"org.example","sourceAppName":"Example",)"
                         R"("pixelWidth":40,"pixelHeight":30,"listOnly":true,)"
                         R"("subject":{"rect":[[1,2.5],[30,20]],"cornerRadius":9.5}}])"));
    EXPECT_EQ(HistoryJson::entries(HistoryJson::encoded(QList{plainEntry(), full}))->records,
              (QList{plainEntry(), full}));
    EXPECT_EQ(HistoryJson::encoded(QList<HistoryEntry>()), "[]");

    const std::vector<HistoryList> lists{
        {.id = first, .name = "Work", .colorHex = "#2F6BFF", .createdAt = dateOf(0.5), .entryIDs = {first}}};
    EXPECT_EQ(HistoryJson::encoded(lists),
              QByteArray("[{\"id\":\"" + firstText +
                         R"(","name":"Work","colorHex":"#2F6BFF","createdAt":0.5,"entryIDs":[")" + firstText +
                         "\"]}]"));
    EXPECT_EQ(HistoryJson::lists(HistoryJson::encoded(lists))->records, lists);
}

TEST(HistoryJsonTest, AnElementThatIsWrongCostsItself)
{
    const QByteArray second = QByteArray(plainJson).replace("000F", "000E");
    const auto with = [](const QByteArray& from, const QByteArray& to) {
        return QByteArray(plainJson).replace(from, to);
    };

    const struct {
        const char* what;
        QByteArray element;
    } wrongs[] = {
        {"a number", "1"},
        {"no identity", with("\"id\"", "\"no\"")},
        {"a path as identity", with(firstText, "../../../../etc/passwd/../../../////")},
        {"the null identity", with(firstText, "00000000-0000-0000-0000-000000000000")},
        {"a date that no calendar has", with("731234567.25", "1e300")},
        {"a date as text", with("731234567.25", "\"today\"")},
        {"no mode", with("\"mode\"", "\"no\"")},
        {"a title that is no text", with("}", ",\"title\":1}")},
        {"more pixels than there can be", with("}", ",\"pixelWidth\":1e12}")},
        {"half a subject", with("}", ",\"subject\":{\"rect\":[[1,2]]}}")},
        {"broken UTF-8", with("area", "ar\xff")},
        {"no JSON", with("2}", "}")},
        {"a text without end", with("\"area\"", "\"area")},
        {"an object without end", with("}", "")},
    };

    for (const auto& wrong : wrongs) {
        SCOPED_TRACE(wrong.what);
        const auto reading = HistoryJson::entries("[" + plainJson + "," + wrong.element + "," + second + "]");
        ASSERT_TRUE(reading);
        ASSERT_EQ(reading->records.size(), 2);
        EXPECT_EQ(reading->records.front(), plainEntry());
        EXPECT_EQ(reading->skipped, 1);
    }
}

TEST(HistoryJsonTest, AnArrayThatIsCutOffIsReadAsFarAsItGoes)
{
    const QByteArray whole = "[" + plainJson + "," + plainJson + "]";
    for (qsizetype length = 0; length < whole.size(); ++length) {
        const auto reading = HistoryJson::entries(whole.first(length));
        EXPECT_EQ(reading.has_value(), length > 0) << length;
        const qsizetype complete = (length > plainJson.size()) + (length > 2 * plainJson.size() + 1);
        if (reading)
            EXPECT_EQ(reading->records.size(), complete) << length;
    }
    for (const QByteArray none : {"", "{}", "null", "garbage", "\"[]\""})
        EXPECT_FALSE(HistoryJson::entries(none)) << none.constData();
    EXPECT_TRUE(HistoryJson::entries(QByteArray("\xef\xbb\xbf[]")));
}

TEST(HistoryJsonTest, UnknownKeysAndNullsAreNoFault)
{
    QByteArray json = plainJson;
    json.insert(1, "\"newer\":{\"a\":[1]},").replace("}", "}");
    json.insert(json.size() - 1, ",\"title\":null,\"pixelWidth\":40.0");
    const auto reading = HistoryJson::entries("[" + json + "]");
    ASSERT_EQ(reading->records.size(), 1);
    EXPECT_EQ(reading->records.front().title, std::nullopt);
    EXPECT_EQ(reading->records.front().pixelWidth, 40);
}

} // namespace Kovrel
