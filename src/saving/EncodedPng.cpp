#include "saving/EncodedPng.h"

#include "platform/ImageCodec.h"

namespace Kovrel {

std::optional<QByteArray> EncodedPng::bytes()
{
    std::call_once(m_once, [this] {
        if (auto encoded = ImageCodec::encode(m_image, ImageFormat::png, 1.0))
            m_bytes = std::move(*encoded);
        m_image = {};
    });
    return m_bytes;
}

} // namespace Kovrel
