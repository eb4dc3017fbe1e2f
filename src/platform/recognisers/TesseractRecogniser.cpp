#include "platform/recognisers/TesseractRecogniser.h"

#include "platform/recognisers/InkPage.h"
#include "platform/recognisers/LanguageData.h"
#include "platform/recognisers/PageDivision.h"
#include "platform/recognisers/TextDirection.h"

#include <QPainter>
#include <QTransform>

#include <atomic>
#include <cmath>
#include <numeric>
#include <thread>

namespace Kovrel {

namespace {

const double wantedLetterHeight =
    qEnvironmentVariable("HCLH", "20").toDouble(); // TMP// of small letters, in pixels: what the models read best
constexpr double largestScale = 2;
constexpr double mostPixels = 60e6;         // of a page that is read
constexpr int longestSide = 30000;          // the library counts in 16 bits
constexpr int margin = 12;                  // white around a part, in pixels
constexpr float doubtfulConfidence = 0.6f; // a page read with less may stand on its head

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

// The page under a transform, on white.
QImage transformed(const QImage& ink, const QTransform& transform, QSize size)
{
    QImage result(size, QImage::Format_RGB32);
    result.fill(Qt::white);
    QPainter painter(&result);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setTransform(transform);
    painter.drawImage(QPoint(), ink);
    painter.end();
    return result.convertToFormat(QImage::Format_Grayscale8);
}

} // namespace

// A page to be read: upright text, dark on white.
struct TesseractRecogniser::Page {
    QImage ink;
    QTransform toPicture;
    double scale = 1; // by which parts are enlarged
    std::vector<QRect> parts;

    static Page of(const QImage& picture)
    {
        Page page;
        const double pixels = double(picture.width()) * picture.height();
        const double shrink = std::min(
            {1.0, std::sqrt(mostPixels / pixels), double(longestSide) / std::max(picture.width(), picture.height())});
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
        page.divide(InkPage::blobs(page.ink));
        return page;
    }

private:
    void makeUpright()
    {
        auto blobs = InkPage::blobs(ink);
        const int letterHeight = InkPage::letterHeight(blobs);
        if (letterHeight == 0) {
            if (!blobs.empty())
                parts = {ink.rect()};
            return;
        }
        scale = scaleFor(letterHeight);
        if (const double angle = TextDirection::of(blobs, letterHeight); angle != 0) {
            turn(-angle, scale);
            scale = 1;
            blobs = InkPage::blobs(ink);
        }
        divide(blobs);
    }

    void divide(const std::vector<QRect>& blobs)
    {
        parts = PageDivision::parts(ink.size(), blobs, InkPage::letterHeight(blobs));
    }

    double scaleFor(int letterHeight) const
    {
        const double pixels = double(ink.width()) * ink.height();
        const double room =
            std::min(std::sqrt(mostPixels / pixels), double(longestSide) / std::max(ink.width(), ink.height()));
        return std::max(1.0, std::min({wantedLetterHeight / letterHeight, largestScale, room}));
    }

    void turn(double degrees, double enlargement)
    {
        QTransform rotation;
        rotation.scale(enlargement, enlargement);
        rotation.rotate(degrees);
        const QRectF bounds = rotation.mapRect(QRectF(ink.rect()));
        const QTransform transform = rotation * QTransform::fromTranslate(-bounds.left(), -bounds.top());
        ink = transformed(ink, transform, bounds.size().toSize());
        toPicture = transform.inverted() * toPicture;
    }
};

// What was read of a page, in its pixels.
struct TesseractRecogniser::Reading {
    std::vector<Run> runs;

    // Of the text, long runs counting more.
    float confidence() const
    {
        float sum = 0;
        float weight = 0;
        for (const Run& run : runs) {
            sum += run.confidence * float(run.text.size());
            weight += float(run.text.size());
        }
        return weight > 0 ? sum / weight : 0;
    }
};

TesseractRecogniser::Reading TesseractRecogniser::readPage(const Page& page, const std::stop_token& stop)
{
    std::vector<std::vector<Run>> runs(page.parts.size());
    std::atomic<size_t> next = 0;
    const auto work = [&](TesseractEngine& engine) {
        for (size_t part = next++; part < page.parts.size() && !stop.stop_requested(); part = next++) {
            const QRect area = page.parts[part];
            const QTransform toPart =
                QTransform::fromScale(page.scale, page.scale) * QTransform::fromTranslate(margin, margin);
            const QSize size = (QSizeF(area.size()) * page.scale).toSize() + QSize(2 * margin, 2 * margin);
            const QImage ink = transformed(page.ink.copy(area), toPart, size);
            runs[part] = engine.read(ink, stop);
            const QTransform back = toPart.inverted() * QTransform::fromTranslate(area.left(), area.top());
            for (Run& run : runs[part]) {
                run.box = back.mapRect(run.box);
                for (auto& box : run.characterBoxes)
                    if (box)
                        box = back.mapRect(*box);
            }
        }
    };
    {
        std::vector<std::jthread> threads;
        for (size_t thread = 1; thread < std::min(m_engines.size(), page.parts.size()); ++thread)
            threads.emplace_back([&work, engine = m_engines[thread].get()] { work(*engine); });
        work(*m_engines.front());
    }
    Reading reading;
    for (auto& part : runs)
        std::ranges::move(part, std::back_inserter(reading.runs));
    return reading;
}

std::optional<TextRecogniser::Failure> TesseractRecogniser::prepareEngines(const Request& request, size_t count)
{
    const TesseractEngine::Kind kind{LanguageData::chosen(request.languages), request.correctsLanguage,
                                     request.customWords};
    if (kind.models.isEmpty())
        return Failure{"There is no language data for text recognition; install the package tesseract-ocr-eng or that "
                       "of another language."};
    if (kind != m_kind)
        m_engines.clear();
    m_kind = kind;
    while (m_engines.size() < std::min(count, threadCount)) {
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
        return std::unexpected(Failure{"There is no picture to read."});
    Page page = Page::of(picture);
    if (const auto failure = prepareEngines(request, std::max<size_t>(page.parts.size(), 1)))
        return std::unexpected(*failure);
    Reading reading = readPage(page, request.stop);
    if (!reading.runs.empty() && reading.confidence() < doubtfulConfidence && !request.stop.stop_requested()) {
        const Page reversed = page.reversed();
        if (Reading other = readPage(reversed, request.stop); other.confidence() > reading.confidence()) {
            reading = std::move(other);
            page = reversed;
        }
    }
    if (request.stop.stop_requested())
        return std::unexpected(Failure{"The recognition was cancelled.", true});
    std::vector<Observation> observations;
    for (const Run& run : reading.runs)
        observations.push_back(observation(run, page.toPicture, picture.size()));
    return observations;
}

} // namespace Kovrel

extern "C" Q_DECL_EXPORT Kovrel::TextRecogniser* kovrelMakeTextRecogniser()
{
    return new Kovrel::TesseractRecogniser;
}
