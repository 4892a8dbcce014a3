"""peaks, attacks, beats, tonal, anchors: what a wave is drawn from, where notes begin, where the beats are, tuning and key,
and other copies of a song, in music in memory, on one core. channels: what the channel tools cost while they play."""
from .measuring import MEGABYTE, duration, first_core, interleaved, tell, work
from .rows import Row

LONGEST_BUILD = 0.150  # seconds
LONGEST_DRAWING = 0.0004
LONGEST_SEARCH = 0.500
LONGEST_TIDYING = 0.005
LONGEST_FOLLOWING = 1.0
LONGEST_CANCELLING = 0.010
LONGEST_TUNING = 0.500
LONGEST_MAKING = 0.100
LONGEST_FINDING = 0.300
MOST_MEMORY = 1.0  # megabytes
MINUTES = 4.0  # of music
LARGEST_SHARE = 0.01  # of a core


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


def accuracy(name, ours, goal, met):
    """A row whose goal is no time."""
    return Row(name, ours, "", None, goal, met)


def beats():
    tell("beats")
    cost = interleaved({"ours": lambda: work("beats", "ours", "cost", first_core())})["ours"]
    cancel = work("beats", "ours", "cancel")
    demo = work("beats", "ours", "demo")
    made = work("beats", "ours", "pieces")
    wrong = made["wrong"] / made["bars"]
    return [limited("beats, 4 minutes, one core", cost["seconds"], LONGEST_FOLLOWING),
            limited("beats, cancelled", cancel["seconds"], LONGEST_CANCELLING),
            accuracy("beats of the demo songs, the worst F", f"{demo['f']:.3f}", "at least 0.97", demo["f"] >= 0.97),
            accuracy("beats of 30 pieces after eight taps, F", f"{made['f']:.3f}", "at least 0.95", made["f"] >= 0.95),
            accuracy("the worst F of four minutes", f"{made['leastLong']:.3f}", "at least 0.97",
                     made["leastLong"] >= 0.97),
            accuracy("the median error", f"{made['median']:.1f} ms", "at most 8 ms", made["median"] <= 8.0),
            accuracy("beats within 20 ms", f"{made['within'] * 100:.1f} %", "at least 95 %", made["within"] >= 0.95),
            accuracy("wrong bars among those not lost", f"{made['wrong']} of {made['bars']}", "at most one in 50",
                     wrong <= 1 / 50)]


def tonal():
    tell("tonal")
    cost = interleaved({"ours": lambda: work("tonal", "ours", "cost", first_core())})["ours"]
    cancel = work("tonal", "ours", "cancel")
    made = work("tonal", "ours", "pieces")
    count = made["count"]
    return [limited("tuning and key, 4 minutes, one core", cost["seconds"], LONGEST_TUNING),
            limited("tuning and key, cancelled", cancel["seconds"], LONGEST_CANCELLING),
            accuracy(f"tuning of {count} made pieces, the worst error", f"{made['worst']:.2f} cents", "at most 1 cent",
                     made["worst"] <= 1.0 and made["unclear"] == 0),
            accuracy(f"key of {count} made pieces, exact", f"{made['exact']}", "at least 75 %",
                     made["exact"] >= 0.75 * count),
            accuracy("exact or the relative key", f"{made['related']}", "at least 95 %",
                     made["related"] >= 0.95 * count)]


def anchors():
    """Copies of made songs are found again by their anchors, and other songs are not."""
    tell("anchors")
    costs = interleaved({part: (lambda part=part: work("anchors", "ours", part, first_core()))
                         for part in ("make", "find")})
    cancel = work("anchors", "ours", "cancel")
    copies, others, takes = (work("anchors", "ours", part) for part in ("copies", "others", "takes"))
    share = copies["found"] / copies["tried"]
    return [limited("anchors, made, 5 minutes, one core", costs["make"]["seconds"], LONGEST_MAKING),
            limited("anchors, found, 5 minutes, one core", costs["find"]["seconds"], LONGEST_FINDING),
            limited("anchors, cancelled", cancel["seconds"], LONGEST_CANCELLING),
            accuracy(f"{copies['tried']} copies of made songs, found", f"{share * 100:.1f} %", "at least 98 %",
                     share >= 0.98),
            accuracy("the worst offset of them", f"{copies['worst'] * 1e3:.1f} ms", "at most 12 ms",
                     copies["worst"] <= 0.012),
            accuracy(f"{others['pairs']} pairs of different songs, taken for one", f"{others['wrong']}", "none",
                     others["wrong"] == 0),
            accuracy(f"{takes['tried']} other takes of a piece, taken for it", f"{takes['taken']}", "none",
                     takes["taken"] == 0)]


def channels():
    """The channel tools, as a share of a core while they play."""
    def share(argument):
        tell(argument)
        costs = interleaved({"ours": lambda: work("channels", "ours", argument, first_core())})["ours"]
        return costs["seconds"] / (60.0 * MINUTES)
    rows = []
    for name, argument in (("all neutral", "neutral"), ("swapped", "swapped"), ("the centre at -100", "centre")):
        part = share(argument)
        rows.append(accuracy(f"channels, {name}, of a core", f"{part * 100:.2f} %", "at most 1 %", part <= LARGEST_SHARE))
    return rows
