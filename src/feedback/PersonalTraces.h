#pragma once

#include <QRegularExpression>
#include <QString>

#include <vector>

namespace Kovrel {

// Takes out of a text what tells who wrote it: the home folder, the user's name, addresses, and whatever a token may
// look like. Any thread.
class PersonalTraces {
public:
    // `home` as a path. An empty name stands in no text.
    PersonalTraces(const QString& home, const QString& userName);

    // Those of whoever runs the program.
    static PersonalTraces ofThisUser();

    QString removed(QString text) const;

private:
    struct Rule {
        QRegularExpression trace;
        QString instead;
    };

    void add(const QString& expression, const QString& instead);

    std::vector<Rule> m_rules; // one after the other
};

} // namespace Kovrel
