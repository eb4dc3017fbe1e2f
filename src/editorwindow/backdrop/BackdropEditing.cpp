#include "editorwindow/backdrop/BackdropEditing.h"

#include "editor/backdrop/BackdropPresets.h"

namespace Kovrel {

EditorBackdrop BackdropEditing::backdrop() const
{
    const EditorBackdrop& shown = m_session.document().composition.backdrop;
    if (shown != EditorBackdrop::none)
        return shown;
    EditorBackdrop last = BackdropPresets::last(m_preferences);
    last.fill = EditorBackdrop::none.fill;
    return last;
}

void BackdropEditing::setFill(const BackdropFill& fill)
{
    EditorBackdrop next = backdrop();
    next.fill = fill;
    apply(next);
}

void BackdropEditing::apply(const EditorBackdrop& look)
{
    m_session.seal();
    show(look, {});
    finish();
}

void BackdropEditing::change(const QString& part, const std::function<void(EditorBackdrop&)>& change)
{
    EditorBackdrop next = backdrop();
    change(next);
    show(std::move(next), "backdrop." + part);
}

void BackdropEditing::show(EditorBackdrop next, const QString& part)
{
    EditorDocument document = m_session.document();
    document.composition.backdrop = std::move(next);
    m_session.change(std::move(document), part);
}

void BackdropEditing::finish()
{
    m_session.seal();
    if (const EditorBackdrop shown = backdrop(); !shown.isNone())
        BackdropPresets::setLast(shown, m_preferences);
}

} // namespace Kovrel
