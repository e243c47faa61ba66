#include "platform/windows/fonts.h"

#include "platform/windows/utf16.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

namespace platform {
namespace {

/// Faces of like metrics for systems that lack the one that is asked for.
struct Substitute {
    std::string_view asked;
    const wchar_t* face;
};

constexpr Substitute substitutes[] = {
    {"MS Sans Serif", L"Microsoft Sans Serif"},
    {"MS Sans Serif", L"Liberation Sans"},
    {"Tahoma", L"Liberation Sans"},
    {"Terminal", L"Lucida Console"},
    {"Terminal", L"Liberation Mono"},
};

struct Sought {
    bool drawn; ///< in any size, not by a bitmap for each
    bool found = false;
};

int CALLBACK foundFace(const LOGFONTW* /*font*/, const TEXTMETRICW* /*metrics*/, DWORD kind,
                       LPARAM sought) {
    auto& face = *reinterpret_cast<Sought*>(sought);
    face.found = !face.drawn || (kind & RASTER_FONTTYPE) == 0;
    return face.found ? FALSE : TRUE;
}

bool isInstalled(const std::wstring& face, bool drawn) {
    LOGFONTW sought = {};
    sought.lfCharSet = DEFAULT_CHARSET;
    face.copy(sought.lfFaceName, LF_FACESIZE - 1);
    Sought answer{drawn};
    const HDC screen = GetDC(nullptr);
    EnumFontFamiliesExW(screen, &sought, foundFace, reinterpret_cast<LPARAM>(&answer), 0);
    ReleaseDC(nullptr, screen);
    return answer.found;
}

std::wstring faceFor(const Font& font) {
    std::wstring wanted = toWide(font.face);
    const bool drawn = font.scale != 1;
    if (isInstalled(wanted, drawn)) return wanted;
    for (const Substitute& substitute : substitutes)
        if (substitute.asked == font.face && isInstalled(substitute.face, drawn))
            return substitute.face;
    return wanted;
}

HFONT makeFont(const Font& font) {
    constexpr double pixelsPerInch = 96;
    constexpr double pointsPerInch = 72;
    LOGFONTW wanted = {};
    const auto height = std::lround(font.points * font.scale * pixelsPerInch / pointsPerInch);
    wanted.lfHeight = static_cast<LONG>(-std::max(1L, height));
    wanted.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
    wanted.lfItalic = font.italic ? TRUE : FALSE;
    wanted.lfCharSet = font.face == "Terminal" ? OEM_CHARSET : DEFAULT_CHARSET;
    wanted.lfQuality = ANTIALIASED_QUALITY;
    faceFor(font).copy(wanted.lfFaceName, LF_FACESIZE - 1);
    return CreateFontIndirectW(&wanted);
}

} // namespace

HFONT fontFor(const Font& font) {
    // The player uses a handful of fonts, over and over.
    struct Known {
        Font asked;
        HFONT made;
    };
    static std::vector<Known> known;
    for (const Known& entry : known)
        if (entry.asked == font) return entry.made;
    known.push_back({font, makeFont(font)});
    return known.back().made;
}

} // namespace platform
