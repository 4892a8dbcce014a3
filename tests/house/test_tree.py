"""Checks the source tree against the house rules in docs/architecture.md and CONTRIBUTING.md."""
import pathlib
import subprocess
import unittest

import functions
import tree

ROOT = pathlib.Path(__file__).resolve().parents[2]
SRC = ROOT / "src"
DOCUMENT = (ROOT / "docs/architecture.md").read_text()
TABLE = tree.layers(DOCUMENT)
SOURCES = {str(p.relative_to(SRC)): p.read_text() for p in SRC.rglob("*") if p.suffix in (".h", ".cpp")}
CODE = {".h", ".cpp", ".py", ".txt", ".cmake", ".md", ""}


def target_of(folder):
    return folder.replace("/", "_")


class Layers(unittest.TestCase):
    def test_a_folder_includes_only_what_its_row_allows(self):
        self.assertEqual(tree.includes_against(TABLE, SOURCES), [])

    def test_every_row_is_a_folder(self):
        self.assertEqual([f for f in TABLE if not (SRC / f).is_dir()], [])

    def test_there_is_no_cycle(self):
        self.assertEqual(tree.circle(TABLE), [])
        edges = {}
        for path, text in SOURCES.items():
            folder = path.rsplit("/", 1)[0]
            edges.setdefault(folder, set()).update(tree.included_folders(text) - {folder})
        self.assertEqual(tree.circle(edges), [])

    def test_no_row_allows_what_nobody_includes(self):
        for folder, allowed in TABLE.items():
            included = set()
            for path, text in SOURCES.items():
                if path.rsplit("/", 1)[0] == folder:
                    included |= tree.included_folders(text)
            for name in allowed:
                if name != "app/interfaces" and len(allowed) < len(TABLE) - 1:
                    below = tree.reachable(TABLE, name) | {name}
                    self.assertTrue(included & below, f"{folder} includes nothing of {name}")

    def test_a_folder_links_only_what_its_row_allows(self):
        targets = {target_of(f): f for f in TABLE}
        for folder in TABLE:
            if folder == "app/interfaces":
                continue
            linked = tree.dependencies((SRC / folder / "CMakeLists.txt").read_text())
            allowed = tree.reachable(TABLE, folder)
            for name in linked:
                self.assertIn(targets.get(name, name), allowed, f"{folder}/CMakeLists.txt")

    def test_the_picture_shows_the_table(self):
        self.assertEqual(tree.picture_against(tree.picture(DOCUMENT), TABLE), [])


class Headers(unittest.TestCase):
    def test_only_platform_includes_headers_of_the_system(self):
        self.assertEqual(tree.system_headers(SOURCES), [])

    def test_every_source_includes_its_own_header_first(self):
        # So the build proves that the header needs no other before it. Headers without a source of their name are
        # compiled alone, see CMakeLists.txt.
        self.assertEqual(tree.own_header_not_first(SOURCES), [])


class Lengths(unittest.TestCase):
    def test_no_function_is_over_60_lines_without_a_reason_above_it(self):
        faults = [f"{path}:{f.line}: {f.name} has {f.length} lines"
                  for path, text in sorted(SOURCES.items()) for f in functions.too_long(text)]
        self.assertEqual(faults, [])

    def test_no_file_is_over_400_lines_without_a_reason_at_its_top(self):
        # Files that were not committed yet count, too. Files that git ignores do not.
        names = subprocess.run(["git", "ls-files", "--cached", "--others", "--exclude-standard"], cwd=ROOT, text=True,
                               capture_output=True, check=False).stdout.split("\n")
        files = [ROOT / n for n in names if n] or [p for f in ("src", "tests") for p in (ROOT / f).rglob("*")]
        looked_at = [f for f in files if f.suffix in CODE and f.name != "LICENSE" and f.is_file()]
        self.assertGreater(len(looked_at), 200)
        self.assertEqual([str(f.relative_to(ROOT)) for f in looked_at if tree.is_too_long(f.read_text())], [])


class Names(unittest.TestCase):
    def test_no_two_files_of_the_tests_have_one_name(self):
        paths = [p for p in (ROOT / "tests").rglob("*") if p.suffix in (".h", ".cpp", ".py")]
        self.assertGreater(len(paths), 100)
        self.assertEqual(tree.doubled_names(paths), [])


if __name__ == "__main__":
    unittest.main()
