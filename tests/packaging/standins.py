"""Lets a script of the project run in a folder of its own, with stand-ins for the tools that it calls."""
import pathlib
import shutil
import subprocess
import tempfile
import unittest

SOURCE = pathlib.Path(__file__).resolve().parents[2]


class ScriptTest(unittest.TestCase):
    """`root` is a tree that holds nothing but the scripts under test. Each test makes its stand-ins in root/bin."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        (self.root / "scripts").mkdir()
        (self.root / "bin").mkdir()

    def take(self, name):
        """Copies a script of the project into the tree."""
        shutil.copy(SOURCE / "scripts" / name, self.root / "scripts" / name)

    def stand_in(self, path, text):
        """Makes an executable shell script at a path below the root."""
        file = self.root / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.unlink(missing_ok=True)
        file.write_text("#!/bin/sh\n" + text)
        file.chmod(0o755)

    def only(self, *tools):
        """Hides all of the system's tools except these."""
        for tool in ("bash", *tools):
            (self.root / "bin" / tool).symlink_to(shutil.which(tool))
        self.path = str(self.root / "bin")

    path = None

    def command_of(self, name, arguments, variables):
        """How a script is called: the command, and its whole environment."""
        environment = {"PATH": self.path or f"{self.root / 'bin'}:/usr/bin:/bin", "STATE": str(self.root),
                       "HOME": str(self.root), "DPKG_ADMINDIR": str(self.root), **variables}
        return [shutil.which("bash"), self.root / "scripts" / name, *arguments], environment

    def run_script(self, name, *arguments, **variables):
        command, environment = self.command_of(name, arguments, variables)
        return subprocess.run(command, text=True, capture_output=True, check=False, env=environment, timeout=60)

    def start_script(self, name, *arguments, **variables):
        """Starts a script whose output can be read while it runs."""
        command, environment = self.command_of(name, arguments, variables)
        return subprocess.Popen(command, text=True, stdout=subprocess.PIPE, env=environment)

    def lines(self, name):
        file = self.root / name
        return file.read_text().splitlines() if file.exists() else []

    def assert_one_line(self, result, *texts):
        """Expects that the script fails and says why in one line that contains these texts."""
        self.assertEqual(result.returncode, 1, result.stderr)
        self.assertEqual(len(result.stderr.splitlines()), 1, result.stderr)
        for text in texts:
            self.assertIn(text, result.stderr)


def main():
    unittest.main()
