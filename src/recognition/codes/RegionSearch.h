#pragma once

#include "platform/CodeReader.h"
#include "recognition/codes/CodeRegions.h"

namespace Kovrel {

// Looks for codes in one part of a picture, again and again in other ways: as it is and with light for dark, as both
// stand on one screen; and where it is small and nothing was seen, softened, sharpened and levelled, and the places
// that may be codes enlarged, with light for dark, and softened more. Any thread.
class RegionSearch {
public:
    RegionSearch(const CodeReader& reader, CodeReader::Engine engine) : m_reader(reader), m_engine(engine) {}

    // Boxes are in pixels of the whole picture, which is of Format_Grayscale8. A code may be there more than once.
    CodeReader::Outcome run(const QImage& grey, const CodeRegions::Region& region);

    // Up to the size of a tile: in larger pictures the further looks take too long.
    static bool isSmall(const QImage& image);

private:
    void lookPlainly(const QImage& part);
    void lookFiltered(const QImage& part);
    void lookAtPlaces(const QImage& part);
    void lookClosely(const QImage& place, int factor);
    void look(const QImage& picture, double scale);

    const CodeReader& m_reader;
    CodeReader::Engine m_engine;
    std::vector<CodeReader::Code> m_codes; // in pixels of the part
    QString m_error;
};

} // namespace Kovrel
