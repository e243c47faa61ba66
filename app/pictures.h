#pragma once

#include "toolkit/artwork.h"

#include <string_view>

/// A bitmap of the skin by its file name, at all its scales. The name has to last as long as the
/// program. One that isn't there is a fault of the build: the process stops when it is first shown.
toolkit::Artwork skinPicture(std::string_view fileName);
