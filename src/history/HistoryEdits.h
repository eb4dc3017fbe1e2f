#pragma once

#include "editor/document/EditedCaptures.h"
#include "history/CaptureHistoryStore.h"

namespace Kovrel {

// The history as editors see it. Main thread.
class HistoryEdits : public EditedCaptures {
public:
    HistoryEdits(MainLoop& loop, Workers& workers, CaptureHistoryStore& store);

    bool has(QUuid id) const override { return m_store.status(id) != CaptureOCRStore::Status::none; }

    bool takesNew() const override { return m_store.isRecording(); }

    void idOf(QString path, Reply<std::optional<QUuid>> reply) override;
    void add(EditorCapture capture, QString path) override;
    void remove(QUuid id) override;
    void open(QUuid id, Reply<std::optional<Opened>> reply) override;
    void keep(Edit edit, Reply<std::expected<void, QString>> reply) override;

private:
    QCoro::Task<> read(QUuid id, Reply<std::optional<Opened>> reply);
    QCoro::Task<> find(QString path, Reply<std::optional<QUuid>> reply);

    MainLoop& m_loop;
    CaptureHistoryStore& m_store;
    Scope m_scope;
};

} // namespace Kovrel
