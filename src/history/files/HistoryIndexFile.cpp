#include "history/files/HistoryIndexFile.h"

#include "history/files/FolderLock.h"
#include "history/files/HistoryJson.h"
#include "history/files/Quarantine.h"
#include "history/records/HistoryLists.h"
#include "history/records/HistoryMerge.h"
#include "platform/files/AtomicFile.h"
#include "platform/files/PrivateFolder.h"
#include "platform/files/RegularFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

#include <map>

namespace Kovrel {

namespace {

constexpr qint64 mostBytes = 512 << 20;

enum class Condition {
    good,
    missing,
    damaged,    // not all of it could be read
    unreadable, // nothing could
    refused,    // it is there, but the system does not give it out now
};

template <class Records>
struct Part {
    Records records;
    Condition condition = Condition::good;
};

template <class Records>
Part<Records> readPart(const QString& path,
                       std::optional<HistoryJson::Reading<Records>> (*decode)(const QByteArray& json))
{
    if (!QFileInfo::exists(path))
        return {.condition = Condition::missing};
    const auto json = RegularFile::read(path, mostBytes);
    if (!json && QFileInfo(path).isFile() && QFileInfo(path).size() <= mostBytes)
        return {.condition = Condition::refused};
    auto reading = json ? decode(*json) : std::nullopt;
    if (!reading)
        return {.condition = Condition::unreadable};
    return {std::move(reading->records), reading->skipped == 0 ? Condition::good : Condition::damaged};
}

struct Content {
    Part<QList<HistoryEntry>> entries;
    Part<std::vector<HistoryList>> lists;

