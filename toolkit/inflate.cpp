#include "toolkit/inflate.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace toolkit {
namespace {

constexpr std::size_t longestCode = 15; // bits
constexpr std::size_t endOfBlock = 256;
constexpr std::size_t symbols = 288;
constexpr std::size_t distances = 30;

// What the symbols of lengths and distances start at, and how many further bits tell the rest.
constexpr std::array<std::uint16_t, 29> lengthBase{3,  4,  5,  6,   7,   8,   9,   10,  11, 13,
                                                   15, 17, 19, 23,  27,  31,  35,  43,  51, 59,
                                                   67, 83, 99, 115, 131, 163, 195, 227, 258};
constexpr std::array<std::uint8_t, 29> lengthBits{0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2,
                                                  2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0};
constexpr std::array<std::uint16_t, distances> distanceBase{
    1,   2,   3,   4,   5,   7,    9,    13,   17,   25,   33,   49,   65,    97,    129,
    193, 257, 385, 513, 769, 1025, 1537, 2049, 3073, 4097, 6145, 8193, 12289, 16385, 24577};
constexpr std::array<std::uint8_t, distances> distanceBits{0, 0, 0,  0,  1,  1,  2,  2,  3,  3,
                                                           4, 4, 5,  5,  6,  6,  7,  7,  8,  8,
                                                           9, 9, 10, 10, 11, 11, 12, 12, 13, 13};

/// The packed bytes, bit by bit. Beyond the end all bits are 0 and `overrun` tells.
class Bits {
  public:
    explicit Bits(std::span<const std::byte> data) : data_(data) {}

    std::uint32_t take(std::size_t count) {
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < count; ++i)
            value |= takeOne() << i;
        return value;
    }

    void alignToByte() { at_ = (at_ + 7) / 8 * 8; }
    [[nodiscard]] bool overrun() const { return at_ > data_.size() * 8; }

  private:
    std::uint32_t takeOne() {
        const std::size_t byte = at_ / 8;
        const std::size_t bit = at_++ % 8;
        if (byte >= data_.size()) return 0;
        return std::to_integer<std::uint32_t>(data_[byte]) >> bit & 1U;
    }

    std::span<const std::byte> data_;
    std::size_t at_ = 0;
};

/// A prefix code: how many codes there are of each length, and their symbols in the codes' order.
class Code {
  public:
    explicit Code(std::span<const std::uint8_t> lengths) {
        for (const std::uint8_t length : lengths)
            if (length > 0) ++count_[length];
        std::array<std::size_t, longestCode + 1> next{};
        for (std::size_t length = 1; length < longestCode; ++length)
            next[length + 1] = next[length] + count_[length];
        for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol)
            if (lengths[symbol] > 0) symbols_[next[lengths[symbol]]++] = symbol;
    }

    /// The next symbol; `symbols` where the bits are no code.
    [[nodiscard]] std::size_t read(Bits& bits) const {
        std::size_t code = 0;
        std::size_t first = 0;
        std::size_t index = 0;
        for (std::size_t length = 1; length <= longestCode; ++length) {
            code |= bits.take(1);
            if (code < first + count_[length]) return symbols_[index + code - first];
            index += count_[length];
            first = (first + count_[length]) * 2;
            code *= 2;
        }
        return symbols;
    }

  private:
    std::array<std::size_t, longestCode + 1> count_{};
    std::array<std::size_t, symbols> symbols_{};
};

struct Codes {
    Code literals;
    Code distance;
};

Codes fixedCodes() {
    std::array<std::uint8_t, symbols> lengths{};
    std::fill_n(lengths.begin(), 144, std::uint8_t{8});
    std::fill(lengths.begin() + 144, lengths.begin() + 256, std::uint8_t{9});
    std::fill(lengths.begin() + 256, lengths.begin() + 280, std::uint8_t{7});
    std::fill(lengths.begin() + 280, lengths.end(), std::uint8_t{8});
    std::array<std::uint8_t, distances> equal{};
    equal.fill(5);
    return {Code(lengths), Code(equal)};
}

