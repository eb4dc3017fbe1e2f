#pragma once

#include <QFile>
#include <QString>
#include <QStringList>

#include <mutex>

namespace Kovrel {

// Remembers on disk which empty files this process is about to create to reserve their names, so that those which a
// killed process left behind can be taken away. One private file for each process, locked while the process lives.
// Safe on any thread.
class ReservationJournal {
public:
    // The folder is made when it is missing. Without a place to write to, nothing is remembered.
    explicit ReservationJournal(const QString& folder);
    ~ReservationJournal();
    ReservationJournal(const ReservationJournal&) = delete;
    ReservationJournal& operator=(const ReservationJournal&) = delete;

    void note(const QString& path);  // before the file is created
    void clear(const QString& path); // once it has its content or is gone

    // Removes what dead processes reserved and left empty.
    static void sweep(const QString& folder);

private:
    void write();

    std::mutex m_lock;
    QString m_path;
    QFile m_file;
    QStringList m_noted;
};

} // namespace Kovrel
