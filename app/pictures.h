#pragma once

#include "platform/picture.h"

#include <string_view>

/// A bitmap of the skin by its file name. A name that isn't there is a fault of the build: the
/// process stops at once.
platform::Picture skinPicture(std::string_view fileName);
