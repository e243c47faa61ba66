#include "tests/pictures/windows/compare.h"

#include "toolkit/bitmap.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <doctest/doctest.h>
#include <filesystem>
#include <fstream>
#include <span>
#include <system_error>

namespace pictures {
namespace {

const std::filesystem::path references = ORVAN_REFERENCES;
const std::filesystem::path differences = ORVAN_DIFFERENCES;

void append(std::string& file, std::size_t value, int bytes) {
    for (int i = 0; i < bytes; ++i)
        file.push_back(static_cast<char>(value >> (8 * i) & 0xFFU));
}

/// An uncompressed bitmap file of 24 bits, which any viewer opens.
std::string bitmapFile(const platform::Picture& picture) {
    constexpr std::size_t headers = 54;
    const auto width = static_cast<std::size_t>(picture.width);
    const auto height = static_cast<std::size_t>(picture.height);
    const std::size_t padding = (4 - width * 3 % 4) % 4;
    const std::size_t size = (width * 3 + padding) * height;
    std::string file = "BM";
    append(file, headers + size, 4);
    append(file, 0, 4);
    append(file, headers, 4);
    append(file, 40, 4);
    append(file, width, 4);
    append(file, height, 4);
    append(file, 1, 2);
    append(file, 24, 2);
    append(file, 0, 4);
    append(file, size, 4);
    file.append(16, '\0');
    for (std::int32_t y = picture.height - 1; y >= 0; --y) {
        for (std::int32_t x = 0; x < picture.width; ++x)
            append(file, picture.row(y)[x], 3);
        file.append(padding, '\0');
    }
    return file;
}

void save(const std::filesystem::path& path, const platform::Picture& picture) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream out(path, std::ios::binary);
    out << bitmapFile(picture);
    out.close();
    CHECK_MESSAGE(out, "can't write " << path.string());
}

platform::Picture load(const std::filesystem::path& path) {
    std::error_code missing;
    const std::uintmax_t size = std::filesystem::file_size(path, missing);
    if (missing) return {};
    std::string file(size, '\0');
    std::ifstream in(path, std::ios::binary);
    in.read(file.data(), static_cast<std::streamsize>(file.size()));
    if (!in) return {};
    return toolkit::decodeBitmap(std::as_bytes(std::span(file)));
}

std::size_t differing(const platform::Picture& a, const platform::Picture& b) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < a.pixels.size(); ++i)
        if (a.pixels[i] != b.pixels[i]) ++count;
    return count;
}

} // namespace

void checkPicture(const std::string& name, const platform::Picture& actual) {
    const std::filesystem::path reference = references / (name + ".bmp");
    if (std::getenv("ORVAN_REBASELINE") != nullptr) return save(reference, actual);
    const platform::Picture expected = load(reference);
    const bool sameSize = expected.width == actual.width && expected.height == actual.height;
    const std::size_t pixels = sameSize ? differing(expected, actual) : actual.pixels.size();
    if (pixels == 0) return;
    save(differences / (name + ".actual.bmp"), actual);
    if (!expected.empty()) save(differences / (name + ".reference.bmp"), expected);
    const std::string fault = expected.empty() ? "has no reference" : "differs";
    FAIL_CHECK(name << ": " << fault << ", in " << pixels << " pixels; see "
                    << differences.string());
}

std::vector<std::string> referenceNames() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(references))
        names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace pictures
