#include "platform/text.h"

#include "platform/windows/fonts.h"
#include "platform/windows/utf16.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

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

/// A short text a little too wide for its room, such as a time of seven characters, moves closer
/// together rather than end in half a letter.
int spacingFor(HDC context, const std::wstring& text, int room) {
    constexpr std::size_t longestShortText = 12;
    return text.size() <= longestShortText && sizeOf(context, text).width > room ? -1 : 0;
}

} // namespace

Size measureText(const Font& font, std::string_view text) {
    const HDC context = canvas().context();
    SelectObject(context, fontFor(font));
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
    SelectObject(context, fontFor(font));
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, colourOf(colour));
    SetTextCharacterExtra(context, spacingFor(context, wide, clip.right - origin.x));
    TextOutW(context, origin.x - area.left, origin.y - area.top, wide.c_str(),
             static_cast<int>(wide.size()));
    SetTextCharacterExtra(context, 0);
    GdiFlush();

    // The system's calls leave no alpha behind.
    for (std::int32_t y = 0; y < height; ++y)
        std::transform(canvas().row(y), canvas().row(y) + width,
                       picture.row(area.top + y) + area.left,
                       [](Pixel pixel) { return pixel | 0xFF000000U; });
}

} // namespace platform
