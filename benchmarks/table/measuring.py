"""Runs both sides of a row and combines the figures."""
import json
import os
import pathlib
import statistics
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
BUILD = ROOT / "build/release"
DATA = ROOT / "build/bench"
MEGABYTE = 1e6


def tell(text):
    print(text, file=sys.stderr, flush=True)


def first_core():
    return {min(os.sched_getaffinity(0))}


def on_cores(cores):
    """Prepares a child process: restricts it to `cores`, if any are given."""
    return (lambda: os.sched_setaffinity(0, cores)) if cores else None


def work(name, side, argument, cores=None):
    """One run of one of the small programs: its seconds, megabytes and amount."""
    command = [BUILD / "benchmarks" / f"work_{name}", side, str(argument)]
    done = subprocess.run(command, capture_output=True, text=True, check=False, preexec_fn=on_cores(cores))
    if done.returncode != 0:
        sys.exit(f"bench: {command[0].name} failed: {done.stderr.strip()}")
    return json.loads(done.stdout.splitlines()[-1])


def timed(command, cores=None):
    """Wall time of a whole process."""
    begin = time.monotonic()
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                   stdin=subprocess.DEVNULL, preexec_fn=on_cores(cores))
    return {"seconds": time.monotonic() - begin}


def interleaved(sides, runs=5, warm_ups=1):
    """Calls all sides in turn and returns the median of each figure: {side: {figure: median}}."""
    figures = {name: [] for name in sides}
    names = list(sides)
    for run in range(warm_ups + runs):
        for name in names:
            result = sides[name]()
            if run >= warm_ups:
                figures[name].append(result)
        names.append(names.pop(0))  # the first side becomes the last
    return {name: {key: statistics.median(result[key] for result in results) for key in results[0]}
            for name, results in figures.items()}


def duration(seconds):
    if seconds >= 1.0:
        return f"{seconds:.2f} s"
    return f"{seconds * 1e3:.0f} ms" if seconds >= 0.02 else f"{seconds * 1e3:.2f} ms"
