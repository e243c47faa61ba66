#include "toolkit/picture_box.h"

namespace toolkit {

void PictureBox::paint(platform::Picture& target, const platform::Rect& area) const {
    fill(target, area, pixelOf(backColour_));
    blit(target, area, {area.left, area.top}, picture_);
    if (held_.empty()) return;
    // A picture of the box alone crops whatever its controls draw.
    platform::Picture inside(area.right - area.left, area.bottom - area.top);
    blit(inside, {0, 0, inside.width, inside.height}, {-area.left, -area.top}, target);
    for (auto control = held_.rbegin(); control != held_.rend(); ++control)
        if ((*control)->shown()) (*control)->paint(inside, (*control)->area());
    blit(target, area, {area.left, area.top}, inside);
}

} // namespace toolkit
