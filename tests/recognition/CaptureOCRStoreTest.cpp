#include "recognition/CaptureOCRStore.h"

#include "recognition/text/VisionOCREngine.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeTextRecogniser.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/LogLines.h"
#include "tests/support/TempFolder.h"

#include <QDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Kovrel {

using testing::Contains;
using Testing::FakeTextRecogniser;
using Key = CaptureOCRStore::Key;
using Kind = CaptureOCRStore::Kind;
using Status = CaptureOCRStore::Status;

namespace {

const QUuid capture("{a1b2c3d4-0000-4000-8000-000000000001}");
const QString logName = "A1B2C3D4-0000-4000-8000-000000000001 base";

struct CaptureOCRStoreTest : testing::Test {
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    Testing::TempFolder folder;
    FakeTextRecogniser::Page page{{{FakeTextRecogniser::line("Hello", {0.1, 0.5, 0.2, 0.1})}}};
    VisionOCREngine engine{loop, workers, std::make_unique<FakeTextRecogniser>(page), [] { return QStringList(); }};
    Status status = Status::recorded;
    CaptureOCRStore store{loop, workers, folder / "", [this](QUuid) { return status; },
                          [this](QImage image, QualityOfService qos, bool corrected, std::stop_token stop) {
                              return engine.recognize(image, qos, corrected, stop);
                          }};
    const Testing::LogLines log;
    std::vector<std::string> answers;
    OCRResult lastText;
    bool hasPixels = true;

    static std::string answerOf(const OCROutcome& text)
    {
        if (text)
            return text->fullText.toStdString();
        return text.error().reason == RecognitionFailure::Reason::noPicture
                   ? "no pixels"
                   : "error: " + text.error().message.toStdString();
    }

    QCoro::Task<> keepAnswer(QUuid id, bool corrected, std::stop_token stop, QualityOfService qos)
    {
        std::string answer;
        try {
            const OCROutcome text =
                co_await store.text({id, Kind::base}, qos, corrected, [this] { return pixels(); }, stop);
            answer = answerOf(text);
            lastText = text.value_or(OCRResult());
        } catch (const Cancelled&) {
            answer = "left";
        }
        answers.push_back(answer);
    }

    QCoro::Task<QImage> pixels() { co_return hasPixels ? QImage(640, 480, QImage::Format_RGB32) : QImage(); }

    void ask(bool corrected = true, std::stop_token stop = {}, QUuid id = capture,
             QualityOfService qos = QualityOfService::userInitiated)
    {
        Scope::start(keepAnswer(id, corrected, stop, qos), "a test's question");
    }

    void askInBackground(QUuid id = capture, std::stop_token stop = {})
    {
        ask(true, stop, id, QualityOfService::background);
    }

    void runLane(Lane lane)
    {
        workers.run(lane);
        loop.runPosted();
    }

    void settle()
    {
        do
            loop.runPosted();
        while (workers.runAll() > 0);
    }

    std::vector<std::string> takeAnswers()
    {
        settle();
        return std::exchange(answers, {});
    }

    QString file(const char* suffix = "_ocr.json") const
    {
        return folder / ("A1B2C3D4-0000-4000-8000-000000000001" + QString(suffix));
    }

    QByteArray content() const
    {
        QFile f(file());
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }

    void write(const QByteArray& bytes)
    {
        QFile f(file());
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }

    void makeOld(const QDateTime& time) const
    {
        QFile text(file());
        ASSERT_TRUE(text.open(QIODevice::ReadWrite));
        text.setFileTime(time, QFileDevice::FileModificationTime);
    }

    // The memo lets go of a key when twelve others were remembered.
    void fillMemo()
    {
        for (size_t count = 0; count < CaptureOCRStore::memoSize; ++count)
            ask(true, {}, QUuid::createUuid());
        takeAnswers();
    }
};

using Answers = std::vector<std::string>;

} // namespace

