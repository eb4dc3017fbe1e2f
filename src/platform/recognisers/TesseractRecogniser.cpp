#include "platform/recognisers/TesseractRecogniser.h"

#include "platform/recognisers/InkPage.h"
#include "platform/recognisers/LanguageData.h"
#include "platform/recognisers/PageDivision.h"
#include "platform/recognisers/PageRules.h"
#include "platform/recognisers/ReadingSense.h"
#include "platform/recognisers/TextDirection.h"
#include "platform/recognisers/TextLines.h"

#include <QCoreApplication>
#include <QPainter>
#include <QTransform>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <functional>
#include <future>
#include <malloc.h>
#include <numeric>

namespace Kovrel {

namespace {

constexpr double wantedLetterHeight = 24; // of small letters, in pixels: what the models read best
constexpr double largestScale = 2;
constexpr double mostPixels = 60e6;         // of a page that is read
constexpr int longestSide = 30000;          // the library counts in 16 bits
constexpr double lineMargin = 0.3;          // letter heights around a line
constexpr uchar blankGround = 245;          // grey levels
constexpr float doubtfulConfidence = 0.75f; // a page read with less may stand on its head
constexpr qsizetype tellingLength = 4;
constexpr size_t sampleSize = 5; // lines that tell whether it does

using Run = TesseractEngine::Run;

Point normalised(QPointF pixel, QSize picture)
{
    return {pixel.x() / picture.width(), 1 - pixel.y() / picture.height()};
}

Rect normalised(const QRectF& box, QSize picture)
{
    const Point corner = normalised(box.bottomLeft(), picture);
    return {corner.x, corner.y, box.width() / picture.width(), box.height() / picture.height()};
}

TextRecogniser::Observation observation(const Run& run, const QTransform& toPicture, QSize picture)
{
    TextRecogniser::Candidate candidate{run.text, run.confidence, {}};
    for (const auto& box : run.characterBoxes)
        candidate.characterBoxes.push_back(box ? std::optional(normalised(toPicture.mapRect(*box), picture))
                                               : std::nullopt);
    return {normalised(toPicture.map(run.box.bottomLeft()), picture),
            normalised(toPicture.map(run.box.bottomRight()), picture),
            normalised(toPicture.map(run.box.topLeft()), picture),
            normalised(toPicture.mapRect(run.box), picture),
            {std::move(candidate)}};
}

// An area of a page under a transform, on white.
QImage transformed(const QImage& ink, const QRect& area, const QTransform& transform, QSize size)
{
    QImage result(size, QImage::Format_RGB32);
    result.fill(Qt::white);
    QPainter painter(&result);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setTransform(transform);
    painter.drawImage(area.topLeft(), ink, area);
    painter.end();
    return result.convertToFormat(QImage::Format_Grayscale8);
}

// The factor by which a picture can be enlarged.
double roomFor(QSize picture)
{
    const double pixels = double(picture.width()) * picture.height();
    return std::min(std::sqrt(mostPixels / pixels), double(longestSide) / std::max(picture.width(), picture.height()));
}

double scaleFor(int letterHeight, QSize picture)
{
    return std::min({wantedLetterHeight / letterHeight, largestScale, roomFor(picture)});
}

double blankShare(const QImage& page, const QRect& box)
{
    const QRect area = box & page.rect();
    qsizetype blank = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        blank += std::count_if(page.constScanLine(y) + area.left(), page.constScanLine(y) + area.right() + 1,
                               [](uchar pixel) { return pixel >= blankGround; });
    return double(blank) / std::max(1.0, double(area.width()) * area.height());
}

// What one line says, in pixels of its page.
std::optional<Run> read(TesseractEngine& engine, const QImage& page, const TextLines::Line& line)
{
    const int margin = std::max(1, int(std::lround(line.letterHeight * lineMargin)));
    const QRect area = line.room.adjusted(-margin, -margin, margin, margin);
    const double scale = scaleFor(line.letterHeight, area.size());
    const QTransform toLine =
        QTransform::fromTranslate(-area.left(), -area.top()) * QTransform::fromScale(scale, scale);
    const QSize size = (QSizeF(area.size()) * scale).toSize().expandedTo({1, 1});
    std::optional<Run> run = engine.read(transformed(page, area & page.rect(), toLine, size));
    if (!run || !ReadingSense::isText(run->text, run->confidence, blankShare(page, line.box)))
        return std::nullopt;
    const auto onPage = [&, back = toLine.inverted()](const QRectF& box) {
        const QRectF wide = back.mapRect(box);
        return QRectF(wide.left(), line.box.top(), wide.width(), line.box.height());
    };
    run->box = onPage(run->box);
    for (auto& box : run->characterBoxes)
        if (box)
            box = onPage(*box);
    return run;
}

// The second run stands to the right of the first one.
void append(Run& run, Run next)
{
    if (run.text.isRightToLeft() && next.text.isRightToLeft())
        std::swap(run, next);
    const auto length = float(run.text.size());
    const auto nextLength = float(next.text.size());
    run.confidence = (run.confidence * length + next.confidence * nextLength) / (length + nextLength);
    const bool areBoxesKnown = !run.characterBoxes.empty() && !next.characterBoxes.empty();
    run.text += ' ' + next.text;
    run.box |= next.box;
    run.characterBoxes.push_back(std::nullopt);
    std::ranges::move(next.characterBoxes, std::back_inserter(run.characterBoxes));
    if (!areBoxesKnown)
        run.characterBoxes.clear();
}

// Of a text, long runs counting more. Single letters look like letters on their heads, too, and don't count.
float confidenceIn(const std::vector<Run>& runs)
{
    float sum = 0;
    float weight = 0;
    for (const Run& run : runs) {
        if (run.text.size() < tellingLength)
            continue;
        sum += run.confidence * float(run.text.size());
        weight += float(run.text.size());
    }
    return weight > 0 ? sum / weight : 0;
}

} // namespace

// A page to be read: upright text, dark on white.
struct TesseractRecogniser::Page {
    QImage ink;
    QTransform toPicture;
    std::vector<TextLines::Line> lines; // in the order in which a book is read

