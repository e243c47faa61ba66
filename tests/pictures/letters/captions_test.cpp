#include "shell/AboutBox.h"
#include "tests/behaviour/player.h"
#include "tests/pictures/windows/compare.h"
#include "toolkit/painter.h"

#include <QByteArray>
#include <QFont>
#include <QRawFont>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

using behaviour::Player;
using platform::Font;
using platform::Picture;
using platform::Rect;

namespace {

/// Systems differ a little in how they draw the edge of a letter; another weight, slant, size or
/// colour differs by far more.
constexpr pictures::Tolerance edges{48, 10};

/// The letters' shapes differ between the first and the second release of their font. The release
/// stands in the font itself, behind its table's version.
std::string folderOfRelease() {
    const QByteArray head = QRawFont::fromFont(QFont("Liberation Sans")).fontTable("head");
    REQUIRE(head.size() > 6);
    return "liberation-" + std::to_string(static_cast<int>(head[5]));
}

std::string referenceOf(const std::string& caption) { return folderOfRelease() + "/" + caption; }

struct Caption {
    std::string name;
    Picture picture;
};
using Captions = std::vector<Caption>;

Picture cutOut(const Picture& face, const Rect& area) {
    Picture piece(area.right - area.left, area.bottom - area.top);
    for (std::int32_t y = 0; y < piece.height; ++y)
        std::copy_n(face.row(area.top + y) + area.left, piece.width, piece.row(y));
    return piece;
}

Caption captionOf(platform::WindowHandle window, const toolkit::Control& control) {
    REQUIRE(control.shown());
    return {control.name(), cutOut(simulated::picture(window), control.area())};
}

/// Each text of the player where it shows, on its way through the states that show it. `slip` runs
/// before the player starts, `slipInBox` in the about box.
Captions captions(const std::function<void(Player&)>& slip = {},
                  const std::function<void(AboutBox&)>& slipInBox = {}) {
    Player player;
    if (slip) slip(player);
    player.play({"C:\\Music\\First.mp3", "C:\\Music\\Second.mp3", "C:\\Music\\Third.mp3"});
    FrmPlayer& form = player.frmPlayer();
    FrmPlaylist& list = player.frmPlaylist();
    player.click(form.lblShuffle);
    player.click(form.pctplaylist);
    player.list().ListIndex(-1); // the bar of a selection would count as ink
    simulated::advance(966);
    const platform::WindowHandle face = player.mainWindow();
    Captions all;
    for (const toolkit::Control* control : {&form.lblRepeat, &form.lblShuffle, &form.lblTimenow})
        all.push_back(captionOf(face, *control));
    const Picture playlist = simulated::picture(player.playlistWindow());
    Rect rows = list.List1.area();
    // The list lies over the lowest row of the captions above it, the scroll keys over its right
    // end.
    for (const toolkit::Control* control : {&list.lblPlaying, &list.lblTitle}) {
        Rect area = control->area();
        area.bottom = rows.top;
        all.push_back({control->name(), cutOut(playlist, area)});
    }
    rows.right = list.pctNone.area().left;
    all.push_back({list.List1.name(), cutOut(playlist, rows)});
    player.click(form.pctalarm);
    for (const toolkit::Control* control :
         {&form.lblshowtime, &form.lblTimer, &form.lblHr, &form.lblMin, &form.cmdSet})
        all.push_back(captionOf(face, *control));

    simulated::world.menus.choose("About");
    simulated::onModalWindow([&] {
        AboutBox& box = player.program().aboutBox();
        if (slipInBox) slipInBox(box);
        simulated::advance(50 * 100); // the first lines are in view
        const platform::WindowHandle window = simulated::windowTitled("About Orvan Music Player");
        for (const toolkit::Control* control : {static_cast<toolkit::Control*>(&box.Picture1),
                                                static_cast<toolkit::Control*>(&box.Label12)})
            all.push_back(captionOf(window, *control));
        simulated::clickButton(window, "&Close");
    });
    simulated::world.tray.clickRight();
    return all;
}

Font bolder(Font font) {
    font.bold = !font.bold;
    return font;
}

Font slanted(Font font) {
    font.italic = !font.italic;
    return font;
}

Font larger(Font font) {
    font.points += 0.75;
    return font;
}

/// The names of the texts that no longer look as they should.
std::string changed(const Captions& all) {
    std::string names;
    for (const Caption& caption : all)
        if (!pictures::looksLike(referenceOf(caption.name), caption.picture, edges))
            names += caption.name + " ";
    return names;
}

} // namespace

TEST_CASE("every caption looks as its reference picture does, letters included") {
    std::vector<std::string> names;
    for (const Caption& caption : captions()) {
        pictures::checkPicture(referenceOf(caption.name), caption.picture, edges);
        names.push_back(caption.name);
    }
    std::sort(names.begin(), names.end());
    CHECK(pictures::referenceNames(folderOfRelease()) == names);
}

TEST_CASE("a caption of another weight, slant, size or colour is told from its reference picture") {
    using toolkit::LightBlue;
    using toolkit::Yellow;
    const Font tiny{"Terminal", 6, true, true};
    const Font upright{"Terminal", 6, true, false};
    const Font large{"MS Sans Serif", 12, false, false};
    const Font medium{"MS Sans Serif", 9.75, false, false};
    const Font usual{"MS Sans Serif", 8.25, false, false};
    const Font version{"MS Sans Serif", 8.25, true, true};
    for (Font (*slip)(Font) : {bolder, slanted, larger}) {
        CHECK(changed(captions([&](Player& player) {
                  FrmPlayer& form = player.frmPlayer();
                  form.lblRepeat.setText("Repeat", slip(tiny), Yellow);
                  form.lblshowtime.setText("Timer off", slip(large), Yellow);
                  form.lblHr.setText("Hour", slip(medium), Yellow);
              })) == "lblRepeat lblshowtime lblHr ");
        CHECK(changed(captions([&](Player& player) {
                  player.frmPlaylist().lblTitle.setText("", slip(upright), Yellow);
                  player.frmPlaylist().List1.setText(slip(usual), LightBlue);
              })) == "lblTitle List1 ");
        CHECK(changed(captions({}, [&](AboutBox& box) {
                  box.Text1.setText(box.Text1.Text(), slip({"Tahoma", 9, true, false}),
                                    toolkit::Blue, toolkit::White);
                  box.Label12.setText("Final Version", slip(version), toolkit::Black);
              })) == "Picture1 Label12 ");
    }
    CHECK(changed(captions([&](Player& player) {
              player.frmPlayer().lblMin.setText("Minute", medium, toolkit::Red);
              player.frmPlaylist().lblPlaying.setText("", upright, LightBlue);
              player.frmPlaylist().List1.setText(usual, Yellow);
          })) == "lblPlaying List1 lblMin ");
}
