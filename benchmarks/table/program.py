"""play, idle, memory and start: the running program."""
import json
import shutil
import subprocess
import sys
import tempfile
import time

from . import music
from .desktop import Desktop, processor_share, resident_megabytes
from .measuring import BUILD, MEGABYTE, duration, interleaved, tell, work
from .rows import Row, compared

SPAN = 10.0  # seconds over which processor time is measured
SPEED = 0.75
DECODED = music.MASTER_SECONDS * 44100 * 8 / MEGABYTE
FREQUENCIES = (32, 64, 125, 250, 500, 1000, 2000, 4000, 8000, 16000)


def run_ours(desktop, folder):
    """Plays at normal speed, then at SPEED, then pauses."""
    env = desktop.home("ours", folder, ["eqPreset=1"])
    program = desktop.program(env)
    try:
        time.sleep(1.0)
        desktop.keys("space")
        desktop.wait_for_sound()
        time.sleep(1.0)
        resident = resident_megabytes(program.pid) - DECODED
        desktop.keys(*["minus"] * 5)
        time.sleep(1.0)
        drawing, sound = processor_share(program.pid, SPAN)
        desktop.keys("space")
        time.sleep(2.0)
        idle = sum(processor_share(program.pid, SPAN))
    finally:
        desktop.stop(program)
    return {"play": (drawing + sound) / SPEED, "drawing": drawing / SPEED, "resident": resident, "idle": idle}


def run_peer(desktop, song):
    """Plays with the same stretcher and number of bands, then without them to measure its memory."""
    bands = ",".join(f"equalizer=f={frequency}:t=o:w=1:g=3" for frequency in FREQUENCIES)
    plain = ["mpv", "--no-config", "--no-terminal", "--no-video", "--ao=pulse", "--loop=inf", str(song)]
    figures = {}
    for command, measure in (
            ([*plain, f"--speed={SPEED}", f"--af=rubberband=engine=finer,lavfi=[{bands}]"],
             lambda pid: figures.update(play=sum(processor_share(pid, SPAN)) / SPEED)),
            (plain, lambda pid: figures.update(resident=resident_megabytes(pid)))):
        player = desktop.start(command)
        try:
            desktop.wait_for_sound()
            time.sleep(2.0)
            if player.poll() is not None:
                sys.exit("bench: mpv did not play")
            measure(player.pid)
        finally:
            desktop.stop(player)
    return figures


def playing(which):
    """Measures those of the rows play, idle and memory that are in `which`, in the same runs."""
    song = music.practice_song()
    with tempfile.TemporaryDirectory() as folder, Desktop() as desktop:
        shutil.copy(song, folder)
        tell(", ".join(which))
        figures = interleaved({"ours": lambda: run_ours(desktop, folder), "peer": lambda: run_peer(desktop, song)},
                              runs=3, warm_ups=0)
    ours, peer = figures["ours"], figures["peer"]

    def share(value):
        return f"{100 * value:.1f} %"
    rows = {
        "play": compared(f"play at 75 %, of a core per second heard (of it the main thread {share(ours['drawing'])})",
                         ours["play"], peer["play"], 1.0, share),
        "idle": Row("idle, paused", f"{100 * ours['idle']:.2f} % of a core", "", None, "under 0.5 %",
                    ours["idle"] < 0.005),
        "memory": compared("memory with 5 minutes loaded, less the decoded song", ours["resident"], peer["resident"],
                           1.2, lambda size: f"{size:.0f} MB")}
    return [rows[name] for name in which]


def first_paint(program, env):
    done = subprocess.run([BUILD / "benchmarks/work_first_paint", program], env=env, capture_output=True, text=True,
                          check=False)
    if done.returncode != 0:
        sys.exit(f"bench: {program.name} showed no window: {done.stderr.strip()}")
    return json.loads(done.stdout)


def start():
    tell("start")
    folder = music.folder(1000)
    bare = BUILD / "benchmarks/work_bare_window"
    with Desktop(window_manager=False) as desktop:
        figures = interleaved({
            "empty": lambda: first_paint(BUILD / "lyrabox", desktop.home("empty")),
            "remembered": lambda: first_paint(BUILD / "lyrabox", desktop.home("remembered", folder)),
            "peer": lambda: first_paint(bare, desktop.home("peer")),
            "scan": lambda: work("scan", "ours", folder)}, runs=9)
    empty, remembered, peer, scan = (figures[name]["seconds"] for name in ("empty", "remembered", "peer", "scan"))
    limit = 2.0 * peer + scan
    return [compared("start, empty home", empty, peer, 2.0, duration),
            Row("start, a remembered folder of 1,000 songs", duration(remembered),
                f"{duration(peer)}; scan {duration(scan)}", remembered / peer, f"2.00 + scan: {duration(limit)}",
                remembered <= limit)]
