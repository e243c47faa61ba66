#include "shell/AboutBox.h"

#include "assets/assets.h"
#include "platform/system.h"
#include "toolkit/bitmap.h"
#include "toolkit/cursor.h"
#include "toolkit/png.h"

#include <cstdint>
#include <string>
#include <utility>

namespace {

// Places of the credits, in twips: where a pass starts, how far a tick moves them, where a pass
// ends, and where the passes after the first start.
constexpr toolkit::Twips firstTop = 2000;
constexpr toolkit::Twips step = 20;
constexpr toolkit::Twips lastTop = -5800;
constexpr toolkit::Twips nextTop = 2090;
constexpr std::int32_t stepInterval = 50; // ms

constexpr std::int32_t iconSide = 32; // pixels

const std::string credits = "Orvan Music Player 2.0\r\n"
                            "Play Music With Easy\r\n"
                            "-------------------------------------------\r\n"
                            "\r\n"
                            "Programmer :\r\n"
                            "The Orvan people\r\n"
                            "\r\n"
                            "Designer :\r\n"
                            "The Orvan people\r\n"
                            "\r\n"
                            "Website :\r\n"
                            "www.orvan.example\r\n"
                            "\r\n"
                            "Thanks to :\r\n"
                            "Everybody who listens\r\n"
                            "\r\n"
                            "License :\r\n"
                            "This program is freeware and freely used for \r\n"
                            "non commercial purposes.\r\n"
                            "(people@orvan.example)\r\n";

const platform::Font creditsFont{"Tahoma", 9, true, false};
const platform::Font buttonFont{"MS Sans Serif", 8.25, true, false};
const platform::Font versionFont{"MS Sans Serif", 8.25, true, true};

toolkit::FormData data() {
    toolkit::FormData form;
    form.caption = "About Orvan Music Player";
    form.bounds = {0, 0, 4455, 3345};
    form.centred = true;
    form.backColour = platform::GetSysColor(platform::COLOR_BTNFACE);
    form.frame = platform::Frame::Dialog;
    return form;
}

/// The program's icon in the size of its image; larger displays have pictures of their own.
toolkit::Artwork programIcon() {
    platform::Picture natural;
    for (platform::Picture& picture : toolkit::decodeIcon(assets::file("orvan.ico"), iconSide))
        if (picture.width == iconSide) natural = std::move(picture);
    return {std::move(natural), [](std::int32_t times) {
                return toolkit::decodePng(assets::file(std::to_string(times) + "x/icon.png"));
            }};
}

} // namespace

AboutBox::AboutBox() : window(data()) {
    layOut();
    window.Accessible = [this] { return accessibleTable(); };
    window.Load = [this] { Form_Load(); };
    Timer1.Tick = [this] { Timer1_Timer(); };
    cmdBack.Click = [this] { cmdBack_Click(); };
}

/// From the topmost control to the lowest; places and sizes in twips.
void AboutBox::layOut() {
    using platform::GetSysColor;
    Picture1.place(window, "Picture1", {120, 840, 4215, 1935}, true, "");
    Picture1.setBackColour(GetSysColor(platform::COLOR_WINDOW));
    Text1.place(window, "Text1", {0, 1920, 4215, 6500}, true, "");
    Text1.setText(credits, creditsFont, toolkit::Blue, toolkit::White);
    Picture1.hold(Text1);
    cmdBack.place(window, "cmdBack", {1560, 2880, 1335, 375}, true, "");
    cmdBack.setFace("&Close", buttonFont, toolkit::decodeCursor(assets::file("close.cur")));
    Image1.place(window, "Image1", {2040, 120, 480, 480}, true, "");
    Image1.setPicture(programIcon());
    Label12.place(window, "Label12", {3120, 120, 1215, 255}, true, "");
    Label12.setText("Final Version", versionFont, GetSysColor(platform::COLOR_BTNTEXT));
    Label12.setBackColour(GetSysColor(platform::COLOR_BTNFACE));
    window.add(Picture1);
    window.add(Timer1);
    window.add(cmdBack);
    window.add(Image1);
    window.add(Label12);
}

/// The platform tells of its push button by itself.
toolkit::AccessibleTable AboutBox::accessibleTable() {
    toolkit::Accessible text;
    text.name = "Credits";
    text.parts = {&Picture1};
    text.value = [this] { return Text1.Text(); };
    return {data().caption, {textOf("Version", Label12), text}, {&Image1}};
}

void AboutBox::Form_Load() {
    Text1.Top(firstTop);
    // The timer ended with the window before.
    Timer1.attach(window, 0, true);
    Timer1.Interval(stepInterval);
}

void AboutBox::Timer1_Timer() {
    const toolkit::Twips X = Text1.Top() - step;
    Text1.Top(X);
    if (X < lastTop) Text1.Top(nextTop);
}

void AboutBox::cmdBack_Click() { window.Unload(); }
