#include "capture/QRToast.h"

#include "model/text/PrintableText.h"
#include "model/text/WebLink.h"

#include <QCoreApplication>

namespace Kovrel {

QString QRToast::qrMessage(qsizetype count)
{
    return count == 1 ? QCoreApplication::translate("QRToast", "QR code copied")
                      : QCoreApplication::translate("QRToast", "%1 QR codes copied").arg(count);
}

QString QRToast::qrDetail(const QStringList& payloads)
{
    if (payloads.size() < 2)
        return PrintableText::of(payloads.join(QString()));
    return QCoreApplication::translate("QRToast", "%1  (+%2 more)")
        .arg(PrintableText::of(payloads.first()), QString::number(payloads.size() - 1));
}

std::function<void()> QRToast::openLinkTap(const QString& payload, std::function<void(QUrl)> open)
{
    const auto url = WebLink::of(payload);
    if (!url)
        return {};
    return [url = *url, open = std::move(open)] { open(url); };
}

} // namespace Kovrel
