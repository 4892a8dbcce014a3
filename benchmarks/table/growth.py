"""growth: how the time grows with the work: the exponent of the power law that fits three sizes."""
import math

from . import lists, music
from .measuring import duration, interleaved, tell, work
from .rows import Row

HIGHEST = 1.1  # linear growth and a margin for measuring


def exponent(sizes, times):
    xs, ys = [math.log(size) for size in sizes], [math.log(time) for time in times]
    middle_x, middle_y = sum(xs) / len(xs), sum(ys) / len(ys)
    return (sum((x - middle_x) * (y - middle_y) for x, y in zip(xs, ys)) /
            sum((x - middle_x) ** 2 for x in xs))


def grown(name, unit, sizes, argument, measure=lambda size: size, against="n"):
    tell(f"growth of {name}")
    arguments = {size: argument(size) for size in sizes}
    figures = interleaved({size: lambda size=size: work(name, "ours", arguments[size]) for size in sizes}, runs=5)
    times = [figures[size]["seconds"] for size in sizes]
    fitted = exponent([measure(size) for size in sizes], times)
    return Row(f"growth, {name}: " + ", ".join(f"{size:,}" for size in sizes) + f" {unit}",
               ", ".join(duration(time) for time in times), f"({against})^{fitted:.2f}", None,
               f"exponent at most {HIGHEST}", fitted <= HIGHEST)


def parts(whole):
    return [whole // 16, whole // 4, whole]


def rows():
    return [
        grown("load", "s of mp3", [60, 240, 960], lambda seconds: music.song("mp3", 44100, seconds)),
        grown("scan", "files", parts(lists.SCANNED), music.folder),
        grown("library", "tracks", parts(lists.TRACKS), music.library),
        grown("search", "rows", parts(lists.TABLE_ROWS), lambda count: count),
        grown("sort", "rows", parts(lists.TABLE_ROWS), lambda count: count, lambda count: count * math.log(count),
              "n log n"),
    ]
