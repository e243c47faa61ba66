#pragma once

#include "platform/picture.h"

#include <QImage>

namespace platform {

/// Qt's view of a picture's pixels, without a copy: valid as long as the picture is. A picture that
/// is constant may only be read through it.
inline QImage imageOf(const Picture& picture, QImage::Format format) {
    const qsizetype bytesOfRow = qsizetype{picture.width} * 4;
    return {reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width, picture.height,
            bytesOfRow, format};
}

inline QImage imageOf(Picture& picture, QImage::Format format) {
    const qsizetype bytesOfRow = qsizetype{picture.width} * 4;
    return {reinterpret_cast<uchar*>(picture.pixels.data()), picture.width, picture.height,
            bytesOfRow, format};
}

} // namespace platform