TEST_F(CaptureOCRStoreTest, OneRecognitionAnswersEverybody)
{
    ask();
    ask();
    EXPECT_EQ(takeAnswers(), (Answers{"Hello", "Hello"}));
    ask(false);
    EXPECT_EQ(takeAnswers(), Answers{"Hello"});
    EXPECT_EQ(page.asked.size(), 1);
    EXPECT_THAT(log.lines(), Contains("com.kovrel.ocr: text " + logName + ": joining the read in flight"));
    EXPECT_THAT(log.lines(), Contains("com.kovrel.ocr: text " + logName + ": read 1 lines at 640x480, kept"));
    EXPECT_THAT(log.lines(), Contains("com.kovrel.ocr: text " + logName + ": kept, 1 lines"));
    EXPECT_EQ(content(), R"({"v":1,"text":{"w":640,"h":480,"corrected":true,"full":"Hello","oriented":false,)"
                         R"("lines":[{"t":"Hello","c":0.9,"b":[0.1,0.5,0.2,0.1],"cc":[1200,1600,2000,2400,2800]}]}})");
}

TEST_F(CaptureOCRStoreTest, ARawTextAnswersRawRequestsAndNeverReplacesACorrectedOne)
{
    ask(false);
    takeAnswers();
    ask(true);
    takeAnswers();
    EXPECT_EQ(page.asked.size(), 2);
    const QByteArray corrected = content();
    // A raw read that began before the corrected one was there ends after it.
    QFile::remove(file());
    store.invalidate(capture, {Kind::base});
    settle();
    ask(false);
    runLane(Lane::ocrFiles);
    write(corrected);
    takeAnswers();
    EXPECT_EQ(content(), corrected);
}

TEST_F(CaptureOCRStoreTest, FilesAnswerLikeTheMemoryAndBadOnesAreAbsent)
{
    struct Case {
        QByteArray content;
        const char* answer;
        size_t recognitions;
    };

    const QByteArray part = R"("w":1,"h":1,"corrected":true,"full":"Kept","oriented":false)";
    const Case cases[] = {
        {R"({"v":1,"text":{)" + part + R"(,"lines":[]}})", "Kept", 0},
        {R"({"v":7,"text":{)" + part + R"(,"lines":[{"t":"Kept","c":1,"b":[1,2,3],"q":[1],"cc":[]}]}})", "Kept", 0},
        {R"({"v":1,"text":{)" + part + R"(,"lines":[{"t":"Kept"}]}})", "Hello", 1},
        {R"({"v":1,"text":{)" + part + R"(,"lines":[)", "Hello", 1},
        {R"({"v":1,"text":{"w":1e300,"h":1,"corrected":true,"full":"Kept","oriented":false,"lines":[]}})", "Hello", 1},
        {R"({"v":1,"text":{)" + part + R"(,"lines":[{"t":"Kept","c":1,"b":[0,0,1,1],"cc":[1e99]}]}})", "Hello", 1},
        {"{\"v\":1,\"text\":{" + part + ",\"lines\":[],\"more\":\"\xff\"}}", "Hello", 1},
        {QByteArray(100000, '['), "Hello", 1},
        {R"({"v":1})", "Hello", 1},
        {R"([])", "Hello", 1},
        {"", "Hello", 1},
    };
    for (const Case& c : cases) {
        store.invalidate(capture, {Kind::base});
        settle();
        page.asked.clear();
        write(c.content);
        ask();
        EXPECT_EQ(takeAnswers(), Answers{c.answer}) << c.content.constData();
        EXPECT_EQ(page.asked.size(), c.recognitions) << c.content.constData();
    }
}

