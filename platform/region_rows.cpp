#include "platform/region_rows.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <utility>

namespace platform {
namespace {

constexpr std::int64_t LongestSide = 32767;

struct Span {
    std::int32_t left;
    std::int32_t right;
    friend bool operator==(const Span&, const Span&) = default;
};

using Spans = std::vector<Span>;

Rect ordered(const Rect& edges) {
    return {std::min(edges.left, edges.right), std::min(edges.top, edges.bottom),
            std::max(edges.left, edges.right), std::max(edges.top, edges.bottom)};
}

/// Columns that a corner's ellipse leaves out in its row `y`, counted from the top.
///
/// The ellipse runs through the centres of the outermost pixels. A pixel belongs to the shape when
/// the curve passes beyond it or nearest to it, along its row or along its column. All lengths are
/// doubled, so that the centre of an even ellipse is a whole number too.
std::int32_t cornerInset(Size ellipse, std::int32_t y) {
    const std::int64_t a = ellipse.width - 1;
    const std::int64_t b = ellipse.height - 1;
    const std::int64_t dy = b - 2 * std::int64_t{y};
    const auto inside = [&](std::int64_t u, std::int64_t v) {
        return u * u * b * b + v * v * a * a < a * a * b * b;
    };
    std::int32_t x = 0;
    for (const std::int32_t last = (ellipse.width - 1) / 2; x < last; ++x) {
        const std::int64_t dx = a - 2 * std::int64_t{x};
        if (inside(dx - 1, dy) || inside(dx, dy - 1)) break;
    }
    return x;
}

void appendBand(RegionRows& rows, std::int32_t top, std::int32_t bottom, const Spans& spans) {
    std::vector<Rect>& list = rows.rectangles;
    const std::size_t count = spans.size();
    const bool continues = list.size() >= count && count > 0 && [&] {
        const std::size_t start = list.size() - count;
        if (start > 0 && list[start - 1].bottom == top) return false;
        return std::equal(spans.begin(), spans.end(),
                          list.begin() + static_cast<std::ptrdiff_t>(start),
                          [&](const Span& span, const Rect& above) {
                              return above.bottom == top && span == Span{above.left, above.right};
                          });
    }();
    if (continues) {
        for (std::size_t i = list.size() - count; i < list.size(); ++i)
            list[i].bottom = bottom;
        return;
    }
    for (const Span& span : spans)
        list.push_back({span.left, top, span.right, bottom});
}

void collectSpans(const RegionRows& rows, std::int32_t y, Spans& spans) {
    for (const Rect& r : rows.rectangles)
        if (r.top <= y && y < r.bottom) spans.push_back({r.left, r.right});
}

Spans joined(Spans spans) {
    std::sort(spans.begin(), spans.end(),
              [](const Span& x, const Span& y) { return x.left < y.left; });
    Spans result;
    for (const Span& span : spans) {
        if (!result.empty() && span.left <= result.back().right)
            result.back().right = std::max(result.back().right, span.right);
        else
            result.push_back(span);
    }
    return result;
}

} // namespace

bool RegionRows::contains(Point point) const {
    return std::any_of(rectangles.begin(), rectangles.end(), [&](const Rect& r) {
        return r.left <= point.x && point.x < r.right && r.top <= point.y && point.y < r.bottom;
    });
}

RegionRows rectangleRows(const Rect& edges) {
    const Rect r = ordered(edges);
    if (r.left == r.right || r.top == r.bottom) return {};
    return {{r}};
}

RegionRows roundRectangleRows(const Rect& edges, Size ellipse) {
    const Rect outer = ordered(edges);
    const std::int64_t width = std::int64_t{outer.right} - outer.left - 1;
    const std::int64_t height = std::int64_t{outer.bottom} - outer.top - 1;
    if (width <= 0 || height <= 0 || width > LongestSide || height > LongestSide) return {};
    const Rect r{outer.left, outer.top, outer.right - 1, outer.bottom - 1};
    const auto diameter = [](std::int32_t asked, std::int64_t side) {
        return static_cast<std::int32_t>(std::min(std::abs(std::int64_t{asked}), side));
    };
    const Size corner{diameter(ellipse.width, width), diameter(ellipse.height, height)};
    if (corner.width < 2 || corner.height < 2) return {{r}};

    RegionRows rows;
    const std::int32_t cut = corner.height / 2;
    const auto row = [&](std::int32_t top, std::int32_t inset) {
        appendBand(rows, top, top + 1, {{r.left + inset, r.right - inset}});
    };
    for (std::int32_t y = 0; y < cut; ++y)
        row(r.top + y, cornerInset(corner, y));
    if (r.top + cut < r.bottom - cut)
        appendBand(rows, r.top + cut, r.bottom - cut, {{r.left, r.right}});
    for (std::int32_t y = cut - 1; y >= 0; --y)
        row(r.bottom - 1 - y, cornerInset(corner, y));
    return rows;
}

RegionRows unionRows(const RegionRows& first, const RegionRows& second) {
    std::vector<std::int32_t> edges;
    for (const RegionRows* rows : {&first, &second})
        for (const Rect& r : rows->rectangles) {
            edges.push_back(r.top);
            edges.push_back(r.bottom);
        }
    std::sort(edges.begin(), edges.end());
    edges.erase(std::unique(edges.begin(), edges.end()), edges.end());

    RegionRows result;
    for (std::size_t i = 0; i + 1 < edges.size(); ++i) {
        Spans spans;
        collectSpans(first, edges[i], spans);
        collectSpans(second, edges[i], spans);
        appendBand(result, edges[i], edges[i + 1], joined(std::move(spans)));
    }
    return result;
}

} // namespace platform
