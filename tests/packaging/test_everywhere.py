"""Runs scripts/test-everywhere with a stand-in for the tests and checks the table that it makes."""
import os
import shutil
import subprocess

import standins

FIRST = """      Start  1: a
 1/12 Test  #1: a ........   Passed    0.01 sec
 2/12 Test  #2: b ........***Failed    0.01 sec
      Test  #2: b ........   Passed    0.01 sec
 3/12 Test  #3: c ........***Skipped   0.01 sec
 4/12 Test  #4: d ........***Timeout  10.01 sec
      Test  #4: d ........***Timeout  10.01 sec

92% tests passed, {failed} tests failed out of 12
"""
SECOND = """run-tests: what failed runs again, with a sound device that holds 140 ms
1/1 Test #4: d .........{end}    0.01 sec

{percent}% tests passed, {failed} tests failed out of 1
"""
HEAD = "| System | What | Tests | Passed | Passed at the second try | Skipped | Failed | Minutes | Date | Commit |"


class Everywhere(standins.ScriptTest):
    def setUp(self):
        super().setUp()
        self.take("test-everywhere")
        self.stand_in("bin/git", "echo abc1234\n")
        self.stand_in("scripts/package", 'echo "package $*" >>"$STATE/calls"\n')
        self.stand_in("scripts/portable-test", 'echo "portable-test $*" >>"$STATE/calls"\n')
        self.ctest_says(FIRST.format(failed=1) + SECOND.format(end="   Passed", percent=100, failed=0))

    def ctest_says(self, output, status=0):
        (self.root / "output").write_text(output)
        self.stand_in("scripts/test-elsewhere", 'echo "${LYRABOX_TEST_SOUND_SERVER:-}${LYRABOX_TEST_DISPLAY:-} $*" '
                      f'>>"$STATE/calls"\ncat "$STATE/output"\nexit {status}\n')

    def everywhere(self, *arguments, **variables):
        environment = {"PATH": f"{self.root / 'bin'}:/usr/bin:/bin", "STATE": str(self.root), **variables}
        return subprocess.run([shutil.which("python3"), self.root / "scripts/test-everywhere", *arguments], text=True,
                              capture_output=True, check=False, env=environment, timeout=60)

    def rows(self):
        """The cells of the kept table without those of time."""
        lines = self.lines("build/everywhere/table.md")
        self.assertEqual(lines[0], HEAD)
        return [[cell.strip() for cell in line.strip("|").split("|")][:-3] for line in lines[2:]]

    def test_every_row_is_run_on_both_systems_with_its_own_switch(self):
        self.assertEqual(self.everywhere().returncode, 0)
        self.assertEqual(self.lines("calls"), [
            "package --portable",
            " debian-12", r"pipewire debian-12 -R ^device\.", r"wayland debian-12 -R ^program\.", "portable-test debian-12",
            " debian-13", r"pipewire debian-13 -R ^device\.", r"wayland debian-13 -R ^program\.", "portable-test debian-13"])
        self.assertEqual(len(self.rows()), 8)

    def test_tests_that_passed_at_the_second_try_are_counted_as_such(self):
        self.assertEqual(self.everywhere("debian-12/x").returncode, 0)
        self.assertEqual(self.rows(), [["Debian 12", "X and PulseAudio: every suite", "12", "9", "2", "1", "0"]])

    def test_what_fails_in_the_end_is_a_failure(self):
        self.ctest_says(FIRST.format(failed=1) + SECOND.format(end="***Failed", percent=0, failed=1), status=8)
        result = self.everywhere("debian-12/x")
        self.assertEqual((result.returncode, result.stderr), (1, "test-everywhere: failed: debian-12/x\n"))
        self.assertEqual(self.rows()[0][2:], ["12", "9", "1", "1", "1"])

    def test_a_system_that_cannot_be_built_is_a_failure_without_counts(self):
        self.ctest_says("test-elsewhere: debootstrap failed\n", status=1)
        self.assertEqual(self.everywhere("debian-13/x").returncode, 1)
        self.assertEqual(self.rows()[0][2:], ["–", "no", "–", "–", "see the log"])

    def test_rows_of_earlier_runs_stay_in_the_table(self):
        self.everywhere("debian-13/wayland")
        result = self.everywhere("debian-12/portable")
        self.assertEqual([row[:2] for row in self.rows()], [["Debian 12", "the portable archive"],
                                                            ["Debian 13", "Wayland: the program suite"]])
        self.assertTrue(result.stdout.endswith((self.root / "build/everywhere/table.md").read_text()))

    def test_further_arguments_go_to_ctest_and_appear_in_the_row(self):
        self.everywhere("debian-12/x", "--", "-R", "engine")
        self.assertEqual(self.lines("calls"), [" debian-12 -R engine"])
        self.assertEqual(self.rows()[0][1], "X and PulseAudio: every suite -R engine")

    def test_without_an_archive_its_rows_fail(self):
        self.stand_in("scripts/package", "exit 1\n")
        result = self.everywhere("debian-12/portable")
        self.assertEqual(result.returncode, 1)
        self.assertIn("the archive could not be made", result.stderr)

    def test_through_sudo_the_archive_is_built_by_the_user(self):
        self.stand_in("bin/runuser", 'echo "runuser $1 $2" >>"$STATE/calls"\nshift 3\nexec "$@"\n')
        self.everywhere("debian-12/portable", SUDO_USER="ada", SUDO_UID=str(os.getuid()), SUDO_GID=str(os.getgid()))
        self.assertEqual(self.lines("calls"), ["runuser -u ada", "package --portable", "portable-test debian-12"])

    def test_an_unknown_row_is_refused(self):
        result = self.everywhere("debian-11")
        self.assertEqual((result.returncode, len(result.stderr.splitlines())), (1, 1))
        self.assertEqual(self.lines("calls"), [])


if __name__ == "__main__":
    standins.main()
