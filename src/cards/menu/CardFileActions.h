#pragma once

#include "cards/CardQuickAction.h"
#include "platform/FilePrograms.h"

namespace Kovrel {

// What other programs do with the file of a card. Main thread.
class CardFileActions {
public:
    // `programs` outlives it.
    explicit CardFileActions(FilePrograms& programs) : m_programs(programs) {}

    // Whether it is one of these actions, and there is a program for it.
    bool canPerform(CardQuickAction action) const;
    // Preview or mail.
    void perform(CardQuickAction action, const QString& path);

    void openWith(const QString& programID, const QString& path) { m_programs.open(path, programID); }

private:
    FilePrograms& m_programs;
};

} // namespace Kovrel
