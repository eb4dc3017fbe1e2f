#pragma once

#include "cards/CardPixels.h"
#include "saving/DragFiles.h"

#include <map>

namespace Kovrel {

// The files that other programs get of cards: the user's own, the history's, else one that lasts as long as the card.
// Main thread.
class CardFiles {
public:
    CardFiles(CardServices services, CardShelf& shelf, CardPixels& pixels);

    // Nothing where there is no place for it.
    void file(QUuid id, Reply<std::optional<QString>> reply);
    // The user's own; one that has gone is forgotten on the way.
    QCoro::Task<std::optional<QString>> saved(QUuid id);
    // The card has gone, or looks different.
    void forget(QUuid id);

private:
    using Path = std::optional<QString>;

    QCoro::Task<> find(QUuid id, Reply<Path> reply);
    QCoro::Task<bool> exists(QString path);
    QCoro::Task<Path> written(QUuid id);

    CardServices m_services;
    CardShelf& m_shelf;
    CardPixels& m_pixels;
    DragFiles m_dragFiles;
    std::map<QUuid, QString> m_written;
    Scope m_scope;
};

} // namespace Kovrel
