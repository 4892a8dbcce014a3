"""Runs scripts/setup with stand-ins for the package tools and checks what it would install."""
import os
import re
import unittest

import standins

DPKG_QUERY = """shift 3 # -W -f FORMAT
for package in "$@"; do
    grep -E "^$package( |$)" "$STATE/installed" | while read -r name version; do echo "$name installed ${version:-1.0}"; done
done
"""
APT_CACHE = """echo "apt-cache" >>"$STATE/calls"
shift # policy
for package in "$@"; do
    echo "$package:"
    echo "  Installed: (none)"
    version=$(grep -E "^$package( |$)" "$STATE/lists" 2>/dev/null | while read -r name version; do echo "${version:-1.0}"; done)
    echo "  Candidate: ${version:-(none)}"
done
"""
APT_GET = """try=
words=
for word in "$@"; do
    case $word in
        --assume-no) try=1 ;;
        -o) ;;
        -* | *::*) ;;
        update) echo update >>"$STATE/calls"; [ ! -e "$STATE/offline" ] || exit 100; cp "$STATE/archive" "$STATE/lists" ;;
        install) ;;
        *) words="$words $word" ;;
    esac
done
[ -n "$words" ] || exit 0
if [ -n "$try" ]; then cat "$STATE/figures" 2>/dev/null; exit 1; fi
echo "$*" >>"$STATE/calls"
if [ -e "$STATE/offline" ] || [ -e "$STATE/broken" ]; then
    echo "Reading package lists..."
    echo "E: Failed to fetch it" >&2
    echo "E: Unable to fetch some archives" >&2
    exit 100
fi
for word in $words; do echo "$word" >>"$STATE/installed"; done
"""
SUDO = """echo "sudo" >>"$STATE/calls"
[ ! -e "$STATE/refuses" ] || { echo "sudo: a password is required" >&2; exit 1; }
[ "$1" != -n ] || shift
exec "$@"
"""
LIST = """# A list.
[build]
tool   # a remark
new-name | old-name
compiler >= 3.25

[run]
plugin

[virtual]
server unless other-server
"""


