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

QString HistoryQuestions::retentionQuestion(int surplus)
{
    return surplus == 1 ? tr("Delete the oldest capture?") : tr("Delete the %1 oldest captures?").arg(surplus);
}

QString HistoryQuestions::retentionExplanation()
{
    return tr(
        "They are permanently deleted from Kovrel's history, because it is to keep fewer. Captures in lists stay, "
        "and files you saved elsewhere are not affected.");
}

} // namespace Kovrel
