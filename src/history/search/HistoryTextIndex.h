#pragma once

#include "history/search/HistorySearch.h"
#include "history/text/HistoryTextFile.h"
#include "history/text/HistoryTexts.h"
#include "history/text/PacedSave.h"
#include "platform/Observers.h"
#include "platform/Scope.h"

#include <QSet>

#include <map>

namespace Kovrel {

// The words of all captures, by which they are found. Main thread; the file is read and written on a worker.
class HistoryTextIndex {
public:
    // While it lives, nothing is saved; then what has changed is saved once.
    class Batch {
    public:
        explicit Batch(HistoryTextIndex& index) : m_save(index.m_save) { m_save.beginBatch(); }

        ~Batch() { m_save.endBatch(); }

        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;

    private:
        PacedSave& m_save;
    };

    HistoryTextIndex(MainLoop& loop, Workers& workers);

    // Loads what the history's folder has, and saves there from then on. What was set or removed before it is loaded
    // stays so. Where no thread can be had for it, it stays as it was, and its observers are told.
    void attach(const QString& folder);

    bool isLoading() const { return m_state == State::loading; }

    bool isLoaded() const { return m_state == State::loaded; }

    // Told of every change.
    Subscription onChange(std::function<void()> observer) { return m_observers.add(std::move(observer)); }

    // Grows with every change.
    int generation() const { return m_generation; }

    // What was read in a capture; no lines stand for a capture without text. With a token of before the capture
    // changed, it is left out.
    void set(const std::vector<OCRLine>& lines, QUuid id, std::optional<int> token = {});

    // Belongs to the picture that a capture has now.
    int token(QUuid id) const { return m_tokens.value(id); }

    // The capture was deleted or looks different now: its words go from memory at once and from the file soon.
    void remove(QUuid id);
    // The captures that there are: the words of all others go.
    void retain(const QSet<QUuid>& ids);

    // Whether the text of a capture is known, also that it has none.
    bool knows(QUuid id) const { return m_texts.contains(id); }

    // For a search on another thread.
    HistoryTexts texts() const { return m_texts; }

    // As `IndexedText::lines`; none where nothing is known.
    std::vector<OCRLine> findLines(QUuid id) const;
    // Where a capture's lines have the terms of a query, in the lines' coordinates; at most 200 of each term.
    std::vector<Rect> hits(QUuid id, const HistorySearch::Query& query);

    // The last moment: `folder` gets what has changed, and keeps nothing of what was removed, without the main thread.
    void writeLast(const QString& folder);

private:
    enum class State { unknown, loading, loaded };

    QCoro::Task<> load(QString folder);
    void takeLoaded(const HistoryTextFile::Loaded& loaded);
    void merge(const HistoryTexts& stored);
    void put(QUuid id, std::shared_ptr<const IndexedText> text);
    bool erase(QUuid id);
    void changed(std::optional<MainLoop::Milliseconds> delay);
    MainLoop::Milliseconds pace() const;
    std::vector<Rect> foundRects(QUuid id, const HistorySearch::Query& query) const;

    Workers& m_workers;
    QString m_folder; // empty until it is attached
    State m_state = State::unknown;
    int m_generation = 0;
    HistoryTexts m_texts;
    size_t m_bytes = 0;
    QHash<QUuid, int> m_tokens;
    QSet<QUuid> m_touched;                 // before it was loaded
    std::optional<QSet<QUuid>> m_retained; // likewise
    std::map<std::pair<QByteArray, std::vector<QString>>, std::vector<Rect>> m_hits;
    Observers<> m_observers;
    PacedSave m_save;
    Scope m_scope;
};

} // namespace Kovrel
