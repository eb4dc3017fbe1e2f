#pragma once

#include "platform/Clipboard.h"

#include <QStringList>

namespace Kovrel::Testing {

// Remembers what was put last, and how often something was.
class FakeClipboard : public Clipboard {
public:
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
};

} // namespace Kovrel::Testing
