#include "platform/codecs/PngChunks.h"

#include <QtEndian>

#include <libdeflate.h>

namespace Kovrel {

PngChunks::PngChunks(size_t expectedSize)
{
    m_file.reserve(qsizetype(expectedSize));
    m_file.append("\x89PNG\r\n\x1a\n", 8);
}

PngChunks::Chunk& PngChunks::Chunk::byte(unsigned value)
{
    m_file.append(char(value));
    return *this;
}

PngChunks::Chunk& PngChunks::Chunk::number(uint32_t value)
{
    const quint32 ordered = qToBigEndian(value);
    m_file.append(reinterpret_cast<const char*>(&ordered), sizeof ordered);
    return *this;
}

PngChunks::Chunk& PngChunks::Chunk::bytes(std::span<const uint8_t> bytes)
{
    m_file.append(reinterpret_cast<const char*>(bytes.data()), qsizetype(bytes.size()));
    return *this;
}

PngChunks::Chunk& PngChunks::Chunk::bytes(const QByteArray& bytes)
{
    m_file.append(bytes);
    return *this;
}

void PngChunks::finish(qsizetype start)
{
    const qsizetype checkedStart = start + 4;
    const qsizetype checkedSize = m_file.size() - checkedStart;
    qToBigEndian(quint32(checkedSize - 4), m_file.data() + start);
    Chunk(m_file).number(libdeflate_crc32(0, m_file.constData() + checkedStart, size_t(checkedSize)));
}

} // namespace Kovrel
