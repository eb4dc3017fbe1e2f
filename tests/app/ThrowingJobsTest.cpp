#include "app/commands/TextCommand.h"
#include "app/foundation/CommandJob.h"
#include "capture/delivery/CaptureOutput.h"
#include "capture/pixels/WindowBackdropCompositor.h"
#include "capture/selection/SelectionCapture.h"
#include "platform/desktop/AnimationSetting.h"
#include "platform/desktop/FileTokenStore.h"
#include "reading/RecognitionTextReader.h"
#include "saving/EditorSaves.h"
#include "saving/SaveWithPanel.h"
#include "tests/support/EventLoop.h"
#include "tests/support/FakeDesktop.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeTextRecogniser.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/LogLines.h"
#include "tests/support/MemoryShortage.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestPictures.h"

#include <gtest/gtest.h>

namespace Kovrel {

namespace {

const QString noMemory = "there is not enough memory";

// Sees nothing, or throws.
struct BlindReader : CodeReader {
    Outcome read(const QImage&, Engine) const override
    {
        if (isBroken)
            throw std::runtime_error("the reader is broken");
        return {};
    }

    bool isBroken = false;
};

struct ThrowingJobsTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    Testing::FakeDesktop desktop{loop};
    Testing::TempFolder folder;
    UserDefaults defaults{folder / "kovrel.conf"};
    Preferences preferences{defaults};
    ClipboardService clipboard{loop, workers, desktop.clipboard()};
    Testing::FakeTextRecogniser::Page page;
    VisionOCREngine engine{loop, workers, std::make_unique<Testing::FakeTextRecogniser>(page),
                           [] { return QStringList(); }};
    BlindReader codeReader;
    QRCodeDetector codes{loop, workers, codeReader};
    const Testing::LogLines log;
    const QImage picture = Testing::testPicture({1500, 1500}, Testing::Texture::blocks); // several regions to search

    ThrowingJobsTest() { Preferences::registerDefaults(defaults); }

    void makeMemoryShort() { workers.beforeEachJob = Testing::MemoryShortage::failNextAllocation; }

    void settle()
    {
        do
            loop.runPosted();
        while (workers.runAll() > 0);
    }

    QString pictureFile(const QString& name)
    {
        const QString path = folder / name;
        picture.save(path, "PNG");
        return path;
    }
};

} // namespace

