#pragma once

#include "model/OCRResult.h"

namespace Kovrel {

// Finds what somebody typed in the lines of an image; neither case, accents nor the kind of white space count.
// Stateless; any thread.
namespace TextFind {

// Offsets are characters (graphemes) of the line's normalised text. Where the match goes on in the lines below, `end`
// counts on through them, a line's end being one space.
struct Match {
    int line = 0; // where the match starts
    int start = 0;
    int end = 0;             // behind the last character
    std::vector<Rect> boxes; // for each line that the match touches, in the lines' coordinates
    bool operator==(const Match&) const = default;
};

// The first `limit` matches, in the order of the lines, none inside another. A query without a space is looked for
// within lines; one with a space also across the ends of lines that continue one another. Leading spaces of the query
// do not count, and without anything else nothing is found.
std::vector<Match> matches(const QString& query, const std::vector<OCRLine>& lines, int limit);

// Whether a line goes on in `line`, which comes after it: upright text, lower, not further than one and a half line
// heights, and under it for half of the narrower width.
bool continues(const OCRLine& line, const OCRLine& after);

// The x where a character of a line of `length` characters begins; that of `length` is where the line ends.
double boundary(int index, const OCRLine& line, int length);

} // namespace TextFind

} // namespace Kovrel
