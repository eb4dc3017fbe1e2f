#include "app/commands/HistoryCommand.h"

#include "history/files/HistoryJson.h"
#include "history/search/HistoryDateRange.h"
#include "history/search/HistorySearch.h"
#include "model/text/PrintableText.h"
#include "model/text/TextFolding.h"
#include "recognition/RecognitionJson.h"
#include "recognition/text/TextFind.h"

#include <nlohmann/json.hpp>

namespace Kovrel {

namespace {

using Json = nlohmann::ordered_json;

QString option(const Command& command, const char* name)
{
    const auto found = command.options.find(name);
    return found == command.options.end() ? QString() : QString::fromStdString(found->second);
}

bool isSame(const QString& one, const QString& other)
{
    return TextFolding::comparable(one) == TextFolding::comparable(other);
}

bool isOfApp(const HistoryEntry& entry, const QString& app)
{
    return isSame(entry.sourceBundleID.value_or(QString()), app) ||
           isSame(entry.sourceAppName.value_or(QString()), app);
}

QSet<QUuid> membersOf(const HistoryState& history, const QString& list)
{
    QSet<QUuid> members;
    for (const HistoryList& other : history.lists)
        if (isSame(other.name, list))
            members.unite(QSet<QUuid>(other.entryIDs.begin(), other.entryIDs.end()));
    return members;
}

HistorySearch::Query queryOf(const Command& command)
{
    QString words;
    for (const std::string& term : command.operands)
        words += QString::fromStdString(term) + ' ';
    return HistorySearch::parse(words);
}

const IndexedText* textOf(const HistoryTexts& texts, QUuid id)
{
    return texts.value(id).get();
}

// The captures that the command asks for, newest first.
std::vector<HistoryEntry> narrowed(const Command& command, const HistoryCommand::History& history)
{
    const QString kind = option(command, "kind");
    const QString app = option(command, "app");
    const auto dates = HistoryDateRange::parse(option(command, "date"));
    const auto span = dates ? std::optional(dates->span(history.now)) : std::nullopt;
    const QSet<QUuid> members = membersOf(history.state, option(command, "list"));
    std::vector<HistoryEntry> found;
    std::ranges::copy_if(history.state.entries, std::back_inserter(found), [&](const HistoryEntry& entry) {
        return (!command.has("kind") || entry.mode == kind) && (!command.has("app") || isOfApp(entry, app)) &&
               (!command.has("list") || members.contains(entry.id)) && (!span || span->contains(entry.date));
    });
    return HistorySearch::narrow(found, queryOf(command), [&](QUuid id) { return textOf(history.texts, id); });
}

QString line(const HistoryEntry& entry)
{
    const QStringList fields{entry.date.toLocalTime().toString("yyyy-MM-dd HH:mm:ss"), entry.mode,
                             entry.sourceAppName.value_or(QString()),
                             entry.title.value_or(entry.savedPath.value_or(QString()))};
    QStringList printable;
    for (const QString& field : fields)
        printable << PrintableText::of(field.simplified());
    return printable.join('\t') + '\n';
}

QString plain(const std::vector<HistoryEntry>& entries)
{
    QString text;
    for (const HistoryEntry& entry : entries)
        text += line(entry);
    return text;
}

// The boxes of the words that were found.
Json matches(const HistorySearch::Query& query, const IndexedText* text)
{
    constexpr int most = 200;
    Json boxes = Json::array();
    if (!text)
        return boxes;
    const std::vector<OCRLine> lines = text->lines();
    for (const QString& term : query.terms)
        for (const TextFind::Match& match : TextFind::matches(term, lines, most))
            for (const Rect& box : match.boxes)
                boxes.push_back(RecognitionJson::box(box));
    return boxes;
}

QString json(const std::vector<HistoryEntry>& entries, const HistorySearch::Query& query, const HistoryTexts& texts)
{
    Json list = Json::array();
    for (const HistoryEntry& entry : entries) {
        list.push_back(HistoryJson::json(entry));
        list.back()["matches"] = matches(query, textOf(texts, entry.id));
    }
    return QString::fromStdString(list.dump(-1, ' ', false, Json::error_handler_t::replace)) + '\n';
}

} // namespace

CommandAnswer HistoryCommand::run(const Command& command, const History& history)
{
    if (command.has("date") && !HistoryDateRange::parse(option(command, "date")))
        return {.exitCode = CommandLine::usageError,
                .error = "--date takes today, yesterday, 7d, 30d, 2026, 2026-11 or 2026-11-21"};
    const std::vector<HistoryEntry> found = narrowed(command, history);
    CommandAnswer answer{.output = command.has("json") ? json(found, queryOf(command), history.texts) : plain(found)};
    if (found.empty()) {
        answer.exitCode = CommandLine::nothingThere;
        answer.error = "there is no such capture in the history";
    }
    return answer;
}

} // namespace Kovrel
