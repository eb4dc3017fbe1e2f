#pragma once

#include <QRandomGenerator>
#include <QStringList>

namespace Kovrel::Bench {

// Text without a meaning that looks like what people and programs write. The same seed gives the same.
class RandomText {
public:
    explicit RandomText(quint32 seed) : m_random(seed) {}

    int number(int from, int to) { return m_random.bounded(from, to + 1); }

    bool chance(double share) { return m_random.generateDouble() < share; }

    QString oneOf(const QStringList& list) { return list[number(0, int(list.size()) - 1)]; }

    // English words, and those of "deu", "fra", "pol", "ces", "tur", "ara" and "heb".
    QString word(const QString& language = "eng");
    QString words(int count, const QString& language = "eng");
    // With a capital and a full stop.
    QString sentence(int count, const QString& language = "eng");
    QString name(); // of a person

    QString identifier();
    QString constant();
    QString version(); // "^1.12.0"
    QString digits(int count);
    QString hexadecimal(int count);
    QString date();
    QString time();
    QString path();
    QString url();
    QString quantity(); // "12.5 kg"

private:
    QRandomGenerator m_random;
};

} // namespace Kovrel::Bench
