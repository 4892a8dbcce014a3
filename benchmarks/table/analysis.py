"""peaks, attacks: what a wave is drawn from, and where notes begin, in four minutes of music in memory, on one core."""
from .measuring import MEGABYTE, duration, first_core, interleaved, tell, work
from .rows import Row

LONGEST_BUILD = 0.150  # seconds
LONGEST_DRAWING = 0.0004
LONGEST_SEARCH = 0.500
LONGEST_TIDYING = 0.005
MOST_MEMORY = 1.0  # megabytes


def alone(argument):
    """The medians of one kind of analysis, on one core."""
    tell(argument)
    return interleaved({"ours": lambda: work("analysis", "ours", argument, first_core())}, runs=15)["ours"]


def limited(name, seconds, limit):
    """A row whose goal is a time."""
    return Row(name, duration(seconds), "", None, f"at most {limit * 1e3:g} ms", seconds <= limit)


def peaks():
    built, drawn = alone("peaks"), alone("columns")
    size = built["amount"] / MEGABYTE
    return [limited("peaks, 4 minutes, one core", built["seconds"], LONGEST_BUILD),
            Row("peaks, memory", f"{size:.2f} MB", "", None, f"at most {MOST_MEMORY:g} MB", size <= MOST_MEMORY),
            limited("peaks, 2,000 columns from samples", drawn["seconds"], LONGEST_DRAWING)]


def attacks():
    return [limited("attacks, 4 minutes, one core", alone("attacks")["seconds"], LONGEST_SEARCH),
            limited("attacks, the nearest within 300 ms", alone("nearest")["seconds"], LONGEST_TIDYING)]
