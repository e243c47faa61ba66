"""The main window's face under a real pointer: keys, seek bar, volume slider and alarm, heard."""

import array
import subprocess
import sys
import time

from clock import clock_from, forget_clock
from scenario import scenario
from sessions import NEXT, PLAY, QUIT, click, make_tones, settings_line, xdotool
from world import Screenshot, check, hear, wait_until

# Places inside the main window, pixels.
STOP, PAUSE, ALARM = (64, 55), (144, 55), (225, 55)
SET, MINUTE = (150, 24), (244, 24)
VOLUME, STRIP_ROW, THUMB_ROW = (204, 61), 37, 36

YELLOW, RED = (255, 255, 0), (255, 0, 0)

# Of the seek bar, pixels.
BAR_START, BAR_TRAVEL, HALF_THUMB = 16, 3220 / 15, 15.5

# A tone that rises evenly, so that its pitch tells the place in the track.
LENGTH = 40  # seconds
LOWEST, HIGHEST = 300, 2300
RISE = (HIGHEST - LOWEST) / LENGTH

TICK = 0.966  # seconds


def rising_tone(world):
    wave, path = world.folder / "rising.wav", world.folder / "rising.mp3"
    subprocess.run(["sox", "-n", "-r", str(hear.RATE), "-c", "2", "-b", "16", wave, "synth",
                    str(LENGTH), "sine", f"{LOWEST}:{HIGHEST}", "gain", "-6"], check=True)
    subprocess.run(["lame", "--quiet", wave, path], check=True)
    return path


