#include "platform/windows/tooltip.h"

#include "platform/device_pixels.h"
#include "platform/events.h"
#include "platform/windows/display.h"
#include "platform/windows/utf16.h"

namespace platform {
namespace {

constexpr int belowPointer = 20; // pixels from the pointer's tip to the text

/// The record of the control's first version, which every version takes.
TTTOOLINFOW toolOf(HWND owner, std::wstring& text) {
    TTTOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_TRACK | TTF_ABSOLUTE | TTF_TRANSPARENT;
    tool.hwnd = owner;
    tool.lpszText = text.data();
    return tool;
}

LRESULT send(HWND control, UINT message, WPARAM first, const TTTOOLINFOW& tool) {
    return SendMessageW(control, message, first, reinterpret_cast<LPARAM>(&tool));
}

HWND createControl(HWND owner, const TTTOOLINFOW& tool) {
    const HWND control = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                                         WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, 0, 0, 0, 0, owner,
                                         nullptr, GetModuleHandleW(nullptr), nullptr);
    send(control, TTM_ADDTOOLW, 0, tool);
    return control;
}

} // namespace

void Tooltip::setText(HWND owner, const std::string& text) {
    if (text == text_) return;
    owner_ = owner;
    text_ = text;
    stopWaiting();
    hide();
    if (!text_.empty()) startWaiting();
}

void Tooltip::pointerMoved() {
    if (delay_ == 0) return;
    stopWaiting();
    startWaiting();
}

void Tooltip::startWaiting() {
    // The system's own controls wait as long as it has for a double click.
    delay_ = startTimer(GetDoubleClickTime(), [this] {
        stopWaiting();
        show();
    });
}

void Tooltip::stopWaiting() {
    if (delay_ != 0) stopTimer(delay_);
    delay_ = 0;
}

void Tooltip::show() {
    std::wstring text = toWide(text_);
    const TTTOOLINFOW tool = toolOf(owner_, text);
    if (control_ == nullptr) control_ = createControl(owner_, tool);
    POINT place = {};
    ::GetCursorPos(&place);
    const LPARAM corner = MAKELPARAM(place.x, place.y + deviceEdge(belowPointer, displayScale()));
    send(control_, TTM_UPDATETIPTEXTW, 0, tool);
    SendMessageW(control_, TTM_TRACKPOSITION, 0, corner);
    send(control_, TTM_TRACKACTIVATE, TRUE, tool);
    shown_ = true;
}

void Tooltip::hide() {
    if (!shown_) return;
    std::wstring text;
    send(control_, TTM_TRACKACTIVATE, FALSE, toolOf(owner_, text));
    shown_ = false;
}

} // namespace platform
