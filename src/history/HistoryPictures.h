#pragma once

#include "editor/backdrop/EditorBackdrop.h"
#include "editor/marks/Annotation.h"
#include "history/PendingWrites.h"
#include "history/files/HistoryFiles.h"
#include "platform/Guarded.h"
#include "platform/Scope.h"

#include <QImage>

namespace Kovrel {

// Reads the files of captures, behind the writes that are under way. Main thread; what is not there is null or no
// value.
class HistoryPictures {
public:
    HistoryPictures(MainLoop& loop, Workers& workers, HistoryFiles files, PendingWrites& writes)
        : m_files(std::move(files)), m_writes(writes), m_scope(loop, workers)
    {
    }

    void full(QUuid id, Reply<QImage> reply);
    void base(QUuid id, Reply<QImage> reply);
    void fullPath(QUuid id, Reply<QString> reply);
    void annotations(QUuid id, Reply<std::optional<std::vector<Annotation>>> reply);
    void backdrop(QUuid id, Reply<std::optional<EditorBackdrop>> reply);

private:
    template <class T>
    using Job = std::function<T(const HistoryFiles&)>;

    template <class T>
    void read(QUuid id, Job<T> job, Reply<T> reply)
    {
        Scope::start(readSettled<T>(id, std::move(job), std::move(reply)), "reading a capture");
    }

    template <class T>
    QCoro::Task<> readSettled(QUuid id, Job<T> job, Reply<T> reply)
    {
        co_await m_scope.reply<Nothing>([&](auto landed) { m_writes.whenSettled(id, [landed] { landed({}); }); });
        const auto read = [files = m_files, job] { return job(files); };
        const T found = co_await m_scope.onWorker(Lane::history, Guarded::orElse(read, T()));
        reply(found);
    }

    HistoryFiles m_files;
    PendingWrites& m_writes;
    Scope m_scope;
};

} // namespace Kovrel
