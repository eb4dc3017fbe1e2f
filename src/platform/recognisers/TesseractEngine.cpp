#include "platform/recognisers/TesseractEngine.h"

#include "platform/recognisers/CharacterGrid.h"
#include "platform/recognisers/CharacterOrder.h"
#include "platform/recognisers/CharacterPlaces.h"
#include "platform/recognisers/LanguageData.h"

#include <QCoreApplication>
#include <QTextBoundaryFinder>

#include <tesseract/baseapi.h>
#include <tesseract/resultiterator.h>

#include <sys/mman.h>
#include <unistd.h>

namespace Kovrel {

namespace {

constexpr int dotsPerInch = 300; // what the models were made for; it sets nothing but expectations of sizes
constexpr int darkInk = 128;
constexpr double shortLine = 2; // heights of the line

using tesseract::RIL_SYMBOL;
using tesseract::RIL_TEXTLINE;
using tesseract::RIL_WORD;

// The library reads word lists from files only.
class WordListFile {
public:
    explicit WordListFile(const QStringList& words) : m_descriptor(::memfd_create("words", MFD_CLOEXEC))
    {
        const QByteArray lines = (words.join('\n') + '\n').toUtf8();
        m_isWritten = m_descriptor >= 0 && ::write(m_descriptor, lines, size_t(lines.size())) == lines.size();
    }

    ~WordListFile() { ::close(m_descriptor); }

    WordListFile(const WordListFile&) = delete;
    WordListFile& operator=(const WordListFile&) = delete;

    std::string path() const { return m_isWritten ? "/proc/self/fd/" + std::to_string(m_descriptor) : std::string(); }

private:
    int m_descriptor;
    bool m_isWritten = false;
};

qsizetype graphemeCount(const QString& text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype count = 0;
    while (finder.toNextBoundary() >= 0)
        ++count;
    return count;
}

template <class Iterator>
QString textAt(const Iterator& at, tesseract::PageIteratorLevel level)
{
    const std::unique_ptr<char[]> text(at.GetUTF8Text(level));
    return text ? QString::fromUtf8(text.get()) : QString();
}

std::optional<QRectF> boxAt(const tesseract::PageIterator& at, tesseract::PageIteratorLevel level)
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    if (!at.BoundingBox(level, &left, &top, &right, &bottom))
        return std::nullopt;
    return QRectF(left, top, right - left, bottom - top);
}

// The box of what is dark in an area, and how much of it.
struct DarkArea {
    QRect box;
    int pixels = 0;

    DarkArea(const QImage& ink, const QRect& area)
    {
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x)
                if (ink.constScanLine(y)[x] < darkInk) {
                    box |= QRect(x, y, 1, 1);
                    ++pixels;
                }
    }

    // As wide as high, and filled like a circle or a square.
    bool isDot() const
    {
        const int side = std::max(box.width(), box.height());
        return pixels > 0 && std::abs(box.width() - box.height()) * 4 <= side && pixels * 10 >= side * side * 7;
    }
};

// Puts the words of a line together.
class RunBuilder {
public:
    explicit RunBuilder(const QImage& ink) : m_ink(ink) {}

    void addWord(const tesseract::ResultIterator& at)
    {
        QString text = textAt(at, RIL_WORD).trimmed();
        const auto box = boxAt(at, RIL_WORD);
        if (text.isEmpty() || !box)
            return;
        if (m_run.text.isEmpty() && isBullet(text, at, *box))
            text = bullet;
        if (!m_run.text.isEmpty()) {
            m_run.text += ' ';
            m_run.characterBoxes.push_back(std::nullopt);
        }
        m_run.text += text;
        m_run.box = m_run.box.united(*box);
        m_weight += float(text.size());
        m_run.confidence += at.Confidence(RIL_WORD) / 100 * float(text.size());
        addSymbols(at);
    }

    std::optional<TesseractEngine::Run> finished()
    {
        if (m_run.text.isEmpty())
            return std::nullopt;
        m_run.confidence = std::clamp(m_run.confidence / m_weight, 0.0f, 1.0f);
        if (qsizetype(m_run.characterBoxes.size()) != graphemeCount(m_run.text))
            m_run.characterBoxes.clear();
        else
            putCharactersInPlace();
        return std::move(m_run);
    }

private:
    static constexpr QChar bullet{0x2022};

