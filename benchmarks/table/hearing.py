"""Hears when a tone begins: records the monitor of the private sound server's sink while it plays."""
import array
import bisect
import itertools
import math
import operator
import os
import subprocess
import sys
import threading
import time

RATE = 44100
WINDOW = 147  # samples (3.3 ms): whole periods of every tone, so that no tone is heard in place of another
STEP = RATE // WINDOW  # hertz
LOUDNESS = 0.5  # of the tones, of 1
PATIENCE = 20.0  # seconds
FORMAT = ["--raw", "--format=float32le", f"--rate={RATE}", "--channels=1", "--latency-msec=2"]


def tone(number):
    """The frequency of song `number` in hertz. The tones are far apart, because a tone that is interrupted also
    sounds like its neighbours."""
    return (2 + 3 * number) * STEP


def waves(frequency):
    """One window of the cosine and of the sine."""
    angles = [2 * math.pi * frequency * i / RATE for i in range(WINDOW)]
    return [math.cos(angle) for angle in angles], [math.sin(angle) for angle in angles]


class Monitor:
    """Records from its creation on. Times are those of time.monotonic()."""

    def __init__(self, desktop):
        self.samples = array.array("f")
        self.arrivals = []  # (count of samples, time): the last of `count` samples arrived at `time`
        self.recorder = desktop.start(["parec", *FORMAT, "--device=nothing.monitor"], stdout=subprocess.PIPE)
        threading.Thread(target=self.record, daemon=True).start()
        desktop.wait_for("the monitor", lambda: self.arrivals)
        self.end = lambda: desktop.stop(self.recorder)

    def record(self):
        rest = b""
        while got := os.read(self.recorder.stdout.fileno(), 65536):
            now = time.monotonic()
            rest += got
            whole = len(rest) - len(rest) % self.samples.itemsize
            self.samples.frombytes(rest[:whole])
            rest = rest[whole:]
            self.arrivals.append((len(self.samples), now))

    def time_of(self, sample):
        """When a sample was played: its chunk has just ended when it arrives."""
        count, arrived = self.arrivals[bisect.bisect_right(self.arrivals, (sample, math.inf))]
        return arrived - (count - 1 - sample) / RATE

    def wait_for_tone(self, frequency, since):
        """When `frequency` is heard for the first time after `since`: the middle of the first window that it fills to
        a half."""
        before = self.arrivals[bisect.bisect_left(self.arrivals, since, key=operator.itemgetter(1)) - 1][0]
        first = begin = max(0, before - WINDOW)
        while time.monotonic() < since + PATIENCE:
            part = self.samples[begin:self.arrivals[-1][0]]
            sums = [[0.0, *itertools.accumulate(map(operator.mul, part, itertools.cycle(wave)))]
                    for wave in waves(frequency)]
            for i in range(0, len(part) - WINDOW):
                if 2 / WINDOW * math.hypot(*(line[i + WINDOW] - line[i] for line in sums)) > LOUDNESS / 2:
                    if begin + i == first:
                        sys.exit(f"bench: a tone of {frequency} Hz sounds too early")
                    return self.time_of(begin + i + WINDOW // 2)
            begin += max(0, len(part) - WINDOW)
            time.sleep(0.01)
        sys.exit(f"bench: waited for a tone of {frequency} Hz in vain")

    def own_delays(self, desktop, tries):
        """Yields the seconds from the write of a frame, to a stream with nothing else to play, until it is heard."""
        stream = desktop.start(["pacat", *FORMAT], stdin=subprocess.PIPE)
        sound = array.array("f", waves(tone(0))[1] * 40).tobytes()
        for _ in range(tries):
            time.sleep(0.5)
            sent = time.monotonic()
            stream.stdin.write(sound)
            stream.stdin.flush()
            yield self.wait_for_tone(tone(0), sent) - sent
        desktop.stop(stream)
