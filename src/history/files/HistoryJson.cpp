#include "history/files/HistoryJson.h"

#include "editor/json/JSONElements.h"
#include "editor/json/JSONNumber.h"

#include <nlohmann/json.hpp>
#include <simdjson.h>

#include <array>
#include <cmath>

namespace Kovrel {

namespace {

using Json = nlohmann::ordered_json;
using simdjson::dom::element;

constexpr qint64 beginning = 978307200000; // of 2001, in milliseconds since 1970

// An element that is not what it should be. The library's own errors mean the same.
struct NotARecord {};

// --- Writing

// Puts values one after the other, in the order in which they are stored.
class Writer {
public:
    // The elements with commas between them.
    template <class Records>
    void putArray(const Records& records)
    {
        char separator = '[';
        for (const auto& record : records) {
            m_json += std::exchange(separator, ',');
            put(record);
        }
        m_json += separator == '[' ? "[]" : "]";
    }

    void put(const HistoryEntry& entry)
    {
        putFirst("id", entry.id);
        putNext("date", entry.date);
        putNext("mode", entry.mode);
        putNext("pixelScale", entry.pixelScale);
        putNext("savedPath", entry.savedPath);
        putNext("title", entry.title);
        putNext("sourceBundleID", entry.sourceBundleID);
        putNext("sourceAppName", entry.sourceAppName);
        putNext("pixelWidth", entry.pixelWidth);
        putNext("pixelHeight", entry.pixelHeight);
        putNext("listOnly", entry.listOnly);
        putNext("subject", entry.subject);
        m_json += '}';
    }

    void put(const HistoryList& list)
    {
        putFirst("id", list.id);
        putNext("name", list.name);
        putNext("colorHex", list.colorHex);
        putNext("createdAt", list.createdAt);
        putNext("entryIDs", list.entryIDs);
        m_json += '}';
    }

    QByteArray json() { return std::move(m_json); }

private:
    void put(const CaptureSubject& subject)
    {
        const Rect& rect = subject.rect;
        putFirst("rect", std::array{std::array{rect.x, rect.y}, std::array{rect.width, rect.height}});
        putNext("cornerRadius", subject.cornerRadius);
        m_json += '}';
    }

    template <class T>
    void putFirst(const char* key, const T& value)
    {
        m_json += "{\"";
        putPair(key, value);
    }

    template <class T>
    void putNext(const char* key, const T& value)
    {
        m_json += ",\"";
        putPair(key, value);
    }

    template <class T>
    void putNext(const char* key, const std::optional<T>& value)
    {
        if (value)
            putNext(key, *value);
    }

    template <class T>
    void putPair(const char* key, const T& value)
    {
        m_json += key;
        m_json += "\":";
        put(value);
    }

    void put(const QString& text)
    {
        m_json += Json(text.toStdString()).dump(-1, ' ', false, Json::error_handler_t::replace);
    }

    void put(double number) { m_json += jsonNumber(number).dump(); }

    void put(int number) { m_json += QByteArray::number(number); }

    void put(bool isTrue) { m_json += isTrue ? "true" : "false"; }

    void put(QUuid id) { m_json += '"' + id.toByteArray(QUuid::WithoutBraces).toUpper() + '"'; }

    void put(const QDateTime& date) { put(double(date.toMSecsSinceEpoch() - beginning) / 1000); }

    void put(const std::vector<QUuid>& ids) { putArray(ids); }

    template <class T>
    void put(const std::array<T, 2>& pair)
    {
        putArray(pair);
    }

