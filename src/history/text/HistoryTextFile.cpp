#include "history/text/HistoryTextFile.h"

#include "history/text/HistorySidecars.h"
#include "platform/files/AtomicFile.h"
#include "recognition/OCRFile.h"

#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

#include <simdjson.h>

#include <charconv>

namespace Kovrel {

namespace {

Q_LOGGING_CATEGORY(log, "com.kovrel.history")

constexpr std::string_view beginning = "{\"v\":1,\"captures\":{\n";
constexpr std::string_view end = "}}\n";
constexpr size_t idLength = 36;
constexpr size_t beforeLines = idLength + 3; // "ID":

// --- Writing

void appendText(std::string& json, const std::string& text)
{
    json += '"';
    for (const char byte : text) {
        if (byte == '"' || byte == '\\')
            json += '\\';
        if (static_cast<unsigned char>(byte) < 0x20)
            json += "\\u00" + QByteArray(1, byte).toHex().toStdString();
        else
            json += byte;
    }
    json += '"';
}

void appendNumber(std::string& json, const char* key, double value)
{
    std::array<char, 32> digits{};
    const auto written = std::to_chars(digits.begin(), digits.end(), value);
    json += key;
    json.append(digits.begin(), written.ptr);
}

void appendLine(std::string& json, const OCRLine& line)
{
    const Rect& box = line.boundingBox;
    json += R"({"t":)";
    appendText(json, line.text.toStdString());
    appendNumber(json, R"(,"x":)", box.x);
    appendNumber(json, R"(,"y":)", box.y);
    appendNumber(json, R"(,"w":)", box.width);
    appendNumber(json, R"(,"h":)", box.height);
    json += '}';
}

void appendCapture(std::string& json, const QUuid& id, const IndexedText& text)
{
    json += '"' + id.toByteArray(QUuid::WithoutBraces).toUpper().toStdString() + "\":[";
    bool isFirst = true;
    for (const OCRLine& line : text.lines()) {
        if (!std::exchange(isFirst, false))
            json += ',';
        appendLine(json, line);
    }
    json += ']';
}

// --- Reading

OCRLine lineFrom(simdjson::ondemand::object object)
{
    OCRLine line;
    const std::string_view text = object["t"];
    line.text = QString::fromUtf8(text.data(), qsizetype(text.size()));
    line.boundingBox = {object["x"], object["y"], object["w"], object["h"]};
    return line;
}

// `capacity`: how many bytes may be read, which is more than the array has.
std::shared_ptr<const IndexedText> textFrom(simdjson::ondemand::parser& parser, std::string_view array, size_t capacity)
{
    try {
        std::vector<OCRLine> lines;
        auto document = parser.iterate(array.data(), array.size(), capacity);
        for (simdjson::ondemand::object object : document.get_array())
            lines.push_back(lineFrom(object));
        return std::make_shared<const IndexedText>(lines);
    } catch (const simdjson::simdjson_error&) {
        return nullptr;
    }
}

QUuid idOf(std::string_view row)
{
    const bool hasID = row.size() > beforeLines && row.front() == '"' && row.substr(idLength + 1, 2) == "\":";
    return hasID ? QUuid::fromString(QLatin1StringView(row.data() + 1, qsizetype(idLength))) : QUuid();
}

void readRow(simdjson::ondemand::parser& parser, std::string_view row, size_t capacity, HistoryTexts& texts)
{
    const QUuid id = idOf(row);
    if (id.isNull())
        return;
    if (row.back() == ',')
        row.remove_suffix(1);
    if (auto text = textFrom(parser, row.substr(beforeLines), capacity - beforeLines))
        texts.insert(id, std::move(text));
}

// --- Sidecars

QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::shared_ptr<const IndexedText> textOfSidecar(const QString& path)
{
    const std::optional<OCRFile> file = OCRFile::decoded(content(path));
    return file && file->text ? std::make_shared<const IndexedText>(file->textWithCodes().lines) : nullptr;
}

} // namespace

QString HistoryTextFile::path(const QString& folder)
{
    return folder + "/search-index.json";
}

QByteArray HistoryTextFile::encoded(const HistoryTexts& texts)
{
    std::string json(beginning);
    bool isFirst = true;
    for (const auto& [id, text] : texts.asKeyValueRange()) {
        if (!std::exchange(isFirst, false))
            json += ",\n";
        appendCapture(json, id, *text);
    }
    return QByteArray::fromStdString(json += '\n').append(end.data(), qsizetype(end.size()));
}

HistoryTexts HistoryTextFile::decoded(const QByteArray& json)
{
    HistoryTexts texts;
    const std::string padded = json.toStdString() + std::string(simdjson::SIMDJSON_PADDING, ' ');
    std::string_view rest(padded.data(), size_t(json.size()));
    if (!rest.starts_with(beginning))
        return texts;
    simdjson::ondemand::parser parser;
    for (rest.remove_prefix(beginning.size()); !rest.empty();) {
        const std::string_view row = rest.substr(0, rest.find('\n'));
        readRow(parser, row, rest.size() + simdjson::SIMDJSON_PADDING, texts);
        rest.remove_prefix(std::min(row.size() + 1, rest.size()));
    }
    return texts;
}

bool HistoryTextFile::write(const QString& folder, const HistoryTexts& texts)
{
    const auto outcome = AtomicFile::write(path(folder), encoded(texts), AtomicFile::Access::onlyOwner);
    if (!outcome)
        qCWarning(log, "text index not written: %s", qUtf8Printable(outcome.error().message));
    return outcome.has_value();
}

HistoryTextFile::Loaded HistoryTextFile::load(const QString& folder)
{
    Loaded loaded;
    const auto written = HistorySidecars::modified(path(folder));
    const HistoryTexts stored = written ? decoded(content(path(folder))) : HistoryTexts();
    for (const auto& [id, sidecar] : HistorySidecars::in(folder).asKeyValueRange()) {
        const auto known = stored.constFind(id);
        const bool isCurrent = known != stored.cend() && written && sidecar.modified <= *written;
        if (const auto text = isCurrent ? *known : textOfSidecar(sidecar.path))
            loaded.texts.insert(id, text);
        loaded.isAsStored &= isCurrent;
    }
    loaded.isAsStored &= loaded.texts.size() == stored.size();
    return loaded;
}

bool HistoryTextFile::remove(const QString& folder, const QSet<QUuid>& ids)
{
    HistoryTexts texts = load(folder).texts;
    for (const QUuid& id : ids)
        texts.remove(id);
    return write(folder, texts);
}

} // namespace Kovrel
