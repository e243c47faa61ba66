#include "toolkit/screen.h"

#include "platform/desktop.h"
#include "runtime/rounding.h"

namespace toolkit {

namespace Screen {

float TwipsPerPixelX() { return platform::twipsPerPixelX(); }
float TwipsPerPixelY() { return platform::twipsPerPixelY(); }
Twips Width() { return static_cast<Twips>(platform::screenSize().width) * TwipsPerPixelX(); }
Twips Height() { return static_cast<Twips>(platform::screenSize().height) * TwipsPerPixelY(); }

} // namespace Screen

platform::Point toPixels(Twips left, Twips top) {
    using runtime::divide;
    return {runtime::roundToInt32(divide(left, Screen::TwipsPerPixelX())).value(),
            runtime::roundToInt32(divide(top, Screen::TwipsPerPixelY())).value()};
}

platform::Rect toPixels(const Bounds& bounds) {
    const platform::Point corner = toPixels(bounds.left, bounds.top);
    const platform::Point size = toPixels(bounds.width, bounds.height);
    const runtime::Int32 right = runtime::Int32(corner.x) + size.x;
    const runtime::Int32 bottom = runtime::Int32(corner.y) + size.y;
    return {corner.x, corner.y, right.value(), bottom.value()};
}

} // namespace toolkit
