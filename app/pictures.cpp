#include "app/pictures.h"

#include "assets/assets.h"
#include "toolkit/bitmap.h"

#include <cstdio>
#include <cstdlib>

platform::Picture skinPicture(std::string_view fileName) {
    platform::Picture picture = toolkit::decodeBitmap(assets::file(fileName));
    if (picture.empty()) {
        std::fprintf(stderr, "orvan: the bitmap %.*s is missing from this build\n",
                     static_cast<int>(fileName.size()), fileName.data());
        std::abort();
    }
    return picture;
}
