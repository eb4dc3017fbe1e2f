#pragma once

#include <QString>

namespace Kovrel {

// Why the text of a picture could not be read.
struct RecognitionFailure {
    enum class Reason {
        failed,
        cancelled,    // by who asked for it
        noPicture,    // there is nothing to read
        notInstalled, // the recogniser or the data of a language is missing
    };

    QString message; // one line, for people
    Reason reason = Reason::failed;

    bool operator==(const RecognitionFailure&) const = default;
};

} // namespace Kovrel