TEST_F(ThrowingJobsTest, WhoeverWaitsForAJobIsAnsweredWhenMemoryIsShort)
{
    using Answer = std::function<void(QString)>;

    struct Case {
        const char* what;
        std::function<void(Answer)> ask;
        QString answer;
    };

    CaptureOutput output(loop, workers, preferences, desktop.displays(), clipboard, desktop.fileManager(),
                         std::make_shared<ReservationJournal>(folder / "journal"), folder / "rescue");
    EditorSaves editorSaves(loop, workers);
    SaveWithPanel panel(loop, workers, desktop.filePanel(), desktop.fileManager());
    FileTokenStore tokens(loop, workers, folder.path());
    SelectionCapture selection(loop, workers, desktop.windows());
    WindowBackdropCompositor backdrop(loop, workers, desktop.picture(), desktop.displays(), preferences);
    TextCommand textCommand(loop, workers, engine, codes);
    desktop.filePanel().choice = folder / "chosen.png";
    const QString file = pictureFile("picture.png");
    pictureFile("token");
    const auto yesOrNo = [](const Answer& answer) { return [answer](bool is) { answer(is ? "yes" : "no"); }; };
    const auto outcome = [](const Answer& answer) {
        return [answer](const auto& result) { answer(result ? "done" : result.error().message); };
    };
    const Case cases[] = {
        {"a capture's save",
         [&](Answer answer) {
             output.save({.image = picture}, {}, std::make_shared<EncodedPng>(picture))
                 ->whenDone([answer](const SaveOutcome& saved) { answer(saved ? "done" : saved.error().message); });
         },
         noMemory},
        {"quitting", [&](Answer answer) { output.afterPendingSaves({}, [answer] { answer("now"); }); }, "now"},
        {"the editor's save",
         [&](Answer answer) {
             editorSaves.saveEditorImageInBackground({.image = picture, .sourceFileURL = file}, outcome(answer));
         },
         noMemory},
        {"quitting after it",
         [&](Answer answer) { editorSaves.afterPendingEditorSaves(9, [answer] { answer("now"); }); }, "now"},
        {"saving under a chosen name",
         [&](Answer answer) {
             panel.saveWithPanel(
                 {.image = picture, .onFailed = [answer](const SaveFailure& failure) { answer(failure.message); }});
         },
         "PNG: " + noMemory},
        {"copying a file", [&](Answer answer) { clipboard.copyFile(file, 0, true, yesOrNo(answer)); }, "no"},
        {"reading the account",
         [&](Answer answer) {
             tokens.read("token", [answer](const std::optional<QString>& token) { answer(token.value_or("none")); });
         },
         "none"},
        {"keeping the account",
         [&](Answer answer) {
             tokens.write("token", "new",
                          [answer](const TokenStore::Stored& stored) { answer(stored ? "done" : stored.error()); });
         },
         noMemory},
        {"forgetting the account", [&](Answer answer) { tokens.remove("token", yesOrNo(answer)); }, "no"},
        {"cutting out a selection",
         [&](Answer answer) {
             selection.grab({0, 0, 9, 9}, {}, [yes = yesOrNo(answer)](const auto& cut) { yes(cut.has_value()); });
         },
         "no"},
        {"a window's backdrop",
         [&](Answer answer) {
             backdrop.compose(picture, WindowBackdropStyle::solidColor, {},
                              [this, answer](const ComposedCapture& capture) {
                                  answer(capture.image == picture ? "the bare window" : "a composition");
                              });
         },
         "the bare window"},
        {"whether windows move", [&](Answer answer) { AnimationSetting::read(loop, workers, yesOrNo(answer)); }, "yes"},
        {"the text of a file",
         [&](Answer answer) {
             textCommand.run({.name = "text", .operands = {file.toStdString()}}, 1,
                             [answer](const CommandAnswer& text) { answer(text.error); });
         },
         noMemory},
    };
    makeMemoryShort();
    for (const Case& c : cases) {
        QString answer = "nothing";
        c.ask([&answer](const QString& given) { answer = given; });
        settle();
        EXPECT_EQ(answer, c.answer) << c.what;
    }
}

TEST_F(ThrowingJobsTest, APictureThatCannotBeEncodedFirstIsEncodedWhenItIsPasted)
{
    const auto encode = []() -> std::optional<QByteArray> { throw std::bad_alloc(); };
    clipboard.copyInBackground(picture, encode, 0);
    settle();
    EXPECT_EQ(desktop.clipboard().types(), (QStringList{"image/png", "image/tiff"}));
    EXPECT_EQ(QImage::fromData(desktop.clipboard().bytes("image/png")).size(), picture.size());
}

TEST_F(ThrowingJobsTest, ATextCaptureHearsOfAReaderThatThrows)
{
    struct Case {
        bool hasBrokenRecogniser;
        bool hasBrokenReader;
        const char* failure;
    };

    RecognitionTextReader reader(loop, workers, engine, codes, [] { return QDateTime(); });
    for (const Case& c : {Case{true, false, "the recogniser is broken"}, Case{false, true, "the reader is broken"},
                          Case{true, true, "the recogniser is broken"}, Case{false, false, ""}}) {
        page.whileReading = [&c] {
            if (c.hasBrokenRecogniser)
                throw std::runtime_error("the recogniser is broken");
        };
        codeReader.isBroken = c.hasBrokenReader;
        std::optional<TextReader::Reading> reading;
        reader.read(picture, 1, {}, [&reading](const TextReader::Reading& given) { reading = given; });
        settle();
        ASSERT_TRUE(reading) << c.failure;
        EXPECT_EQ(reading->failure, c.failure);
    }
}

TEST(CommandJob, AnswersWithWhatTheWorkThrows)
{
    Foundation foundation(Foundation::Kind::command);
    std::optional<CommandAnswer> answer;
    CommandJob::run(
        foundation, Lane::utility, []() -> CommandAnswer { throw std::bad_alloc(); },
        [&answer](const CommandAnswer& given) { answer = given; });
    EXPECT_TRUE(Testing::waitFor([&answer] { return answer.has_value(); }));
    EXPECT_EQ(answer->exitCode, CommandLine::failed);
    EXPECT_EQ(answer->error, noMemory);
}

} // namespace Kovrel
