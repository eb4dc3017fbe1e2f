#include "platform/codecs/DeflateEnd.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace Kovrel {

namespace {

constexpr unsigned maxCodeLength = 15;
constexpr unsigned tableBits = 11;

// Answers up to 57 bits at any bit position; zeros behind the end.
class BitReader {
public:
    explicit BitReader(std::span<const uint8_t> bytes) : m_bytes(bytes) {}

    uint64_t peek() const
    {
        uint64_t word = 0;
        const size_t byte = m_position / 8;
        if (byte + sizeof word <= m_bytes.size())
            std::memcpy(&word, m_bytes.data() + byte, sizeof word);
        else if (byte < m_bytes.size())
            std::memcpy(&word, m_bytes.data() + byte, m_bytes.size() - byte);
        return word >> (m_position % 8);
    }

    unsigned take(unsigned count)
    {
        const auto value = unsigned(peek() & ((1u << count) - 1));
        m_position += count;
        return value;
    }

    void skip(size_t count) { m_position += count; }

    void skipToByte() { m_position = (m_position + 7) / 8 * 8; }

    size_t position() const { return m_position; }

    bool isPastEnd() const { return m_position > m_bytes.size() * 8; }

private:
    std::span<const uint8_t> m_bytes;
    size_t m_position = 0;
};

// A canonical Huffman code from the lengths of its symbols' codes.
struct CanonicalCode {
    explicit CanonicalCode(std::span<const uint8_t> lengths)
    {
        for (const uint8_t length : lengths)
            ++count[length];
        count[0] = 0;
        std::array<unsigned, maxCodeLength + 2> offset{};
        for (unsigned length = 1; length <= maxCodeLength; ++length)
            offset[length + 1] = offset[length] + count[length];
        for (unsigned symbol = 0; symbol < lengths.size(); ++symbol)
            if (lengths[symbol])
                symbols[offset[lengths[symbol]]++] = uint16_t(symbol);
    }

    struct Found {
        unsigned symbol = 0;
        unsigned length = 0; // 0: no such code
    };

    Found at(uint64_t bits) const
    {
        int code = 0;
        int first = 0;
        int index = 0;
        for (unsigned length = 1; length <= maxCodeLength; ++length, bits >>= 1) {
            code |= int(bits & 1);
            if (const int offset = code - first; offset >= 0 && offset < count[length])
                return {symbols[index + offset], length};
            index += count[length];
            first = (first + count[length]) << 1;
            code <<= 1;
        }
        return {};
    }

    std::array<uint16_t, maxCodeLength + 1> count{};
    std::array<uint16_t, 320> symbols{}; // by length, then by value
};

enum class Step : uint8_t { longCode, literals, match, blockEnd, invalid };

struct Entry {
    uint8_t bits = 0; // of the code and of the extra bits behind it
    Step step = Step::longCode;
};

Entry meaningOfLiteralOrLength(unsigned symbol)
{
    if (symbol < 256)
        return {0, Step::literals};
    if (symbol == 256)
        return {0, Step::blockEnd};
    if (symbol > 285)
        return {0, Step::invalid};
    return {uint8_t(symbol < 265 || symbol == 285 ? 0 : (symbol - 261) / 4), Step::match};
}

Entry meaningOfDistance(unsigned symbol)
{
    if (symbol > 29)
        return {0, Step::invalid};
    return {uint8_t(symbol < 4 ? 0 : symbol / 2 - 1), Step::match};
}

unsigned reversed(unsigned code, unsigned length)
{
    unsigned result = 0;
    for (; length > 0; --length, code >>= 1)
        result = result << 1 | (code & 1);
    return result;
}

// Tells at the bits of a code how far to go, not what is said there.
class Steps {
public:
    using Meaning = Entry (*)(unsigned symbol);

    Steps(std::span<const uint8_t> lengths, Meaning meaning) : m_code(lengths), m_meaning(meaning)
    {
        unsigned code = 0;
        size_t index = 0;
        for (unsigned length = 1; length <= tableBits; ++length, code <<= 1)
            for (unsigned left = m_code.count[length]; left > 0; --left)
                fill(reversed(code++, length), {m_code.symbols[index++], length});
    }

    // A run of literals becomes one step where it fits into the table. From the top down: what follows an entry lies
    // below it and is still single.
    void chainLiterals()
    {
        for (size_t index = m_table.size(); index-- > 0;) {
            Entry& entry = m_table[index];
            while (entry.step == Step::literals) {
                const Entry next = m_table[index >> entry.bits];
                if (next.step != Step::literals || entry.bits + next.bits > int(tableBits))
                    break;
                entry.bits += next.bits;
            }
        }
    }

    Entry at(uint64_t bits) const
    {
        const Entry entry = m_table[bits & (m_table.size() - 1)];
        return entry.step == Step::longCode ? entryOf(m_code.at(bits)) : entry;
    }

private:
    Entry entryOf(CanonicalCode::Found found) const
    {
        if (found.length == 0)
            return {0, Step::invalid};
        Entry entry = m_meaning(found.symbol);
        entry.bits += found.length;
        return entry;
    }

