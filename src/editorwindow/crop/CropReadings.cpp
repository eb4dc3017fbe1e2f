#include "editorwindow/crop/CropReadings.h"

#include "editor/EditedPicture.h"
#include "editor/crop/CropSizes.h"
#include "editor/document/CroppedCapture.h"
#include "platform/Guarded.h"

namespace Kovrel {

CropReadings::CropReadings(MainLoop& loop, Workers& workers, const Preferences& preferences, EditorSession& session,
                           std::function<void()> changed)
    : m_loop(loop),
      m_preferences(preferences),
      m_session(session),
      m_changed(std::move(changed)),
      m_estimator(loop, workers, preferences, [this] { m_changed(); }),
      m_changes(session.onChange([this] { follow(); })),
      m_scope(loop, workers)
{
}

CropReadings::~CropReadings()
{
    m_loop.cancel(m_pending);
}

void CropReadings::setWanted(bool isWanted)
{
    m_isWanted = isWanted;
    follow();
}

QSize CropReadings::crop() const
{
    return CroppedCapture::pixels(m_session.capture(), m_session.document().composition).size();
}

std::optional<CropReadings::Reading> CropReadings::reading(const CropOutputSize& choice) const
{
    return m_picture.isNull() ? std::nullopt : m_estimator.reading(keyOf(choice));
}

CropSizeEstimator::SizeKey CropReadings::keyOf(const CropOutputSize& choice) const
{
    const QSize size = EditedPicture::outputSize(m_picture.size(), choice, crop());
    return {size.width(), size.height()};
}

// Drawn once it has stayed the same for a moment.
void CropReadings::follow()
{
    if (!m_isWanted)
        return;
    EditorDocument document = m_session.document();
    document.composition.outputSize = {};
    if (std::exchange(m_drawn, document) == document)
        return request();
    m_picture = {};
    m_estimator.setContext({}); // what is being weighed is not wanted any more
    m_loop.cancel(m_pending);
    m_pending = m_loop.after(CropSizeEstimator::debounce, [this, document = std::move(document)] {
        m_pending = 0;
        Scope::start(draw(document), "drawing what is weighed");
    });
    m_changed();
}

QCoro::Task<> CropReadings::draw(EditorDocument document)
{
    const auto job = [capture = m_session.capture(), document, unit = m_preferences.get(Settings::measureUnit)] {
        return EditedPicture::rendered(capture, document, unit);
    };
    const QImage picture = co_await m_scope.onWorker(Lane::utility, Guarded::orElse(job, QImage()));
    if (document != m_drawn || picture.isNull())
        co_return;
    m_picture = picture;
    const Size size(picture.width(), picture.height());
    m_estimator.setContext({picture, picture, 1, {0, 0, size.width, size.height}, size});
    request();
}

void CropReadings::request()
{
    if (m_picture.isNull())
        return;
    std::vector<Size> sizes;
    const auto add = [&](const CropOutputSize& choice) {
        const auto key = keyOf(choice);
        sizes.push_back({double(key.width), double(key.height)});
    };
    for (const double fraction : CropSizes::fractions)
        add(CropOutputSize::ofFraction(fraction));
    add(m_session.document().composition.outputSize);
    m_estimator.request(sizes);
    m_changed();
}

} // namespace Kovrel
