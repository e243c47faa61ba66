#include "platform/windows/current_folder.h"
#include "platform/windows/dialog_texts.h"
#include "platform/windows/utf16.h"
#include "platform/windows/win32.h"

#include <doctest/doctest.h>

#include <string>
#include <string_view>

using platform::selectionIn;
using platform::writeCharacters;
using namespace std::string_view_literals;

TEST_CASE("a filter's texts go over to the dialog with all their nuls") {
    CHECK(platform::wideTexts("Audio\0*.MP3;*.wav;\0\0behind") == L"Audio\0*.MP3;*.wav;\0\0"sv);
    CHECK(platform::wideTexts("\0") == L"\0"sv);
    CHECK(platform::wideTexts(nullptr).empty());
}

TEST_CASE("one chosen file is its path and a nul, several are a folder, names and two nuls") {
    CHECK(selectionIn(L"C:\\a b.mp3\0\0\0\0"sv) == L"C:\\a b.mp3\0"sv);
    CHECK(selectionIn(L"C:\\M\0a.mp3\0b.mp3\0\0\0\0"sv) == L"C:\\M\0a.mp3\0b.mp3\0\0"sv);
    CHECK(selectionIn(L"C:\\M\0a.mp3\0\0"sv) == L"C:\\M\0a.mp3\0\0"sv);
    CHECK(selectionIn(L"no nul"sv) == L"no nul"sv);
    CHECK(selectionIn(L""sv).empty());
}

TEST_CASE("a selection fits by its characters, whatever their bytes, its nuls among them") {
    struct Case {
        const wchar_t* letter;
        const char* written;
    };
    for (const Case& one : {Case{L"a", "a"}, Case{L"\u0436", "\u0436"}, Case{L"\u6B4C", "\u6B4C"},
                            Case{L"\U0001F3B5", "\U0001F3B5"}}) {
        CAPTURE(one.written);
        std::wstring text;
        std::string expected;
        for (int count = 0; count < 9; ++count) {
            text += one.letter;
            expected += one.written;
        }
        text += L'\0';
        std::string buffer(40, '#');
        CHECK_FALSE(writeCharacters(text, buffer.data(), 9));
        CHECK(buffer == std::string(40, '#'));
        CHECK(writeCharacters(text, buffer.data(), 10));
        CHECK(buffer == expected + '\0' + std::string(39 - expected.size(), '#'));
    }
}

TEST_CASE("names that are no text take no more room than a buffer has") {
    const std::wstring halves(10, static_cast<wchar_t>(0xDC00));
    std::string buffer(40, '#');
    CHECK_FALSE(writeCharacters(halves, buffer.data(), 9));
    CHECK(writeCharacters(halves, buffer.data(), 10));
}

TEST_CASE("the current folder is the same after a dialog as before") {
    wchar_t before[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, before);
    {
        const platform::CurrentFolderKept kept;
        REQUIRE(SetCurrentDirectoryW(L"C:\\windows") != FALSE);
    }
    wchar_t after[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, after);
    CHECK(std::wstring_view(after) == before);
}
