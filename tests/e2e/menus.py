"""The player's popup menus, worked by the keyboard or by the pointer.

An entry is named by its way: for each menu on the way to it, its row there and how many there are.
"""

import time

from world import Screenshot, output_of, wait_until

# of the open keys' menu
FILE, DIRECTORY = [(0, 2)], [(1, 2)]

# of the tray icon's menu
MAXIMIZED, ABOUT, EXIT = [(0, 5)], [(3, 5)], [(4, 5)]
OPEN_FILE, OPEN_DIRECTORY = [(1, 5), (0, 2)], [(1, 5), (1, 2)]
PLAY_ENTRY, STOP_ENTRY, NEXT_ENTRY = ([(2, 5), (row, 3)] for row in range(3))

TIME_TO_ACT = 3.0  # seconds until a key that has shown nothing counts as lost
TRIES = 10
BORDER = 3  # pixels around the rows


def numbers(player):
    return {window.number for window in player.windows()}


class Menu:
    """A menu that `opening` opens."""

    def __init__(self, player, opening):
        self.player = player
        self.others = numbers(player)
        opening()
        wait_until(self.windows, "a menu", player)

    def windows(self):
        """Its own window, and those of its submenus."""
        return [window for window in self.player.windows() if window.number not in self.others]

    def picture(self):
        screen = Screenshot()
        return [(window.number, screen.part(window.left, window.top, window.size))
                for window in self.windows()]

    def choose(self, way):
        """Picks an entry by the keyboard, which closes the menu."""
        for depth, (row, _) in enumerate(way):
            if depth:  # a submenu opens with its first entry chosen
                self.press("Right")
            for _ in range(row if depth else row + 1):
                self.press("Down")
        self.close_by("Return")

    def point_at(self, way):
        """Picks an entry by the pointer, which closes the menu."""
        seen = set()
        for row, count in way:
            window = wait_until(
                lambda: next((one for one in self.windows() if one.number not in seen), None),
                "the menu's next window", self.player)
            seen.add(window.number)
            height = (window.size[1] - 2 * BORDER) / count
            output_of("xdotool", "mousemove", str(window.left + window.size[0] // 2),
                      str(int(window.top + BORDER + (row + 0.5) * height)), "click", "1")
        wait_until(lambda: not seen & numbers(self.player), "the menu to close", self.player)

    def press(self, key):
        """Presses a key until the menu shows that it has come."""
        before = self.picture()
        self.press_until(key, lambda: self.picture() != before)

    def close_by(self, key):
        """Closes the menu by a key, whatever opens then."""
        own = {window.number for window in self.windows()}
        self.press_until(key, lambda: not own & numbers(self.player))

    @staticmethod
    def press_until(key, done):
        # A menu shows a moment before it has the keyboard.
        for _ in range(TRIES):
            output_of("xdotool", "key", key)
            deadline = time.monotonic() + TIME_TO_ACT
            while time.monotonic() < deadline:
                if done():
                    return
                time.sleep(0.05)
        raise AssertionError(f"the key {key} does nothing in the menu")
