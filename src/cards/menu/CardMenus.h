#pragma once

#include "cards/QuickAccessController.h"
#include "model/KeyCombo.h"
#include "platform/FilePrograms.h"
#include "ports/PicturePreviews.h"
#include "ports/Port.h"

#include <QPointer>

#include <functional>

class QMenu;

namespace Kovrel {

// Opens the menus of cards and does what is chosen, also what other programs do with a card's file. Main thread.
class CardMenus {
public:
    // The keys that do an action at the moment; none where it has none.
    using KeysOf = std::function<std::optional<KeyCombo>(CardQuickAction)>;

    // What is given by reference outlives it. Without previews the program that the user prefers shows pictures.
    CardMenus(QuickAccessController& cards, FilePrograms& programs, const Port<PicturePreviews>& previews,
              KeysOf keysOf);
    ~CardMenus();
    CardMenus(const CardMenus&) = delete;
    CardMenus& operator=(const CardMenus&) = delete;

    // At a point of the toolkit, in place of the one that is open.
    void open(QUuid card, QPoint globalPosition);

private:
    bool canPerform(CardQuickAction action) const;
    void handOver(CardQuickAction action, const QString& path);
    // Nothing is done where the card has no file.
    void withFileOf(QUuid card, std::function<void(const QString&)> work);

    QuickAccessController& m_cards;
    FilePrograms& m_programs;
    const Port<PicturePreviews>& m_previews;
    KeysOf m_keysOf;
    QPointer<QMenu> m_menu; // that is open
    Lifeline m_lifeline;
};

} // namespace Kovrel