    void putCharactersInPlace()
    {
        CharacterGrid::closeFalseGaps(m_run.text, m_run.characterBoxes);
        CharacterOrder::dropStrays(m_run.text, m_run.characterBoxes);
        CharacterPlaces::followInk(m_run.text, m_ink, m_run.characterBoxes);
    }

    // The models know no bullets and see letters in them.
    bool isBullet(const QString& text, const tesseract::ResultIterator& at, const QRectF& box) const
    {
        if (text.size() != 1 || text == "." || at.IsAtFinalElement(RIL_TEXTLINE, RIL_WORD))
            return false;
        const DarkArea dark(m_ink, box.toAlignedRect().intersected(m_ink.rect()));
        return dark.isDot() && dark.box.height() * 2 <= m_ink.height();
    }

    void addSymbols(tesseract::ResultIterator at)
    {
        do {
            const auto box = boxAt(at, RIL_SYMBOL);
            for (qsizetype count = graphemeCount(textAt(at, RIL_SYMBOL)); count > 0; --count)
                m_run.characterBoxes.push_back(box);
        } while (!at.IsAtFinalElement(RIL_WORD, RIL_SYMBOL) && at.Next(RIL_SYMBOL));
    }

    const QImage& m_ink;
    TesseractEngine::Run m_run;
    float m_weight = 0;
};

} // namespace

TesseractEngine::TesseractEngine(Kind kind) : m_kind(std::move(kind)), m_library(new tesseract::TessBaseAPI) {}

TesseractEngine::~TesseractEngine() = default;

std::expected<std::unique_ptr<TesseractEngine>, QString> TesseractEngine::make(const Kind& kind)
{
    std::unique_ptr<TesseractEngine> engine(new TesseractEngine(kind));
    if (!engine->load())
        return std::unexpected(
            QCoreApplication::translate("TesseractEngine",
                                        "The language data for text recognition (%1) in %2 can't be used.")
                .arg(kind.models.join(", "), LanguageData::folder()));
    return engine;
}

bool TesseractEngine::load()
{
    const WordListFile words(m_kind.customWords);
    const std::vector<std::string> names{"debug_file", "user_words_file", "tessedit_do_invert"};
    const std::vector<std::string> values{"/dev/null", m_kind.correctsLanguage ? words.path() : "", "0"};
    m_library->SetVariable("debug_file", "/dev/null");
    return m_library->Init(LanguageData::folder().toUtf8(), 0, m_kind.models.join('+').toUtf8(),
                           tesseract::OEM_LSTM_ONLY, nullptr, 0, &names, &values, false,
                           m_kind.correctsLanguage ? nullptr : &LanguageData::readWithoutWordLists) == 0;
}

// Taken as they are, single letters are often seen twice; as a line of a page, some turn into others.
std::optional<TesseractEngine::Run> TesseractEngine::read(const QImage& ink)
{
    std::optional<Run> run = read(ink, tesseract::PSM_RAW_LINE);
    if (ink.width() >= shortLine * ink.height())
        return run;
    std::optional<Run> other = read(ink, tesseract::PSM_SINGLE_LINE);
    return other && (!run || other->confidence > run->confidence) ? other : run;
}

std::optional<TesseractEngine::Run> TesseractEngine::read(const QImage& ink, int segmentation)
{
    m_library->SetPageSegMode(tesseract::PageSegMode(segmentation));
    m_library->SetImage(ink.constBits(), ink.width(), ink.height(), 1, int(ink.bytesPerLine()));
    m_library->SetSourceResolution(dotsPerInch);
    m_library->Recognize(nullptr);
    RunBuilder builder(ink);
    if (const std::unique_ptr<tesseract::ResultIterator> at{m_library->GetIterator()}) {
        do
            builder.addWord(*at);
        while (at->Next(RIL_WORD));
    }
    m_library->Clear();
    return builder.finished();
}

} // namespace Kovrel
