// ocr_store: asking for the text of a capture again, after the store has let go of it, against a bare read and parse of
// its file. Ends with 1 when a bound is missed.

#include "bench/Samples.h"
#include "platform/files/AtomicFile.h"
#include "recognition/CaptureOCRStore.h"
#include "tests/support/FakeMainLoop.h"
#include "tests/support/FakeWorkers.h"
#include "tests/support/TempFolder.h"

#include <QFile>

#include <nlohmann/json.hpp>

#include <cstdio>

using namespace Kovrel;

namespace {

constexpr double bound = 2; // of a bare read and parse
constexpr int rounds = 31;

// The text of a capture as the recogniser gives it: so many lines of forty characters.
OCRFile textOf(int lines)
{
    OCRFile file;
    OCRFile::TextPart& part = file.text.emplace(OCRFile::TextPart{{1920, 1080}, true, {}});
    for (int line = 0; line < lines; ++line) {
        OCRLine one{.text = "The quick brown fox jumps over lazy dogs", .confidence = 0.93f};
        one.boundingBox = {0.1, 1 - (line + 1.0) / lines, 0.4, 0.7 / lines};
        for (int character = 0; character < one.text.size(); ++character)
            one.characterCenters.push_back(0.1 + character * 0.01);
        part.result.fullText += one.text + '\n';
        part.result.lines.push_back(std::move(one));
    }
    return file;
}

// The store, with work that is done at once when it is waited for.
struct Asking {
    Testing::FakeMainLoop loop;
    Testing::FakeWorkers workers;
    Testing::TempFolder folder;
    CaptureOCRStore store{
        loop, workers, folder / "", [](QUuid) { return CaptureOCRStore::Status::recorded; },
        [](QImage, QualityOfService, bool, std::stop_token) -> QCoro::Task<OCROutcome> { co_return OCRResult{}; }};
    qsizetype characters = 0;

    QCoro::Task<> ask(QUuid id)
    {
        const OCROutcome text = co_await store.text({id, CaptureOCRStore::Kind::base}, QualityOfService::userInitiated,
                                                    true, []() -> QCoro::Task<QImage> { co_return QImage(); });
        characters += text->fullText.size();
    }

    void askAndWait(QUuid id)
    {
        Scope::start(ask(id), "a question");
        while (workers.run(Lane::ocrFiles) > 0)
            loop.runPosted();
    }
};

// The same file read and parsed, nothing more.
qsizetype readBare(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray bytes = file.readAll();
    const auto json = nlohmann::ordered_json::parse(bytes.begin(), bytes.end());
    return qsizetype(json["text"]["full"].get_ref<const std::string&>().size());
}

bool compare(int lines)
{
    Asking asking;
    std::vector<QUuid> captures; // more than the store remembers
    for (size_t capture = 0; capture <= CaptureOCRStore::memoSize; ++capture) {
        captures.push_back(QUuid::createUuid());
        const QString path = CaptureOCRStore::sidecarURLs(captures.back(), asking.folder / "").front();
        if (!AtomicFile::write(path, textOf(lines).encoded(), AtomicFile::Access::onlyOwner))
            return false;
    }
    Bench::Samples store;
    Bench::Samples bare;
    qsizetype bareCharacters = 0;
    for (int round = 0; round < rounds; ++round) {
        const QUuid id = captures[size_t(round) % captures.size()];
        store.add(Bench::milliseconds([&] { asking.askAndWait(id); }));
        const QString path = CaptureOCRStore::sidecarURLs(id, asking.folder / "").front();
        bare.add(Bench::milliseconds([&] { bareCharacters += readBare(path); }));
    }
    const double ratio = store.median() / bare.median();
    const bool isRight = asking.characters == bareCharacters && bareCharacters > 0;
    std::printf("%6d lines %10.3f ms %10.3f ms  ratio %.2f, at most %.2f%s\n", lines, store.median(), bare.median(),
                ratio, bound, isRight ? "" : "  WRONG TEXT");
    return isRight && ratio <= bound;
}

} // namespace

int main()
{
    std::printf("%12s %13s %13s\n", "", "store", "bare");
    bool isGood = true;
    for (const int lines : {1, 40, 400, 2000})
        isGood &= compare(lines);
    return isGood ? 0 : 1;
}
