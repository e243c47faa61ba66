#include "toolkit/picture_box.h"

namespace toolkit {

void PictureBox::paint(const Canvas& target, const platform::Rect& area) const {
    fill(target, area, pixelOf(backColour_));
    lay(target, area, {area.left, area.top}, artwork_);
    if (held_.empty()) return;
    // A picture of the box alone crops whatever its controls draw.
    const platform::Rect place = target.onPicture(area);
    platform::Picture inside(place.right - place.left, place.bottom - place.top);
    copy(inside, {-place.left, -place.top}, target.picture);
    const Canvas box{
        inside, target.scale, {target.origin.x + area.left, target.origin.y + area.top}};
    for (auto control = held_.rbegin(); control != held_.rend(); ++control)
        if ((*control)->shown()) (*control)->paint(box, (*control)->area());
    copy(target.picture, {place.left, place.top}, inside);
}

} // namespace toolkit
