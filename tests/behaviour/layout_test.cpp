#include "tests/behaviour/player.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>
using behaviour::Player;
using simulated::world;

namespace {

struct Place {
    float left;
    float top;
    float width;
    float height;
    bool operator==(const Place&) const = default;
};

constexpr bool Shown = true;
constexpr bool Hidden = false;

/// A control as it lies on its window at the start: its place in twips, and whether it shows.
struct Row {
    const char* name;
    Place place;
    bool shown;
    const char* tooltip;
};

// clang-format off
/// From the topmost to the lowest.
const Row mainWindow[] = {
    {"lblRepeat",           {3240,  360,  735, 135}, Shown,  ""},
    {"lblShuffle",          {3240,  240,  735, 135}, Shown,  ""},
    {"pctvolume",           {3000,  840,  135, 150}, Shown,  ""},
    {"pctprogressbar",      { 240,  480,  465, 135}, Shown,  ""},
    {"pctprogressbardown",  { 240,  480,  465, 135}, Hidden, ""},
    {"pctprevdown",         { 120,  720,  270, 240}, Hidden, "Previous"},
    {"pctnextdown",         { 480,  720,  270, 240}, Hidden, "Next"},
    {"pctstopdown",         { 840,  720,  270, 240}, Hidden, "Stop"},
    {"pctplaydown",         {1200,  720,  270, 240}, Hidden, "Play"},
    {"pctopendown",         {1560,  720,  270, 240}, Hidden, "Open"},
    {"pctpausedown",        {2040,  720,  270, 240}, Hidden, "Pause"},
    {"pctalarmdown",        {3240,  720,  270, 240}, Hidden, "Alarm"},
    {"pctplaylistdown",     {3720,  720,  270, 240}, Hidden, "Playlist"},
    {"pctpause",            {2040,  720,  270, 240}, Shown,  ""},
    {"pctopen",             {1560,  720,  270, 240}, Shown,  ""},
    {"pctPlay",             {1200,  720,  270, 240}, Shown,  ""},
    {"pctstop",             { 840,  720,  270, 240}, Shown,  ""},
    {"pctnext",             { 480,  720,  270, 240}, Shown,  ""},
    {"pctplaylist",         {3720,  720,  270, 240}, Shown,  ""},
    {"pctprev",             { 120,  720,  270, 240}, Shown,  ""},
    {"pctalarm",            {3240,  720,  270, 240}, Shown,  ""},
    {"pctminimisedown",     {3720,    0,  135, 240}, Hidden, ""},
    {"pctquitdown",         {3960,    0,  150, 285}, Hidden, ""},
    {"pctquit",             {3960,    0,  165, 300}, Shown,  ""},
    {"pctminimise",         {3720,    0,  135, 240}, Shown,  ""},
    {"cmdSet",              {2040,  240,  615, 255}, Hidden, ""},
    {"lblMin",              {3360,  240,  615, 255}, Hidden, ""},
    {"lblHr",               {2760,  240,  495, 255}, Hidden, ""},
    {"lblTimer",            {1320,  240,  855, 255}, Hidden, ""},
    {"lblshowtime",         { 120,  240, 1095, 255}, Shown,  ""},
    {"lblTimenow",          {1320,  240,  735, 255}, Shown,  ""},
};

const Row playlistWindow[] = {
    {"pctLboxUpDown",       {3840,  360,  255, 255}, Hidden, ""},
    {"pctLBoxDownDown",     {3840,  720,  255, 255}, Hidden, ""},
    {"pctNone",             {3840,  600,  255, 135}, Shown,  ""},
    {"pctLBoxUpUp",         {3840,  360,  255, 255}, Shown,  ""},
    {"pctLBoxDownUp",       {3840,  720,  255, 255}, Shown,  ""},
    {"pctClearAll",         {3120, 1080,  735, 135}, Shown,  ""},
    {"pctClear",            {2520, 1080,  495, 135}, Shown,  ""},
    {"List1",               { 120,  360, 3975, 615}, Shown,  ""},
    {"lblTitle",            {2880,  240, 1095, 135}, Shown,  ""},
    {"lblPlaying",          { 480,  240,  735, 135}, Shown,  ""},
    {"pctPlaylistQuitDown", {3960,    0,  150, 285}, Hidden, ""},
    {"pctPlaylistMini",     {3720,    0,  135, 240}, Shown,  ""},
    {"pctPlaylistMiniDown", {3720,    0,  135, 240}, Hidden, ""},
    {"pctPlaylistQuit",     {3960,    0,  165, 300}, Shown,  ""},
    {"pctPlsOpenDown",      {1560, 1080,  300, 135}, Hidden, "Open"},
    {"pctPlsPlayDown",      {1200, 1080,  300, 135}, Hidden, "Play"},
    {"pctPlsStopDown",      { 840, 1080,  300, 135}, Hidden, "Remove"},
    {"pctPlsNextDown",      { 480, 1080,  300, 135}, Hidden, "Next"},
    {"pctPlsPrevDown",      { 120, 1080,  300, 135}, Hidden, "Previous"},
    {"pctPlsOpen",          {1560, 1080,  300, 135}, Shown,  ""},
    {"pctPlsPlay",          {1200, 1080,  300, 135}, Shown,  ""},
    {"pctPlsStop",          { 840, 1080,  300, 135}, Shown,  ""},
    {"pctPlsNext",          { 480, 1080,  300, 135}, Shown,  ""},
    {"pctPlsPrev",          { 120, 1080,  300, 135}, Shown,  ""},
    {"pctPlsPause",         {1920, 1080,  300, 135}, Shown,  "Pause"},
    {"pctPlsPauseDown",     {1920, 1080,  300, 135}, Hidden, ""},
};
// clang-format on

/// A player whose volume thumb stands where it was designed: no device puts it elsewhere.
struct AsDesigned : Player {
    AsDesigned() {
        world.sound.devices.clear();
        start();
    }
};

/// The text of a label or list as it is drawn where that control lies.
simulated::Text::Drawn drawnIn(platform::WindowHandle window, const toolkit::Control& control,
                               const std::string& text) {
    world.text.drawn.clear();
    simulated::picture(window);
    for (const simulated::Text::Drawn& drawn : world.text.drawn)
        if (drawn.text == text && drawn.clip.left == control.area().left &&
            drawn.clip.top == control.area().top)
            return drawn;
    FAIL("nothing is drawn in " << control.name());
    return {};
}

template <std::size_t Count>
void checkRows(const std::vector<toolkit::Control*>& controls, const Row (&rows)[Count]) {
    REQUIRE(controls.size() == Count);
    for (std::size_t n = 0; n < Count; ++n) {
        const toolkit::Control& control = *controls[n];
        CAPTURE(control.name());
        const Place& place = rows[n].place;
        CHECK(control.name() == rows[n].name);
        CHECK(Place{control.Left(), control.Top(), control.Width(), control.Height()} == place);
        const auto pixels = [](float twips) { return static_cast<std::int32_t>(twips / 15); };
        CHECK(control.area() == platform::Rect{pixels(place.left), pixels(place.top),
                                               pixels(place.left + place.width),
                                               pixels(place.top + place.height)});
        CHECK(control.shown() == rows[n].shown);
        CHECK(control.tooltip() == rows[n].tooltip);
    }
}

} // namespace

