#include "runtime/characters.h"

namespace runtime {
namespace {

bool continuesCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

/// What the first byte of a character announces; 1 for one that announces nothing.
std::size_t announcedLength(char first) {
    const auto byte = static_cast<unsigned char>(first);
    if (byte >= 0xF8U) return 1;
    if (byte >= 0xF0U) return 4;
    if (byte >= 0xE0U) return 3;
    return byte >= 0xC0U ? 2 : 1;
}

} // namespace

std::size_t lengthOfCharacter(std::string_view text, std::size_t at) {
    const std::size_t announced = announcedLength(text[at]);
    for (std::size_t length = 1; length < announced; ++length)
        if (at + length == text.size() || !continuesCharacter(text[at + length])) return 1;
    return announced;
}

std::size_t characterCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); at += lengthOfCharacter(text, at))
        ++count;
    return count;
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
    std::size_t end = 0;
    for (; count > 0 && end < text.size(); --count)
        end += lengthOfCharacter(text, end);
    return text.substr(0, end);
}

} // namespace runtime
