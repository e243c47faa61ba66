"""Whole sessions: a list plays through, and what a run leaves is what the next one finds."""

import os
import random
import signal
import subprocess
import time

from scenario import scenario
from world import PATIENCE, SETTINGS, Window, activate, check, hear, slowness, wait_until

OPEN_TITLE = "Open File - Orvan Music Player"
LEFT, TOP = 150, 200  # the main window's place in the settings below, pixels

# Places inside the main window, pixels.
NEXT, PLAY, QUIT, REPEAT, BACKGROUND = (40, 55), (88, 55), (270, 10), (230, 28), (20, 72)

TONES = {"one.mp3": 440, "two.mp3": 660, "three.mp3": 1000}
SHORT = 1.5  # seconds
LONGEST_GAP = 1.2  # seconds: the player looks at the clock every 966 ms


def list_field(world, paths):
    return "".join(world.build.path(path) + "/" for path in paths) + ("/" if paths else "")


def settings_line(world, paths, left=LEFT * 15, top=TOP * 15, volume="0*0"):
    return f"3*{volume}*{list_field(world, paths)}*{left}*{top}*0*0**0*0*7560*6720*"


def late(world):
    """Seconds by which a track's sound may begin late and be cut short then."""
    return world.build.late_sound * slowness()


def short(world):
    """Seconds of a tone that is heard even if it begins late."""
    return SHORT + min(2 * late(world), 6.0)


def make_tones(world, seconds=SHORT):
    return [world.tone(name, hertz, seconds) for name, hertz in TONES.items()]


def xdotool(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True)


def click(window, place):
    xdotool("mousemove", window.left + place[0], window.top + place[1], "click", 1)


def drag(player, window, place, to):
    """Takes a window at this place inside it, and lets go of it where its corner stands there."""
    pointer = [window.left + place[0], window.top + place[1]]
    xdotool("mousemove", *pointer, "mousedown", 1)

    def there():
        before = Window(window.number)
        off = to[0] - before.left, to[1] - before.top
        if not any(off):
            return True
        # A player that gets to the press late takes the window late: it goes on from where it is.
        pointer[0], pointer[1] = pointer[0] + off[0], pointer[1] + off[1]
        xdotool("mousemove", *pointer)
        patience = time.monotonic() + 1.0
        while time.monotonic() < patience:
            now = Window(window.number)
            if (now.left, now.top) != (before.left, before.top):
                break
            time.sleep(0.02)
        return False

    wait_until(there, f"the window at {to}", player)
    xdotool("mouseup", 1)


def start(world, **changes):
    player = world.start(**changes)
    return player, face_at(player, (LEFT, TOP))


def face_at(player, place):
    """The main window, once it stands there: some window managers have to be asked twice."""
    seen = []

    def there():
        window = player.face()
        seen[:] = [window.left, window.top]
        return window if tuple(seen) == place else None
    try:
        return wait_until(there, f"the window at {place}", player)
    except AssertionError as error:
        raise AssertionError(f"{error}; it stands at {seen}") from error


def comes_back(player, window):
    """The main window, once it is again where it stood."""
    return face_at(player, (window.left, window.top))


def tones_heard(ear):
    """The tones in the order in which they sounded, each with its first and its last block."""
    recording = ear.so_far()
    heard = []
    for block in recording.sounding:
        samples = recording.channels["left"][block]
        share, hertz = max((hear.power_at(samples, one), one) for one in TONES.values())
        if share < 0.5:  # the encoder's faint echo behind a tone
            continue
        if heard and heard[-1][0] == hertz:
            heard[-1][2] = block.stop
        else:
            heard.append([hertz, block.start, block.stop])
    return heard


def check_tones(world, heard, expected):
    check([tone[0] for tone in heard] == expected, f"heard {heard}, not {expected}")
    longest = LONGEST_GAP + late(world)
    for before, after in zip(heard, heard[1:]):
        gap = (after[1] - before[2]) / hear.RATE
        check(gap < longest,
              f"{gap:.1f} s of silence between {before[0]} and {after[0]} Hz, not {longest:.1f}")


@scenario("a saved list plays through, one track after another, and stops after the last")
def plays_a_list_through(world):
    seconds = short(world)
    world.save(settings_line(world, make_tones(world, seconds)))
    ear = world.listen()
    player, window = start(world)
    check(ear.next(1.0).seconds() == 0.0, "it plays before it is told to")
    click(window, PLAY)
    wait_until(lambda: len(tones_heard(ear)) >= 3, "three tones", player)
    # Longer than a track and a gap: a fourth would have sounded.
    ear.next(seconds + 2.5)
    heard = tones_heard(ear)
    check_tones(world, heard, list(TONES.values()))
    for tone in heard:
        length = (tone[2] - tone[1]) / hear.RATE
        check(seconds - 0.3 - late(world) <= length <= seconds + 0.3,
              f"{tone[0]} Hz sounds for {length:.1f} s")
    check(player.alive(), "the player ended with its list")


@scenario("with repeat the first track follows the last")
def repeats_a_list(world):
    world.save(settings_line(world, make_tones(world, short(world))))
    ear = world.listen()
    player, window = start(world)
    click(window, REPEAT)
    click(window, PLAY)
    wait_until(lambda: len(tones_heard(ear)) >= 5, "five tones", player)
    heard = tones_heard(ear)[:5]
    check_tones(world, heard, [440, 660, 1000, 440, 660])


@scenario("quitting in the middle saves list and place, and the next start brings them back",
          managed=True)
