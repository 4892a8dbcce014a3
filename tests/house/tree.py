"""The house rules: the table and the picture of docs/architecture.md, includes, CMake targets, lengths of files.

All are pure functions of text, so that test_rules.py can test them on trees that break the rules.
"""
import re

LONGEST = 400
REASON_WITHIN = 12
ALL = "all"


def layers(document):
    """The table of layers: {folder: names it may include}, every name a full folder."""
    rows = re.findall(r"^\| `([\w/]+)` \|.*\|([^|]*)\|$", document, re.MULTILINE)
    folders = [folder for folder, _ in rows]

    def full(name):
        found = [name] if name in folders else [f for f in folders if f.rsplit("/", 1)[-1] == name]
        if len(found) != 1:
            raise ValueError(f"'{name}' in the table of layers is no folder, or several")
        return found[0]

    table = {}
    for folder, cell in rows:
        names = [n.strip() for n in cell.split(",") if n.strip() not in ("", "–")]
        table[folder] = [f for f in folders if f != folder] if names == [ALL] else [full(n) for n in names]
    return table


def picture(document):
    """The rows of the picture of layers, the top one first: folders from left to right."""
    block = re.search(r"^## Layers\n.*?^```\n(.*?)^```", document, re.MULTILINE | re.DOTALL).group(1)
    rows = []
    for line in block.splitlines():
        # A remark follows the folders after several spaces; it contains a space or a bracket.
        words = [w for w in re.split(r" {2,}", line.strip()) if w]
        rows.append([w for w in words if re.fullmatch(r"[\w/]+", w)])
    return rows


def reachable(table, folder):
    """The folders that a folder may include: those in its row, and those that they may include."""
    seen, waiting = set(), list(table[folder])
    while waiting:
        name = waiting.pop()
        if name not in seen:
            seen.add(name)
            waiting += table[name]
    return seen


def circle(edges):
    """A cycle in {folder: folders}, as a list whose first and last names are equal; empty if there is none."""
    done = set()

    def walk(node, path):
        if node in path:
            return path[path.index(node):] + [node]
        if node in done:
            return []
        for target in sorted(edges.get(node, ())):
            found = walk(target, path + [node])
            if found:
                return found
        done.add(node)
        return []

    for start in sorted(edges):
        found = walk(start, [])
        if found:
            return found
    return []


def included_folders(text):
    """The folders of src/ that a source includes."""
    return {m.rsplit("/", 1)[0] for m in re.findall(r'^\s*#\s*include\s+"([^"]+/[^"]+)"', text, re.MULTILINE)}


def dependencies(cmake):
    """The folders that a CMakeLists.txt of src/ links: DEPENDS of lyrabox_add_library, or the lb_ targets."""
    call = re.search(r"lyrabox_add_library\([^)]*DEPENDS\s+([a-z_\s]+)", cmake)
    if call:
        return call.group(1).split()
    library = re.search(r"target_link_libraries\(lb_\w+\s([^)]*)\)", cmake)
    return re.findall(r"\blb_(\w+)", library.group(1)) if library else []


def includes_against(table, sources):
    """The includes in {path: text} that break the table, each as a sentence."""
    faults = []
    for path, text in sorted(sources.items()):
        folder = path.rsplit("/", 1)[0]
        if folder not in table:
            faults.append(f"{path}: its folder is not in the table of layers")
            continue
        for target in sorted(included_folders(text) - {folder}):
            if target not in reachable(table, folder):
                faults.append(f"{path}: {folder} may not include {target}")
    return faults


def picture_against(rows, table):
    """The differences between the picture and the table, each as a sentence."""
    places = {f: (-y, x) for y, row in enumerate(rows) for x, f in enumerate(row)}
    code = {f for f in table if f != "app/interfaces"}
    faults = [f"{f}: not in the picture" for f in sorted(code - set(places))]
    faults += [f"{f}: not in the table" for f in sorted(set(places) - code)]
    for folder in sorted(code & set(places)):
        for target in table[folder]:
            # An included folder stands in a lower row, or further left in the same row.
            if target in places and places[target] >= places[folder]:
                faults.append(f"{folder} includes {target}, which does not stand below it")
    return faults


def system_headers(sources):
    """The includes <...h> outside platform/: headers of the system and of C libraries, never of C++ or the toolkit."""
    return [f"{path}: <{name}>" for path, text in sorted(sources.items()) if not path.startswith("platform/")
            for name in re.findall(r"^\s*#\s*include\s+<([^>]+\.h)>", text, re.MULTILINE)]


def own_header_not_first(sources):
    """The sources that include something before the header of their own name."""
    faults = []
    for path, text in sorted(sources.items()):
        own = path.removesuffix(".cpp") + ".h"
        first = re.search(r'^\s*#\s*include\s+["<]([^">]+)[">]', text, re.MULTILINE)
        if path.endswith(".cpp") and own in sources and (not first or first.group(1) != own):
            faults.append(path)
    return faults


def is_too_long(text):
    """Over 400 lines without a reason at the top: a comment with the words "Long because"."""
    lines = text.splitlines()
    return len(lines) > LONGEST and not any("Long because" in line for line in lines[:REASON_WITHIN])


def doubled_names(paths):
    """The names that more than one of the paths has, sorted."""
    names = [path.name for path in paths]
    return sorted({name for name in names if names.count(name) > 1})
