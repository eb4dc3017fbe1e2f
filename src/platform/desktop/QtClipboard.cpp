#include "platform/desktop/QtClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace Kovrel {

namespace {

class OfferedData : public QMimeData {
public:
    explicit OfferedData(std::vector<ClipboardOffer> offers) : m_offers(std::move(offers)) {}

    QStringList formats() const override
    {
        QStringList types;
        for (const ClipboardOffer& offer : m_offers)
            types << offer.mimeType;
        return types;
    }

    bool hasFormat(const QString& type) const override { return formats().contains(type); }

protected:
    QVariant retrieveData(const QString& type, QMetaType) const override
    {
        for (const ClipboardOffer& offer : m_offers)
            if (offer.mimeType == type)
                return offer.bytes();
        return {};
    }

private:
    std::vector<ClipboardOffer> m_offers;
};

} // namespace

void QtClipboard::put(std::vector<ClipboardOffer> offers)
{
    QGuiApplication::clipboard()->setMimeData(new OfferedData(std::move(offers)));
}

void QtClipboard::putText(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
}

} // namespace Kovrel
