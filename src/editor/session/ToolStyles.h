#pragma once

#include "editor/session/MarkStyle.h"
#include "preferences/Preferences.h"

namespace Kovrel {

// How the marks of each tool look when they are made: what was chosen for it last. Main thread.
class ToolStyles {
public:
    explicit ToolStyles(Preferences& preferences) : m_preferences(preferences) {}

    MarkStyle of(EditorTool tool) const;
    // Remembers what is set.
    void set(EditorTool tool, const MarkStyle& style);

private:
    Preferences& m_preferences;
};

// The kind of the marks that a tool makes; none of those that make none.
std::optional<Annotation::Kind> kindOf(EditorTool tool);

} // namespace Kovrel
