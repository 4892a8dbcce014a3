"""Runs scripts/run and scripts/build with stand-ins and checks what they install, configure and start."""
import os
import shutil
import signal
import socket

import standins

CMAKE = """echo "$*" >>"$STATE/calls"
case $1 in
    --build) exit ;;
esac
mkdir -p build/release
for word in "$@"; do
    case $word in
        -D*) echo "${word#-D}" | sed 's/=/:UNINITIALIZED=/' >>build/release/CMakeCache.txt ;;
    esac
done
"""


class Run(standins.ScriptTest):
    def setUp(self):
        super().setUp()
        self.take("run")
        self.stand_in("scripts/setup", 'echo "$*" >"$STATE/sections"\n')
        self.stand_in("scripts/build", 'echo "$*" >"$STATE/built"\n')
        self.stand_in("build/release/lyrabox", 'echo "started ${PULSE_SERVER:-} ${DISPLAY:-}"\n')
        self.stand_in("bin/pactl", '[ -e "$STATE/sound" ]\n')
        self.stand_in("bin/pulseaudio", 'touch "$STATE/sound"\n')
        self.stand_in("bin/Xvfb", 'for last in "$@"; do :; done\necho 7 >"/dev/fd/$last"\n')
        for tool in ("openbox", "import"):
            self.stand_in(f"bin/{tool}", "")
        self.stand_in("bin/xdotool", "exit 1\n")

    def sections(self):
        return self.lines("sections")[0]

    def test_with_display_and_sound_server_it_installs_what_builds_and_runs(self):
        (self.root / "sound").touch()
        for variable in ("DISPLAY", "WAYLAND_DISPLAY"):
            result = self.run_script("run", **{variable: "of the desktop"})
            self.assertEqual((result.returncode, self.sections()), (0, "build run"), result.stderr)
            self.assertEqual(result.stdout, f"started  {'of the desktop' if variable == 'DISPLAY' else ''}\n")
            self.assertEqual(self.lines("built"), ["release lyrabox"])

    def test_without_a_sound_server_it_starts_one_that_plays_into_nothing(self):
        result = self.run_script("run", DISPLAY=":0")
        self.assertEqual((result.returncode, self.sections()), (0, "build run virtual"))
        self.assertIn("There is no sound server", result.stdout)
        self.assertRegex(result.stdout, r"started unix:\S+/native :0\n$")

    def test_without_a_display_it_starts_a_virtual_one(self):
        (self.root / "sound").touch()
        result = self.run_script("run")
        self.assertEqual((result.returncode, self.sections()), (0, "build run virtual"), result.stderr)
        self.assertIn("started  :7", result.stdout)

    def test_signals_while_it_ends_leave_no_display_behind(self):
        # The display stays until it is told to end. The program signals the script once more while the script waits for it.
        self.stand_in("bin/Xvfb", """echo $$ >"$STATE/display"
trap 'kill $waiting; echo display >>"$STATE/ended"; exit' TERM
for last in "$@"; do :; done
tail -f /dev/null & waiting=$!
echo 7 >"/dev/fd/$last"
wait
""")
        self.stand_in("build/release/lyrabox", """trap 'kill -TERM $PPID; kill $waiting; echo program >>"$STATE/ended"; exit' TERM
tail -f /dev/null & waiting=$!
echo started
wait
""")
        (self.root / "sound").touch()
        with self.start_script("run") as process:
            while process.stdout.readline() != "started\n":
                pass
            process.terminate()
            self.assertEqual(process.wait(timeout=60), 143)
        if "display" not in self.lines("ended"):
            os.kill(int(self.lines("display")[0]), signal.SIGTERM)
            self.fail("the display is left behind")
        self.assertEqual(self.lines("ended"), ["program", "display"])

    def hide_pactl(self):
        (self.root / "bin/pactl").unlink()
        self.only("dirname", "id")

    def test_without_pactl_the_socket_shows_that_there_is_a_sound_server(self):
        self.hide_pactl()
        (self.root / "pulse").mkdir()
        with socket.socket(socket.AF_UNIX) as server:
            server.bind(str(self.root / "pulse/native"))
            self.run_script("run", DISPLAY=":0", XDG_RUNTIME_DIR=str(self.root))
        self.assertEqual(self.sections(), "build run")

    def test_without_pactl_and_socket_there_is_no_sound_server(self):
        self.hide_pactl()
        self.stand_in("scripts/setup", 'echo "$*" >"$STATE/sections"\nexit 1\n')
        self.run_script("run", DISPLAY=":0", XDG_RUNTIME_DIR=str(self.root))
        self.assertEqual(self.sections(), "build run virtual")

    def test_if_no_private_server_is_available_the_program_starts_anyway(self):
        (self.root / "bin/pulseaudio").unlink()
        self.only("dirname", "id", "timeout", "sh")
        result = self.run_script("run", DISPLAY=":0")
        self.assertEqual(result.stdout, "There is no sound server: the program cannot play.\nstarted  :0\n")

    def test_if_packages_cannot_be_installed_nothing_is_built(self):
        self.stand_in("scripts/setup", "echo 'setup: no network' >&2\nexit 1\n")
        self.assert_one_line(self.run_script("run", DISPLAY=":0"), "no network")
        self.assertEqual(self.lines("built"), [])


