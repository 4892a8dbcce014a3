"""practice: opening the loops and markers of a song, and recognising a song by its sound."""
from . import music
from .measuring import duration, interleaved, tell, work
from .rows import Row

LONGEST_OPENING = 0.030  # seconds
LONGEST_HASHING = 1.0
ENTRIES = 2500


def limited(name, argument, limit, amount):
    """A row whose goal is a time. `amount` proves that the work was done."""
    tell(name)
    ours = interleaved({"ours": lambda: work("practice", "ours", argument)})["ours"]
    return Row(name, duration(ours["seconds"]), "", None, f"at most {limit * 1e3:g} ms",
               ours["seconds"] <= limit and ours["amount"] == amount)


def rows():
    return [limited("practice, 500 loops and 2,000 markers opened", "open", LONGEST_OPENING, ENTRIES),
            limited("practice, sound of 5 minutes of WAV hashed", music.master(), LONGEST_HASHING, 1)]