TEST_F(CaptureOCRStoreTest, TheVersionAndTheCodesOfAFileStay)
{
    const QByteArray codes = R"("qr":{"codes":[{"p":"x","b":[0.1,0.2,0.3,0.4]}],"complete":true})";
    write(R"({"v":7,)" + codes + "}");
    ask();
    takeAnswers();
    EXPECT_TRUE(content().startsWith(R"({"v":7,"text":{)"));
    EXPECT_TRUE(content().endsWith(QByteArray(codes + "}")));
    const QByteArray before = content();
    store.storeCodes({}, true, {capture, Kind::base}, store.token(capture));
    settle();
    EXPECT_EQ(content(), QByteArray(before).replace(codes, R"("qr":{"codes":[],"complete":true})"));
    EXPECT_EQ(log.lines().last(), "com.kovrel.ocr: codes " + logName + ": kept, 0 codes");
}

TEST_F(CaptureOCRStoreTest, TwelveKeysAreRemembered)
{
    ask();
    takeAnswers();
    QFile::remove(file());
    ask();
    EXPECT_EQ(takeAnswers(), Answers{"Hello"});
    EXPECT_EQ(page.asked.size(), 1);
    fillMemo();
    page.asked.clear();
    ask();
    EXPECT_EQ(takeAnswers(), Answers{"Hello"});
    EXPECT_EQ(page.asked.size(), 1);
}

TEST_F(CaptureOCRStoreTest, AnImageThatChangesMeanwhileIsReadButNotKept)
{
    for (const auto& change : std::vector<std::function<void()>>{
             [this] { store.invalidate(capture, {Kind::base}); },
             [this] { store.forget(capture); },
             [this] { status = Status::pending; },
         }) {
        status = Status::recorded;
        page.asked.clear();
        ask();
        runLane(Lane::ocrFiles);
        change();
        EXPECT_EQ(takeAnswers(), Answers{"Hello"});
        EXPECT_FALSE(QFile::exists(file()));
        ask();
        takeAnswers();
        EXPECT_EQ(page.asked.size(), 2);
        store.invalidate(capture, {Kind::base});
        settle();
    }
    EXPECT_THAT(log.lines(),
                Contains("com.kovrel.ocr: text " + logName + ": read 1 lines at 640x480, not kept").Times(4));
}

TEST_F(CaptureOCRStoreTest, WhoAsksAfterAChangeGetsTheNewImage)
{
    ask();
    runLane(Lane::ocrFiles);
    store.invalidate(capture, {Kind::base});
    ask();
    EXPECT_EQ(takeAnswers(), (Answers{"Hello", "Hello"}));
    EXPECT_EQ(page.asked.size(), 2);
    EXPECT_TRUE(QFile::exists(file()));
}

TEST_F(CaptureOCRStoreTest, OnlyARawReadEndsWithItsLastAsker)
{
    for (const bool corrected : {false, true}) {
        std::stop_source first;
        std::stop_source second;
        ask(corrected, first.get_token());
        ask(corrected, second.get_token());
        runLane(Lane::ocrFiles);
        first.request_stop();
        EXPECT_THAT(std::exchange(answers, {}), Answers{"left"});
        second.request_stop();
        EXPECT_EQ(takeAnswers(), Answers{"left"});
        EXPECT_EQ(QFile::exists(file()), corrected);
        EXPECT_THAT(log.lines(),
                    Contains("com.kovrel.ocr: text " + logName + ": raw read cancelled with its last asker"));
    }
    EXPECT_EQ(page.asked.size(), 1); // the raw one was not begun
}

TEST_F(CaptureOCRStoreTest, WhoStaysGetsTheTextWhenTheOtherLeaves)
{
    for (const bool corrected : {false, true}) {
        std::stop_source leaving;
        ask(corrected, leaving.get_token());
        ask(corrected);
        runLane(Lane::ocrFiles);
        leaving.request_stop();
        EXPECT_EQ(takeAnswers(), (Answers{"left", "Hello"}));
    }
}

