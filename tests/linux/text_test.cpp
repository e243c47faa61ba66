#include "platform/linux/fonts.h"
#include "platform/linux/picture_image.h"
#include "platform/text.h"

#include <QFontMetrics>
#include <QImage>
#include <QPainter>

#include <doctest/doctest.h>

#include <cstdint>
#include <string>

using platform::Font;
using platform::Picture;

namespace {

constexpr std::int32_t width = 400;
constexpr std::int32_t height = 40;
constexpr std::int32_t margin = 10;

Picture drawnByPlayer(const Font& font, const std::string& text) {
    Picture picture(width, height);
    platform::drawText(picture, {0, 0, width, height}, {margin, margin}, font, 0xFFFFFF00U, text);
    return picture;
}

/// As Qt draws it if nothing is left out.
Picture drawnWhole(const Font& font, const std::string& text) {
    Picture picture(width, height);
    QImage image = platform::imageOf(picture, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setFont(platform::fontFor(font));
    painter.setPen(QColor(255, 255, 0));
    painter.drawText(margin, margin + QFontMetrics(painter.font()).ascent(),
                     QString::fromStdString(text));
    return picture;
}

std::string lettersUpTo(char16_t last) {
    QString letters;
    for (char16_t letter = u' '; letter <= last; ++letter)
        letters += QChar(letter);
    return letters.toStdString();
}

} // namespace

TEST_CASE("letters look the same whether or not it is asked how they stand together") {
    const Font font{"MS Sans Serif", 8.25, false, false};
    for (const std::string& text :
         {lettersUpTo(u'~'), std::string("office, fjord, flight: AVATAR To. We"),
          std::string("H\u00E4n\u00DFel \u0141\u00F3d\u017A \u0130stanbul"),
          std::string("Beyonce\u0301, Dvor\u030Ca\u0301k"), std::string("hidden\u00ADhyphen"),
          std::string("\u05E9\u05DC\u05D5\u05DD \u0633\u0644\u0627\u0645"),
          std::string("\u041C\u0438\u0301\u0440 \u0393\u03B5\u03B9\u03AC")}) {
        CAPTURE(text);
        CHECK(drawnByPlayer(font, text) == drawnWhole(font, text));
        CHECK(
            platform::measureText(font, text).width ==
            QFontMetrics(platform::fontFor(font)).horizontalAdvance(QString::fromStdString(text)));
    }
}
