#include "platform/windows/dialog_texts.h"

#include "platform/characters.h"
#include "platform/windows/utf16.h"

#include <algorithm>

namespace platform {

std::wstring wideTexts(const char* texts) {
    if (texts == nullptr) return {};
    std::size_t end = 0;
    while (texts[end] != '\0')
        end += std::string_view(texts + end).size() + 1;
    return toWide({texts, end + 1});
}

std::wstring_view selectionIn(std::wstring_view buffer) {
    const std::size_t first = std::min(buffer.find(L'\0'), buffer.size());
    const bool several = first + 1 < buffer.size() && buffer[first + 1] != L'\0';
    if (!several) return buffer.substr(0, first + 1);
    constexpr std::wstring_view end(L"\0\0", 2);
    return buffer.substr(0, std::min(buffer.find(end), buffer.size()) + end.size());
}

bool writeCharacters(std::wstring_view text, char* buffer, std::uint32_t size) {
    const std::string narrow = fromWide(text);
    if (characterCount(narrow) > size) return false;
    std::copy(narrow.begin(), narrow.end(), buffer);
    return true;
}

} // namespace platform
