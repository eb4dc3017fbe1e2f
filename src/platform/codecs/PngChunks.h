#pragma once

#include <QByteArray>

#include <cstdint>
#include <span>

namespace Kovrel {

// Writes the chunks of a PNG file one behind the other.
class PngChunks {
public:
    explicit PngChunks(size_t expectedSize);

    class Chunk {
    public:
        Chunk& byte(unsigned value);
        Chunk& number(uint32_t value); // four bytes, the highest first
        Chunk& bytes(std::span<const uint8_t> bytes);
        Chunk& bytes(const QByteArray& bytes);

    private:
        friend class PngChunks;

        explicit Chunk(QByteArray& file) : m_file(file) {}

        QByteArray& m_file;
    };

    // `fill` is called with the chunk to write into.
    template <class Fill>
    void add(const char* type, Fill fill)
    {
        const qsizetype start = m_file.size();
        Chunk chunk(m_file);
        chunk.number(0).bytes(QByteArray(type, 4));
        fill(chunk);
        finish(start);
    }

    QByteArray file() && { return std::move(m_file); }

private:
    void finish(qsizetype start);

    QByteArray m_file;
};

} // namespace Kovrel
