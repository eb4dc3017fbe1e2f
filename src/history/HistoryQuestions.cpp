#include "history/HistoryQuestions.h"

namespace Kovrel {

QString HistoryQuestions::turnOffQuestion(int unsaved)
{
    return unsaved == 1 ? tr("Turn off history and delete 1 unsaved capture?")
                        : tr("Turn off history and delete %1 unsaved captures?").arg(unsaved);
}

QString HistoryQuestions::turnOffExplanation()
{
    return tr("Kovrel stops recording new captures, and recent captures you haven't saved are deleted. Saved captures "
              "stay in the list, and files on disk are not affected.");
}

QString HistoryQuestions::clearUnfiledExplanation()
{
    return tr("Everything else is permanently deleted from Kovrel's history; files you saved elsewhere are not "
              "affected.");
}

} // namespace Kovrel
