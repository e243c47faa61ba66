#include "platform/linux/dialog_buffers.h"

#include "runtime/characters.h"

#include <algorithm>
#include <string_view>

namespace platform {

namespace {

std::vector<std::string> splitPatterns(std::string_view text) {
    std::vector<std::string> patterns;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(';'), text.size());
        if (end > 0) patterns.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return patterns;
}

/// The folder of a full path: no separator behind it, except at the root.
std::string folderOf(const std::string& path) {
    return path.substr(0, std::max<std::size_t>(path.rfind('\\'), 1));
}

bool sameFolder(const std::vector<std::string>& paths) {
    return std::all_of(paths.begin(), paths.end(), [&](const std::string& path) {
        return folderOf(path) == folderOf(paths.front());
    });
}

std::uint16_t nameOffset(const std::string& path) {
    return static_cast<std::uint16_t>(runtime::characterCount(path) -
                                      runtime::characterCount(bareName(path)));
}

std::uint16_t extensionOffset(const std::string& path) {
    const std::size_t dot = bareName(path).rfind('.');
    if (dot == std::string::npos) return 0;
    const std::size_t start = path.size() - bareName(path).size();
    return static_cast<std::uint16_t>(runtime::characterCount(path.substr(0, start + dot + 1)));
}

} // namespace

std::string anyCase(const std::string& pattern) {
    if (pattern == "*.*") return "*";
    std::string result;
    for (const char c : pattern) {
        const bool capital = c >= 'A' && c <= 'Z';
        const bool small = c >= 'a' && c <= 'z';
        constexpr char apart = 'a' - 'A';
        if (capital || small) {
            result += '[';
            result += capital ? static_cast<char>(c + apart) : c;
            result += small ? static_cast<char>(c - apart) : c;
            result += ']';
        } else {
            result += c;
        }
    }
    return result;
}

std::vector<NameFilter> parseNameFilters(const char* pairs) {
    std::vector<NameFilter> filters;
    while (pairs != nullptr && *pairs != '\0') {
        const std::string label = pairs;
        pairs += label.size() + 1;
        const std::string patterns = pairs;
        pairs += patterns.size() + 1;
        filters.push_back({label, splitPatterns(patterns)});
    }
    return filters;
}

std::string dialogFilter(const NameFilter& filter) {
    std::string text = filter.label + " (";
    for (std::size_t i = 0; i < filter.patterns.size(); ++i)
        text.append(i == 0 ? "" : " ").append(anyCase(filter.patterns[i]));
    return text + (filter.patterns.empty() ? "*)" : ")");
}

bool writeSelection(const std::vector<std::string>& paths, char* buffer, std::uint32_t size,
                    SelectionOffsets& offsets) {
    if (paths.empty() || !sameFolder(paths)) return false;
    std::string text = paths.front();
    SelectionOffsets found = {nameOffset(text), extensionOffset(text)};
    if (paths.size() > 1) {
        text = folderOf(paths.front());
        found = {static_cast<std::uint16_t>(runtime::characterCount(text) + 1), 0};
        for (const std::string& path : paths)
            text.append(1, '\0').append(bareName(path));
        text += '\0';
    }
    if (!writeText(text, buffer, size)) return false;
    offsets = found;
    return true;
}

bool writeText(const std::string& text, char* buffer, std::uint32_t size) {
    if (runtime::characterCount(text) >= size) return false;
    *std::copy(text.begin(), text.end(), buffer) = '\0';
    return true;
}

std::string bareName(const std::string& path) { return path.substr(path.rfind('\\') + 1); }

} // namespace platform
