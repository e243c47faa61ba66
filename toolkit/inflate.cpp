#include "toolkit/inflate.h"

#include <zlib.h>

namespace toolkit {

std::vector<std::byte> inflate(std::span<const std::byte> packed, std::size_t size) {
    std::vector<std::byte> whole(size);
    uLongf found = static_cast<uLongf>(size);
    const int result = ::uncompress(reinterpret_cast<Bytef*>(whole.data()), &found,
                                    reinterpret_cast<const Bytef*>(packed.data()),
                                    static_cast<uLong>(packed.size()));
    if (result != Z_OK || found != size) whole.clear();
    return whole;
}

} // namespace toolkit
