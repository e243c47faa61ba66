#include "app/pictures.h"

#include "assets/assets.h"
#include "toolkit/bitmap.h"
#include "toolkit/png.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>

namespace {

platform::Picture orStop(platform::Picture picture, std::string_view fileName) {
    if (picture.empty()) {
        std::fprintf(stderr, "orvan: the bitmap %.*s is missing from this build\n",
                     static_cast<int>(fileName.size()), fileName.data());
        std::abort();
    }
    return picture;
}

platform::Picture naturalPicture(std::string_view fileName) {
    return orStop(toolkit::decodeBitmap(assets::file(fileName)), fileName);
}

platform::Picture largerPicture(std::string_view fileName, std::int32_t times) {
    const std::string stem(fileName.substr(0, fileName.rfind('.')));
    const std::string path = std::to_string(times) + "x/" + stem + ".png";
    return orStop(toolkit::decodePng(assets::file(path)), path);
}

} // namespace

toolkit::Artwork skinPicture(std::string_view fileName) {
    return toolkit::Artwork([fileName](std::int32_t times) {
        return times == 1 ? naturalPicture(fileName) : largerPicture(fileName, times);
    });
}