class Setup(standins.ScriptTest):
    def setUp(self):
        super().setUp()
        self.take("setup")
        for name, text in (("dpkg-query", DPKG_QUERY), ("apt-cache", APT_CACHE), ("apt-get", APT_GET), ("sudo", SUDO)):
            self.stand_in(f"bin/{name}", text)
        self.root_rights(True)
        (self.root / "scripts/packages").write_text(LIST)
        (self.root / "status").touch()
        os.utime(self.root / "status", (0, 0))
        self.system(installed=[], archive=["tool", "new-name", "old-name", "compiler 3.25.1", "plugin", "server", "extra"])

    def root_rights(self, yes):
        self.stand_in("bin/id", f"echo {0 if yes else 1000}\n")

    def system(self, installed=None, archive=None, lists=None):
        """What is installed, what apt knows after updating its lists, and what it knows before."""
        for name, lines in (("installed", installed), ("archive", archive), ("lists", lists)):
            if lines is not None:
                (self.root / name).write_text("".join(line + "\n" for line in lines))

    def everything_is_installed(self):
        self.system(installed=["tool", "old-name", "compiler 3.25.1", "plugin", "server"])

    def offline(self):
        (self.root / "offline").touch()

    def install(self, *arguments):
        return self.run_script("setup", *(arguments or ("build",)))

    def installed(self):
        return [line.split()[0] for line in self.lines("installed")]

    def test_only_the_named_sections_are_installed(self):
        self.assertEqual(self.install("run", "virtual").returncode, 0)
        self.assertEqual(self.installed(), ["plugin", "server"])

    def test_packages_that_are_named_are_installed_too(self):
        self.assertEqual(self.install("run", "extra").returncode, 0)
        self.assertEqual(self.installed(), ["plugin", "extra"])

    def test_the_first_of_two_names_that_the_system_knows_is_taken(self):
        self.install()
        self.assertEqual(self.installed(), ["tool", "new-name", "compiler"])

    def test_the_second_name_is_taken_if_the_first_is_unknown(self):
        self.system(archive=["tool", "old-name", "compiler 3.25"])
        self.assertEqual(self.install().returncode, 0)
        self.assertEqual(self.installed(), ["tool", "old-name", "compiler"])

    def test_the_second_name_is_not_enough_if_the_first_is_known(self):
        self.everything_is_installed()
        self.system(lists=["new-name"])
        self.assertEqual(self.install().returncode, 0)
        self.assertEqual(self.installed()[-1], "new-name")

    def test_a_package_is_skipped_if_its_rival_is_installed(self):
        self.system(installed=["other-server"])
        result = self.install("virtual")
        self.assertEqual((result.returncode, result.stdout, self.installed()), (0, "", ["other-server"]))

    def test_a_package_that_is_too_old_is_replaced_by_a_newer_one(self):
        self.system(installed=["tool", "old-name", "compiler 3.22"], lists=["compiler 3.26"])
        self.assertEqual(self.install().returncode, 0)
        self.assertEqual(self.installed()[-1], "compiler")

    def test_one_line_says_what_comes_and_how_much_before_anything_is_installed(self):
        for figures in ("""0 upgraded, 41 newly installed, 0 to remove and 3 not upgraded.
Need to get 726 kB/56.5 MB of archives.
After this operation, 276 MB of additional disk space will be used.
""", """Summary:
  Upgrading: 0, Installing: 41, Removing: 0, Not Upgrading: 3
  Download size: 726 kB / 56.5 MB
  Space needed: 276 MB / 20.1 GB available
"""):
            (self.root / "figures").write_text(figures)
            self.system(installed=[], lists=["plugin"])
            (self.root / "broken").touch()
            self.assertEqual(self.install("run").stdout,
                             "Installing plugin (packages: 41, download: 726 kB, disk: 276 MB)\n")
            self.assertEqual(self.installed(), [])

    def test_nothing_is_ever_removed(self):
        self.install("run")
        self.assertIn("--no-remove", self.lines("calls")[-1])

    def test_what_is_installed_is_enough_without_network_and_rights(self):
        self.everything_is_installed()
        self.offline()
        self.root_rights(False)
        result = self.install("build", "run", "virtual")
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))
        self.assertNotIn("sudo", self.lines("calls"))
        self.assertNotIn("update", self.lines("calls"))

    def test_without_a_network_what_is_not_available_is_reported_in_one_line(self):
        self.offline()
        self.assert_one_line(self.install(), "tool", "network", "README.md")

    def test_without_a_network_what_cannot_be_fetched_is_reported_in_one_line(self):
        self.offline()
        self.system(lists=["plugin"])
        self.assert_one_line(self.install("run"), "plugin", "network", "README.md")

    def test_a_failure_of_apt_is_reported_in_one_line_with_its_reason(self):
        (self.root / "broken").touch()
        result = self.install("run")
        self.assert_one_line(result, "plugin", "Failed to fetch it", "README.md")
        log = re.search(r"output is in (\S+);", result.stderr).group(1)
        with open(log) as text:
            self.assertIn("Unable to fetch some archives", text.read())
        os.remove(log)

    def test_lists_that_cannot_be_updated_do_not_prevent_installing(self):
        self.system(lists=["plugin"])
        self.stand_in("bin/apt-get", 'case " $* " in *" update "*) exit 100 ;; esac\n' + APT_GET)
        self.assertEqual(self.install("run").returncode, 0)
        self.assertEqual(self.installed(), ["plugin"])

    def test_without_sudo_one_line_has_the_command_that_installs(self):
        self.root_rights(False)
        self.only("dirname", "awk", "grep", "sed", "tr", "rm", "cat", "sh", "dpkg")
        (self.root / "bin/sudo").unlink()
        for lists in ([], ["plugin"]):
            self.system(lists=lists)
            self.assert_one_line(self.install("run", "extra"), "no sudo", "README.md",
                                 f"run: su -c '{self.root}/scripts/setup run extra'")
        self.assertEqual(self.installed(), [])

    def test_if_sudo_refuses_one_line_has_the_command_that_installs(self):
        self.root_rights(False)
        (self.root / "refuses").touch()
        self.assert_one_line(self.install("run"), "sudo refuses", f"run: su -c '{self.root}/scripts/setup run'")

    def test_an_ordinary_user_installs_through_sudo(self):
        self.root_rights(False)
        self.assertEqual(self.install("run").returncode, 0)
        self.assertIn("sudo", self.lines("calls"))
        self.assertEqual(self.installed(), ["plugin"])

    def test_a_system_without_a_package_is_reported_in_one_line(self):
        self.system(archive=["tool", "compiler 3.25"])
        self.assert_one_line(self.install(), "no package new-name | old-name", "Debian 12", "README.md")
        self.assertEqual(self.installed(), [])

    def test_a_system_whose_package_is_too_old_is_reported_in_one_line(self):
        self.system(archive=["tool", "new-name", "compiler 3.22.1"])
        self.assert_one_line(self.install(), "compiler 3.22.1 is too old, 3.25 is needed", "Debian 12", "README.md")
        self.assertEqual(self.installed(), [])

    def test_a_system_without_debian_packages_is_reported_in_one_line(self):
        self.only("dirname", "rm")
        (self.root / "bin/apt-cache").unlink()
        self.assert_one_line(self.install(), "no apt-cache", "Debian 12", "README.md")

    def test_what_was_complete_is_not_checked_again_until_packages_change(self):
        self.everything_is_installed()
        (self.root / "build").mkdir()
        self.install("build", "run")
        asked = self.lines("calls")
        self.assertEqual(self.install("build", "run").returncode, 0)
        self.assertEqual(self.lines("calls"), asked)
        self.install("build")
        self.assertGreater(len(self.lines("calls")), len(asked))
        self.system(installed=["tool", "old-name", "compiler 3.25.1"])
        os.utime(self.root / "status", (4e9, 4e9))
        self.install("build", "run")
        self.assertIn("plugin", self.installed())


