"""scan, library, search and sort."""
from . import music
from .measuring import duration, interleaved, tell, work
from .rows import compared

SCANNED = 5000
TRACKS = 50_000
TABLE_ROWS = 100_000
DISPLAY_FRAME = 1.0 / 60.0


def both(name, argument, runs):
    tell(name)
    figures = interleaved({side: lambda side=side: work(name, side, argument) for side in ("ours", "peer")}, runs)
    return figures["ours"], figures["peer"]


def scan():
    ours, peer = both("scan", music.folder(SCANNED), 5)
    all_there = ours["amount"] == peer["amount"] == SCANNED
    return [compared(f"scan, {SCANNED:,} files", ours["seconds"], peer["seconds"], 0.6, duration, all_there)]


def library():
    file = music.library(TRACKS)
    ours, peer = both("library", file, 5)
    size = file.stat().st_size / 1e6
    return [compared(f"library, {TRACKS:,} tracks ({size:.0f} MB)", ours["seconds"], peer["seconds"], 1.0, duration),
            compared("library, memory", ours["megabytes"], peer["megabytes"], 0.6, lambda size: f"{size:.0f} MB")]


def search():
    ours, peer = both("search", TABLE_ROWS, 5)
    row = compared(f"search, {TABLE_ROWS:,} rows", ours["seconds"], peer["seconds"], 0.1, duration,
                   ours["seconds"] < DISPLAY_FRAME and ours["amount"] == peer["amount"])
    row.goal += ", under 16.7 ms"
    return [row]


def sort():
    ours, peer = both("sort", TABLE_ROWS, 5)
    return [compared(f"sort, {TABLE_ROWS:,} rows", ours["seconds"], peer["seconds"], 0.3, duration)]
