"""load: a song into memory, compared with the ffmpeg program decoding it on one thread."""
import os

from . import music
from .measuring import MEGABYTE, duration, first_core, interleaved, tell, timed, work
from .rows import Row, compared

FRAME_BYTES = 8
MEMORY_ALLOWANCE = 8.0  # megabytes


def peer(file, cores=None):
    return timed(["ffmpeg", "-nostdin", "-threads", "1", "-i", file, "-f", "f32le", "-ar", "44100", "-ac", "2", "-y",
                  "/dev/null"], cores)


def rows():
    all_cores, one_core, memory = [], [], []
    for (codec, rate), file in music.songs().items():
        name = f"{codec} {rate / 1000:g} kHz"
        tell(f"load {name}")
        core = first_core()
        figures = interleaved({
            "ours": lambda: work("load", "ours", file), "peer": lambda: peer(file),
            "ours, one core": lambda: work("load", "ours", file, core), "peer, one core": lambda: peer(file, core)},
            runs=15)
        ours, alone = figures["ours"], figures["ours, one core"]
        all_cores.append(compared(f"load {name}", ours["seconds"], figures["peer"]["seconds"], 0.65, duration))
        one_core.append(compared(f"load {name}, one core", alone["seconds"], figures["peer, one core"]["seconds"], 1.0,
                                 duration))
        memory.append((ours["megabytes"], ours["amount"] * FRAME_BYTES / MEGABYTE, name))
        if len(os.sched_getaffinity(0)) > 1:
            gain = ours["seconds"] / alone["seconds"]
            memory[-1] += (gain, ours["seconds"], alone["seconds"])
    result = all_cores + one_core
    most = max(memory, key=lambda entry: entry[0] - entry[1])
    result.append(Row(f"load, memory ({most[2]}, the most)", f"{most[0]:.1f} MB", f"decoded: {most[1]:.1f} MB", None,
                      f"decoded + {MEMORY_ALLOWANCE:.0f} MB", most[0] - most[1] <= MEMORY_ALLOWANCE))
    if len(most) > 3:
        least = max(memory, key=lambda entry: entry[3])
        result.append(Row(f"load, all cores against one ({least[2]}, the smallest gain)", duration(least[4]),
                          f"one core: {duration(least[5])}", least[3], "falling", least[3] < 1.0))
    return result
