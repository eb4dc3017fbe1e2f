#include "cards/ClosedCards.h"

namespace Kovrel {

void ClosedCards::rememberSavedFile(QUuid id, const QString& path)
{
    std::erase_if(m_saved, [id](const auto& known) { return known.first == id; });
    m_saved.emplace_back(id, path);
    if (m_saved.size() > most)
        m_saved.pop_front();
}

std::optional<QString> ClosedCards::savedFile(QUuid id) const
{
    for (const auto& [known, path] : m_saved)
        if (known == id)
            return path;
    return std::nullopt;
}

void ClosedCards::rememberClosed(QUuid id)
{
    forgetClosed(id);
    m_closed.push_back(id);
    if (m_closed.size() > most)
        m_closed.pop_front();
}

void ClosedCards::forgetClosed(QUuid id)
{
    std::erase(m_closed, id);
}

std::optional<QUuid> ClosedCards::takeLastClosed()
{
    if (m_closed.empty())
        return std::nullopt;
    const QUuid last = m_closed.back();
    m_closed.pop_back();
    return last;
}

} // namespace Kovrel