def latest(ear, seconds=0.25):
    """The left channel of the last moments, and the second at which they end."""
    frames = ear.path.stat().st_size // 4
    with open(ear.path, "rb") as file:
        file.seek(max(0, frames - int(seconds * hear.RATE)) * 4)
        raw = file.read(int(seconds * hear.RATE) * 4)
    samples = array.array("h", raw[:len(raw) // 4 * 4])
    if sys.byteorder == "big":
        samples.byteswap()
    return samples[0::2], frames / hear.RATE


def pitch(samples):
    """Frequency of a plain tone, from the time between its first and last rise through zero."""
    rises = [i for i in range(1, len(samples)) if samples[i - 1] < 0 <= samples[i]]
    if len(rises) <= 10:
        return 0.0
    return (len(rises) - 1) * hear.RATE / (rises[-1] - rises[0])


def place_heard(ear):
    """Where in the rising tone the player is, in seconds, and when that was heard."""
    def at_once():
        samples, when = latest(ear)
        return (pitch(samples) - LOWEST) / RISE, when

    def evenly():
        # What falls into a dropout is no measurement.
        before = at_once()
        time.sleep(0.3)
        after = at_once()
        return after if abs(jump(before, after)) < 0.2 else None
    return wait_until(evenly, "the rising tone")


def even_places(recording, blocks):
    """The blocks of a recording through which the rising tone rises as it should, each with its
    place in the track in seconds. A block into which a busy machine tore a hole is none of them."""
    def place(block):
        return (pitch(recording.channels["left"][block]) - LOWEST) / RISE
    return [(block, place(block)) for block, following in zip(blocks, blocks[1:])
            if following.start == block.stop
            and abs(place(following) - place(block) - hear.BLOCK / hear.RATE) < 0.05]


def silent(ear):
    return hear.root_mean_square(latest(ear, 0.5)[0]) < hear.SILENT_BELOW


def jump(before, after):
    """How far the track went on beyond the time that passed."""
    return (after[0] - before[0]) - (after[1] - before[1])


def around_the_jump(ear, since, player):
    """Where the player was, and when, right before the sound jumped forwards and right behind it,
    however long a busy machine takes to do so. Where the sound only waits, its place falls behind."""
    heard = []

    def jumped():
        recording = ear.so_far()
        # A jump that comes at once needs something in front of it.
        later = [block for block in recording.sounding if block.start > (since - 1) * hear.RATE]
        heard[:] = [(place, block.stop / hear.RATE)
                    for block, place in even_places(recording, later)]
        return next((pair for pair in zip(heard, heard[1:]) if jump(*pair) > 1.0), None)
    try:
        return wait_until(jumped, "the sound to jump", player)
    except AssertionError as error:
        places = ", ".join(f"{place:.2f} at {when:.2f}" for place, when in heard[::10])
        raise AssertionError(f"{error}; from {since:.2f} s on it was heard in {places or 'no place'} "
                             f"of {ear.length():.2f} s") from error


def press(window, place, button=1):
    xdotool("mousemove", window.left + place[0], window.top + place[1], "mousedown", button)


def slide(window, start, by, steps=8):
    """Drags from a place sideways; the last moves go nowhere, as things run one move behind."""
    x, y = window.left + start[0], window.top + start[1]
    xdotool("mousemove", x, y, "mousedown", 1, "sleep", 0.1)
    for step in range(1, steps + 1):
        xdotool("mousemove", x + round(by * step / steps), y, "sleep", 0.05)
    for wobble in (1, 0, 1):
        xdotool("mousemove", x + by, y + wobble, "sleep", 0.1)
    xdotool("mouseup", 1)


def playing(world):
    """A player that plays the rising tone, its window and its recording."""
    track = rising_tone(world)
    ear = world.listen()
    player = world.start(track)
    window = player.face()
    ear.hears(1.5, player)
    return player, window, ear


def with_tones(world):
    """A player whose list holds three tones, the first of them playing."""
    world.save(settings_line(world, make_tones(world, 20)))
    ear = world.listen()
    player = world.start()
    window = player.face()
    click(window, PLAY)
    ear.hears(1.0, player)
    wait_until(lambda: abs(pitch(latest(ear)[0]) - 440) < 5, "the first track", player)
    return player, window, ear


def hears_tone(ear, player, hertz):
    def sounds():
        samples, _ = latest(ear)
        loud = hear.root_mean_square(samples) >= hear.SILENT_BELOW
        return loud and hear.is_tone(samples, hertz)
    wait_until(sounds, f"a tone of {hertz} Hz", player)


def open_panel(player, window):
    """Opens the alarm panel, and waits for it: a player that still starts takes clicks late."""
    click(window, ALARM)
    # The word "Set" stands where nothing else does.
    wait_until(lambda: YELLOW in pixels_of(window, 138, 16, 39, 17), "the panel", player)


def pixels_of(window, left, top, width, height):
    screen = Screenshot()
    return [screen.at(window.left + left + x, window.top + top + y)
            for y in range(height) for x in range(width)]


@scenario("the pause key silences the track, and a second press lets it go on from there")
def pause_and_resume(world):
    player, window, ear = playing(world)
    click(window, PAUSE)
    wait_until(lambda: silent(ear), "silence", player)
    # Heard, not timed: a busy machine may take its time between key and sound.
    paused = ear.so_far()
    last = paused.sounding[-1]
    block, place = even_places(paused, paused.sounding)[-1]
    before = place + (last.stop - block.start) / hear.RATE
    check(ear.next(1.5).seconds() == 0.0, "it sounds during the pause")
    click(window, PAUSE)

    def since():
        recording = ear.so_far()
        blocks = [block for block in recording.sounding if block.start > last.start]
        even = even_places(recording, blocks)
        return even and (blocks[0], *even[0])
    first, block, place = wait_until(since, "the track to go on", player)
    after = place - (block.start - first.start) / hear.RATE
    check(abs(after - before) < 1.0, f"it went on at {after:.2f} s, paused at {before:.2f} s")


@scenario("the right button on the next key plays the next track")
def next_with_the_right_button(world):
    player, window, ear = with_tones(world)
    xdotool("mousemove", window.left + NEXT[0], window.top + NEXT[1], "click", 3)
    hears_tone(ear, player, 660)


@scenario("a key that is released far outside the window acts all the same")
def release_outside(world):
    player, window, ear = with_tones(world)
    press(window, NEXT)
    xdotool("sleep", 0.5, "mousemove", 1000, 20, "sleep", 0.5)
    wait_until(lambda: hear.is_tone(latest(ear)[0], 440), "no act of the press alone", player)
    xdotool("mouseup", 1)
    hears_tone(ear, player, 660)
    press(window, STOP)
    xdotool("mousemove", 5, 5, "sleep", 0.3, "mouseup", 1)
    wait_until(lambda: silent(ear), "the stop key's silence", player)


@scenario("the thumb dragged to the middle takes the sound to the middle of the track")
def drag_the_thumb(world):
    player, window, ear = playing(world)
    place, when = place_heard(ear)
    thumb = BAR_START + place / LENGTH * BAR_TRAVEL + HALF_THUMB
    by = round(BAR_START + BAR_TRAVEL / 2 + HALF_THUMB - thumb)
    slide(window, (round(thumb), THUMB_ROW), by)
    before, after = around_the_jump(ear, when, player)
    wanted = by / BAR_TRAVEL * LENGTH
    check(abs(jump(before, after) - wanted) < 1.0,
          f"it jumped by {jump(before, after):.2f} s instead of {wanted:.2f} s")
    check(player.alive(), "the player ended")


@scenario("a click on the strip takes the sound there")
def click_the_strip(world):
    player, window, ear = playing(world)
    _, when = place_heard(ear)
    click(window, (170, STRIP_ROW))
    before, after = around_the_jump(ear, when, player)
    # Measured from where the last tick has put the thumb.
    wanted = (170 - HALF_THUMB - BAR_START) / BAR_TRAVEL * LENGTH - before[0]
    check(-0.7 < jump(before, after) - wanted < TICK + 0.7,
          f"it jumped by {jump(before, after):.2f} s instead of {wanted:.2f} s")
    check(player.alive(), "the player ended")


@scenario("the volume slider goes from silence to full sound, both channels alike",
          only="linux", because="under Wine a wave device can't be asked for its volume by number")
def drag_the_volume(world):
    player, window, ear = playing(world)

    def levels():
        recording = ear.next(1.0)
        check(recording.sounding, "nothing sounds")
        return [hear.root_mean_square(channel) for channel in
                recording.within(slice(recording.sounding[0].start, recording.sounding[-1].stop))]

    full = levels()
    slide(window, VOLUME, -20)
    wait_until(lambda: levels()[0] < 0.7 * full[0], "less sound half way", player)
    half = levels()
    slide(window, (VOLUME[0] - 20, VOLUME[1]), -60)
    wait_until(lambda: silent(ear), "silence at the lower stop", player)
    check(ear.next(1.0).seconds() == 0.0, "it still sounds at the lower stop")
    slide(window, (VOLUME[0] - 40, VOLUME[1]), 80)
    wait_until(lambda: not silent(ear) and abs(levels()[0] - full[0]) < 0.05 * full[0],
               "full sound again", player)
    again = levels()
    for what, (left, right) in (("at first", full), ("half way", half), ("at the end", again)):
        check(abs(left - right) < 0.03 * left, f"the channels differ {what}: {left}, {right}")
    check(half[0] < 0.7 * full[0], f"half way is as loud: {half[0]} of {full[0]}")
    check(abs(again[0] - full[0]) < 0.05 * full[0], f"full is {again[0]} after {full[0]}")


@scenario("a minute key held for three seconds runs through most of an hour")
def hold_the_minute(world):
    player = world.start()
    window = player.face()
    open_panel(player, window)
    press(window, MINUTE)
    xdotool("sleep", 3)
    held = pixels_of(window, 224, 16, 41, 17)
    xdotool("mouseup", 1)
    check(RED in held and YELLOW not in held, "the held label is not red")
    wait_until(lambda: YELLOW in pixels_of(window, 224, 16, 41, 17), "its yellow", player)
    click(window, QUIT)
    check(player.status() == 0, f"the player ended with {player.status()}")
    hour, minute = world.saved().split("*")[6:8]
    check(hour == "0", f"the hour is {hour}")
    # 32 ms a step at the end, and whatever a screen takes to show each.
    check(20 <= int(minute) <= 56, f"the minute is {minute}")


@scenario("an armed alarm starts the music at its time")
def alarm(world):
    tone = world.tone("morning.mp3", 440)
    # How far a click steps depends on how busy the machine is, so the minute is a saved one.
    world.save(settings_line(world, [tone]).replace("*0*0**0*0*", "*0*2**0*0*"))
    ear = world.listen()
    player = world.start(**clock_from("2026-03-01 00:01:40"))
    world.stack.callback(forget_clock, player.process.pid)
    window = player.face()
    open_panel(player, window)
    click(window, SET)
    check(ear.next(3.0).seconds() == 0.0, "it sounds before its time")
    armed = ear.length()
    hears_tone(ear, player, 440)
    # It may come some seconds early, but not at once.
    check(ear.length() - armed > 3.0, "it started at once")
