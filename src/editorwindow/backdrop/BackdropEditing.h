#pragma once

#include "editor/session/EditorSession.h"

namespace Kovrel {

// What a user does to the backdrop of an edited capture. What was chosen last is remembered for the next capture.
// Main thread.
class BackdropEditing {
public:
    // Both outlive it.
    BackdropEditing(EditorSession& session, Preferences& preferences) : m_session(session), m_preferences(preferences)
    {
    }

    // The document's; of one that never had any, the one that was chosen last, without its fill.
    EditorBackdrop backdrop() const;

    // All else stays as it is.
    void setFill(const BackdropFill& fill);
    // A whole one.
    void apply(const EditorBackdrop& look);
    // Changes of one part that follow each other are one step, until `finish`.
    void change(const QString& part, const std::function<void(EditorBackdrop&)>& change);
    void finish();

private:
    void show(EditorBackdrop next, const QString& part);

    EditorSession& m_session;
    Preferences& m_preferences;
};

} // namespace Kovrel
