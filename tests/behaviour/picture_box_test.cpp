#include "platform/device_pixels.h"
#include "platform/simulated/world.h"
#include "toolkit/form.h"
#include "toolkit/picture_box.h"
#include "toolkit/text_box.h"

#include <cstdint>
#include <doctest/doctest.h>

using simulated::world;

namespace {

constexpr platform::Pixel black = 0xFF000000U;
constexpr platform::Pixel white = 0xFFFFFFFFU;

toolkit::FormData data() {
    toolkit::FormData form;
    form.bounds = {0, 0, 900, 900}; // 60 x 60 pixels
    form.backColour = toolkit::Blue;
    return form;
}

} // namespace

TEST_CASE("what a picture box holds lies where its edges do on the display, cropped by the box") {
    for (const double scale : {1.0, 1.1, 1.25, 1.3, 1.5, 1.75, 2.0, 2.5}) {
        CAPTURE(scale);
        simulated::reset();
        world.desktop.scale = scale;
        toolkit::Form window(data());
        toolkit::PictureBox box;
        toolkit::TextBox held;
        box.place(window, "box", {45, 75, 300, 225}, true, "");  // 3, 5 to 23, 20
        held.place(window, "held", {15, 60, 900, 90}, true, ""); // 4, 9 to 64, 15
        held.setText("", {"Tahoma", 9, true, false}, toolkit::Blue, toolkit::White);
        box.hold(held);
        window.add(box);
        window.Show();
        const platform::Picture picture = simulated::picture(window.hWnd());
        const platform::Rect boxed = platform::deviceRect({3, 5, 23, 20}, scale);
        const platform::Rect inside = platform::deviceRect({4, 9, 23, 15}, scale);
        int wrong = 0;
        for (std::int32_t y = 0; y < picture.height; ++y)
            for (std::int32_t x = 0; x < picture.width; ++x) {
                const auto in = [&](const platform::Rect& area) {
                    return x >= area.left && x < area.right && y >= area.top && y < area.bottom;
                };
                const platform::Pixel wanted = in(inside)  ? white
                                               : in(boxed) ? black
                                                           : toolkit::pixelOf(toolkit::Blue);
                if (picture.row(y)[x] != wanted) ++wrong;
            }
        CHECK(wrong == 0);
    }
}
