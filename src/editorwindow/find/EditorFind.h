#pragma once

#include "editor/session/EditorSession.h"
#include "model/OCRResult.h"
#include "model/RedactTool.h"

namespace Kovrel {

// Finds what somebody types in the text of an edited capture, and redacts it. What a redaction hides, and what is
// cropped away, is not found. Main thread.
class EditorFind {
public:
    // Where a match lies, one rectangle for each line that it touches. Image points, y up.
    struct Hit {
        std::vector<Rect> boxes;
        std::vector<Rect> redactions; // what is to be hidden of each, and a little more
        bool isOfWords = false;       // begins and ends where words do
        bool operator==(const Hit&) const = default;
    };

    // It outlives this; `changed`: there are other hits, or another one is the current one.
    EditorFind(EditorSession& session, std::function<void()> changed);

    // Those of the whole capture.
    void setLines(std::vector<OCRLine> lines);
    // The first hit becomes the current one.
    void setQuery(const QString& query);

    const std::vector<Hit>& hits() const { return m_hits; }

    // Nothing where there is no hit.
    std::optional<size_t> current() const;
    // Round and round; -1 goes back.
    void go(int step);

    // Hides all hits as one step.
    void redactAll(RedactTool tool);

private:
    void find();
    void follow();
    std::vector<Hit> seen() const;

    EditorSession& m_session;
    std::function<void()> m_changed;
    std::vector<OCRLine> m_lines;
    QString m_query;
    std::vector<Hit> m_matches; // also those that are not seen
    std::vector<Hit> m_hits;
    size_t m_current = 0;
    Subscription m_changes;
};

} // namespace Kovrel
