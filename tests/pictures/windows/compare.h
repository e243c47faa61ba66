#pragma once

#include "platform/picture.h"

#include <string>
#include <vector>

namespace pictures {

/// Fails the running test unless the picture is the reference of that name, pixel by pixel. The
/// picture and its reference are then saved side by side. While references are being taken over,
/// the picture becomes the reference instead.
void checkPicture(const std::string& name, const platform::Picture& actual);

/// The names of all reference pictures there are, sorted.
std::vector<std::string> referenceNames();

} // namespace pictures
