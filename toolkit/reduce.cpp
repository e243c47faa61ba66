#include "toolkit/reduce.h"

#include "platform/device_pixels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace toolkit {
namespace {

using platform::Picture;
using platform::Pixel;

constexpr std::size_t channels = 4; // alpha, then the colours as they weigh by it

using Light = std::array<float, channels>;

/// A picture as amounts of light, which can be added up.
struct Sheet {
    std::size_t width;
    std::size_t height;
    std::vector<Light> cells;
};

/// So much of one pixel goes into a pixel of the result.
struct Part {
    std::size_t from;
    float share;
};

/// What each pixel of the result is made of, along one axis.
using Plan = std::vector<std::vector<Part>>;

bool differ(Pixel a, Pixel b) {
    constexpr int visible = 6; // steps of a channel
    for (const std::uint32_t shift : {0U, 8U, 16U, 24U})
        if (std::abs(static_cast<int>(a >> shift & 0xFFU) - static_cast<int>(b >> shift & 0xFFU)) >=
            visible)
            return true;
    return false;
}

/// Both ends, and the edges along which more than half of the pairs of pixels differ.
template <class PairAt>
std::vector<bool> linesAmong(std::int32_t edges, std::int32_t pairs, PairAt differs) {
    std::vector<bool> lines(static_cast<std::size_t>(edges) + 1, true);
    for (std::int32_t edge = 1; edge < edges; ++edge) {
        std::int32_t found = 0;
        for (std::int32_t pair = 0; pair < pairs; ++pair)
            found += differs(edge, pair) ? 1 : 0;
        lines[static_cast<std::size_t>(edge)] = found * 2 >= pairs;
    }
    return lines;
}

/// Spreads a pixel that reaches from one place to another over the pixels of the result.
void spread(Plan& plan, std::size_t from, double left, double right) {
    const auto last = static_cast<std::size_t>(std::ceil(right));
    for (auto target = static_cast<std::size_t>(left); target < std::min(last, plan.size());
         ++target) {
        const auto begin = static_cast<double>(target);
        const double share = std::min(begin + 1, right) - std::max(begin, left);
        plan[target].push_back({from, static_cast<float>(share)});
    }
}

/// How a larger picture's pixels, `times` to one between two edges, make up the result.
Plan planFor(const std::vector<double>& edges, std::size_t times) {
    Plan plan(static_cast<std::size_t>(edges.back()));
    for (std::size_t pixel = 0; pixel + 1 < edges.size(); ++pixel) {
        const double width = (edges[pixel + 1] - edges[pixel]) / static_cast<double>(times);
        for (std::size_t step = 0; step < times; ++step) {
            const double left = edges[pixel] + width * static_cast<double>(step);
            spread(plan, pixel * times + step, left, left + width);
        }
    }
    return plan;
}

Sheet sheetOf(const Picture& picture) {
    Sheet sheet{
        static_cast<std::size_t>(picture.width), static_cast<std::size_t>(picture.height), {}};
    sheet.cells.reserve(picture.pixels.size());
    for (const Pixel pixel : picture.pixels) {
        const auto alpha = static_cast<float>(pixel >> 24U);
        const auto part = [&](unsigned shift) {
            return static_cast<float>(pixel >> shift & 0xFFU) * alpha;
        };
        sheet.cells.push_back({alpha, part(16), part(8), part(0)});
    }
    return sheet;
}

Picture pictureOf(const Sheet& sheet) {
    Picture picture(static_cast<std::int32_t>(sheet.width),
                    static_cast<std::int32_t>(sheet.height));
    constexpr float half = 0.5F;
    for (std::size_t i = 0; i < sheet.cells.size(); ++i) {
        const auto& [alpha, red, green, blue] = sheet.cells[i];
        const auto part = [&, whole = alpha](float light) {
            return whole <= 0 ? 0U : static_cast<Pixel>(std::min(255.0F, light / whole + half));
        };
        const auto cover = static_cast<Pixel>(std::min(255.0F, alpha + half));
        picture.pixels[i] = cover << 24U | part(red) << 16U | part(green) << 8U | part(blue);
    }
    return picture;
}

/// Reduces the width, and lays the result on its side.
Sheet reducedAndTurned(const Sheet& sheet, const Plan& plan) {
    Sheet turned{sheet.height, plan.size(), std::vector<Light>(sheet.height * plan.size())};
    for (std::size_t x = 0; x < plan.size(); ++x)
        for (std::size_t y = 0; y < sheet.height; ++y) {
            Light& sum = turned.cells[x * turned.width + y];
            for (const Part& part : plan[x]) {
                const Light& cell = sheet.cells[y * sheet.width + part.from];
                for (std::size_t c = 0; c < channels; ++c)
                    sum[c] += cell[c] * part.share;
            }
        }
    return turned;
}

} // namespace

std::vector<bool> linesBetweenRows(const Picture& natural) {
    return linesAmong(natural.height, natural.width, [&](std::int32_t y, std::int32_t x) {
        return differ(natural.row(y - 1)[x], natural.row(y)[x]);
    });
}

std::vector<bool> linesBetweenColumns(const Picture& natural) {
    return linesAmong(natural.width, natural.height, [&](std::int32_t x, std::int32_t y) {
        return differ(natural.row(y)[x - 1], natural.row(y)[x]);
    });
}

std::vector<double> fittedEdges(const std::vector<bool>& lines, double scale, std::int32_t first) {
    const auto whole = [&](std::size_t edge) {
        return platform::deviceEdge(first + static_cast<std::int32_t>(edge), scale) -
               platform::deviceEdge(first, scale);
    };
    std::vector<double> edges(lines.size());
    std::size_t last = 0;
    for (std::size_t edge = 1; edge < lines.size(); ++edge) {
        if (!lines[edge]) continue;
        const double step =
            static_cast<double>(whole(edge) - whole(last)) / static_cast<double>(edge - last);
        for (std::size_t i = last; i < edge; ++i)
            edges[i] = whole(last) + step * static_cast<double>(i - last);
        edges[edge] = whole(edge);
        last = edge;
    }
    return edges;
}

Picture reduced(const Picture& natural, const Picture& larger, double scale,
                platform::Point corner) {
    const auto times = static_cast<std::size_t>(larger.width / natural.width);
    const auto columns = fittedEdges(linesBetweenColumns(natural), scale, corner.x);
    const auto rows = fittedEdges(linesBetweenRows(natural), scale, corner.y);
    const Sheet narrow = reducedAndTurned(sheetOf(larger), planFor(columns, times));
    return pictureOf(reducedAndTurned(narrow, planFor(rows, times)));
}

} // namespace toolkit