class List(unittest.TestCase):
    """The project's own list, and the calls that name its sections."""

    def setUp(self):
        self.text = (standins.SOURCE / "scripts/packages").read_text()
        self.sections = re.findall(r"^\[(\w+)\]$", self.text, re.MULTILINE)

    def test_every_entry_can_be_read(self):
        name = r"[a-z0-9][a-z0-9.+-]+"
        entry = rf"{name}( >= [0-9:.]+)?( \| {name})*( unless {name})?"
        lines = [line.split("#")[0].strip() for line in self.text.splitlines()]
        self.assertEqual([line for line in lines if line and not re.fullmatch(rf"\[\w+\]|{entry}", line)], [])

    def test_no_section_names_a_package_twice(self):
        for part in re.split(r"^\[\w+\]$", self.text, flags=re.MULTILINE):
            entries = [line.split()[0] for line in part.splitlines() if line and not line.startswith("#")]
            self.assertEqual(len(entries), len(set(entries)), part)

    def test_every_section_that_a_script_installs_is_in_the_list(self):
        called = set()
        for script in (standins.SOURCE / "scripts").iterdir():
            if script.name not in ("setup", "packages") and script.is_file():
                for call in re.findall(r'scripts/setup"?\]?([\w\s",-]*)', script.read_text()):
                    called |= set(re.findall(r"[\w-]+", call.split("\n")[0]))
        self.assertIn("build", called)
        listed = set(self.sections) | set(self.text.split())
        self.assertEqual(called - listed, set())


if __name__ == "__main__":
    standins.main()
