#include "platform/simulated/text.h"

#include "platform/device_pixels.h"
#include "platform/simulated/world.h"
#include "runtime/characters.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>

namespace simulated {

bool Text::shows(const std::string& text) const {
    return std::any_of(drawn.begin(), drawn.end(),
                       [&](const Drawn& one) { return one.text == text; });
}

} // namespace simulated

namespace platform {
namespace {

using simulated::world;

Size characterSize(const Font& font) {
    const auto pixels = [&](double per) {
        return std::max(1, static_cast<std::int32_t>(std::lround(font.points * per)));
    };
    return {pixels(0.72), pixels(1.6)};
}

void fill(Picture& picture, const Rect& clip, const Rect& box, Pixel colour) {
    const std::int32_t left = std::max({box.left, clip.left, 0});
    const std::int32_t right = std::min({box.right, clip.right, picture.width});
    const std::int32_t top = std::max({box.top, clip.top, 0});
    const std::int32_t bottom = std::min({box.bottom, clip.bottom, picture.height});
    for (std::int32_t y = top; y < bottom; ++y)
        for (std::int32_t x = left; x < right; ++x)
            picture.row(y)[x] = colour;
}

} // namespace

Size measureText(const Font& font, std::string_view text) {
    const Size character = characterSize(font);
    const auto characters = static_cast<std::int32_t>(runtime::characterCount(text));
    return {characters * character.width, character.height};
}

void drawText(Picture& picture, const Rect& clip, Point origin, const Font& font, Pixel colour,
              std::string_view text) {
    world.text.drawn.push_back({std::string(text), font, colour, origin, clip});
    if (world.text.leaveOut) return;
    const Size character = characterSize(font);
    // The blocks' edges lie where the scale has them.
    const auto scaled = [&](std::int32_t place) { return deviceEdge(place, font.scale); };
    std::int32_t left = 0;
    for (std::size_t at = 0; at < text.size(); at += runtime::lengthOfCharacter(text, at)) {
        const std::int32_t right = left + std::max(1, character.width - 1);
        if (text[at] != ' ')
            fill(picture, clip,
                 {origin.x + scaled(left), origin.y + scaled(2), origin.x + scaled(right),
                  origin.y + scaled(character.height - 2)},
                 colour);
        left += character.width;
    }
}

} // namespace platform
