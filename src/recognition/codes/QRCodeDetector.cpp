#include "recognition/codes/QRCodeDetector.h"

#include "platform/Guarded.h"
#include "recognition/codes/GreyPicture.h"
#include "recognition/codes/RegionSearch.h"
#include "recognition/text/TextLayout.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <atomic>
#include <future>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.codes")

using Engine = CodeReader::Engine;

double area(const QRectF& box)
{
    return box.width() * box.height();
}

bool isSame(const CodeReader::Code& one, const CodeReader::Code& other)
{
    return one.payload == other.payload && area(one.box & other.box) >= std::min(area(one.box), area(other.box)) / 2;
}

// All regions of a picture, on two threads. Each takes the next one that is left.
class Search {
public:
    Search(QImage grey, std::vector<CodeRegions::Region> regions, Engine engine, const CodeReader& reader)
        : m_grey(std::move(grey)),
          m_regions(std::move(regions)),
          m_found(m_regions.size()),
          m_engine(engine),
          m_reader(reader)
    {
    }

    CodeReader::Outcome run()
    {
        if (m_regions.size() > 1) {
            auto second = std::async(std::launch::async, [this] { takeRegions(); });
            takeRegions();
            second.get();
        } else {
            takeRegions();
        }
        return merged();
    }

private:
    void takeRegions()
    {
        for (size_t i = m_next++; i < m_regions.size(); i = m_next++)
            m_found[i] = RegionSearch(m_reader, m_engine).run(m_grey, m_regions[i]);
    }

    CodeReader::Outcome merged() const
    {
        std::vector<CodeReader::Code> codes;
        for (const CodeReader::Outcome& found : m_found) {
            if (!found)
                return found;
            for (const CodeReader::Code& code : *found)
                if (std::ranges::none_of(codes, [&](const auto& known) { return isSame(known, code); }))
                    codes.push_back(code);
        }
        return codes;
    }

    QImage m_grey;
    std::vector<CodeRegions::Region> m_regions;
    std::vector<CodeReader::Outcome> m_found; // for each region
    std::atomic<size_t> m_next = 0;
    Engine m_engine;
    const CodeReader& m_reader;
};

CodeReader::Outcome search(const QImage& grey, bool fullPass, bool tilePass, std::optional<Engine> engine,
                           const CodeReader& reader)
{
    const auto regions = CodeRegions::regions(grey.size(), fullPass, tilePass);
    const auto found = Search(grey, regions, engine.value_or(Engine::zxing), reader).run();
    if (engine || !found || !found->empty() || !RegionSearch::isSmall(grey))
        return found;
    return Search(grey, regions, Engine::zbar, reader).run();
}

QRCode normalized(const CodeReader::Code& code, QSize size)
{
    const QRectF& box = code.box;
    return {code.payload,
            {box.left() / size.width(), 1 - box.bottom() / size.height(), box.width() / size.width(),
             box.height() / size.height()}};
}

std::vector<QRCode> inReadingOrder(const std::vector<CodeReader::Code>& codes, QSize size)
{
    std::vector<TextFragment> fragments;
    for (const CodeReader::Code& code : codes)
        fragments.push_back({.text = code.payload,
                             .box = {code.box.left(), -code.box.bottom(), code.box.width(), code.box.height()},
                             .sourceIndex = int(fragments.size()),
                             .isQRCode = true});
    TextLayout::emit(fragments);
    std::vector<QRCode> ordered;
    for (const TextFragment& fragment : fragments)
        ordered.push_back(normalized(codes[size_t(fragment.sourceIndex)], size));
    return ordered;
}

} // namespace

QRCodeDetector::QRCodeDetector(MainLoop& loop, Workers& workers, const CodeReader& reader)
    : m_workers(workers), m_reader(reader), m_scope(loop, workers)
{
}

QCoro::Task<QRCodeDetector::Outcome> QRCodeDetector::detect(QImage image, bool fullPass, bool tilePass,
                                                            std::optional<Engine> engine, Lane lane)
{
    auto job = Guarded::orReason(
        [=, reader = &m_reader] { return detectCodesSync(image, fullPass, tilePass, engine, *reader); });
    Outcome outcome = co_await m_scope.onWorker(lane, std::move(job));
    co_return outcome;
}

QCoro::Task<QRCodeDetector::Outcome> QRCodeDetector::detectCodes(QImage image)
{
    return detect(std::move(image), true, true, std::nullopt, Lane::codes);
}

QCoro::Task<QRCodeDetector::Outcome> QRCodeDetector::detectCodesFullImage(QImage image)
{
    return detect(std::move(image), true, false, std::nullopt, Lane::codes);
}

QCoro::Task<QRCodeDetector::Outcome> QRCodeDetector::detectCodesTiled(QImage image)
{
    return detect(std::move(image), false, true, std::nullopt, Lane::codes);
}

void QRCodeDetector::prewarm()
{
    m_workers.submit(Lane::utility, [reader = &m_reader] {
        QImage blank(48, 48, QImage::Format_Grayscale8);
        blank.fill(Qt::white);
        const Outcome outcome = detectCodesSync(blank, true, false, std::nullopt, *reader);
        if (!outcome)
            qCWarning(log, "%s", qUtf8Printable(outcome.error()));
    });
}

QRCodeDetector::Outcome QRCodeDetector::detectCodesSync(const QImage& image, bool fullPass, bool tilePass,
                                                        std::optional<Engine> engine, const CodeReader& reader)
{
    if (image.isNull())
        return {};
    const QImage grey = GreyPicture::of(image);
    if (grey.isNull())
        return std::unexpected(
            QCoreApplication::translate("QRCodeDetector", "There is not enough memory to look for codes."));
    const auto found = search(grey, fullPass, tilePass, engine, reader);
    if (!found)
        return std::unexpected(found.error());
    return inReadingOrder(*found, image.size());
}

} // namespace Kovrel
