"""Runs scripts/setup among made-up package tools and looks at what it would install."""
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

SOURCE = pathlib.Path(__file__).resolve().parents[2]

DPKG_QUERY = """#!/bin/sh
while read -r package; do echo "$package installed"; done <"$STATE/installed"
"""
APT_CACHE = """#!/bin/sh
shift # policy
for package in "$@"; do
    echo "$package:"
    echo "  Installed: (none)"
    if grep -qx "$package" "$STATE/lists" 2>/dev/null; then echo "  Candidate: 1.0"; else echo "  Candidate: (none)"; fi
done
"""
APT_GET = """#!/bin/sh
case $1 in
    update) [ -e "$STATE/offline" ] && exit 100; cp "$STATE/archive" "$STATE/lists" ;;
    install) shift; for word in "$@"; do case $word in -*) ;; *) echo "$word" >>"$STATE/installed" ;; esac; done ;;
esac
"""


class Setup(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.root = pathlib.Path(self.folder.name)
        (self.root / "scripts").mkdir()
        (self.root / "bin").mkdir()
        shutil.copy(SOURCE / "scripts/setup", self.root / "scripts/setup")
        for name, text in (("dpkg-query", DPKG_QUERY), ("apt-cache", APT_CACHE), ("apt-get", APT_GET),
                           ("id", "#!/bin/sh\necho 0\n")):
            tool = self.root / "bin" / name
            tool.write_text(text)
            tool.chmod(0o755)
        self.state(wanted=["tool", "new-name | old-name  # a remark"], installed=[], archive=[])

    def state(self, wanted=None, installed=None, archive=None):
        """What the list names, what is installed, and what apt knows once it has asked."""
        for path, lines in (("scripts/packages", wanted), ("installed", installed), ("archive", archive)):
            if lines is not None:
                (self.root / path).write_text("".join(line + "\n" for line in lines))

    def run_setup(self, *arguments):
        return subprocess.run([self.root / "scripts/setup", *arguments], text=True, capture_output=True, check=False,
                              env={"PATH": f"{self.root / 'bin'}:/usr/bin:/bin", "STATE": str(self.root)})

    def installed(self):
        return (self.root / "installed").read_text().split()

    def test_of_alternatives_it_installs_the_first_that_the_system_has(self):
        self.state(archive=["tool", "new-name", "old-name"])
        self.assertEqual(self.run_setup().returncode, 0)
        self.assertEqual(self.installed(), ["tool", "new-name"])

    def test_a_later_alternative_is_installed_where_the_first_is_unknown(self):
        self.state(archive=["tool", "old-name"])
        self.assertEqual(self.run_setup().returncode, 0)
        self.assertEqual(self.installed(), ["tool", "old-name"])

    def test_a_later_alternative_that_is_installed_does_not_stand_for_the_first(self):
        self.state(installed=["tool", "old-name"], archive=["tool", "new-name", "old-name"])
        shutil.copy(self.root / "archive", self.root / "lists")
        self.assertEqual(self.run_setup().returncode, 0)
        self.assertEqual(self.installed(), ["tool", "old-name", "new-name"])

    def test_what_is_installed_is_enough_without_a_network(self):
        self.state(installed=["tool", "old-name"])
        (self.root / "offline").touch()
        result = self.run_setup()
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))

    def test_packages_named_after_the_command_are_installed_too(self):
        self.state(installed=["tool", "old-name"], archive=["extra"])
        self.assertEqual(self.run_setup("extra").returncode, 0)
        self.assertEqual(self.installed(), ["tool", "old-name", "extra"])

    def test_a_system_without_a_package_is_told_in_one_line(self):
        self.state(archive=["tool"])
        result = self.run_setup()
        self.assertEqual(result.returncode, 1)
        self.assertEqual(len(result.stderr.splitlines()), 1)
        self.assertIn("new-name | old-name", result.stderr)
        self.assertIn("README.md", result.stderr)
        self.assertEqual(self.installed(), [])

    def test_a_system_without_debian_packages_is_told_in_one_line(self):
        (self.root / "bin/apt-cache").unlink()
        for tool in ("bash", "dirname", "sed"):
            os.symlink(shutil.which(tool), self.root / "bin" / tool)
        result = subprocess.run([self.root / "bin/bash", self.root / "scripts/setup"], text=True, capture_output=True,
                                check=False, env={"PATH": str(self.root / "bin"), "STATE": str(self.root)})
        self.assertEqual(result.returncode, 1)
        self.assertEqual(len(result.stderr.splitlines()), 1)
        self.assertIn("Debian 12", result.stderr)


if __name__ == "__main__":
    unittest.main()