    void fill(unsigned bits, CanonicalCode::Found found)
    {
        const Entry entry = entryOf(found);
        for (size_t index = bits; index < m_table.size(); index += size_t(1) << found.length)
            m_table[index] = entry;
    }

    CanonicalCode m_code;
    Meaning m_meaning;
    std::array<Entry, 1 << tableBits> m_table{};
};

bool skipSymbols(BitReader& reader, Steps literals, const Steps& distances)
{
    literals.chainLiterals();
    while (!reader.isPastEnd()) {
        const uint64_t bits = reader.peek();
        const Entry entry = literals.at(bits);
        reader.skip(entry.bits);
        if (entry.step == Step::blockEnd)
            return !reader.isPastEnd();
        if (entry.step == Step::invalid)
            return false;
        if (entry.step == Step::match) {
            const Entry distance = distances.at(bits >> entry.bits);
            if (distance.step != Step::match)
                return false;
            reader.skip(distance.bits);
        }
    }
    return false;
}

struct CodeLengths {
    std::array<uint8_t, 320> all{};
    unsigned literals = 0;
    unsigned distances = 0;
};

bool readRun(BitReader& reader, unsigned symbol, unsigned total, unsigned& filled, CodeLengths& lengths)
{
    if (symbol == 16 && filled == 0)
        return false;
    const uint8_t value = symbol < 16 ? uint8_t(symbol) : symbol == 16 ? lengths.all[filled - 1] : 0;
    const unsigned count = symbol < 16    ? 1
                           : symbol == 16 ? 3 + reader.take(2)
                           : symbol == 17 ? 3 + reader.take(3)
                                          : 11 + reader.take(7);
    if (filled + count > total)
        return false;
    std::fill_n(lengths.all.begin() + filled, count, value);
    filled += count;
    return true;
}

std::optional<CodeLengths> readCodeLengths(BitReader& reader)
{
    constexpr std::array<uint8_t, 19> order{16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};
    CodeLengths lengths;
    lengths.literals = 257 + reader.take(5);
    lengths.distances = 1 + reader.take(5);
    const unsigned described = 4 + reader.take(4);
    std::array<uint8_t, 19> own{};
    for (unsigned index = 0; index < described; ++index)
        own[order[index]] = uint8_t(reader.take(3));

    const CanonicalCode code(own);
    const unsigned total = lengths.literals + lengths.distances;
    for (unsigned filled = 0; filled < total;) {
        const auto found = code.at(reader.peek());
        reader.skip(found.length);
        if (found.length == 0 || !readRun(reader, found.symbol, total, filled, lengths))
            return std::nullopt;
    }
    return lengths;
}

CodeLengths fixedCodeLengths()
{
    CodeLengths lengths;
    lengths.literals = 288;
    lengths.distances = 30;
    std::fill_n(lengths.all.begin(), 144, 8);
    std::fill_n(lengths.all.begin() + 144, 112, 9);
    std::fill_n(lengths.all.begin() + 256, 24, 7);
    std::fill_n(lengths.all.begin() + 280, 8, 8);
    std::fill_n(lengths.all.begin() + 288, 30, 5);
    return lengths;
}

bool skipStored(BitReader& reader)
{
    reader.skipToByte();
    const unsigned length = reader.take(16);
    if ((length ^ reader.take(16)) != 0xFFFF)
        return false;
    reader.skip(size_t(length) * 8);
    return !reader.isPastEnd();
}

bool skipCoded(BitReader& reader, const std::optional<CodeLengths>& lengths)
{
    if (!lengths || reader.isPastEnd())
        return false;
    const std::span all(lengths->all);
    return skipSymbols(reader, Steps(all.first(lengths->literals), meaningOfLiteralOrLength),
                       Steps(all.subspan(lengths->literals, lengths->distances), meaningOfDistance));
}

bool skipBlock(BitReader& reader)
{
    switch (reader.take(2)) {
    case 0:
        return skipStored(reader);
    case 1:
        return skipCoded(reader, fixedCodeLengths());
    case 2:
        return skipCoded(reader, readCodeLengths(reader));
    default:
        return false;
    }
}

} // namespace

std::optional<DeflateEnd> DeflateEnd::find(std::span<const uint8_t> stream)
{
    BitReader reader(stream);
    for (;;) {
        const size_t start = reader.position();
        const bool isFinal = reader.take(1) != 0;
        if (!skipBlock(reader))
            return std::nullopt;
        if (isFinal)
            return DeflateEnd{start, reader.position()};
    }
}

bool makeContinuable(std::vector<uint8_t>& stream)
{
    const auto end = DeflateEnd::find(stream);
    if (!end)
        return false;
    stream[end->finalBlockBit / 8] &= uint8_t(~(1u << (end->finalBlockBit % 8)));
    // The three zero bits of a stored block's header may still fit into the last byte.
    stream.resize((end->endBit + 3 + 7) / 8);
    stream.insert(stream.end(), {0, 0, 0xFF, 0xFF});
    return true;
}

} // namespace Kovrel
