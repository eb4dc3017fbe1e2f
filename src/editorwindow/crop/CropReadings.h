#pragma once

#include "editor/crop/CropSizeEstimator.h"
#include "editor/session/EditorSession.h"

namespace Kovrel {

// What the edited picture weighs as a file at the output sizes that are offered, while somebody looks: it is drawn with
// all that it has, and encoded, in the background. Main thread.
class CropReadings {
public:
    using Reading = CropSizeEstimator::Reading;

    // All of them outlive it; `changed`: there is another reading, or none any more.
    CropReadings(MainLoop& loop, Workers& workers, const Preferences& preferences, EditorSession& session,
                 std::function<void()> changed);
    ~CropReadings();
    CropReadings(const CropReadings&) = delete;
    CropReadings& operator=(const CropReadings&) = delete;

    void setWanted(bool isWanted);

    // Nothing while it is on its way.
    std::optional<Reading> reading(const CropOutputSize& choice) const;

    // What the crop leaves of the capture. Pixels.
    QSize crop() const;

private:
    void follow();
    QCoro::Task<> draw(EditorDocument document);
    void request();
    CropSizeEstimator::SizeKey keyOf(const CropOutputSize& choice) const;

    MainLoop& m_loop;
    const Preferences& m_preferences;
    EditorSession& m_session;
    std::function<void()> m_changed;
    bool m_isWanted = false;
    std::optional<EditorDocument> m_drawn; // what the picture shows, or will
    QImage m_picture;                      // at its own size; null while it is drawn
    MainLoop::TimerID m_pending = 0;
    CropSizeEstimator m_estimator;
    Subscription m_changes;
    Scope m_scope;
};

} // namespace Kovrel