    QByteArray m_json;
};

template <class Records>
QByteArray arrayOf(const Records& records)
{
    Writer writer;
    writer.putArray(records);
    return writer.json();
}

// --- Reading

void read(element value, QString& text)
{
    const std::string_view utf8 = value;
    text = QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
}

void read(element value, double& number)
{
    number = value.get_double();
}

void read(element value, bool& isTrue)
{
    isTrue = value.get_bool();
}

// A number of pixels.
void read(element value, int& number)
{
    const double wanted = value.get_double();
    if (!(wanted >= 1 && wanted <= std::numeric_limits<int>::max()) || wanted != std::trunc(wanted))
        throw NotARecord();
    number = int(wanted);
}

void read(element value, QUuid& id)
{
    constexpr size_t length = 36;
    const std::string_view text = value;
    id = text.size() == length ? QUuid::fromString(QLatin1StringView(QByteArrayView(text))) : QUuid();
    if (id.isNull())
        throw NotARecord();
}

// Only dates that a calendar has.
void read(element value, QDateTime& date)
{
    constexpr double farthest = 2.5e11; // seconds; some 8,000 years
    const double seconds = value.get_double();
    if (!(std::abs(seconds) < farthest))
        throw NotARecord();
    // In UTC, since local time asks for the time zone's file 20,000 times.
    date = QDateTime::fromMSecsSinceEpoch(std::llround(seconds * 1000) + beginning, Qt::UTC);
}

void read(element value, CaptureSubject& subject)
{
    Rect& rect = subject.rect;
    read(value["rect"].at(0).at(0), rect.x);
    read(value["rect"].at(0).at(1), rect.y);
    read(value["rect"].at(1).at(0), rect.width);
    read(value["rect"].at(1).at(1), rect.height);
    read(value["cornerRadius"], subject.cornerRadius);
}

void read(element value, std::vector<QUuid>& ids)
{
    for (const element id : value.get_array())
        read(id, ids.emplace_back());
}

template <class T>
void read(element value, std::optional<T>& field)
{
    if (!value.is_null())
        read(value, field.emplace());
}

void read(element value, HistoryEntry& entry)
{
    read(value["id"], entry.id);
    read(value["date"], entry.date);
    read(value["mode"], entry.mode);
    read(value["pixelScale"], entry.pixelScale);
    const auto readIfPresent = [&value](const char* key, auto& field) {
        element found;
        if (value[key].get(found) == simdjson::SUCCESS)
            read(found, field);
    };
    readIfPresent("savedPath", entry.savedPath);
    readIfPresent("title", entry.title);
    readIfPresent("sourceBundleID", entry.sourceBundleID);
    readIfPresent("sourceAppName", entry.sourceAppName);
    readIfPresent("pixelWidth", entry.pixelWidth);
    readIfPresent("pixelHeight", entry.pixelHeight);
    readIfPresent("listOnly", entry.listOnly);
    readIfPresent("subject", entry.subject);
}

void read(element value, HistoryList& list)
{
    read(value["id"], list.id);
    read(value["name"], list.name);
    read(value["colorHex"], list.colorHex);
    read(value["createdAt"], list.createdAt);
    read(value["entryIDs"], list.entryIDs);
}

template <class Records>
class ArrayReader {
public:
    using Reading = HistoryJson::Reading<Records>;

    // An array that is whole.
    std::optional<Reading> read(const QByteArray& json)
    {
        element whole;
        if (m_parser.parse(json.constData(), size_t(json.size())).get(whole) != simdjson::SUCCESS)
            return readLeniently({json.constData(), size_t(json.size())});
        if (!whole.is_array())
            return std::nullopt;
        for (const element value : whole.get_array())
            if (!take(value))
                ++m_reading.skipped;
        return std::move(m_reading);
    }

private:
    // One that is not, as far as it goes. Behind an element that is broken it goes on at what looks like a next record.
    std::optional<Reading> readLeniently(std::string_view json)
    {
        std::optional<std::string_view> array = JSONElements::inArray(json);
        if (!array)
            return std::nullopt;
        while (array && m_reading.skipped < mostFaults)
            array = readUpToAFault(*array);
        return std::move(m_reading);
    }

    // What is to be read next.
    std::optional<std::string_view> readUpToAFault(std::string_view array)
    {
        JSONElements elements(array);
        for (std::string_view rest = array; !JSONElements::isBlank(rest); rest = elements.rest()) {
            const auto value = elements.next();
            const bool isGood = JSONElements::isBlank(value.value_or(rest)) || take(value.value_or(rest));
            if (isGood && value)
                continue;
            if (isGood)
                break;
            ++m_reading.skipped;
            const size_t next = rest.find("{\"id\"", rest.find('{') + 1);
            return next == std::string_view::npos ? std::nullopt : std::optional(rest.substr(next));
        }
        return std::nullopt;
    }

    bool take(std::string_view json)
    {
        element value;
        return m_parser.parse(json.data(), json.size()).get(value) == simdjson::SUCCESS && take(value);
    }

    bool take(element value)
    {
        try {
            typename Records::value_type record;
            Kovrel::read(value, record);
            m_reading.records.push_back(std::move(record));
            return true;
        } catch (const NotARecord&) {
            return false;
        } catch (const simdjson::simdjson_error&) {
            return false;
        }
    }

    static constexpr qsizetype mostFaults = 1000; // each costs a look at what follows it
    simdjson::dom::parser m_parser;
    Reading m_reading;
};

} // namespace

nlohmann::ordered_json HistoryJson::json(const HistoryEntry& entry)
{
    Writer writer;
    writer.put(entry);
    const QByteArray text = writer.json();
    return Json::parse(text.begin(), text.end());
}

QByteArray HistoryJson::encoded(const QList<HistoryEntry>& entries)
{
    return arrayOf(entries);
}

QByteArray HistoryJson::encoded(const std::vector<HistoryList>& lists)
{
    return arrayOf(lists);
}

std::optional<HistoryJson::Reading<QList<HistoryEntry>>> HistoryJson::entries(const QByteArray& json)
{
    return ArrayReader<QList<HistoryEntry>>().read(json);
}

std::optional<HistoryJson::Reading<std::vector<HistoryList>>> HistoryJson::lists(const QByteArray& json)
{
    return ArrayReader<std::vector<HistoryList>>().read(json);
}

} // namespace Kovrel
