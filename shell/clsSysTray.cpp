#include "shell/clsSysTray.h"

#include "runtime/rounding.h"
#include "toolkit/screen.h"

#include <algorithm>

namespace {

constexpr std::uint32_t recordSize = 88; // bytes, in the layout of the 32-bit system
constexpr std::uint32_t messageIconAndTip = 7;
constexpr std::uint32_t mouseMoveMessage = 512;
constexpr std::int32_t leftDoubleClick = 515;
constexpr std::int32_t rightButtonUp = 517;

} // namespace

clsSysTray::clsSysTray() {
    trayData.cbSize = recordSize;
    trayData.uID = 1;
    trayData.uFlags = messageIconAndTip;
    trayData.uCallbackMessage = mouseMoveMessage;
    ToolTip(std::string(1, '\0'));
}

void clsSysTray::LoadIcon(toolkit::Form& vDatafrm) {
    pctHook.MouseMove = [this](const auto& arguments) { pctHook_MouseMove(arguments); };
    pctHook.add(vDatafrm);
    trayData.hIcon = vDatafrm.Icon();
    trayData.hWnd = pctHook.hWnd();
    // Not in the tray yet, so this changes nothing; the icon comes with `IconInSysTray`.
    platform::Shell_NotifyIconA(platform::NIM_MODIFY, &trayData);
}

void clsSysTray::ToolTip(const std::string& vData) {
    std::fill(std::begin(trayData.szTip), std::end(trayData.szTip), ' ');
    std::copy_n(vData.begin(), std::min(vData.size(), std::size(trayData.szTip)), trayData.szTip);
}

void clsSysTray::IconInSysTray() { platform::Shell_NotifyIconA(platform::NIM_ADD, &trayData); }

void clsSysTray::RemoveFromSysTray() {
    platform::Shell_NotifyIconA(platform::NIM_DELETE, &trayData);
}

void clsSysTray::pctHook_MouseMove(const toolkit::MouseArguments& arguments) {
    lastTrayMessage =
        runtime::roundToInt32(runtime::divide(arguments.X, toolkit::Screen::TwipsPerPixelX()))
            .value();
    if (lastTrayMessage == leftDoubleClick && LButtonDblClk)
        LButtonDblClk();
    else if (lastTrayMessage == rightButtonUp && RButtonUP)
        RButtonUP();
}