TEST_F(CaptureOCRStoreTest, AnotherCapturesFileAnswersNothing)
{
    ask();
    takeAnswers();
    page.outcome = std::vector{FakeTextRecogniser::line("Other", {0.1, 0.5, 0.2, 0.1})};
    ask(true, {}, QUuid("{a1b2c3d4-0000-4000-8000-000000000002}"));
    EXPECT_EQ(takeAnswers(), Answers{"Other"});
}

TEST_F(CaptureOCRStoreTest, FailuresReachEveryAskerAndTheNextOneTriesAgain)
{
    hasPixels = false;
    ask();
    ask();
    EXPECT_EQ(takeAnswers(), (Answers{"no pixels", "no pixels"}));
    hasPixels = true;
    const auto good = std::exchange(page.outcome, std::unexpected(TextRecogniser::Failure{"no models"}));
    ask();
    ask();
    EXPECT_EQ(takeAnswers(), (Answers{"error: no models", "error: no models"}));
    page.outcome = good;
    ask();
    EXPECT_EQ(takeAnswers(), Answers{"Hello"});
}

TEST_F(CaptureOCRStoreTest, WhatWasReadElsewhereIsNotReadAgain)
{
    const OCRResult text{.fullText = "Read", .lines = {{.text = "Read", .confidence = 1}}};
    const QRCode code{"a code", {0, 0, 0.5, 0.5}};
    const Key key{capture, Kind::base};

    const struct {
        Status status;
        std::function<void()> then;
        const char* answer;
        bool hasFile;
    } cases[] = {
        {Status::recorded, [] {}, "Read", true},
        {Status::pending, [] {}, "Read", false},
        {Status::pending, [this] { store.recorded(capture); }, "Read", true},
        {Status::pending, [this] { fillMemo(); }, "Read", false},
        {Status::pending,
         [this] {
             store.forget(capture);
             store.recorded(capture);
         },
         "Hello", false},
        {Status::recorded, [this] { store.invalidate(capture, {Kind::base}); }, "Hello", true},
        {Status::none, [] {}, "Hello", false},
    };

    for (const auto& one : cases) {
        status = one.status;
        store.storeReading(text, {code}, {10, 10}, key);
        one.then();
        settle();
        ask();
        EXPECT_EQ(takeAnswers(), Answers{one.answer}) << &one - cases;
        EXPECT_EQ(QFile::exists(file()), one.hasFile) << &one - cases;
        EXPECT_EQ(one.answer == std::string("Read"), lastText.lines.back().isQRCode) << &one - cases;
        store.forget(capture);
        settle();
    }
}

TEST_F(CaptureOCRStoreTest, AFileThatCannotBeWrittenLeavesTheMemory)
{
    QDir().mkpath(file());
    ask();
    takeAnswers();
    ask();
    EXPECT_EQ(takeAnswers(), Answers{"Hello"});
    EXPECT_EQ(page.asked.size(), 1);
}

TEST_F(CaptureOCRStoreTest, WhatCodesSayIsPartOfTheTextAndStoredApart)
{
    ask();
    takeAnswers();
    const QByteArray text = content().chopped(1);
    store.storeCodes({{"https://a.example", {0.5, 0.5, 0.1, 0.1}}}, false, {capture, Kind::base}, 0);
    settle();
    EXPECT_TRUE(content().startsWith(text)) << "the text's part stays as it was";
    for (const bool isRemembered : {true, false}) {
        if (!isRemembered)
            fillMemo();
        ask();
        takeAnswers();
        ASSERT_EQ(lastText.lines.size(), 2u);
        EXPECT_FALSE(lastText.lines[0].isQRCode);
        EXPECT_TRUE(lastText.lines[1].isQRCode);
        EXPECT_EQ(lastText.lines[1].text, "https://a.example");
        EXPECT_EQ(lastText.fullText, "Hello");
    }
    std::optional<OCRFile::QRPart> codes;
    Scope::start(
        [](CaptureOCRStore& store, std::optional<OCRFile::QRPart>& codes) -> QCoro::Task<> {
            codes = co_await store.codes({capture, Kind::base});
        }(store, codes),
        "a test's question");
    settle();
    ASSERT_TRUE(codes);
    EXPECT_FALSE(codes->complete);
}

