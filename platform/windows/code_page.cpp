#include "platform/windows/code_page.h"

#include "platform/windows/utf16.h"
#include "platform/windows/win32.h"

namespace platform {
namespace {

bool isUtf8(const std::string& bytes) {
    const int length = static_cast<int>(bytes.size());
    return bytes.empty() || MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), length,
                                                nullptr, 0) != 0;
}

/// What the code page makes of a text, if nothing of it is lost on the way.
std::string encoded(const std::wstring& text, unsigned codePage, bool& whole) {
    const int length = static_cast<int>(text.size());
    BOOL lost = FALSE;
    const int needed = WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, text.data(), length,
                                           nullptr, 0, nullptr, &lost);
    std::string bytes(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, text.data(), length, bytes.data(), needed,
                        nullptr, &lost);
    whole = lost == FALSE && (needed > 0 || text.empty());
    return bytes;
}

} // namespace

std::string inCodePage(const std::string& text, unsigned codePage) {
    if (codePage == CP_UTF8) return text;
    bool whole = false;
    std::string bytes = encoded(toWide(text), codePage, whole);
    return whole && fromCodePage(bytes, codePage) == text ? bytes : text;
}

std::string fromCodePage(const std::string& bytes, unsigned codePage) {
    if (codePage == CP_UTF8 || isUtf8(bytes)) return bytes;
    const int length = static_cast<int>(bytes.size());
    const int needed = MultiByteToWideChar(codePage, 0, bytes.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(needed), L'\0');
    MultiByteToWideChar(codePage, 0, bytes.data(), length, wide.data(), needed);
    return fromWide(wide);
}

} // namespace platform