TEST_CASE("every control of the main window has its place, over and under the right ones") {
    AsDesigned player;
    checkRows(player.frmPlayer().window.controls(), mainWindow);
}

TEST_CASE("every control of the playlist has its place, over and under the right ones") {
    AsDesigned player;
    checkRows(player.frmPlaylist().window.controls(), playlistWindow);
}

TEST_CASE("the labels have their texts, fonts and colours") {
    struct Row {
        toolkit::Label FrmPlayer::*label;
        const char* caption;
        platform::Font font;
    };
    const platform::Font large{"MS Sans Serif", 12, false, false};
    const platform::Font medium{"MS Sans Serif", 9.75, false, false};
    const platform::Font tiny{"Terminal", 6, true, true};
    const Row rows[] = {
        {&FrmPlayer::lblshowtime, "Timer off", large},
        {&FrmPlayer::lblTimenow, "", large},
        {&FrmPlayer::lblTimer, "", large},
        {&FrmPlayer::lblHr, "Hour", medium},
        {&FrmPlayer::lblMin, "Minute", medium},
        {&FrmPlayer::cmdSet, "Set", medium},
        {&FrmPlayer::lblRepeat, "Repeat", tiny},
        {&FrmPlayer::lblShuffle, "Shuffle", tiny},
    };
    Player player;
    player.start();
    FrmPlayer& form = player.frmPlayer();
    for (const Row& row : rows) {
        toolkit::Label& label = form.*row.label;
        CAPTURE(label.name());
        CHECK(label.Caption() == row.caption);
        CHECK(label.ForeColor() == 65535);
        label.Visible(true);
        label.Caption("shown");
        const auto drawn = drawnIn(player.mainWindow(), label, "shown");
        const platform::Picture face = simulated::picture(player.mainWindow());
        CHECK(drawn.font == row.font);
        CHECK(drawn.colour == 0xFFFFFF00U);
        // The box is opaque: its last pixel is black.
        CHECK(face.row(label.area().bottom - 1)[label.area().right - 1] == 0xFF000000U);
        label.Caption("");
    }
}

TEST_CASE("the playlist's captions are small and bold, its list is light blue in the usual font") {
    Player player;
    player.play({"C:\\Music\\a.mp3", "C:\\Music\\b.mp3"});
    FrmPlaylist& form = player.frmPlaylist();
    for (toolkit::Label* label : {&form.lblTitle, &form.lblPlaying}) {
        CAPTURE(label->name());
        CHECK(label->Caption().empty());
        CHECK(label->ForeColor() == 65535);
        label->Caption("shown");
        const auto drawn = drawnIn(player.playlistWindow(), *label, "shown");
        CHECK(drawn.font == platform::Font{"Terminal", 6, true, false});
        CHECK(drawn.colour == 0xFFFFFF00U);
        const platform::Picture face = simulated::picture(player.playlistWindow());
        // The list lies over the lowest row of their opaque boxes.
        CHECK(face.row(label->area().bottom - 2)[label->area().right - 1] == 0xFF000000U);
    }
    player.list().ListIndex(1);
    const auto entry = drawnIn(player.playlistWindow(), form.List1, "a.mp3");
    CHECK(entry.font == platform::Font{"MS Sans Serif", 8.25, false, false});
    CHECK(entry.colour == 0xFF8080FFU);
}
