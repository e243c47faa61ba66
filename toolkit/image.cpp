#include "toolkit/image.h"

#include "toolkit/painter.h"

namespace toolkit {

void Image::paint(const Canvas& target, const platform::Rect& area) const {
    lay(target, area, {area.left, area.top}, artwork_);
}

} // namespace toolkit
