#pragma once

#include "editor/backdrop/EditorBackdrop.h"
#include "editor/document/EditorCapture.h"
#include "platform/Scope.h"

#include <QImage>

#include <map>
#include <set>
#include <string>

namespace Kovrel {

// Small pictures of fills, and of the capture on whole backdrops, drawn on a worker. Main thread.
class BackdropSwatches {
public:
    // `drawn` is called when there is another one.
    BackdropSwatches(MainLoop& loop, Workers& workers, EditorCapture capture, std::function<void()> drawn);

    // Null until it has been drawn, and for what can't be.
    QImage fill(const BackdropFill& fill, QSize pixels);
    QImage look(const EditorBackdrop& look, QSize pixels);

private:
    struct Key {
        std::string backdrop; // its text
        bool showsCapture = false;
        int width = 0;
        int height = 0;
        auto operator<=>(const Key&) const = default;
    };

    QImage drawn(const Key& key, const std::function<QImage()>& job);
    QCoro::Task<> draw(Key key, std::function<QImage()> job);

    EditorCapture m_sample; // a part of the capture, as large as shows what a backdrop does to it
    std::function<void()> m_drawn;
    std::map<Key, QImage> m_swatches;
    std::set<Key> m_awaited;
    Scope m_scope;
};

} // namespace Kovrel
