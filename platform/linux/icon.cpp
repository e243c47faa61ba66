
#include "platform/linux/picture_image.h"
#include "platform/window.h"

#include <QApplication>
#include <QIcon>
#include <QPixmap>

#include <cstdint>
#include <vector>

namespace platform {

void setApplicationIcon(const std::vector<Picture>& sizes) {
    QIcon icon;
    for (const Picture& picture : sizes) {
        icon.addPixmap(QPixmap::fromImage(imageOf(picture, QImage::Format_ARGB32)));
    }
    QApplication::setWindowIcon(icon);
}

std::int32_t applicationIcon() { return 1; }

} // namespace platform
