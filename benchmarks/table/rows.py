"""The table."""
import dataclasses
import os
import platform
import typing


@dataclasses.dataclass
class Row:
    name: str
    ours: str
    peer: str
    ratio: typing.Optional[float]  # None if the goal is not a ratio
    goal: str
    met: bool


def compared(name, ours, peer, limit, show, also=True):
    """A row whose goal is a ratio of at most `limit`, and the condition `also`."""
    ratio = ours / peer
    return Row(name, show(ours), show(peer), ratio, f"{limit:.2f}", ratio <= limit and also)


def machine():
    model = "unknown processor"
    with open("/proc/cpuinfo", encoding="utf-8") as file:
        for line in file:
            if line.startswith("model name"):
                model = line.split(":", 1)[1].strip()
                break
    return f"{model}, {len(os.sched_getaffinity(0))} cores, Linux {platform.release()}"


def print_table(rows):
    print(f"Read on: {machine()}.\n")
    print("| Row | Ours | Peer | Ratio | Goal | Met |")
    print("|---|---|---|---|---|---|")
    for row in rows:
        ratio = "" if row.ratio is None else f"{row.ratio:.2f}" if row.ratio >= 0.1 else f"{row.ratio:.3f}"
        print(f"| {row.name} | {row.ours} | {row.peer} | {ratio} | {row.goal} | {'yes' if row.met else 'NO'} |")
