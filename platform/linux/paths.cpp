#include "platform/linux/paths.h"

#include "platform/linux/utf8.h"

#include <cstddef>

namespace platform {

namespace {

/// Bytes that the player's form writes as U+F000 plus the byte, wherever they stand for themselves.
/// A nul can't be in a host path.
bool neverPlain(unsigned char byte) {
    return (byte != 0 && byte < 0x20) || byte == '\\' || byte == '*';
}

/// Appends U+F000 plus the byte, in UTF-8.
void appendStandIn(std::string& text, unsigned char byte) {
    text += '\xEF';
    text += static_cast<char>(0x80 | (byte >> 6));
    text += static_cast<char>(0x80 | (byte & 0x3F));
}

/// The byte that a character of the player's form stands in for; 0 for a character of its own.
unsigned char byteOfStandIn(std::string_view character) {
    if (character.size() != 3 || character[0] != '\xEF') return 0;
    const auto second = static_cast<unsigned char>(character[1]);
    if (second > 0x83) return 0;
    const auto third = static_cast<unsigned char>(character[2]);
    const auto byte = static_cast<unsigned char>((second & 0x03) << 6 | (third & 0x3F));
    return byte >= 0x80 || neverPlain(byte) ? byte : 0;
}

/// Whether a well-formed character would mean something else in the player's form.
bool needsStandIn(std::string_view character) {
    if (character.size() == 1) return neverPlain(static_cast<unsigned char>(character[0]));
    return byteOfStandIn(character) != 0;
}

void appendPlayerForm(std::string& text, std::string_view character) {
    if (character == "/") {
        text += '\\';
    } else if (needsStandIn(character)) {
        for (const char byte : character)
            appendStandIn(text, static_cast<unsigned char>(byte));
    } else {
        text += character;
    }
}

} // namespace

std::string toHost(std::string_view playerPath) {
    std::string host;
    host.reserve(playerPath.size());
    while (!playerPath.empty()) {
        const std::size_t length = leadingCharacterLength(playerPath);
        const std::string_view character = playerPath.substr(0, length == 0 ? 1 : length);
        const unsigned char byte = byteOfStandIn(character);
        if (byte != 0)
            host += static_cast<char>(byte);
        else if (character == "\\")
            host += '/';
        else
            host += character;
        playerPath.remove_prefix(character.size());
    }
    return host;
}

std::string fromHost(std::string_view hostPath) {
    std::string text;
    text.reserve(hostPath.size());
    while (!hostPath.empty()) {
        const std::size_t length = leadingCharacterLength(hostPath);
        if (length == 0)
            appendStandIn(text, static_cast<unsigned char>(hostPath[0]));
        else
            appendPlayerForm(text, hostPath.substr(0, length));
        hostPath.remove_prefix(length == 0 ? 1 : length);
    }
    return text;
}

} // namespace platform
