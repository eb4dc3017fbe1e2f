#pragma once

#include <QCoreApplication>
#include <QString>

namespace Kovrel {

// What people are asked before captures go for good.
class HistoryQuestions {
    Q_DECLARE_TR_FUNCTIONS(Kovrel::HistoryQuestions)

public:
    // `unsaved`: how many captures `clearUnsaved` would take.
    static QString turnOffQuestion(int unsaved);
    static QString turnOffExplanation();
    static QString clearUnfiledExplanation();
    // `surplus`: how many captures a smaller retention takes.
    static QString retentionQuestion(int surplus);
    static QString retentionExplanation();
};

} // namespace Kovrel
