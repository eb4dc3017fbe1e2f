#pragma once

#include "cards/CardQuickAction.h"
#include "model/KeyCombo.h"
#include "platform/FilePrograms.h"

#include <QMenu>

#include <functional>
#include <optional>

namespace Kovrel {

// The menu of one card. Only what can be done is in it; the programs that open the card's file come when the desktop
// has told them. When it opens and closes, aboutToShow and aboutToHide say so.
class CardQuickActionsMenu : public QMenu {
    Q_OBJECT

public:
    // What is asked of a card while its menu is built.
    struct Card {
        std::function<bool(CardQuickAction)> canPerform;
        std::function<std::optional<KeyCombo>(CardQuickAction)> keysOf; // none: it has none
        bool isSaved = false;                                           // it has a file of the user's
        QString fileName;                                               // that programs are to open
    };

    // `programs` outlives it.
    CardQuickActionsMenu(const Card& card, FilePrograms& programs);

Q_SIGNALS:
    void chosen(Kovrel::CardQuickAction action);
    void openWithChosen(const QString& programID);

private:
    void add(CardQuickAction action, const Card& card);
    void addOpenWith(const QString& fileName);
    void showPrograms(const std::vector<FileProgram>& programs);

    FilePrograms& m_programs;
    QMenu* m_openWith = nullptr;
};

} // namespace Kovrel
