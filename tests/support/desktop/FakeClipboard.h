#pragma once

#include "platform/Clipboard.h"
#include "tests/support/desktop/FakeAnswers.h"

namespace Kovrel::Testing {

// Remembers what was put last, and how often something was; that is what is read, too, if it is not refused.
class FakeClipboard : public Clipboard {
public:
    explicit FakeClipboard(MainLoop& loop) : answers(loop) {}

    void put(std::vector<ClipboardOffer> newOffers) override
    {
        ++puts;
        offers = std::move(newOffers);
        text.clear();
    }

    void putText(const QString& newText) override
    {
        ++puts;
        offers.clear();
        text = newText;
    }

    void read(QStringList mimeTypes, Reply<std::optional<ClipboardContent>> reply) override
    {
        answers.give(std::move(reply), [this, mimeTypes]() -> std::optional<ClipboardContent> {
            for (const QString& type : mimeTypes)
                if (!refuses && types().contains(type))
                    return ClipboardContent{type, bytes(type)};
            return std::nullopt;
        });
    }

    void readText(Reply<std::optional<QString>> reply) override
    {
        answers.give(std::move(reply), [this] { return refuses ? std::nullopt : std::optional(text); });
    }

    QStringList types() const
    {
        QStringList types;
        for (const auto& offer : offers)
            types << offer.mimeType;
        return types;
    }

    QByteArray bytes(const QString& type) const
    {
        for (const auto& offer : offers)
            if (offer.mimeType == type)
                return offer.bytes();
        return {};
    }

    int puts = 0;
    std::vector<ClipboardOffer> offers;
    QString text;
    bool refuses = false;
    FakeAnswers answers;
};

} // namespace Kovrel::Testing
