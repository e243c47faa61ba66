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

bool near(platform::Pixel a, platform::Pixel b, std::int32_t shade) {
    for (const unsigned shift : {0U, 8U, 16U}) {
        const auto one = static_cast<std::int32_t>(a >> shift & 0xFFU);
        const auto other = static_cast<std::int32_t>(b >> shift & 0xFFU);
        if (std::abs(one - other) > shade) return false;
    }
    return true;
}

/// How many pixels are too far from the reference's; all of them if the sizes differ.
std::size_t differing(const platform::Picture& expected, const platform::Picture& actual,
                      Tolerance tolerance) {
    if (expected.width != actual.width || expected.height != actual.height)
        return actual.pixels.size();
    std::size_t count = 0;
    std::size_t inked = 0;
    for (std::size_t i = 0; i < expected.pixels.size(); ++i) {
        if (expected.pixels[i] != expected.pixels.back()) ++inked;
        if (!near(expected.pixels[i], actual.pixels[i], tolerance.shade)) ++count;
    }
    return count * 100 <= inked * tolerance.percent ? 0 : count;
}

std::filesystem::path referenceOf(const std::string& name) { return references / (name + ".bmp"); }

} // namespace

void checkPicture(const std::string& name, const platform::Picture& actual, Tolerance tolerance) {
    if (std::getenv("ORVAN_REBASELINE") != nullptr) return save(referenceOf(name), actual);
    const platform::Picture expected = load(referenceOf(name));
    const std::size_t pixels = differing(expected, actual, tolerance);
    if (pixels == 0) return;
    save(differences / (name + ".actual.bmp"), actual);
    if (!expected.empty()) save(differences / (name + ".reference.bmp"), expected);
    const std::string fault = expected.empty() ? "has no reference" : "differs";
    FAIL_CHECK(name << ": " << fault << ", in " << pixels << " pixels; see "
                    << differences.string());
}

bool looksLike(const std::string& name, const platform::Picture& actual, Tolerance tolerance) {
    return differing(load(referenceOf(name)), actual, tolerance) == 0;
}

std::vector<std::string> referenceNames(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code missing;
    for (const auto& entry : std::filesystem::directory_iterator(references / folder, missing))
        names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace pictures
