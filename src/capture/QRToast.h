#pragma once

#include <QStringList>
#include <QUrl>

#include <functional>

namespace Kovrel {

// What a toast says of codes, and what a click on it does. Stateless; any thread.
namespace QRToast {

// "QR code copied", "3 QR codes copied".
QString qrMessage(qsizetype count);

// The first payload and how many more there are; empty without codes.
QString qrDetail(const QStringList& payloads);

// Hands a payload that is an http or https address to `open`; null for any other.
std::function<void()> openLinkTap(const QString& payload, std::function<void(QUrl)> open);

} // namespace QRToast

} // namespace Kovrel
