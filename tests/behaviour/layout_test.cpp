#include "tests/behaviour/player.h"

#include <algorithm>
#include <cstddef>
#include <vector>

using behaviour::Player;
using simulated::world;

namespace {

struct Place {
    int left;
    int top;
    int width;
    int height;
    bool operator==(const Place&) const = default;
};

constexpr bool Shown = true;
constexpr bool Hidden = false;

/// A control as a user meets it: its place in pixels of the window, and whether it shows at first.
struct Row {
    const char* name;
    Place place;
    bool shown;
    const char* tooltip;
};

// clang-format off
/// From the topmost to the lowest.
const Row mainWindow[] = {
    {"lblRepeat",          {216, 24,  49,  9}, Shown, ""},
    {"lblShuffle",         {216, 16,  49,  9}, Shown, ""},
    {"pctvolume",          {200, 56,   9, 10}, Shown, ""},
    {"pctprogressbar",     { 16, 32,  31,  9}, Shown, ""},
    {"pctprogressbardown", { 16, 32,  31,  9}, Hidden, ""},
    {"pctprevdown",        {  8, 48,  18, 16}, Hidden, "Previous"},
    {"pctnextdown",        { 32, 48,  18, 16}, Hidden, "Next"},
    {"pctstopdown",        { 56, 48,  18, 16}, Hidden, "Stop"},
    {"pctplaydown",        { 80, 48,  18, 16}, Hidden, "Play"},
    {"pctopendown",        {104, 48,  18, 16}, Hidden, "Open"},
    {"pctpausedown",       {136, 48,  18, 16}, Hidden, "Pause"},
    {"pctalarmdown",       {216, 48,  18, 16}, Hidden, "Alarm"},
    {"pctplaylistdown",    {248, 48,  18, 16}, Hidden, "Playlist"},
    {"pctpause",           {136, 48,  18, 16}, Shown, ""},
    {"pctopen",            {104, 48,  18, 16}, Shown, ""},
    {"pctPlay",            { 80, 48,  18, 16}, Shown, ""},
    {"pctstop",            { 56, 48,  18, 16}, Shown, ""},
    {"pctnext",            { 32, 48,  18, 16}, Shown, ""},
    {"pctplaylist",        {248, 48,  18, 16}, Shown, ""},
    {"pctprev",            {  8, 48,  18, 16}, Shown, ""},
    {"pctalarm",           {216, 48,  18, 16}, Shown, ""},
    {"pctminimisedown",    {248,  0,   9, 16}, Hidden, ""},
    {"pctquitdown",        {264,  0,  10, 19}, Hidden, ""},
    {"pctquit",            {264,  0,  11, 20}, Shown, ""},
    {"pctminimise",        {248,  0,   9, 16}, Shown, ""},
    {"cmdSet",             {136, 16,  41, 17}, Hidden, ""},
    {"lblMin",             {224, 16,  41, 17}, Hidden, ""},
    {"lblHr",              {184, 16,  33, 17}, Hidden, ""},
    {"lblTimer",           { 88, 16,  57, 17}, Hidden, ""},
    {"lblshowtime",        {  8, 16,  73, 17}, Shown, ""},
    {"lblTimenow",         { 88, 16,  49, 17}, Shown, ""},
};

const Row playlistWindow[] = {
    {"pctLboxUpDown",       {256, 24,  17, 17}, Hidden, ""},
    {"pctLBoxDownDown",     {256, 48,  17, 17}, Hidden, ""},
    {"pctNone",             {256, 40,  17,  9}, Shown, ""},
    {"pctLBoxUpUp",         {256, 24,  17, 17}, Shown, ""},
    {"pctLBoxDownUp",       {256, 48,  17, 17}, Shown, ""},
    {"pctClearAll",         {208, 72,  49,  9}, Shown, ""},
    {"pctClear",            {168, 72,  33,  9}, Shown, ""},
    {"List1",               {  8, 24, 265, 41}, Shown, ""},
    {"lblTitle",            {192, 16,  73,  9}, Shown, ""},
    {"lblPlaying",          { 32, 16,  49,  9}, Shown, ""},
    {"pctPlaylistQuitDown", {264,  0,  10, 19}, Hidden, ""},
    {"pctPlaylistMini",     {248,  0,   9, 16}, Shown, ""},
    {"pctPlaylistMiniDown", {248,  0,   9, 16}, Hidden, ""},
    {"pctPlaylistQuit",     {264,  0,  11, 20}, Shown, ""},
    {"pctPlsOpenDown",      {104, 72,  20,  9}, Hidden, "Open"},
    {"pctPlsPlayDown",      { 80, 72,  20,  9}, Hidden, "Play"},
    {"pctPlsStopDown",      { 56, 72,  20,  9}, Hidden, "Remove"},
    {"pctPlsNextDown",      { 32, 72,  20,  9}, Hidden, "Next"},
    {"pctPlsPrevDown",      {  8, 72,  20,  9}, Hidden, "Previous"},
    {"pctPlsOpen",          {104, 72,  20,  9}, Shown, ""},
    {"pctPlsPlay",          { 80, 72,  20,  9}, Shown, ""},
    {"pctPlsStop",          { 56, 72,  20,  9}, Shown, ""},
    {"pctPlsNext",          { 32, 72,  20,  9}, Shown, ""},
    {"pctPlsPrev",          {  8, 72,  20,  9}, Shown, ""},
    {"pctPlsPause",         {128, 72,  20,  9}, Shown, "Pause"},
    {"pctPlsPauseDown",     {128, 72,  20,  9}, Hidden, ""},
};
// clang-format on

template <std::size_t Count>
void checkRows(const std::vector<toolkit::Control*>& controls, const Row (&rows)[Count]) {
    REQUIRE(controls.size() == Count);
    for (std::size_t n = 0; n < Count; ++n) {
        const toolkit::Control& control = *controls[n];
        CAPTURE(control.name());
        const platform::Rect area = control.area();
        const Place place = {area.left, area.top, area.right - area.left, area.bottom - area.top};
        CHECK(control.name() == rows[n].name);
        CHECK(place == rows[n].place);
        CHECK(control.shown() == rows[n].shown);
        CHECK(control.tooltip() == rows[n].tooltip);
    }
}

} // namespace

TEST_CASE("every control of the main window has its place, over and under the right ones") {
    Player player;
    checkRows(player.frmPlayer().window.controls(), mainWindow);
}

TEST_CASE("every control of the playlist has its place, over and under the right ones") {
    Player player;
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
        world.text.drawn.clear();
        const platform::Picture face = simulated::picture(player.mainWindow());
        const auto drawn =
            std::find_if(world.text.drawn.begin(), world.text.drawn.end(), [&](const auto& text) {
                return text.text == "shown" && text.clip.left == label.area().left &&
                       text.clip.top == label.area().top;
            });
        REQUIRE(drawn != world.text.drawn.end());
        CHECK(drawn->font == row.font);
        CHECK(drawn->colour == 0xFFFFFF00U);
        // The box is opaque: its last pixel is black.
        CHECK(face.row(label.area().bottom - 1)[label.area().right - 1] == 0xFF000000U);
        label.Caption("");
    }
}
