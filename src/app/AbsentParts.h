#pragma once

#include "platform/MainLoop.h"
#include "ports/CaptureHistory.h"
#include "ports/CardPile.h"
#include "ports/ReopenLedger.h"

namespace Kovrel {

// Stands where a part of the program is absent, and answers as a part that has nothing to give: no card can be
// shown, nothing is recorded.
class AbsentParts : public CardPile, public CaptureHistory, public ReopenLedger {
public:
    explicit AbsentParts(MainLoop& loop) : m_loop(loop) {}

    bool setHiddenForCapture(bool) override { return false; }

    bool canPresent() const override { return false; }

    void prepareForIncomingCapture(std::optional<quint32>) override {}

    void settleAfterAbandonedCapture() override {}

    void present(Card) override {}

    void attachCaptureSave(std::shared_ptr<CaptureSave>, QUuid) override {}

    void suspendIndexing() override {}

    void scheduleIdleIndex() override {}

    bool isRecording() const override { return false; }

    void record(CaptureResult, std::shared_ptr<CaptureSave>, std::shared_ptr<EncodedPng>,
                Reply<std::optional<QString>> reply) override
    {
        giveNothing(std::move(reply));
    }

    void setText(QUuid, const QString&) override {}

    void load(QUuid, Reply<std::optional<Reopened>> reply) override { giveNothing(std::move(reply)); }

    void rememberSavedFile(QUuid, const QString&) override {}

    std::optional<QUuid> takeLastClosed() override { return std::nullopt; }

private:
    template <class T>
    void giveNothing(Reply<std::optional<T>> reply)
    {
        m_loop.post([reply] { reply(std::nullopt); });
    }

    MainLoop& m_loop;
};

} // namespace Kovrel
