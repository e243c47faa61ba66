#include "platform/text.h"

#include "platform/device_pixels.h"
#include "platform/windows/fonts.h"
#include "platform/windows/utf16.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace platform {
namespace {

/// A bitmap of the system's, since its text calls can't draw into a picture. It only grows.
class Canvas {
  public:
    Canvas() : context_(CreateCompatibleDC(nullptr)) {}
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas() = delete; // at the end of the process the system takes it back

    void makeRoom(std::int32_t width, std::int32_t height) {
        if (width <= width_ && height <= height_) return;
        width_ = std::max(width, width_);
        height_ = std::max(height, height_);
        BITMAPINFO layout = {};
        layout.bmiHeader = {
            sizeof layout.bmiHeader, width_, -height_, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        const HBITMAP fresh =
            CreateDIBSection(context_, &layout, DIB_RGB_COLORS, &bits, nullptr, 0);
        bits_ = static_cast<Pixel*>(bits);
        SelectObject(context_, fresh);
        if (bitmap_ != nullptr) DeleteObject(bitmap_);
        bitmap_ = fresh;
    }

    [[nodiscard]] Pixel* row(std::int32_t y) const {
        return bits_ + static_cast<std::ptrdiff_t>(y) * width_;
    }
    [[nodiscard]] HDC context() const { return context_; }

  private:
    HDC context_;
    HBITMAP bitmap_ = nullptr;
    Pixel* bits_ = nullptr;
    std::int32_t width_ = 0;
    std::int32_t height_ = 0;
};

Canvas& canvas() {
    static Canvas& only = *new Canvas;
    return only;
}

Rect commonPart(const Picture& picture, const Rect& clip) {
    return {std::max(clip.left, 0), std::max(clip.top, 0), std::min(clip.right, picture.width),
            std::min(clip.bottom, picture.height)};
}

COLORREF colourOf(Pixel pixel) {
    return RGB((pixel >> 16) & 0xFFU, (pixel >> 8) & 0xFFU, pixel & 0xFFU);
}

Size sizeOf(HDC context, const std::wstring& text) {
    SIZE extent = {};
    GetTextExtentPoint32W(context, text.c_str(), static_cast<int>(text.size()), &extent);
    TEXTMETRICW metrics = {};
    GetTextMetricsW(context, &metrics);
    return {extent.cx, metrics.tmHeight};
}

int ascentIn(HDC context) {
    TEXTMETRICW metrics = {};
    GetTextMetricsW(context, &metrics);
    return metrics.tmAscent;
}

/// A short text a little too wide for its room, such as a time of seven characters, moves closer
/// together rather than end in half a letter.
int spacingFor(HDC context, const std::wstring& text, int room) {
    constexpr std::size_t longestShortText = 12;
    return text.size() <= longestShortText && sizeOf(context, text).width > room ? -1 : 0;
}

/// The same font with a text's own pixels.
Font naturalOf(const Font& font) {
    Font natural = font;
    natural.scale = 1;
    return natural;
}

void writeNatural(HDC context, const std::wstring& text, Point origin, int room) {
    SetTextCharacterExtra(context, spacingFor(context, text, room));
    TextOutW(context, origin.x, origin.y, text.c_str(), static_cast<int>(text.size()));
    SetTextCharacterExtra(context, 0);
}

/// How far to go on from each unit of a text, so that the whole is as wide as that. Letters of
/// whole pixels are seldom exactly so many times wider, so all move by the same.
std::vector<int> stepsFor(HDC context, const std::wstring& text, double width) {
    const auto count = static_cast<int>(text.size());
    std::vector<int> ends(text.size());
    SIZE whole = {};
    GetTextExtentExPointW(context, text.c_str(), count, 0, nullptr, ends.data(), &whole);
    const double missing = (width - whole.cx) / count;
    int before = 0;
    for (int unit = 0; unit < count; ++unit) {
        int& step = ends[static_cast<std::size_t>(unit)];
        const int end = step + static_cast<int>(std::lround(missing * (unit + 1)));
        step = end - std::exchange(before, end);
    }
    return ends;
}

/// Writes a text in as many times its size and its room, on the line that it has without.
void writeScaled(HDC context, const Font& font, std::wstring text, Point origin, double room) {
    constexpr std::size_t longest = 8192; // what the call takes
    text.resize(std::min(text.size(), longest));
    SelectObject(context, fontFor(naturalOf(font)));
    const int natural = sizeOf(context, text).width +
                        spacingFor(context, text, static_cast<int>(room / font.scale)) *
                            static_cast<int>(text.size());
    const int line = origin.y + deviceEdge(ascentIn(context), font.scale);
    SelectObject(context, fontFor(font));
    const std::vector<int> steps = stepsFor(context, text, natural * font.scale);
    SetTextAlign(context, TA_BASELINE);
    ExtTextOutW(context, origin.x, line, 0, nullptr, text.c_str(), static_cast<UINT>(text.size()),
                steps.data());
    SetTextAlign(context, TA_TOP);
}

} // namespace

Size measureText(const Font& font, std::string_view text) {
    const HDC context = canvas().context();
    SelectObject(context, fontFor(naturalOf(font)));
    return sizeOf(context, toWide(text));
}

void drawText(Picture& picture, const Rect& clip, Point origin, const Font& font, Pixel colour,
              std::string_view text) {
    const Rect area = commonPart(picture, clip);
    const std::int32_t width = area.right - area.left;
    const std::int32_t height = area.bottom - area.top;
    if (width <= 0 || height <= 0 || text.empty()) return;

    canvas().makeRoom(width, height);
    for (std::int32_t y = 0; y < height; ++y)
        std::copy_n(picture.row(area.top + y) + area.left, width, canvas().row(y));

    const HDC context = canvas().context();
    const std::wstring wide = toWide(text);
    const Point corner{origin.x - area.left, origin.y - area.top};
    const std::int32_t room = clip.right - origin.x;
    SelectObject(context, fontFor(font));
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, colourOf(colour));
    if (font.scale == 1)
        writeNatural(context, wide, corner, room);
    else
        writeScaled(context, font, wide, corner, room);
    GdiFlush();

    // The system's calls leave no alpha behind.
    for (std::int32_t y = 0; y < height; ++y)
        std::transform(canvas().row(y), canvas().row(y) + width,
                       picture.row(area.top + y) + area.left,
                       [](Pixel pixel) { return pixel | 0xFF000000U; });
}

} // namespace platform
