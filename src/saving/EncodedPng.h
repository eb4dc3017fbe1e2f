#pragma once

#include <QByteArray>
#include <QImage>

#include <mutex>
#include <optional>

namespace Kovrel {

// The PNG of one picture, encoded once however many want it: the file, the history, the clipboard. Any thread; the
// first to ask does the work, others wait for it.
class EncodedPng {
public:
    explicit EncodedPng(QImage image) : m_image(std::move(image)) {}

    // No value when the picture can't be encoded.
    std::optional<QByteArray> bytes();

private:
    std::once_flag m_once;
    QImage m_image; // released when the bytes are there
    std::optional<QByteArray> m_bytes;
};

} // namespace Kovrel
