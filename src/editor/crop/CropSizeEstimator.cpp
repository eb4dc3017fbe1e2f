#include "editor/crop/CropSizeEstimator.h"

#include "editor/crop/CropSizes.h"
#include "imaging/Resampling.h"
#include "platform/Guarded.h"
#include "platform/ImageCodec.h"
#include "saving/SaveService.h"

#include <cmath>
#include <utility>

namespace Kovrel {

namespace {

CropSizeEstimator::SizeKey keyOf(QSize size)
{
    return {size.width(), size.height()};
}

// Nothing for what is no size of a picture.
std::optional<CropSizeEstimator::SizeKey> rounded(Size size)
{
    const auto isSide = [](double side) { return side >= 0.5 && side <= Resampling::longestSide; };
    if (!isSide(size.width) || !isSide(size.height))
        return std::nullopt;
    return CropSizeEstimator::SizeKey{int(std::lround(size.width)), int(std::lround(size.height))};
}

} // namespace

bool CropSizeEstimator::Context::operator==(const Context& other) const
{
    return source.cacheKey() == other.source.cacheKey() && pixels.cacheKey() == other.pixels.cacheKey() &&
           pixelsScale == other.pixelsScale && region == other.region && canvasSize == other.canvasSize;
}

std::optional<CropSizeEstimator::Reading> CropSizeEstimator::Job::encode() const
{
    if (isStale.stop_requested())
        return std::nullopt;
    const auto resampled = Resampling::resampledExactly(pixels.copy(crop), {size.width, size.height});
    if (!resampled)
        return std::nullopt;
    const QImage saved = SaveService::reduced(settings, *resampled, pixelsScale);
    const ImageFormat format = SaveService::resolvedFormat(settings, saved);
    const auto bytes = ImageCodec::encode(saved, format, settings.quality);
    return bytes ? std::optional(Reading{bytes->size(), format}) : std::nullopt;
}

CropSizeEstimator::CropSizeEstimator(MainLoop& loop, Workers& workers, const Preferences& preferences,
                                     std::function<void()> changed)
    : m_loop(loop), m_preferences(preferences), m_changed(std::move(changed)), m_scope(loop, workers)
{
}

CropSizeEstimator::~CropSizeEstimator()
{
    m_loop.cancel(m_pending);
    m_stale.request_stop();
}

void CropSizeEstimator::setContext(Context context)
{
    if (!m_source.isOf(context))
        takeSource(context);
    if (m_context == context)
        return;
    m_context = std::move(context);
    ++m_generation;
    std::exchange(m_stale, {}).request_stop();
    m_inFlight.clear();
    m_wanted.clear();
    m_loop.cancel(std::exchange(m_pending, 0));
    m_readings.clear();
}

bool CropSizeEstimator::Source::isOf(const Context& context) const
{
    return image == context.source.cacheKey() && pixelsImage == context.pixels.cacheKey();
}

void CropSizeEstimator::takeSource(const Context& context)
{
    m_source = {.image = context.source.cacheKey(),
                .pixelsImage = context.pixels.cacheKey(),
                .generation = m_source.generation + 1};
}

QRect CropSizeEstimator::crop() const
{
    return m_context ? CropSizes::pixelRect(m_context->region, m_context->canvasSize, m_context->pixelsScale,
                                            m_context->pixels.size())
                     : QRect();
}

bool CropSizeEstimator::sourceServes(SizeKey size) const
{
    const QRect whole = crop();
    return size == keyOf(whole.size()) && whole == m_context->pixels.rect() && whole == m_source.crop &&
           m_source.isThereOrOnItsWay();
}

CropSizeEstimator::Job CropSizeEstimator::job(SizeKey size) const
{
    return {.pixels = m_context->pixels,
            .pixelsScale = m_context->pixelsScale,
            .crop = crop(),
            .size = size,
            .settings = {.formatAuto = m_preferences.get(Settings::saveFormatAuto),
                         .format = m_preferences.get(Settings::imageFormat),
                         .quality = m_preferences.get(Settings::jpegQuality),
                         .downscale = m_preferences.get(Settings::retinaDownscale)}};
}

void CropSizeEstimator::request(const std::vector<Size>& sizes)
{
    if (crop().isEmpty())
        return;
    if (!m_source.isThereOrOnItsWay())
        encodeSource();
    for (const Size& size : sizes)
        if (const auto key = rounded(size))
            if (!sourceServes(*key) && !m_readings.contains(*key) && !m_inFlight.contains(*key))
                m_wanted.insert(*key);
    if (m_wanted.empty())
        return;
    m_loop.cancel(m_pending);
    m_pending = m_loop.after(debounce, [this] { flush(); });
}

void CropSizeEstimator::encodeSource()
{
    m_source.isInFlight = true;
    m_source.crop = crop();
    Scope::start(readSource(job(keyOf(m_source.crop.size()))), "The size of the crop");
}

Wait<std::optional<CropSizeEstimator::Reading>> CropSizeEstimator::encoded(Job job)
{
    return m_scope.onWorker(Lane::utility, Guarded::orElse([job] { return job.encode(); }, std::nullopt));
}

QCoro::Task<> CropSizeEstimator::readSource(Job job)
{
    const quint64 generation = m_source.generation;
    const auto reading = co_await encoded(job);
    if (generation != m_source.generation)
        co_return;
    m_source.isInFlight = false;
    m_source.reading = reading;
    m_changed();
}

void CropSizeEstimator::flush()
{
    m_pending = 0;
    for (const SizeKey size : std::exchange(m_wanted, {})) {
        m_inFlight.insert(size);
        Job wanted = job(size);
        wanted.isStale = m_stale.get_token();
        Scope::start(read(std::move(wanted), m_generation), "The size of a crop");
    }
}

QCoro::Task<> CropSizeEstimator::read(Job job, quint64 generation)
{
    const auto reading = co_await encoded(job);
    if (generation != m_generation)
        co_return;
    m_inFlight.erase(job.size);
    if (reading)
        m_readings[job.size] = *reading;
    m_changed();
}

std::optional<CropSizeEstimator::Reading> CropSizeEstimator::reading(SizeKey size) const
{
    if (const auto found = m_readings.find(size); found != m_readings.end())
        return found->second;
    return !crop().isEmpty() && sourceServes(size) ? m_source.reading : std::nullopt;
}

} // namespace Kovrel
