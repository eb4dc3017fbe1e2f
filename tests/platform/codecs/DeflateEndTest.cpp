#include "platform/codecs/DeflateEnd.h"

#include <QByteArray>
#include <QRandomGenerator>

#include <gtest/gtest.h>
#include <libdeflate.h>
#include <zlib.h>

namespace Kovrel {

namespace {

using Bytes = std::vector<uint8_t>;

Bytes compressed(const Bytes& data, int level)
{
    libdeflate_compressor* const compressor = libdeflate_alloc_compressor(level);
    Bytes out(libdeflate_deflate_compress_bound(compressor, data.size()));
    out.resize(libdeflate_deflate_compress(compressor, data.data(), data.size(), out.data(), out.size()));
    libdeflate_free_compressor(compressor);
    return out;
}

// By zlib, with fixed codes or as it likes.
Bytes compressedByZlib(const Bytes& data, int strategy)
{
    z_stream stream{};
    deflateInit2(&stream, 6, Z_DEFLATED, -15, 8, strategy);
    Bytes out(deflateBound(&stream, data.size()));
    stream.next_in = const_cast<Bytef*>(data.data());
    stream.avail_in = uInt(data.size());
    stream.next_out = out.data();
    stream.avail_out = uInt(out.size());
    deflate(&stream, Z_FINISH);
    out.resize(stream.total_out);
    deflateEnd(&stream);
    return out;
}

Bytes inflated(const Bytes& stream, size_t size)
{
    z_stream inflater{};
    inflateInit2(&inflater, -15);
    Bytes out(size + 1);
    inflater.next_in = const_cast<Bytef*>(stream.data());
    inflater.avail_in = uInt(stream.size());
    inflater.next_out = out.data();
    inflater.avail_out = uInt(out.size());
    const int result = inflate(&inflater, Z_FINISH);
    out.resize(result == Z_STREAM_END ? inflater.total_out : 0);
    inflateEnd(&inflater);
    return out;
}

// Bytes of a given number of kinds, with runs.
Bytes data(size_t size, int kinds, quint32 seed)
{
    QRandomGenerator random(seed);
    Bytes bytes(size);
    for (size_t index = 0; index < size; ++index)
        bytes[index] = index > 0 && random.bounded(3) == 0 ? bytes[index - 1] : uint8_t(random.bounded(kinds));
    return bytes;
}

} // namespace

TEST(DeflateEnd, JoinedPartsAreOneStream)
{
    for (const int kinds : {1, 2, 17, 256}) {
        for (const int level : {0, 1, 4, 6, 9, 12}) {
            Bytes whole;
            Bytes joined;
            for (quint32 part = 0; part < 6; ++part) {
                const Bytes bytes = data(part == 3 ? 0 : part * 70001 + 1, kinds, part);
                whole.insert(whole.end(), bytes.begin(), bytes.end());
                Bytes stream = compressed(bytes, level);
                ASSERT_TRUE(part == 5 || makeContinuable(stream)) << kinds << " kinds, level " << level;
                joined.insert(joined.end(), stream.begin(), stream.end());
            }
            EXPECT_EQ(inflated(joined, whole.size()), whole) << kinds << " kinds, level " << level;
        }
    }
}

TEST(DeflateEnd, EveryBlockTypeIsWalkedOver)
{
    const Bytes bytes = data(100'000, 90, 5);
    for (const int strategy : {Z_DEFAULT_STRATEGY, Z_FIXED, Z_HUFFMAN_ONLY, Z_RLE}) {
        Bytes stream = compressedByZlib(bytes, strategy);
        ASSERT_TRUE(makeContinuable(stream));
        const Bytes last = compressedByZlib({1, 2, 3}, Z_FIXED);
        stream.insert(stream.end(), last.begin(), last.end());
        Bytes expected = bytes;
        expected.insert(expected.end(), {1, 2, 3});
        EXPECT_EQ(inflated(stream, expected.size()), expected) << "strategy " << strategy;
    }
}

TEST(DeflateEnd, CutOffStreamsAreRefused)
{
    const Bytes stream = compressed(data(20'000, 40, 9), 6);
    for (size_t size = 0; size + 1 < stream.size(); size += 97)
        EXPECT_FALSE(DeflateEnd::find(std::span(stream).first(size))) << size;
}

TEST(DeflateEnd, NonsenseEndsWithoutReadingElsewhere)
{
    for (quint32 seed = 0; seed < 3000; ++seed) {
        const Bytes nonsense = data(400, 256, seed);
        const auto end = DeflateEnd::find(nonsense);
        EXPECT_TRUE(!end || end->endBit <= nonsense.size() * 8);
    }
}

} // namespace Kovrel
