#include "history/search/SearchFields.h"

#include "history/search/HistorySearch.h"
#include "model/text/TextFolding.h"

#include <QFileInfo>

namespace Kovrel {

namespace {

std::optional<QString> fileName(const HistoryEntry& entry)
{
    return entry.savedPath.transform([](const QString& path) { return QFileInfo(path).fileName(); });
}

// A line break in a file's name would end the field.
std::string folded(const QString& field)
{
    return TextFolding::comparable(field).replace(QChar(SearchFields::separator), u' ').toStdString();
}

} // namespace

std::string SearchFields::of(const HistoryEntry& entry)
{
    std::string fields;
    for (const auto& field :
         {entry.sourceAppName, entry.sourceBundleID, fileName(entry), HistorySearch::label(entry.mode)})
        if (field)
            fields += folded(*field) + separator;
    return fields;
}

} // namespace Kovrel
