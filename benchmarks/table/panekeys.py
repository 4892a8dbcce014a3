"""pane keys: from the keys and the mouse of the practice pane to the changed sound, heard at the monitor of the sound
server."""
import random
import statistics
import time

from . import music
from .desktop import Desktop
from .hands import Hands
from .hearing import Monitor, tone
from .measuring import tell
from .players import Lyrabox
from .rows import Row

LIMIT = 0.060  # seconds; the server's sink has no device that would add a buffer
TRIES = 10
SIZE = (1120, 780)
SECONDS, PART = 240, 20  # of the song, and of each of its tones
WAVE = (14, 802)  # left end and width of the wave in a window of that size, in points
WAVE_Y = 440
LOOPS = (0, 1, 2)  # the tones of the kept loops 1 to 3
EDGE = 3 * PART  # seconds; the loop for the nudges lies on both sides of it
BEFORE, BEHIND = 2.0, 1.2  # its seconds there; its end is played from 1.5 s before


def rest(shortest, longest):
    time.sleep(random.uniform(shortest, longest))


def frequency():
    """An expression of the time: the tones follow each other."""
    parts = [f"{tone(number)}*between(t,{number * PART},{(number + 1) * PART}-1/44100)" for number in range(SECONDS // PART)]
    return "+".join(parts)


class Pane:
    """The program with the pane open, which plays the song."""

    def __init__(self, desktop):
        self.hands = Hands(desktop.env["DISPLAY"])
        self.monitor = Monitor(desktop)
        song = music.tones({"00": frequency()}, "pane-keys")[0]
        self.player = Lyrabox(desktop, self.hands, [song], ["practicePane=true"])
        self.player.settle(SIZE)
        self.until(0, self.hands.key("space"))
        self.hands.key("w")
        time.sleep(3.0)  # until the song is measured

    def end(self):
        self.player.end()
        self.monitor.end()

    def until(self, number, sent):
        """Seconds from `sent` until the tone of that number is heard."""
        return self.monitor.wait_for_tone(tone(number), sent) - sent

    def point_at(self, second):
        left, width = WAVE
        self.hands.move(self.player.window, round(left + second / SECONDS * width), WAVE_Y)
        time.sleep(0.05)

    def drag(self, begin, end):
        """Drags across a part of the wave. Returns the time of letting go."""
        self.point_at(begin)
        self.hands.press()
        for step in range(1, 6):
            self.point_at(begin + (end - begin) * step / 5)
        return self.hands.release()

    def drags(self):
        """New loops, by turns in two tones."""
        for number in range(TRIES):
            rest(0.5, 1.5)
            part = 4 + number % 2
            yield self.until(part, self.drag(part * PART + 4, part * PART + 12))

    def keep_loops(self):
        for part in LOOPS:
            self.until(part, self.drag(part * PART + 4, part * PART + 12))
            self.hands.key("k")
            time.sleep(0.3)

    def numbers(self):
        for number in range(TRIES):
            rest(0.5, 1.5)
            loop = number % len(LOOPS)
            yield self.until(LOOPS[loop], self.hands.key(str(loop + 1)))

    def nudges(self):
        """Of a loop across two tones. Each try waits for the second one; a nudge lets the first one be heard."""
        part = int(EDGE / PART)
        self.until(part - 1, self.drag(EDGE - BEFORE, EDGE + BEHIND))
        for number in range(TRIES):
            self.until(part, time.monotonic())
            rest(0.1, 0.4)
            yield self.until(part - 1, self.hands.key("asfd"[number % 4]))


def row(name, seconds):
    tell(f"pane keys: {name}: " + ", ".join(f"{each * 1e3:.0f} ms" for each in sorted(seconds)))
    median = statistics.median(seconds)
    return Row(f"pane keys: {name}", f"{median * 1e3:.0f} ms, slowest {max(seconds) * 1e3:.0f} ms", "", None,
               f"at most {LIMIT * 1e3:.0f} ms", max(seconds) <= LIMIT)


def rows():
    with Desktop() as desktop:
        pane = Pane(desktop)
        drags = list(pane.drags())
        pane.keep_loops()
        numbers = list(pane.numbers())
        nudges = list(pane.nudges())
        pane.end()
    return [row("a drag in the wave is let go", drags), row("1 to 3 call a loop up", numbers),
            row("A, S, D and F move an end of the loop", nudges)]
