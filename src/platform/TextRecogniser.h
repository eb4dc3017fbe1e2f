#pragma once

#include "model/Geometry.h"
#include "model/RecognitionFailure.h"

#include <QDateTime>
#include <QImage>
#include <QStringList>

#include <expected>
#include <functional>
#include <optional>
#include <stop_token>
#include <vector>

namespace Kovrel {

// Finds the text in pictures. Coordinates are those of the picture, each axis from 0 to 1, origin bottom-left. Used on
// one worker lane only, never twice at once.
class TextRecogniser {
public:
    struct Candidate {
        QString text;
        float confidence = 0;                            // 0 to 1
        std::vector<std::optional<Rect>> characterBoxes; // of each grapheme of the text, where it is known

        // What the graphemes from `first` on cover together; none when none of them is known.
        std::optional<Rect> box(qsizetype first, qsizetype count) const
        {
            std::optional<Rect> all;
            const qsizetype end = std::min(first + count, qsizetype(characterBoxes.size()));
            for (qsizetype at = first; at < end; ++at)
                if (const auto& one = characterBoxes[size_t(at)])
                    all = all ? united(*all, *one) : *one;
            return all;
        }

    private:
        static Rect united(const Rect& a, const Rect& b)
        {
            const double x = std::min(a.minX(), b.minX());
            const double y = std::min(a.minY(), b.minY());
            return {x, y, std::max(a.maxX(), b.maxX()) - x, std::max(a.maxY(), b.maxY()) - y};
        }
    };

    // A run of text on one line. The corners are those of the text as it is read, however it lies in the picture.
    struct Observation {
        Point bottomLeft;
        Point bottomRight;
        Point topLeft;
        Rect boundingBox;
        std::vector<Candidate> candidates; // the best first
    };

    struct Request {
        bool correctsLanguage = true; // dictionaries help to decide between characters that look alike
        QStringList languages;        // codes such as "en", "de" or "chi_sim"; none: the languages of the desktop
        QStringList customWords;      // that are in no dictionary
        bool mayHurry = true;         // on all threads; else on one, behind everybody who wants the processor
        std::stop_token stop;         // ends the recognition after one more line at most
        std::function<void(double share)> progress; // hears what share of the lines is read; on any thread
    };

    using Failure = RecognitionFailure;
    using Outcome = std::expected<std::vector<Observation>, Failure>;

    virtual ~TextRecogniser() = default;

    // In reading order, as far as the recogniser knows it. A picture without text gives no observations.
    virtual Outcome recognise(const QImage& picture, const Request& request) = 0;

    // What can be asked for, as "eng", "deu" or "chi_sim".
    virtual QStringList installedLanguages() { return {}; }

    // When the models for these languages, or what reads with them, came onto this computer last: text that was read
    // before may be read better now. Invalid where that is not known.
    virtual QDateTime modelsChanged(const QStringList&) { return {}; }

    // Nothing is going to be read for a while. What was loaded is loaded again with the next picture.
    virtual void releaseMemory() {}
};

} // namespace Kovrel
