"""keys: from a key, a click or mpv's command to the changed sound, heard at the monitor of the same sound server."""
import random
import statistics
import time

from . import music
from .desktop import Desktop, used_processor_seconds
from .hands import Hands
from .hearing import Monitor, tone
from .measuring import duration, interleaved, tell
from .players import STEP, Lyrabox, LyraboxWithoutReadySongs, Mpv
from .rows import Row

SONGS = 6
SESSIONS, TRIES = 2, 5  # sessions of each player, by turns; tries in each
READY = (3.0, 4.0)  # seconds of sound before the next action: time enough to make a song ready
NOT_READY = (0.05, 0.25)
AS_BEFORE = 1.25  # the same speed, and a margin for measuring
SPAN = 15.0  # seconds
MORE = 1.0  # seconds of a core


def rest(shortest, longest):
    time.sleep(random.uniform(shortest, longest))


class Session:
    """A player that plays the first song. Rows call one of the generators: the seconds until the sound changed, try by
    try."""

    def __init__(self, desktop, hands, monitor, kind, songs, slow):
        self.monitor, self.songs, self.current = monitor, songs, 0
        self.player = kind(desktop, hands, songs)
        self.player.settle()
        self.until(0, self.player.play(0))
        if slow:
            self.player.slow_down()

    def until(self, number, sent):
        """Seconds from `sent` until the tone of that number is heard."""
        self.current = number
        return self.monitor.wait_for_tone(tone(number), sent) - sent

    def resume(self):
        for _ in range(TRIES):
            rest(0.5, 1.5)
            self.player.play_or_pause()
            rest(0.5, 1.5)
            yield self.until(0, self.player.play_or_pause())

    def seek(self):
        """In a song whose tone changes every STEP seconds. Every second try waits for such a change, so that none
        comes between a key and its sound."""
        for number in range(TRIES):
            if number % 2 == 0:
                self.until(1 - self.current, time.monotonic())
            rest(0.3, 1.0)
            yield self.until(1 - self.current, self.player.seek())

    def next(self, pause):
        for _ in range(TRIES):
            if self.current == len(self.songs) - 1:
                self.until(0, self.player.play(0))
            rest(*pause)
            yield self.until(self.current + 1, self.player.next())

    def double_click(self, is_selected):
        """On a song that is not the next one, and that was selected a second before or not at all."""
        for _ in range(TRIES):
            rest(*READY)
            song = (self.current + 2) % len(self.songs)
            if is_selected:
                self.player.select(song)
                time.sleep(1.0)
            yield self.until(song, self.player.play(song))


class Measuring:
    """Measures rows on one desktop."""

    def __init__(self, desktop):
        self.desktop, self.hands = desktop, Hands(desktop.env["DISPLAY"])

    def tell_own_delay(self):
        monitor = Monitor(self.desktop)
        delays = monitor.own_delays(self.desktop, TRIES)
        tell("keys: the recording's own delay: " + ", ".join(map(milliseconds, delays)))
        monitor.end()

    def session(self, kind, songs, tries, slow):
        monitor = Monitor(self.desktop)
        session = Session(self.desktop, self.hands, monitor, kind, songs, slow)
        seconds = list(tries(session))
        session.player.end()
        monitor.end()
        return seconds

    def first_songs(self, kind, songs):
        monitor = Monitor(self.desktop)
        seconds = []
        for _ in range(TRIES):
            player = kind(self.desktop, self.hands, songs)
            sent = player.play_first()
            seconds.append(monitor.wait_for_tone(tone(0), sent) - sent)
            player.end()
        monitor.end()
        return seconds

    def row(self, name, seconds_of, limit=None, above_peer=None, as_without_ready_songs=False):
        """`seconds_of(kind)` are those of one session; the goals are in seconds."""
        tell(f"keys: {name}")
        kinds = [Lyrabox, Mpv] + [LyraboxWithoutReadySongs] * as_without_ready_songs
        tries = {kind: [] for kind in kinds}
        for _ in range(SESSIONS):
            for kind, seconds in tries.items():
                seconds += seconds_of(kind)
        for kind, seconds in tries.items():
            tell(f"  {kind.__name__}: " + ", ".join(map(milliseconds, sorted(seconds))))
        ours, peer, *without = (statistics.median(seconds) for seconds in tries.values())
        beside, goals = [milliseconds(peer)], {}
        if limit is not None:
            goals[f"at most {milliseconds(limit)}"] = limit
        if above_peer is not None:
            goals[f"peer + {milliseconds(above_peer)}"] = peer + above_peer
        for as_before in without:
            beside.append(f"without ready songs {milliseconds(as_before)}")
            goals[f"{AS_BEFORE:.2f} × without: {milliseconds(AS_BEFORE * as_before)}"] = AS_BEFORE * as_before
        return Row(f"keys: {name}", milliseconds(ours), "; ".join(beside), None, ", ".join(goals),
                   all(ours <= most for most in goals.values()))

    def processor_seconds(self, kind, songs):
        monitor = Monitor(self.desktop)
        player = kind(self.desktop, self.hands, songs)
        player.settle()
        before = used_processor_seconds(player.process.pid)
        monitor.wait_for_tone(tone(0), player.play_first())
        time.sleep(SPAN)
        used = used_processor_seconds(player.process.pid) - before
        player.end()
        monitor.end()
        return {"seconds": used}


def milliseconds(seconds):
    return f"{seconds * 1e3:.0f} ms"


def processor_row(measuring, songs):
    """The first seconds of a song count: making the next one ready costs nothing later, however long the song is."""
    tell("keys: processor time")
    figures = interleaved({kind: lambda kind=kind: measuring.processor_seconds(kind, songs)
                           for kind in (Lyrabox, LyraboxWithoutReadySongs)}, runs=3, warm_ups=0)
    ours, without = (figure["seconds"] for figure in figures.values())
    return Row(f"keys: processor time of the first {SPAN:.0f} s of a song, with the next one made ready",
               duration(ours), f"without: {duration(without)}", None, f"without + {duration(MORE)}",
               ours <= without + MORE)


def rows():
    songs = music.tones({f"{song:02}": tone(song) for song in range(SONGS)}, "keys")
    steps = music.tones({"00": f"if(lt(mod(t,{2 * STEP}),{STEP}),{tone(0)},{tone(1)})"}, "keys-steps")
    with Desktop() as desktop:
        measuring = Measuring(desktop)
        measuring.tell_own_delay()

        def row(name, tries, heard=songs, slow=False, **goals):
            return measuring.row(name, lambda kind: measuring.session(kind, heard, tries, slow), **goals)
        return [
            row("resume after a pause", Session.resume, limit=0.045),
            row("seek at 100 %", Session.seek, steps, limit=0.045),
            row("seek at 75 %", Session.seek, steps, slow=True, limit=0.045),
            row("next song, ready", lambda session: session.next(READY), limit=0.08, above_peer=0.06),
            row("next song, not ready", lambda session: session.next(NOT_READY), as_without_ready_songs=True),
            row("double-click, ready", lambda session: session.double_click(True), limit=0.08, above_peer=0.06),
            row("double-click, not ready", lambda session: session.double_click(False),
                as_without_ready_songs=True),
            measuring.row("first song after the start", lambda kind: measuring.first_songs(kind, songs),
                          limit=0.25),
            processor_row(measuring, songs)]
