#pragma once

#include "platform/picture.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace pictures {

/// How far a picture may be from its reference: so much in each colour of a pixel, 0 to 255, and
/// beyond that in so many pixels of a hundred that aren't background, which is the colour of the
/// reference's last pixel.
struct Tolerance {
    std::int32_t shade = 0;
    std::size_t percent = 0;
};

/// Fails the running test unless the picture is the reference of that name, pixel by pixel, or as
/// near to it as is tolerated. The picture and its reference are then saved side by side. While
/// references are being taken over, the picture becomes the reference instead.
void checkPicture(const std::string& name, const platform::Picture& actual,
                  Tolerance tolerance = {});

/// Whether `checkPicture` would pass.
bool looksLike(const std::string& name, const platform::Picture& actual, Tolerance tolerance);

/// The names of all reference pictures there are, or of those in a folder among them, sorted.
std::vector<std::string> referenceNames(const std::string& folder = "");

} // namespace pictures
