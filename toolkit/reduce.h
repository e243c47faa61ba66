#pragma once

#include "platform/picture.h"
#include "platform/types.h"

#include <cstdint>
#include <vector>

/// Fitting a picture to a display with a fraction of a pixel to each of its own.
namespace toolkit {

/// For each edge between two pixels of one axis of a picture, and its two ends, whether a straight
/// line runs along at least half of it: between rows, or between columns.
std::vector<bool> linesBetweenRows(const platform::Picture& natural);
std::vector<bool> linesBetweenColumns(const platform::Picture& natural);

/// Where the edges between a picture's pixels lie on a display, counted from its first one. Those
/// with a line, and both ends, lie on whole pixels, so that a line stays as sharp and as wide as a
/// pixel is; the others lie evenly between them. `first` is the place of the picture in its window.
std::vector<double> fittedEdges(const std::vector<bool>& lines, double scale, std::int32_t first);

/// The picture at a fraction, its top left corner at a place of its window: `larger`, which has the
/// next whole number of pixels to each of `natural`, smoothly reduced. No line in it is blurred.
platform::Picture reduced(const platform::Picture& natural, const platform::Picture& larger,
                          double scale, platform::Point corner);

} // namespace toolkit
