#include "app/commands/HistoryCommand.h"

#include "history/files/HistoryJson.h"
#include "model/PrintableText.h"
#include "model/TextFolding.h"

#include <QFileInfo>

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

// What people know a capture by besides its picture.
QString words(const HistoryEntry& entry)
{
    const QStringList fields{entry.title.value_or(QString()), entry.sourceAppName.value_or(QString()),
                             entry.sourceBundleID.value_or(QString()),
                             QFileInfo(entry.savedPath.value_or(QString())).fileName(), entry.mode};
    return TextFolding::comparable(fields.join('\n'));
}

bool hasTerms(const HistoryEntry& entry, const std::vector<std::string>& terms)
{
    const QString all = words(entry);
    return std::ranges::all_of(terms, [&all](const std::string& term) {
        return all.contains(TextFolding::comparable(QString::fromStdString(term)));
    });
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

QString plain(const QList<HistoryEntry>& entries)
{
    QString text;
    for (const HistoryEntry& entry : entries)
        text += line(entry);
    return text;
}

QString json(const QList<HistoryEntry>& entries)
{
    Json list = Json::array();
    for (const HistoryEntry& entry : entries) {
        list.push_back(HistoryJson::json(entry));
        list.back()["matches"] = Json::array();
    }
    return QString::fromStdString(list.dump(-1, ' ', false, Json::error_handler_t::replace)) + '\n';
}

} // namespace

QList<HistoryEntry> HistoryCommand::narrowed(const Command& command, const HistoryState& history)
{
    const QString kind = option(command, "kind");
    const QString app = option(command, "app");
    const QString date = option(command, "date");
    const QSet<QUuid> members = membersOf(history, option(command, "list"));
    QList<HistoryEntry> found;
    std::ranges::copy_if(history.entries, std::back_inserter(found), [&](const HistoryEntry& entry) {
        return (!command.has("kind") || entry.mode == kind) && (!command.has("app") || isOfApp(entry, app)) &&
               (!command.has("list") || members.contains(entry.id)) &&
               entry.date.toLocalTime().toString("yyyy-MM-dd").startsWith(date) && hasTerms(entry, command.operands);
    });
    return found;
}

CommandAnswer HistoryCommand::run(const Command& command, const HistoryState& history)
{
    const QList<HistoryEntry> found = narrowed(command, history);
    CommandAnswer answer{.output = command.has("json") ? json(found) : plain(found)};
    if (found.isEmpty()) {
        answer.exitCode = CommandLine::nothingThere;
        answer.error = "there is no such capture in the history";
    }
    return answer;
}

} // namespace Kovrel