/// Reads `count` code lengths, which are packed themselves. Fewer on a fault.
std::vector<std::uint8_t> readLengths(Bits& bits, const Code& code, std::size_t count) {
    constexpr std::size_t repeatLast = 16;
    constexpr std::size_t fewZeros = 17;
    constexpr std::size_t manyZeros = 18;
    std::vector<std::uint8_t> lengths;
    while (lengths.size() < count && !bits.overrun()) {
        const std::size_t symbol = code.read(bits);
        if (symbol > manyZeros || (symbol == repeatLast && lengths.empty())) return {};
        if (symbol < repeatLast)
            lengths.push_back(static_cast<std::uint8_t>(symbol));
        else if (symbol == repeatLast)
            lengths.insert(lengths.end(), 3 + bits.take(2), std::uint8_t{lengths.back()});
        else if (symbol == fewZeros)
            lengths.insert(lengths.end(), 3 + bits.take(3), std::uint8_t{0});
        else
            lengths.insert(lengths.end(), 11 + bits.take(7), std::uint8_t{0});
    }
    if (lengths.size() > count) lengths.clear();
    return lengths;
}

/// Reads the codes of a block that brings its own; false on a fault.
bool readCodes(Bits& bits, Codes& codes) {
    constexpr std::array<std::size_t, 19> order{16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                                11, 4,  12, 3, 13, 2, 14, 1, 15};
    const std::size_t literals = 257 + bits.take(5);
    const std::size_t distance = 1 + bits.take(5);
    const std::size_t given = 4 + bits.take(4);
    if (literals > symbols || distance > distances) return false;
    std::array<std::uint8_t, order.size()> lengths{};
    for (std::size_t i = 0; i < given; ++i)
        lengths[order[i]] = static_cast<std::uint8_t>(bits.take(3));
    const auto all = readLengths(bits, Code(lengths), literals + distance);
    if (all.size() != literals + distance) return false;
    codes.literals = Code(std::span(all).first(literals));
    codes.distance = Code(std::span(all).subspan(literals));
    return true;
}

/// Unpacks one block's symbols to the end of the block; false on a fault.
bool unpack(Bits& bits, const Codes& codes, std::size_t size, std::vector<std::byte>& out) {
    while (!bits.overrun()) {
        const std::size_t symbol = codes.literals.read(bits);
        if (symbol == endOfBlock) return true;
        if (symbol < endOfBlock) {
            out.push_back(static_cast<std::byte>(symbol));
        } else {
            const std::size_t kind = symbol - endOfBlock - 1;
            if (kind >= lengthBase.size()) return false;
            const std::size_t length = lengthBase[kind] + bits.take(lengthBits[kind]);
            const std::size_t far = codes.distance.read(bits);
            if (far >= distances) return false;
            const std::size_t back = distanceBase[far] + bits.take(distanceBits[far]);
            if (back > out.size() || length > size - std::min(size, out.size())) return false;
            for (std::size_t i = 0; i < length; ++i)
                out.push_back(std::byte{out[out.size() - back]});
        }
        if (out.size() > size) return false;
    }
    return false;
}

/// Copies a block that isn't packed; false on a fault.
bool copy(Bits& bits, std::size_t size, std::vector<std::byte>& out) {
    bits.alignToByte();
    const std::uint32_t length = bits.take(16);
    if ((length ^ bits.take(16)) != 0xFFFFU || length > size - out.size()) return false;
    for (std::uint32_t i = 0; i < length; ++i)
        out.push_back(static_cast<std::byte>(bits.take(8)));
    return !bits.overrun();
}

bool unpackBlock(Bits& bits, std::size_t size, std::vector<std::byte>& out) {
    Codes codes = fixedCodes();
    switch (bits.take(2)) {
    case 0:
        return copy(bits, size, out);
    case 1:
        return unpack(bits, codes, size, out);
    case 2:
        return readCodes(bits, codes) && unpack(bits, codes, size, out);
    default:
        return false;
    }
}

} // namespace

std::vector<std::byte> inflate(std::span<const std::byte> packed, std::size_t size) {
    constexpr std::size_t header = 2;
    constexpr auto deflated = std::byte{8};
    if (packed.size() < header || (packed[0] & std::byte{0xF}) != deflated) return {};
    Bits bits(packed.subspan(header));
    std::vector<std::byte> out;
    out.reserve(size);
    bool last = false;
    while (!last) {
        last = bits.take(1) != 0;
        if (!unpackBlock(bits, size, out)) return {};
    }
    if (out.size() != size) out.clear();
    return out;
}

} // namespace toolkit
