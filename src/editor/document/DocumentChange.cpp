#include "editor/document/DocumentChange.h"

#include <QHash>

#include <algorithm>

namespace Kovrel {

namespace {

using ById = QHash<QUuid, const Annotation*>;

ById byId(const EditorDocument& document)
{
    ById marks;
    for (const Annotation& mark : document.marks)
        marks.insert(mark.id, &mark);
    return marks;
}

std::optional<Annotation> copied(const Annotation* mark)
{
    return mark ? std::optional(*mark) : std::nullopt;
}

} // namespace

DocumentChange::DocumentChange(const EditorDocument& before, const EditorDocument& after)
{
    const ById were = byId(before);
    const ById are = byId(after);
    for (const Annotation& mark : before.marks)
        if (const Annotation* const now = are.value(mark.id); !now || *now != mark)
            m_marks.push_back({mark.id, mark, copied(now)});
    for (const Annotation& mark : after.marks)
        if (!were.contains(mark.id))
            m_marks.push_back({mark.id, std::nullopt, mark});
    if (Order was = orderOf(before), is = orderOf(after); was != is) {
        m_orderBefore = std::move(was);
        m_orderAfter = std::move(is);
    }
    if (before.composition != after.composition)
        m_composition = {before.composition, after.composition};
}

DocumentChange::Order DocumentChange::orderOf(const EditorDocument& document)
{
    Order order;
    order.reserve(document.marks.size());
    for (const Annotation& mark : document.marks)
        order.push_back(mark.id);
    return order;
}

EditorDocument DocumentChange::applied(EditorDocument before) const
{
    return brought(std::move(before), true);
}

EditorDocument DocumentChange::takenBack(EditorDocument after) const
{
    return brought(std::move(after), false);
}

EditorDocument DocumentChange::brought(EditorDocument document, bool isForward) const
{
    if (m_composition)
        document.composition = isForward ? m_composition->second : m_composition->first;
    QHash<QUuid, Annotation> known;
    for (const Mark& mark : m_marks)
        if (const auto& target = isForward ? mark.after : mark.before) {
            known.insert(mark.id, *target);
            if (Annotation* const there = document.mark(mark.id))
                *there = *target;
        }
    if (m_orderBefore == m_orderAfter)
        return document;
    for (const Annotation& mark : document.marks)
        if (!known.contains(mark.id))
            known.insert(mark.id, mark);
    document.marks.clear();
    for (const QUuid id : isForward ? m_orderAfter : m_orderBefore)
        document.marks.push_back(known.value(id));
    return document;
}

} // namespace Kovrel
