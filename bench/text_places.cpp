// text_places SEED LINES: draws so many lines of text of known places, reads them, and tells how far from its true place
// the middle of each character is taken to be, in widths of an average character of its line; and of pointers that are
// put between two characters, how many find just that place. Lines that are read wrongly do not count.

#include "bench/pages/RandomText.h"
#include "livetext/SelectableText.h"
#include "platform/plugins/PluginTextRecogniser.h"
#include "recognition/text/TextObservations.h"

#include <QGuiApplication>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cstdio>

using namespace Kovrel;

namespace {

struct DrawnLine {
    QImage image;
    QString text;
    std::vector<double> edges; // x of each character's beginning, and of the last one's end
};

DrawnLine drawn(const QString& text, const QFont& font, bool isDark)
{
    QTextLayout layout(text, font);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setNumColumns(int(text.size()));
    layout.endLayout();
    constexpr double margin = 20;
    DrawnLine made{.image = QImage(int(line.naturalTextWidth() + 2 * margin), int(line.height() + 2 * margin),
                                   QImage::Format_RGB32),
                   .text = text};
    made.image.fill(isDark ? QColor(30, 32, 36) : QColor(252, 252, 252));
    QPainter painter(&made.image);
    painter.setPen(isDark ? QColor(220, 222, 226) : QColor(30, 30, 30));
    layout.draw(&painter, {margin, margin});
    for (int index = 0; index <= text.size(); ++index)
        made.edges.push_back(margin + line.cursorToX(index));
    return made;
}

QString randomText(Bench::RandomText& random)
{
    switch (random.number(0, 4)) {
    case 0:
        return random.sentence(random.number(3, 9));
    case 1:
        return "See " + random.url() + ", " + random.words(2) + ".";
    case 2:
        return random.identifier() + " = " + random.identifier() + "(" + random.digits(3) + ");";
    case 3:
        return random.date() + " " + random.time() + " " + random.words(3) + " " + random.quantity();
    default:
        return random.name() + ", " + random.path();
    }
}

class Places {
public:
    void add(const DrawnLine& line, const OCRLine& read)
    {
        const double width = (line.edges.back() - line.edges.front()) / double(line.text.size());
        const SelectableText text({read}, line.image.size());
        for (size_t index = 0; index < size_t(line.text.size()); ++index) {
            const double middle = (line.edges[index] + line.edges[index + 1]) / 2;
            if (line.text[qsizetype(index)] != u' ')
                m_errors.push_back(std::abs(read.characterCenters[index] * line.image.width() - middle) / width);
            const auto place = text.placeAt({line.edges[index], line.image.height() / 2.0});
            m_hits += place.character == index;
            m_near += place.character + 1 >= index && place.character <= index + 1;
            ++m_pointers;
        }
    }

    void print(const char* name, int lines, int drawnLines)
    {
        if (m_errors.empty())
            return;
        std::ranges::sort(m_errors);
        const auto part = [&](double share) { return m_errors[size_t(share * double(m_errors.size() - 1))]; };
        std::printf("%-18s %4d of %4d  median %.2f  95 %% %.2f  99 %% %.2f  worst %.2f   pointers: right %.1f %%, or next "
                    "%.1f %%\n",
                    name, lines, drawnLines, part(0.5), part(0.95), part(0.99), m_errors.back(),
                    100.0 * m_hits / m_pointers, 100.0 * m_near / m_pointers);
    }

private:
    std::vector<double> m_errors;
    int m_hits = 0;
    int m_near = 0;
    int m_pointers = 0;
};

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication app(argc, argv);
    Bench::RandomText random(argc > 1 ? quint32(std::atoi(argv[1])) : 1);
    const int count = argc > 2 ? std::atoi(argv[2]) : 60;
    PluginTextRecogniser recogniser;
    for (const char* family : {"DejaVu Sans", "DejaVu Serif", "DejaVu Sans Mono", "Noto Sans", "Liberation Sans"}) {
        Places places;
        int readLines = 0;
        for (int round = 0; round < count; ++round) {
            QFont font(family);
            font.setPixelSize(random.number(12, 32));
            const DrawnLine line = drawn(randomText(random), font, random.chance(0.3));
            const auto seen = recogniser.recognise(line.image, {.languages = {"en"}});
            if (!seen)
                continue;
            const OCRResult result = TextObservations::result(*seen, line.image.size());
            if (result.lines.size() != 1 || result.lines[0].text != line.text ||
                result.lines[0].characterCenters.size() != size_t(line.text.size()))
                continue;
            ++readLines;
            places.add(line, result.lines[0]);
        }
        places.print(family, readLines, count);
    }
    return 0;
}