TEST_F(CaptureOCRStoreTest, ReadingInTheBackgroundLeavesTheMemoryToOthers)
{
    ask();
    takeAnswers();
    for (size_t count = 0; count <= CaptureOCRStore::memoSize; ++count)
        askInBackground(QUuid::createUuid());
    takeAnswers();
    QFile::remove(file());
    page.asked.clear();
    ask();
    EXPECT_EQ(takeAnswers(), Answers{"Hello"});
    EXPECT_EQ(page.asked.size(), 0);
}

TEST_F(CaptureOCRStoreTest, WhoJoinsRaisesTheUrgency)
{
    askInBackground();
    runLane(Lane::ocrFiles);
    ask();
    runLane(Lane::ocrFiles);
    EXPECT_EQ(takeAnswers(), (Answers{"Hello", "Hello"}));
    ASSERT_EQ(page.asked.size(), 1);
    EXPECT_TRUE(page.asked.front().mayHurry);
}

TEST_F(CaptureOCRStoreTest, ReadingInTheBackgroundEndsWithItsLastAsker)
{
    std::stop_source stop;
    askInBackground(capture, stop.get_token());
    runLane(Lane::ocrFiles);
    stop.request_stop();
    EXPECT_EQ(takeAnswers(), Answers{"left"});
    EXPECT_EQ(page.asked.size(), 0);
}

TEST_F(CaptureOCRStoreTest, AWriteThatWaitsDoesNotBringADeletedTextBack)
{
    ask();
    runLane(Lane::ocrFiles);
    runLane(Lane::visionOCR);
    store.forget(capture);
    settle();
    EXPECT_FALSE(QFile::exists(file()));
}

TEST_F(CaptureOCRStoreTest, AFileThatWasReadTooEarlyAnswersNothing)
{
    write(R"({"v":1,"text":{"w":1,"h":1,"corrected":true,"full":"Old","oriented":false,"lines":[]}})");
    ask();
    workers.run(Lane::ocrFiles);
    store.invalidate(capture, {Kind::base});
    EXPECT_EQ(takeAnswers(), Answers{"Hello"});
}

TEST_F(CaptureOCRStoreTest, ATextIsReadAgainWithNewModels)
{
    ask();
    takeAnswers();
    const QDateTime past = QDateTime::currentDateTime().addSecs(-3600);
    makeOld(past);
    store.storeCodes({}, true, {capture, Kind::base}, 0);
    for (const auto& [changed, recognitions] : {std::pair(past.addSecs(-60), 0u), {past.addSecs(60), 1u}}) {
        store.setModelsChanged(changed);
        page.asked.clear();
        ask();
        EXPECT_EQ(takeAnswers(), Answers{"Hello"});
        EXPECT_EQ(page.asked.size(), recognitions);
    }
}

TEST_F(CaptureOCRStoreTest, WhatIsReadAgainAsBeforeIsNotReadOnceMore)
{
    page.outcome = {};
    ask();
    takeAnswers();
    const QDateTime past = QDateTime::currentDateTime().addSecs(-3600);
    makeOld(past);
    for (const size_t recognitions : {1u, 0u}) {
        store.setModelsChanged(past.addSecs(60));
        page.asked.clear();
        ask();
        EXPECT_EQ(takeAnswers(), Answers{""});
        EXPECT_EQ(page.asked.size(), recognitions);
    }
}

TEST_F(CaptureOCRStoreTest, TheFilesOfACapture)
{
    EXPECT_EQ(CaptureOCRStore::sidecarURLs(capture, folder / ""),
              (QStringList{file("_ocr.json"), file("_edited_ocr.json")}));
}

} // namespace Kovrel
