#include "app/commands/TextCommand.h"
#include "app/commands/CaptureCommand.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeTextRecogniser.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

struct FixedReader : CodeReader {
    Outcome outcome;

    Outcome read(const QImage&, Engine) const override { return outcome; }
};

struct TextCommandTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    Testing::TempFolder folder;
    Testing::FakeTextRecogniser::Page page;
    VisionOCREngine engine{loop, workers, std::make_unique<Testing::FakeTextRecogniser>(page),
                           [] { return QStringList(); }};
    FixedReader reader;
    QRCodeDetector codes{loop, workers, reader};
    TextCommand text{loop, workers, engine, codes};

    CommandAnswer run()
    {
        const QString file = folder / "picture.png";
        QImage(64, 64, QImage::Format_RGB32).save(file);
        std::optional<CommandAnswer> answer;
        text.run({.name = "text", .operands = {file.toStdString()}}, 1,
                 [&answer](const CommandAnswer& given) { answer = given; });
        do
            loop.runPosted();
        while (workers.runAll() > 0);
        return answer.value_or(CommandAnswer{.exitCode = -1});
    }
};

} // namespace

TEST_F(TextCommandTest, TheHalfThatWorkedIsPrinted)
{
    using Recognised = TextRecogniser::Outcome;
    const Recognised hello{{Testing::FakeTextRecogniser::line("Hello", {0.1, 0.5, 0.2, 0.1})}};
    const Recognised noData = std::unexpected(RecognitionFailure{"no data"});
    const CodeReader::Outcome link{{{"https://a.example\x1b[2J", {1, 1, 9, 9}}}};
    const CodeReader::Outcome noReader = std::unexpected(QString("no reader"));

    struct Case {
        const char* what;
        Recognised text;
        CodeReader::Outcome codes;
        int exitCode;
        QString output;
        QString error;
    };

    const Case cases[] = {
        {"both", hello, link, 0, "Hello\nhttps://a.example\\x1b[2J\n", ""},
        {"only codes", noData, link, 0, "https://a.example\\x1b[2J\n", "no data"},
        {"only text", hello, noReader, 0, "Hello\n", "no reader"},
        {"neither", noData, noReader, CommandLine::failed, "", "no data"},
        {"no text, and no reader", Recognised(), noReader, CommandLine::failed, "", "no reader"},
        {"nothing", Recognised(), {}, CommandLine::nothingThere, "", "there is no text in " + folder / "picture.png"},
    };
    for (const Case& c : cases) {
        page.outcome = c.text;
        reader.outcome = c.codes;
        const CommandAnswer answer = run();
        EXPECT_EQ(answer.exitCode, c.exitCode) << c.what;
        EXPECT_EQ(answer.output.toStdString(), c.output.toStdString()) << c.what;
        EXPECT_EQ(answer.error.toStdString(), c.error.toStdString()) << c.what;
    }
}

TEST(CaptureCommandTest, AnAreaWithoutTextIsNothingThere)
{
    const auto answerFor = [](const QString& text) {
        return CaptureCommand::answer({.kind = CaptureOutcome::Kind::finished, .text = text}, true, false);
    };
    EXPECT_EQ(answerFor("Hello").exitCode, 0);
    EXPECT_EQ(answerFor("Hello").output, "Hello\n");
    EXPECT_EQ(answerFor("").exitCode, CommandLine::nothingThere);
    EXPECT_EQ(answerFor("").output, "");
}

} // namespace Kovrel
