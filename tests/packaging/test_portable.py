"""Tests the shell scripts of the portable archive, the start script and the installer: test_portable.py"""
import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

SOURCE = pathlib.Path(__file__).resolve().parents[2]
ID = "org.lyrabox.Lyrabox"
# Every character with a special meaning in a shell, a menu entry or a pattern.
ODD = 'Music "tools" $HOME `id` \\ 50% [x]'


class Portable(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.home = pathlib.Path(self.folder.name) / "home"
        self.root = self.home / ODD
        self.tools = self.home.parent / "tools"
        for folder in (self.root / "bin", self.root / "libexec", self.root / "share/applications", self.tools,
                       self.root / "share/icons/hicolor/48x48/apps"):
            folder.mkdir(parents=True)
        start = (SOURCE / "resources/portable/lyrabox.in").read_text().replace("@GLIBC@", "2.36")
        self.write(self.root / "bin/lyrabox", start)
        shutil.copy(SOURCE / "resources/portable/install", self.root / "install")
        shutil.copy(SOURCE / f"resources/desktop/{ID}.desktop", self.root / "share/applications")
        (self.root / f"share/icons/hicolor/48x48/apps/{ID}.png").write_bytes(b"picture")
        # A stand-in for the program, which prints how it was called.
        self.write(self.root / "libexec/lyrabox", '#!/bin/sh\nprintf "%s|" "$0" "$@"\n')
        self.system("glibc 2.36", "x86_64")

    @staticmethod
    def write(file, text):
        file.write_text(text)
        file.chmod(0o755)

    def system(self, glibc, machine):
        self.write(self.tools / "getconf", f"#!/bin/sh\n{f'echo {glibc}' if glibc else 'exit 1'}\n")
        self.write(self.tools / "uname", f"#!/bin/sh\necho {machine}\n")

    def run_in_home(self, *command):
        environment = {"PATH": f"{self.tools}:{os.environ['PATH']}", "HOME": str(self.home), "LC_ALL": "C.UTF-8"}
        return subprocess.run([str(part) for part in command], env=environment, text=True, capture_output=True,
                              timeout=60, check=False)

    def start(self, *arguments):
        return self.run_in_home(self.root / "bin/lyrabox", *arguments)

    def assert_refused(self, result, text):
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertEqual(result.stderr, f"lyrabox: {text}; see {self.root}/README\n")

    def tree(self):
        return sorted(str(path.relative_to(self.home)) for path in self.home.rglob("*"))

    def test_the_start_passes_its_arguments_on_unchanged(self):
        result = self.start("a song.mp3", "", "$x *")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(result.stdout, f"{self.root}/libexec/lyrabox|a song.mp3||$x *|")

    def test_the_start_finds_its_folder_through_a_link(self):
        link = self.home / "lyrabox"
        link.symlink_to(self.root / "bin/lyrabox")
        self.assertEqual(self.run_in_home(link).stdout, f"{self.root}/libexec/lyrabox|")

    def test_a_newer_glibc_is_newer_by_number_and_not_by_letters(self):
        for glibc in ("2.100", "3.0"):
            self.system(f"glibc {glibc}", "x86_64")
            self.assertEqual(self.start().returncode, 0, glibc)

    def test_a_system_that_is_too_old_is_reported_in_one_line(self):
        for glibc in ("2.35", "2.4"):
            self.system(f"glibc {glibc}", "x86_64")
            self.assert_refused(self.start(), f"this system's glibc {glibc} is too old; glibc 2.36 or newer is needed")

    def test_a_system_without_glibc_is_reported_in_one_line(self):
        self.system(None, "x86_64")
        self.assert_refused(self.start(), "there is no glibc on this system; glibc 2.36 or newer is needed")

    def test_another_machine_is_reported_in_one_line(self):
        self.system("glibc 2.36", "aarch64")
        self.assert_refused(self.start(), "this is the program for x86_64, and the machine is aarch64")

    def test_missing_libraries_are_reported_in_one_line(self):
        for name in ("one", "two"):
            self.make_library(name, "")
        self.make_program("one", "two")
        self.assert_refused(self.start(), "this system lacks libone.so.1, libtwo.so.1")

    def test_a_library_that_is_too_old_is_reported_in_one_line(self):
        self.make_library("one", "NEW_2 { it; };")
        self.make_program("one")
        library = self.make_library("one", "OLD_1 { it; };").rename(self.root / "libexec/libone.so.1")
        self.assert_refused(self.start(), f"this system lacks NEW_2 of {library}")

    def make_library(self, name, versions):
        library, script = self.tools / f"lib{name}.so", self.tools / "versions"
        script.write_text(versions)
        options = [f"-Wl,--version-script={script}"] if versions else []
        self.compile("void it(void) {}", "-shared", "-fPIC", f"-Wl,-soname,lib{name}.so.1", *options, "-o", library)
        return library

    def make_program(self, *names):
        libraries = [self.tools / f"lib{name}.so" for name in names]
        self.compile("void it(void); int main() { it(); }", "-Wl,--no-as-needed", *libraries,
                     "-Wl,-rpath,$ORIGIN", "-o", self.root / "libexec/lyrabox")

    @staticmethod
    def compile(source, *options):
        # After "-x none" the compiler recognises libraries by their names.
        subprocess.run(["cc", "-x", "c", "-", "-x", "none", *options], input=source, text=True, check=True)

    def test_the_menu_entry_starts_the_program_where_it_is(self):
        result = self.run_in_home(self.root / "install")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        entry = self.home / f".local/share/applications/{ID}.desktop"
        subprocess.run(["desktop-file-validate", entry], check=True)
        lines = [line for line in entry.read_text().splitlines() if line.startswith("Exec=")]
        self.assertEqual(len(lines), 1)
        # Undoes what a desktop does, in reverse order: the value's backslashes, the quotes, the percent signs.
        value = lines[0].removeprefix("Exec=").replace("\\\\", "\\")
        quoted, rest = re.fullmatch(r'"((?:[^"\\`$]|\\.)*)"( .*)', value).groups()
        self.assertEqual(rest, " %U")
        self.assertEqual(re.sub(r"\\(.)", r"\1", quoted).replace("%%", "%"), str(self.root / "bin/lyrabox"))
        self.assertTrue((self.home / f".local/share/icons/hicolor/48x48/apps/{ID}.png").exists())

    def test_removal_leaves_nothing(self):
        before = self.tree()
        self.run_in_home(self.root / "install")
        self.assertNotEqual(self.tree(), before)
        result = self.run_in_home(self.root / "install", "--remove")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(self.tree(), before)

    def test_removal_without_an_installation_changes_nothing(self):
        before = self.tree()
        self.assertEqual(self.run_in_home(self.root / "install", "--remove").returncode, 0)
        self.assertEqual(self.tree(), before)

    def test_removal_keeps_the_files_of_other_programs(self):
        other = self.home / ".local/share/applications/other.desktop"
        other.parent.mkdir(parents=True)
        other.write_text("[Desktop Entry]\nType=Application\nName=Other\nExec=other\nMimeType=audio/mpeg;\n")
        self.run_in_home(self.root / "install")
        self.run_in_home(self.root / "install", "--remove")
        self.assertTrue(other.exists())
        self.assertIn("audio/mpeg=other.desktop;\n", (other.parent / "mimeinfo.cache").read_text())
        self.assertEqual([path for path in self.tree() if ".local" in path and ID in path], [])
        self.assertFalse((self.home / ".local/share/icons").exists())

    def test_an_unknown_option_is_refused(self):
        before = self.tree()
        result = self.run_in_home(self.root / "install", "--purge")
        self.assertEqual((result.returncode, result.stderr), (1, "install: unknown option --purge; usage: install [--remove]\n"))
        self.assertEqual(self.tree(), before)


if __name__ == "__main__":
    unittest.main()
