#include "platform/linux/utf8.h"

namespace platform {

namespace {

/// What a first byte says of its character: the length and the range of the second byte, which
/// alone keeps out overlong forms, surrogates and numbers that are too high.
struct Lead {
    std::size_t length = 0;
    unsigned char secondLow = 0x80;
    unsigned char secondHigh = 0xBF;
};

Lead leadOf(unsigned char first) {
    if (first < 0x80) return {1};
    if (first < 0xC2) return {0};
    if (first < 0xE0) return {2};
    if (first == 0xE0) return {3, 0xA0, 0xBF};
    if (first == 0xED) return {3, 0x80, 0x9F};
    if (first < 0xF0) return {3};
    if (first == 0xF0) return {4, 0x90, 0xBF};
    if (first < 0xF4) return {4};
    if (first == 0xF4) return {4, 0x80, 0x8F};
    return {0};
}

bool between(char value, unsigned char low, unsigned char high) {
    const auto byte = static_cast<unsigned char>(value);
    return byte >= low && byte <= high;
}

} // namespace

std::size_t leadingCharacterLength(std::string_view text) {
    if (text.empty()) return 0;
    const Lead lead = leadOf(static_cast<unsigned char>(text[0]));
    if (lead.length == 0 || lead.length > text.size()) return 0;
    if (lead.length > 1 && !between(text[1], lead.secondLow, lead.secondHigh)) return 0;
    for (std::size_t i = 2; i < lead.length; ++i)
        if (!between(text[i], 0x80, 0xBF)) return 0;
    return lead.length;
}

} // namespace platform
