#pragma once

#include "editor/document/EditorDocument.h"

#include <utility>

namespace Kovrel {

// What is different between two states of a document. It holds what differs and nothing else, so that hundreds of them
// take little memory; pixels of pictures are shared with the documents.
class DocumentChange {
public:
    DocumentChange() = default;
    DocumentChange(const EditorDocument& before, const EditorDocument& after);

    bool isEmpty() const { return m_marks.empty() && m_orderBefore == m_orderAfter && !m_composition; }

    // Of a document that is as one of the two was, the other.
    EditorDocument applied(EditorDocument before) const;
    EditorDocument takenBack(EditorDocument after) const;

private:
    struct Mark {
        QUuid id;
        std::optional<Annotation> before;
        std::optional<Annotation> after;
    };

    using Order = std::vector<QUuid>;

    static Order orderOf(const EditorDocument& document);
    EditorDocument brought(EditorDocument document, bool isForward) const;

    std::vector<Mark> m_marks;
    Order m_orderBefore; // both are empty where nothing came, went or moved among the others
    Order m_orderAfter;
    std::optional<std::pair<EditorComposition, EditorComposition>> m_composition;
};

} // namespace Kovrel