def keeps_its_state(world):
    tones = make_tones(world, 20)
    # Not as the player writes it, so that the line must be its own afterwards.
    world.save(settings_line(world, tones, left=f"{LEFT * 15}.0", volume="016200.50*+2500"))
    ear = world.listen()
    player, window = start(world)
    click(window, PLAY)
    ear.hears(1.0, player)
    moved = (LEFT + 67, TOP + 41)
    drag(player, window, BACKGROUND, moved)
    click(face_at(player, moved), QUIT)
    check(player.status() == 0, f"the player ended with {player.status()}")
    check(ear.next(1.5).seconds() <= 0.5, "it still sounds")
    expected = settings_line(world, tones, moved[0] * 15, moved[1] * 15, "16200.5*2500")
    check(world.saved() == expected, f"saved {world.saved()!r}, not {expected!r}")

    second = world.start()
    window = face_at(second, moved)
    before = ear.length()
    click(window, NEXT)
    ear.hears(1.0, second)
    heard = [tone for tone in tones_heard(ear) if tone[2] > before * hear.RATE]
    check([tone[0] for tone in heard] == [660], f"next to the first track comes {heard}")
    click(window, QUIT)
    check(second.status() == 0, f"the player ended with {second.status()}")
    check(world.saved() == expected, f"saved {world.saved()!r}, not {expected!r}")


@scenario("under a locale with a comma the settings are read and written with commas")
def comma_locale(world):
    subprocess.run(["localedef", "-i", "de_DE", "-f", "UTF-8", world.folder / "de_DE.UTF-8"],
                   check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    line = settings_line(world, [], volume="1234,5*2500")
    world.save(line.replace("*3000*", "*3000,0*"))
    player = world.start(LC_ALL="de_DE.UTF-8", LOCPATH=str(world.folder))
    click(player.face(), QUIT)
    check(player.status() == 0, f"the player ended with {player.status()}: {player.words()}")
    check(world.saved() == line, f"saved {world.saved()!r}")


def ended_by(world, end, **changes):
    """Ends a running player this way, and checks that it has saved."""
    world.save(settings_line(world, [], volume="0.0*0"))
    player, window = start(world, **changes)
    end(player, window)
    check(player.status() == 0, f"the player ended with {player.status()}: {player.words()}")
    check(world.saved() == settings_line(world, []), f"saved {world.saved()!r}")


@scenario("every signal that asks the player to end has it save first",
          only="linux", because="Windows has no such signals; the session's end stands for them")
def ending_signals(world):
    for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
        ended_by(world, lambda player, window: player.process.send_signal(number))


@scenario("the window manager closing the main window has the player save and end",
          managed=True)
def closed_by_the_window_manager(world):
    def close(player, window):
        activate(window.number, player)
        xdotool("key", "alt+F4")
    ended_by(world, close)


@scenario("asked to end while the open dialog waits, the player saves and ends",
          managed=True)
def ended_in_a_dialog(world):
    def end(player, window):
        click(window, PLAY)
        player.dialog(OPEN_TITLE)
        player.ask_to_end()
    ended_by(world, end)


@scenario("asked to end while a message waits, the player saves and ends",
          managed=True)
def ended_in_a_message(world):
    def end(player, window):
        player.dialog("Blah - Error")
        player.ask_to_end()
    ended_by(world, end, PULSE_SERVER=f"unix:{world.folder}/nobody")


@scenario("a settings line that can't be read ends the player with a message that names the file")
def unreadable_settings(world):
    line = settings_line(world, []).replace("*3000*", "*rubbish*")
    world.save(line)
    player = world.start()
    box = player.dialog("Orvan Music Player")
    xdotool("windowfocus", "--sync", box.number, "key", "Return")
    check(player.status() == 1, f"the player ended with {player.status()}")
    check("13: Type mismatch" in player.words(), f"it said: {player.words()!r}")
    check(world.build.shown(world.folder / SETTINGS) in player.words(), f"it said: {player.words()!r}")
    check(world.saved() == line, "the line was overwritten")


@scenario("a player killed while it quits leaves the old settings or the new ones, whole")
def killed_while_quitting(world):
    # A long list, so that writing it takes a while.
    tracks = [f"/music/{number:03}/{'x' * 80}.mp3" for number in range(300)]
    old, new = settings_line(world, tracks, volume="0.00*0"), settings_line(world, tracks)

    # One that is up already, as starting it takes longer than quitting.
    hand = subprocess.Popen(["xdotool", "-"], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                            text=True)
    world.stack.callback(world.end, hand)

    def quit_and_kill(delay):
        """Kills so many seconds after the quit key was released; the time that it took."""
        world.save(old)
        player, window = start(world)
        xdotool("mousemove", window.left + QUIT[0], window.top + QUIT[1], "mousedown", 1)
        asked = time.monotonic()
        hand.stdin.write("mouseup 1\ngetdisplaygeometry\n")
        hand.stdin.flush()
        if delay is None:
            player.status()
        else:
            time.sleep(delay)
            player.process.kill()
            player.process.wait(PATIENCE)
        taken = time.monotonic() - asked
        hand.stdout.readline()  # on a busy machine the button goes up later than the player goes
        text = world.found_at_start()
        check(text in (old, new), f"killed {delay} s after the quit key it left: {text[:200]!r}")
        return text, taken

    text, taken = quit_and_kill(None)
    check(text == new, "left to itself it did not save")
    rounds = 24
    # The settings are written early on the way out, so the kills come closer together there.
    delays = [taken * (step / rounds) ** 2 for step in range(rounds)]
    random.Random(1).shuffle(delays)
    left = [quit_and_kill(delay)[0] for delay in delays]
    kept = left.count(old)
    print(f"quitting takes {1000 * taken:.0f} ms; {kept} kills of {rounds} left the old settings")
    check(kept > 0, "no kill came before the new settings")
    strays = [name for name in os.listdir(world.folder) if name.startswith(SETTINGS + ".")]
    check(len(strays) <= rounds, f"stray files: {strays}")