    static Page of(const QImage& picture)
    {
        Page page;
        const double shrink = std::min(1.0, roomFor(picture.size()));
        const QImage small = shrink == 1 ? picture
                                         : picture.scaled((QSizeF(picture.size()) * shrink).toSize().expandedTo({1, 1}),
                                                          Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        page.ink = InkPage::from(small);
        page.toPicture =
            QTransform::fromScale(double(picture.width()) / small.width(), double(picture.height()) / small.height());
        page.makeUpright();
        return page;
    }

    // Turned by half a turn.
    Page reversed() const
    {
        Page page = *this;
        page.turn(180, 1);
        page.findLines(InkPage::blobs(page.ink));
        return page;
    }

    // The same with its widest lines only, each by itself.
    Page sample() const
    {
        Page page = *this;
        std::ranges::sort(page.lines, std::greater(), [](const auto& line) { return line.box.width(); });
        page.lines.resize(std::min(page.lines.size(), sampleSize));
        for (TextLines::Line& line : page.lines)
            line.continues = false;
        return page;
    }

private:
    void makeUpright()
    {
        const auto blobs = InkPage::blobs(ink);
        const int letterHeight = InkPage::letterHeight(blobs);
        if (letterHeight == 0)
            return;
        double enlargement = 1;
        if (const double angle = TextDirection::of(blobs, letterHeight); angle != 0) {
            enlargement = std::max(1.0, scaleFor(letterHeight, ink.size()));
            turn(-angle, enlargement);
        }
        ink = PageRules::without(std::move(ink), int(std::lround(letterHeight * enlargement)));
        findLines(InkPage::blobs(ink));
    }

    void findLines(const std::vector<QRect>& blobs)
    {
        const int letterHeight = InkPage::letterHeight(blobs);
        lines.clear();
        for (const auto& part : PageDivision::parts(blobs, letterHeight))
            std::ranges::move(TextLines::of(part, letterHeight), std::back_inserter(lines));
    }

    void turn(double degrees, double enlargement)
    {
        QTransform rotation;
        rotation.scale(enlargement, enlargement);
        rotation.rotate(degrees);
        const QRectF bounds = rotation.mapRect(QRectF(ink.rect()));
        const QTransform transform = rotation * QTransform::fromTranslate(-bounds.left(), -bounds.top());
        ink = transformed(ink, ink.rect(), transform, bounds.size().toSize());
        toPicture = transform.inverted() * toPicture;
    }
};

// The engines take one line after the other, the longest first, so that they finish together.
std::vector<Run> TesseractRecogniser::readPage(const Page& page, const Request& request)
{
    std::vector<size_t> order(page.lines.size());
    std::iota(order.begin(), order.end(), size_t(0));
    std::ranges::sort(order, std::greater(), [&](size_t line) {
        return double(page.lines[line].room.width()) / page.lines[line].room.height();
    });
    std::vector<std::optional<Run>> found(page.lines.size());
    std::atomic<size_t> next = 0;
    std::atomic<size_t> done = 0;
    const auto work = [&](TesseractEngine& engine) {
        for (size_t place = next++; place < order.size() && !request.stop.stop_requested(); place = next++) {
            found[order[place]] = read(engine, page.ink, page.lines[order[place]]);
            if (request.progress)
                request.progress(double(++done) / double(order.size()));
        }
    };
    std::vector<std::future<void>> others;
    const size_t threads = request.mayHurry ? std::min(m_engines.size(), page.lines.size()) : 1;
    for (size_t other = 1; other < threads; ++other)
        others.push_back(std::async(std::launch::async, work, std::ref(*m_engines[other])));
    work(*m_engines.front());
    for (auto& other : others)
        other.get();
    std::vector<Run> runs;
    for (size_t line = 0; line < found.size(); ++line) {
        std::optional<Run>& run = found[line];
        if (!run)
            continue;
        if (page.lines[line].continues && found[line - 1])
            append(runs.back(), std::move(*run));
        else
            runs.push_back(std::move(*run));
    }
    return runs;
}

std::optional<TextRecogniser::Failure> TesseractRecogniser::prepareEngines(const Request& request, size_t count)
{
    const TesseractEngine::Kind kind{LanguageData::chosen(request.languages), request.correctsLanguage,
                                     request.customWords};
    if (kind.models.isEmpty())
        return Failure{QCoreApplication::translate("TesseractRecogniser",
                                                   "Install the package tesseract-ocr-eng, or that of another "
                                                   "language: there is no language data for text recognition."),
                       Failure::Reason::notInstalled};
    if (kind != m_kind)
        m_engines.clear();
    m_kind = kind;
    while (m_engines.size() < count) {
        auto engine = TesseractEngine::make(kind);
        if (!engine)
            return Failure{engine.error()};
        m_engines.push_back(std::move(*engine));
    }
    return std::nullopt;
}

TextRecogniser::Outcome TesseractRecogniser::recognise(const QImage& picture, const Request& request)
{
    if (picture.isNull())
        return std::unexpected(
            Failure{QCoreApplication::translate("TesseractRecogniser", "There is no picture to read."),
                    Failure::Reason::noPicture});
    Page page = Page::of(picture);
    if (const auto failure = prepareEngines(request, request.mayHurry && page.lines.size() > 1 ? threadCount : 1))
        return std::unexpected(*failure);
    std::vector<Run> runs = readPage(page, request);
    if (!page.lines.empty() && confidenceIn(runs) < doubtfulConfidence) {
        const Page reversed = page.reversed();
        if (confidenceIn(readPage(reversed.sample(), request)) > confidenceIn(runs)) {
            runs = readPage(reversed, request);
            page = reversed;
        }
    }
    if (request.stop.stop_requested())
        return std::unexpected(Failure{"The recognition was cancelled.", Failure::Reason::cancelled});
    std::vector<Observation> observations;
    observations.reserve(runs.size());
    for (const Run& run : runs)
        observations.push_back(observation(run, page.toPicture, picture.size()));
    return observations;
}

QStringList TesseractRecogniser::installedLanguages()
{
    return LanguageData::installed();
}

QDateTime TesseractRecogniser::modelsChanged(const QStringList& languages)
{
    return LanguageData::changed(languages);
}

// The models are made of small pieces, which the allocator would keep: 80 MB of a program of 36, instead of 46.
void TesseractRecogniser::releaseMemory()
{
    m_engines.clear();
    ::malloc_trim(0);
}

} // namespace Kovrel

extern "C" Q_DECL_EXPORT Kovrel::TextRecogniser* kovrelMakeTextRecogniser()
{
    return new Kovrel::TesseractRecogniser;
}
