"""practice: the loops and markers of a song, recognising a song by its sound, and the pane of the running program."""
import json
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

from . import music
from .desktop import Desktop, processor_share
from .measuring import BUILD, duration, interleaved, tell, work
from .rows import Row

LONGEST_OPENING = 0.030  # seconds
LONGEST_HASHING = 1.0
LONGEST_FIRST_PICTURE = 0.050
LONGEST_HISTORY = 0.100
LONGEST_STEP = 1 / 60
LONGEST_FRAME = 0.025
LEAST_FRAMES = 58  # a second; 60 less what starts and ends a measurement
MOST_IDLE = 0.005  # of a core
ENTRIES = 2500
LINES = 50000  # of the history: 15 a day, for ten years
STEPS = 600
SPAN = 60.0  # seconds
WAVE = 1120  # points
BESIDE_WAVE = 3 * 14 + 276  # points: the margins and the list
HEIGHT = 860


def limited(name, program, argument, limit, amount):
    """A row whose goal is a time. `amount` proves that the work was done."""
    tell(name)
    ours = interleaved({"ours": lambda: work(program, "ours", argument)})["ours"]
    return Row(name, duration(ours["seconds"]), "", None, f"at most {limit * 1e3:g} ms",
               ours["seconds"] <= limit and ours["amount"] == amount)


def watch(desktop, seconds):
    """Begins to watch the pictures of the main window."""
    return subprocess.Popen([BUILD / "benchmarks/work_frames", "Lyrabox", str(seconds)], env=desktop.env,
                            stdout=subprocess.PIPE, text=True)


def watched(process):
    out, _ = process.communicate()
    if process.returncode != 0:
        sys.exit("bench: the window could not be watched")
    return json.loads(out)


def run_pane(folder, scale, is_full):
    """Plays a song with the pane open and then pauses: the share of a core of the main thread, the longest time between
    two pictures, pictures a second, and the share of a core while paused."""
    width = WAVE + BESIDE_WAVE
    with Desktop(screen=f"{width * scale + 40}x{HEIGHT * scale + 40}") as desktop:
        env = desktop.home("pane", folder, ["practicePane=true"])
        env["QT_SCALE_FACTOR"] = str(scale)
        if is_full:
            work("practice", "ours", f"keep:{env['XDG_DATA_HOME']}/Lyrabox/Practice:{next(folder.iterdir())}")
        program = desktop.program(env)
        try:
            window = desktop.call("xdotool", "search", "--onlyvisible", "--name", "^Lyrabox$").stdout.split()[-1]
            desktop.call("xdotool", "windowsize", "--sync", window, str(width * scale), str(HEIGHT * scale))
            time.sleep(1.0)
            desktop.keys("space")
            desktop.wait_for_sound()
            time.sleep(3.0)  # until the song is measured
            frames = watch(desktop, SPAN)
            moving, _ = processor_share(program.pid, SPAN)
            pictures = watched(frames)
            desktop.keys("space")
            time.sleep(2.0)
            idle = sum(processor_share(program.pid, 10.0))
        finally:
            desktop.stop(program)
    return {"moving": moving, "longest": pictures["seconds"], "rate": pictures["amount"] / SPAN, "idle": idle}


def pane():
    """The wave at 1x and 2x, with all the loops and markers that a song can have, and paused."""
    rows, idle = [], 0.0
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        shutil.copy(music.practice_song(), folder)
        for what, scale, is_full, most in (("1x", 1, False, 0.06), ("2x", 2, False, 0.09),
                                           ("1x, 500 loops and 2,000 markers", 1, True, None)):
            tell(f"practice, the wave scrolling at {what}")
            figures = run_pane(folder, scale, is_full)
            idle = max(idle, figures["idle"])
            goal = f"at most {LONGEST_FRAME * 1e3:.0f} ms, at least {LEAST_FRAMES} a second"
            met = figures["longest"] <= LONGEST_FRAME and figures["rate"] >= LEAST_FRAMES
            if most is not None:
                goal = f"at most {100 * most:.0f} %, {goal}"
                met = met and figures["moving"] <= most
            rows.append(Row(f"practice, the wave scrolling, {WAVE:,} points wide, {what}",
                            f"{100 * figures['moving']:.1f} % of a core, longest frame {1e3 * figures['longest']:.0f} ms, "
                            f"{figures['rate']:.0f} a second", "", None, goal, met))
    rows.append(Row("practice, the pane while paused", f"{100 * idle:.2f} % of a core", "", None,
                    f"under {100 * MOST_IDLE:.1f} %", idle < MOST_IDLE))
    return rows


def rows():
    return [limited("practice, 500 loops and 2,000 markers opened", "practice", "open", LONGEST_OPENING, ENTRIES),
            limited("practice, their list filled and drawn", "pane", "list", LONGEST_OPENING, ENTRIES),
            limited("practice, the longest step of scrolling that list", "pane", "scroll", LONGEST_STEP, STEPS),
            limited("practice, the first picture of a wave", "pane", "first", LONGEST_FIRST_PICTURE, 1),
            limited("practice, sound of 5 minutes of WAV hashed", "practice", music.master(), LONGEST_HASHING, 1),
            limited("practice, a history of 50,000 lines read", "history", str(LINES), LONGEST_HISTORY, LINES),
            *pane()]
