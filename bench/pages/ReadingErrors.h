#pragma once

#include <QStringList>

#include <algorithm>

namespace Kovrel::Bench {

// How many characters were read wrongly.
struct ReadingErrors {
    int errors = 0;
    int length = 0; // of the truth

    double rate() const { return double(errors) / std::max(length, 1); }

    ReadingErrors& operator+=(const ReadingErrors& other)
    {
        errors += other.errors;
        length += other.length;
        return *this;
    }

    // Each text is looked for in all that was read, the longest first and those that are there as they are before
    // others, so that neither the order of lines and cells nor the white space between them counts. What is left over
    // counts as read where nothing is. Quotes and dashes count as one of their kind.
    static ReadingErrors of(const QStringList& texts, const QString& read);
};

} // namespace Kovrel::Bench
