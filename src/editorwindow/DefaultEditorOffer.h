#pragma once

#include "platform/FilePrograms.h"
#include "platform/Lifeline.h"
#include "preferences/Preferences.h"

#include <QWidget>

namespace Kovrel {

// Asks, once, whether pictures are to be opened with Kovrel from now on, where the desktop knows Kovrel and prefers
// another program. Hidden until that is known. Main thread.
class DefaultEditorOffer : public QWidget {
    Q_OBJECT

public:
    // Both outlive it.
    DefaultEditorOffer(FilePrograms& programs, Preferences& preferences);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void ask(const std::vector<FileProgram>& openers);
    void accept();

    FilePrograms& m_programs;
    Preferences& m_preferences;
    Lifeline m_lifeline;
};

} // namespace Kovrel
