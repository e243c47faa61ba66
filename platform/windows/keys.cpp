#include "platform/windows/keys.h"

#include "platform/windows/utf16.h"

#include <string>

namespace platform {
namespace {

/// `Other` for keys that are told by what they type.
Key keyOf(WPARAM code) {
    switch (code) {
    case VK_UP:
        return Key::Up;
    case VK_DOWN:
        return Key::Down;
    case VK_HOME:
        return Key::Home;
    case VK_END:
        return Key::End;
    case VK_PRIOR:
        return Key::PageUp;
    case VK_NEXT:
        return Key::PageDown;
    case VK_RETURN:
        return Key::Enter;
    case VK_ESCAPE:
        return Key::Escape;
    case VK_TAB:
        return Key::Tab;
    case VK_SPACE:
        return Key::Space;
    default:
        return Key::Other;
    }
}

void tell(WindowState& state, Key key, const std::string& text) {
    if (!state.events.key) return;
    KeyEvent event;
    event.key = key;
    event.text = text;
    state.events.key(event);
}

/// Characters beyond the first 65536 come as two halves.
void tellCharacter(WindowState& state, wchar_t character) {
    if (IS_HIGH_SURROGATE(character)) {
        state.firstHalf = character;
        return;
    }
    std::wstring whole(1, character);
    if (IS_LOW_SURROGATE(character)) whole.insert(0, 1, state.firstHalf);
    constexpr wchar_t lastControl = 0x1F;
    constexpr wchar_t deleted = 0x7F;
    // Control characters, and the blank, are told as keys.
    if (character > lastControl && character != L' ' && character != deleted)
        tell(state, Key::Other, fromWide(whole));
}

} // namespace

bool tellKey(WindowState& state, UINT message, WPARAM first) {
    if (message == WM_CHAR) {
        tellCharacter(state, static_cast<wchar_t>(first));
        return true;
    }
    // The system makes commands of these.
    const bool ofMedia = first >= VK_MEDIA_NEXT_TRACK && first <= VK_MEDIA_PLAY_PAUSE;
    if (message != WM_KEYDOWN || ofMedia) return false;
    const Key key = keyOf(first);
    if (key != Key::Other) tell(state, key, key == Key::Space ? " " : "");
    return true;
}

} // namespace platform
