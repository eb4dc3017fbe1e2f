#pragma once

#include <QString>
#include <QStringView>

#include <string>
#include <string_view>

namespace Kovrel {

// What has to be known besides a folded text to have the text itself again. Most of it are runs of letters that are as
// they were, or capitals: a tenth of the text's size, where the text itself would double it. Any thread.
class TextDifference {
public:
    // The difference of one text.
    static std::string of(QStringView text, QStringView folded);

    // Reads the differences of several texts one behind the other.
    explicit TextDifference(std::string_view differences) : m_rest(differences) {}

    // The next text, of which `folded` is what was folded; not empty.
    QString next(QStringView folded);

private:
    // One byte: the kind, and how many UTF-16 units it stands for. Units that are inserted follow it.
    enum class Kind { keep, capital, insert, drop };

    struct Step {
        Kind kind = Kind::keep;
        qsizetype count = 0;
    };

    static Kind kindOf(QChar unit, QChar folded);
    static void append(std::string& differences, Step step);
    static void appendReplaced(std::string& differences, QStringView text, qsizetype folded);
    Step nextStep();
    QString inserted(qsizetype count);

    std::string_view m_rest;
};

} // namespace Kovrel