    bool isRefused() const { return entries.condition == Condition::refused || lists.condition == Condition::refused; }
};

// What the system refuses now may be whole: nothing follows from it.
std::expected<Content, QString> readContent(const HistoryFiles& files)
{
    Content content{readPart(files.index(), HistoryJson::entries), readPart(files.lists(), HistoryJson::lists)};
    if (content.isRefused())
        return std::unexpected(
            QCoreApplication::translate("HistoryIndexFile", "The index in %1 can't be read now.").arg(files.folder()));
    return content;
}

// The answer is which there are.
template <class Records>
QSet<QUuid> keepFirstOfEach(Records& records)
{
    QSet<QUuid> seen;
    seen.reserve(qsizetype(records.size()));
    const auto isSeen = [&seen](const auto& record) {
        const auto size = seen.size();
        seen.insert(record.id);
        return seen.size() == size;
    };
    erase_if(records, isSeen);
    return seen;
}

// Those of one date keep their order.
void sortNewestFirst(QList<HistoryEntry>& entries)
{
    if (std::ranges::is_sorted(entries, std::greater(), &HistoryEntry::date))
        return;
    std::multimap<QDateTime, HistoryEntry, std::greater<>> sorted;
    for (HistoryEntry& entry : entries)
        sorted.emplace(entry.date, std::move(entry));
    entries.clear();
    for (auto& [date, entry] : sorted)
        entries << std::move(entry);
}

// As it should be, whoever has written it.
void tidy(HistoryState& state, const QSet<QUuid>& pictures)
{
    state.entries.removeIf([&](const HistoryEntry& entry) { return !pictures.contains(entry.id); });
    const QSet<QUuid> known = keepFirstOfEach(state.entries);
    sortNewestFirst(state.entries);
    keepFirstOfEach(state.lists);
    HistoryLists::keepOnly(state.lists, known);
    HistoryLists::collapseToOneEach(state.lists);
}

bool isFaulty(Condition condition)
{
    return condition == Condition::damaged || condition == Condition::unreadable;
}

// What must not be replaced before somebody can look into it.
bool putAside(const HistoryFiles& files, const QString& path, Condition condition)
{
    if (!isFaulty(condition))
        return true;
    return Quarantine(files).take(path, condition == Condition::damaged ? Quarantine::Original::stays
                                                                        : Quarantine::Original::moves);
}

// Nobody has removed what can't be read.
template <class Records>
Records known(const Part<Records>& part, const Records& base)
{
    if (part.condition == Condition::good)
        return part.records;
    Records all = base;
    std::ranges::copy(part.records, std::back_inserter(all));
    keepFirstOfEach(all);
    return all;
}

std::expected<void, QString> replace(const QString& path, const QByteArray& json)
{
    const auto written = AtomicFile::writeThrough(path, json, AtomicFile::Access::onlyOwner);
    return written ? std::expected<void, QString>() : std::unexpected(written.error().message);
}

QString unreadableFolder(const HistoryFiles& files)
{
    return QCoreApplication::translate("HistoryIndexFile", "The folder %1 can't be read.").arg(files.folder());
}

QString unusableFolder(const HistoryFiles& files)
{
    return QCoreApplication::translate("HistoryIndexFile", "The folder %1 can't be made.").arg(files.folder());
}

} // namespace

HistoryIndexFile::Stamp HistoryIndexFile::stampOf(const QString& path)
{
    struct stat status{};
    if (::stat(QFile::encodeName(path), &status) != 0)
        return {};
    return {status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

HistoryIndexFile::Stamps HistoryIndexFile::stamps() const
{
    return {stampOf(m_files.index()), stampOf(m_files.lists())};
}

HistoryIndexFile::Outcome HistoryIndexFile::peek(const HistoryFiles& files)
{
    const auto pictures = files.captures();
    if (!pictures)
        return std::unexpected(unreadableFolder(files));
    auto content = readContent(files);
    if (!content)
        return std::unexpected(content.error());
    HistoryState state{std::move(content->entries.records), std::move(content->lists.records)};
    tidy(state, *pictures);
    return state;
}

HistoryIndexFile::Outcome HistoryIndexFile::load()
{
    return write({}, {}, {});
}

HistoryIndexFile::Outcome HistoryIndexFile::write(const HistoryState& base, const HistoryState& ours,
                                                  const QSet<QUuid>& deleted)
{
    if (!PrivateFolder::make(m_files.folder()))
        return std::unexpected(unusableFolder(m_files));
    const FolderLock lock(m_files.lock());
    const HistoryState known{base.entries, m_listsAhead.value_or(base.lists)};
    const Outcome there = stamps() == m_stamps ? m_disk : theirs(known);
    if (!there)
        return there;
    HistoryState state = HistoryMerge::merged(known, ours, *there);
    if (const auto written = putOrMakeRoom(state, ours, deleted); !written)
        return std::unexpected(written.error());
    forgetFiles(deleted);
    return state;
}

// People delete when their disk is full. A record without its picture is none, so pictures may go before it does.
std::expected<void, QString> HistoryIndexFile::putOrMakeRoom(const HistoryState& state, const HistoryState& ours,
                                                             const QSet<QUuid>& deleted)
{
    auto written = put(state, ours);
    if (written || deleted.isEmpty())
        return written;
    forgetFiles(deleted);
    return put(state, ours);
}

HistoryIndexFile::Outcome HistoryIndexFile::theirs(const HistoryState& base)
{
    const auto pictures = m_files.captures();
    if (!pictures)
        return std::unexpected(unreadableFolder(m_files));
    const Stamps stamps = this->stamps();
    const auto content = readContent(m_files);
    if (!content)
        return std::unexpected(content.error());
    if (!putAside(m_files, m_files.index(), content->entries.condition) ||
        !putAside(m_files, m_files.lists(), content->lists.condition))
        return std::unexpected(
            QCoreApplication::translate("HistoryIndexFile", "What is damaged in %1 can't be put aside.")
                .arg(m_files.folder()));
    m_disk = {content->entries.records, content->lists.records};
    m_stamps = stamps;
    if (isFaulty(content->entries.condition))
        m_stamps.index.reset();
    if (isFaulty(content->lists.condition))
        m_stamps.lists.reset();
    HistoryState state{known(content->entries, base.entries), known(content->lists, base.lists)};
    tidy(state, *pictures);
    return state;
}

// The lists first: an index never holds captures whose lists are not there.
std::expected<void, QString> HistoryIndexFile::put(const HistoryState& state, const HistoryState& ours)
{
    if (auto written = putLists(state); !written)
        return written;
    m_listsAhead = ours.lists;
    if (auto written = putEntries(state); !written)
        return written;
    m_listsAhead.reset();
    return {};
}

std::expected<void, QString> HistoryIndexFile::putLists(const HistoryState& state)
{
    if (m_stamps.lists && state.lists == m_disk.lists)
        return {};
    if (auto written = replace(m_files.lists(), HistoryJson::encoded(state.lists)); !written)
        return written;
    m_disk.lists = state.lists;
    m_stamps.lists = stampOf(m_files.lists());
    return {};
}

std::expected<void, QString> HistoryIndexFile::putEntries(const HistoryState& state)
{
    if (m_stamps.index && state.entries == m_disk.entries)
        return {};
    if (auto written = replace(m_files.index(), HistoryJson::encoded(state.entries)); !written)
        return written;
    m_disk.entries = state.entries;
    m_stamps.index = stampOf(m_files.index());
    return {};
}

void HistoryIndexFile::forgetFiles(const QSet<QUuid>& deleted) const
{
    for (const QUuid id : deleted)
        m_files.remove(id);
    if (!deleted.isEmpty())
        Quarantine(m_files).forget(deleted);
}

} // namespace Kovrel
