#include "platform/text.h"

#include "platform/device_pixels.h"
#include "platform/linux/fonts.h"
#include "platform/linux/picture_image.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <string_view>
#include <vector>

namespace platform {
namespace {

struct Face {
    std::string_view asked;
    const char* family;
    QFont::StyleHint hint;
    int blankRows; ///< rows above its letters that the face asked for doesn't have
};

// Faces of like metrics that a desktop has; the hint picks one if it hasn't.
constexpr std::array<Face, 3> faces{{
    {"MS Sans Serif", "Liberation Sans", QFont::SansSerif, 0},
    {"Tahoma", "Liberation Sans", QFont::SansSerif, 0},
    {"Terminal", "Liberation Mono", QFont::TypeWriter, 1},
}};

const Face* faceOf(const Font& font) {
    const auto found = std::find_if(faces.begin(), faces.end(),
                                    [&](const Face& face) { return face.asked == font.face; });
    return found == faces.end() ? nullptr : &*found;
}

int blankRowsOf(const Font& font) {
    const Face* const face = faceOf(font);
    return face == nullptr ? 0 : face->blankRows;
}

/// Whether each character is a letter or sign by itself, whatever stands beside it: printable ones
/// of the Latin script, without marks that go above others and hyphens that don't show.
bool standAlone(const QString& text) {
    constexpr char16_t hiddenHyphen = 0xAD;
    constexpr char16_t firstMark = 0x300;
    return std::all_of(text.begin(), text.end(), [](QChar character) {
        const char16_t unit = character.unicode();
        const bool ascii = unit >= 0x20 && unit < 0x7F;
        return ascii || (unit >= 0xA0 && unit < firstMark && unit != hiddenHyphen);
    });
}

QFont makeFont(const Font& font) {
    QFont made;
    made.setFamily(QString::fromStdString(font.face));
    made.setStyleHint(QFont::SansSerif);
    if (const Face* const face = faceOf(font)) {
        made.setFamily(QString::fromLatin1(face->family));
        made.setStyleHint(face->hint);
    }
    const double pixels = font.points * 96 / 72;
    made.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels * font.scale))));
    made.setBold(font.bold);
    made.setItalic(font.italic);
    made.setHintingPreference(QFont::PreferFullHinting);
    made.setStyleStrategy(
        static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    made.setKerning(false);
    return made;
}

QString textOf(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

namespace {

struct Known {
    Font asked;
    QFont made;
    QFont unshaped; ///< for letters that stand alone: nobody need load what shapes the others
};

const Known& knownFont(const Font& font) {
    // The player uses a handful of fonts, over and over.
    static std::vector<std::unique_ptr<Known>> known;
    for (const auto& entry : known)
        if (entry->asked == font) return *entry;
    const QFont made = makeFont(font);
    QFont unshaped = made;
    unshaped.setStyleStrategy(
        static_cast<QFont::StyleStrategy>(made.styleStrategy() | QFont::PreferNoShaping));
    known.push_back(std::make_unique<Known>(Known{font, made, unshaped}));
    return *known.back();
}

const QFont& fontFor(const Font& font, const QString& text) {
    const Known& known = knownFont(font);
    return standAlone(text) ? known.unshaped : known.made;
}

} // namespace

const QFont& fontFor(const Font& font) { return knownFont(font).made; }

namespace {

/// The same font with a text's own pixels.
Font naturalOf(const Font& font) {
    Font natural = font;
    natural.scale = 1;
    return natural;
}

/// A short text a little too wide for its room, such as a time of seven characters, moves closer
/// together rather than end in half a letter.
QFont fittingFont(const Font& font, const QString& text, double room) {
    constexpr qsizetype longestShortText = 12;
    QFont fitting = fontFor(font, text);
    if (text.size() <= longestShortText && QFontMetrics(fitting).horizontalAdvance(text) > room)
        fitting.setLetterSpacing(QFont::AbsoluteSpacing, -1);
    return fitting;
}

/// The font in as many times its size. Letters of whole pixels aren't exactly as much wider, so
/// they move until the text is.
QFont scaledFont(const Font& font, const QFont& natural, const QString& text) {
    QFont scaled = fontFor(font, text);
    const double width = QFontMetrics(natural).horizontalAdvance(text) * font.scale;
    const double missing = width - QFontMetrics(scaled).horizontalAdvance(text);
    scaled.setLetterSpacing(QFont::AbsoluteSpacing, missing / static_cast<double>(text.size()));
    return scaled;
}

} // namespace

Size measureText(const Font& font, std::string_view text) {
    const QString words = textOf(text);
    const QFontMetrics metrics(fontFor(naturalOf(font), words));
    return {metrics.horizontalAdvance(words), metrics.height() - blankRowsOf(font)};
}

void drawText(Picture& picture, const Rect& clip, Point origin, const Font& font, Pixel colour,
              std::string_view text) {
    if (picture.empty() || text.empty()) return;
    QImage image = imageOf(picture, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setClipRect(
        QRect(QPoint(clip.left, clip.top), QPoint(clip.right - 1, clip.bottom - 1)));
    const QString words = textOf(text);
    const QFont natural = fittingFont(naturalOf(font), words, (clip.right - origin.x) / font.scale);
    painter.setFont(font.scale == 1 ? natural : scaledFont(font, natural, words));
    painter.setPen(QColor::fromRgb(colour));
    const int ascent = QFontMetrics(natural).ascent() - blankRowsOf(font);
    painter.drawText(QPoint(origin.x, origin.y + deviceEdge(ascent, font.scale)), words);
}

} // namespace platform