class Build(standins.ScriptTest):
    def setUp(self):
        super().setUp()
        self.take("build")
        shutil.copy(standins.SOURCE / "CMakePresets.json", self.root)
        os.utime(self.root / "CMakePresets.json", (0, 0))
        self.stand_in("bin/cmake", CMAKE)
        self.only("dirname", "grep", "rm", "touch", "sed", "mkdir", "sh")

    def build(self, *arguments, **variables):
        """What cmake was called for: configuring, building."""
        (self.root / "calls").unlink(missing_ok=True)
        self.assertEqual(self.run_script("build", "release", *arguments, **variables).returncode, 0)
        return self.lines("calls")

    def test_the_program_alone_is_configured_without_tests(self):
        self.assertEqual(self.build("lyrabox"),
                         ["--preset release -DBUILD_TESTING=OFF", "--build --preset release --target lyrabox"])

    def test_a_build_of_everything_has_the_tests(self):
        self.build("lyrabox")
        self.assertEqual(self.build(), ["--preset release -DBUILD_TESTING=ON", "--build --preset release"])

    def test_a_folder_with_tests_keeps_them_when_the_program_is_built(self):
        self.build()
        self.assertEqual(self.build("lyrabox"), ["--build --preset release --target lyrabox"])

    def test_what_is_configured_is_not_configured_again(self):
        self.build("lyrabox", "-DLYRABOX_BENCHMARKS=ON")
        self.assertEqual(len(self.build("lyrabox", "-DLYRABOX_BENCHMARKS=ON")), 1)

    def test_another_option_configures_again(self):
        self.build("lyrabox")
        self.assertEqual(self.build("lyrabox", CI="true")[0], "--preset release -DLYRABOX_WERROR=ON")

    def test_other_presets_configure_again(self):
        self.build("lyrabox")
        os.utime(self.root / "CMakePresets.json", (4e9, 4e9))
        self.assertEqual(len(self.build("lyrabox")), 2)

    def test_a_configuration_that_failed_is_done_again(self):
        self.build("lyrabox")
        self.stand_in("bin/cmake", CMAKE + 'case $1 in --preset) exit 1 ;; esac\n')
        self.assertEqual(self.run_script("build", "release", "lyrabox", CI="true").returncode, 1)
        self.stand_in("bin/cmake", CMAKE)
        self.assertEqual(len(self.build("lyrabox", CI="true")), 2)


if __name__ == "__main__":
    standins.main()
