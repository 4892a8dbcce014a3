"""export: a song of four minutes as a file, at 75 % with an equalizer curve."""
from . import music
from .measuring import interleaved, tell, work
from .rows import Row

LEAST_SPEED = 4.0  # times real time
RATE = 0.75
MOST_MEMORY = 60.0  # megabytes: the stages and the libraries, not the song


def rows():
    source = music.song("mp3", 44100)
    length = music.SONG_SECONDS / RATE
    result, memory = [], []
    for suffix in ("flac", "mp3"):
        tell(f"export {suffix}")
        # A run takes half a minute, so a warm one would not differ.
        ours = interleaved({"ours": lambda: work("export", "ours", f"{suffix}:{source}")}, runs=3, warm_ups=0)["ours"]
        speed = length / ours["seconds"]
        memory.append(ours["megabytes"])
        result.append(Row(f"export at 75 % with the equalizer, {suffix}", f"{speed:.1f} times real time", "", None,
                          f"at least {LEAST_SPEED:g}", speed >= LEAST_SPEED and abs(ours["amount"] - length) < 0.2))
    result.append(Row("export, memory", f"{max(memory):.0f} MB", "", None, f"at most {MOST_MEMORY:.0f} MB",
                      max(memory) <= MOST_MEMORY))
    return result
