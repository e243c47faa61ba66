#include "tests/contract/linux/real_pointer.h"

#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>

#include <cstdlib>

namespace contract {

bool xdotool(const std::string& arguments) {
    return std::system(("xdotool " + arguments).c_str()) == 0; // NOLINT(cert-env33-c)
}

void parkPointer() { xdotool("mousemove 1000 700"); }

platform::Pixel screenPixel(platform::Point place) {
    QScreen* const screen = QGuiApplication::primaryScreen();
    return screen->grabWindow(0, place.x, place.y, 1, 1).toImage().pixel(0, 0);
}

} // namespace contract
