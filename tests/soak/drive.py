#!/usr/bin/env python3
# Long because it is one program: every action and what must be true afterwards.
"""Uses the program like a restless musician, ten actions a second, and checks it after each one.

drive.py PROGRAM MINUTES [SEED [FIRST]]

PROGRAM is lyrabox_soak of a build: the program with a probe on its standard streams (see Probe.h). It runs on a virtual
display with a window manager, a private sound server with two sinks, and a home of its own. Mouse and keys come through
the display server. Action number N depends only on the seed and N: the same seed gives the same actions, and a run
that starts at action FIRST repeats the end of a longer one. The target of a click still depends on timing.

A fault ends the run with status 1. The seed and the last 50 actions are printed.
"""
import collections
import csv
import datetime
import json
import os
import pathlib
import plistlib
import random
import re
import resource
import select
import shutil
import signal
import statistics
import subprocess
import sys
import tempfile
import time

PERIOD = 0.1
PATIENCE = 30.0  # seconds without an answer; decoding is slow in a sanitizer's build
DEVICE_SETTLE = 3.0  # seconds after a change of devices during which a stream may starve
# The machine is to blame for an underrun if a processor was kept from its work for this many seconds
# around it. A server that asks for twice as much as usual still has 8.7 ms to play, and a callback
# may take half of that.
STANDSTILL, BEFORE, AFTER = 0.004, 0.15, 0.05
SETTLE = 3.0  # seconds until animations and coalesced updates must be complete
CHECK_FILES_EVERY = 50
RESTART_EVERY = 9000  # a quarter of an hour
SAMPLE_EVERY = 20
WARM_UP = 600  # actions before memory is measured
HEAP_GROWTH = 6.0  # MB that the heap may grow after the warm-up, without the decoded songs
RESIDENT_GROWTH = 64.0  # MB
SINKS = ("a", "b")

# Harmless messages of Qt or a library on the standard error. All others of severity "warning" and
# above are failures.
HARMLESS = (
    "Unable to read settings file",  # expected
    "libpng warning",
)

KEYS = (
    ["space"] * 6 + ["l"] * 4 + ["ctrl+r", "ctrl+Right", "ctrl+Left"] * 2 + ["equal", "minus", "0", "bracketright",
    "bracketleft", "backslash"] * 2 + ["ctrl+Up", "ctrl+Down"] + ["ctrl+s", "ctrl+shift+s", "ctrl+j", "ctrl+f"]
    + ["ctrl+1"] * 4 + ["ctrl+2"] * 2 + ["Tab", "shift+Tab", "Return", "Up", "Down", "Home", "End", "Prior", "Next"]
    + ["Escape"] * 6 + ["Left", "Right", "Delete", "BackSpace", "ctrl+a", "F1", "ctrl+o", "F10", "Menu"])
TEXTS = ("75", "100", "-3", "12,5", "0", "nan", "1e9", "abc", "a", "oboe", "ü", "  ", "-", "Song 3", "New", "<b>x</b>")
CLICKED = (
    ["playPauseButton", "loopButton", "shuffleButton", "playbackSpeedMatrix", "playbackPitchMatrix"] * 3
    + ["seekBackwardButton", "seekForwardButton", "navigationView", "navigationView", "navigationView", "tabSelector",
       "addRemoveButtons", "addRemoveButton", "okButton", "okButton", "searchField", "playbackSpeedTextField",
       "playbackPitchTextField", "settingsPopup", "presetTableView", "presetTableView", "presetTableView",
       "stepControls", "stepControls", "boxes", "inputField", "albumArtImageView", "transportView", "titleField"])
SLID = (["outputVolumeSlider", "playbackSpeedSlider", "playbackPitchSlider", "navigationView", "splitView"]
        + [f"slider{band}" for band in range(10)])
# Held for a while. The display server sends the repeats.
HELD_KEYS = ("Left", "Right", "Down", "Up", "Return", "space", "BackSpace", "Delete", "equal", "bracketleft", "l", "0",
             "ctrl+Right", "ctrl+Left", "ctrl+Up", "ctrl+r", "ctrl+s", "shift+Right", "shift+Left")
# Keys of the practice pane, and how often each is pressed.
PRACTICE_KEYS = (
    ["k"] * 4 + ["m", "n", "p", "y", "u", "shift+u", "shift+n", "shift+p", "Return", "Delete"] + ["1", "2", "3", "4", "9"]
    + ["a", "s", "d", "f", "g", "h"] * 2 + ["alt+a", "alt+f", "shift+s", "shift+d", "shift+h"] + ["ctrl+z"] * 4
    + ["ctrl+shift+z"] * 2 + ["shift+k", "ctrl+shift+k", "z", "w", "shift+m", "F2", "l", "ctrl+h"]
    + ["c", "shift+c"] * 3 + ["r"] * 3 + ["x", "v"] * 2 + ["shift+r"] + ["e"] * 2 + ["o", "shift+t"])
# The commands of the beats, through the menu.
BEAT_COMMANDS = ("u", "h", "w", "v", "e", "l", "a", "r", "c")
# The same of the sound.
SOUND_COMMANDS = ("c", "o", "t", "b", "m", "l", "r", "s", "n")
LISTS = ("trackTableView", "folderOutlineView", "playlistOutlineView", "presetTableView")
ROW = 26
PANE_THREADS = 6  # of the practice pane; each begins with the first job of its kind, and stays


class Failure(Exception):
    pass


class Soundserver:
    """A private PulseAudio server whose log reports its underruns."""

    def __init__(self, folder, env):
        self.folder, self.env, self.process, self.log_read, self.begun = folder, env, None, 0, 0.0
        self.log = open(f"{folder}/pulse.log", "ab+")
        self.start()

    def start(self):
        sink = "module-null-sink sink_name={} rate={} channels=2 format=float32le"
        self.begun = time.monotonic()
        self.process = subprocess.Popen(
            ["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no", "--high-priority=yes",
             "--realtime=yes", "--log-level=debug", "--log-target=stderr", "--log-time=yes", "-L",
             sink.format("a", 44100), "-L", sink.format("b", 48000), "-L",
             f"module-native-protocol-unix socket={self.folder}/native auth-anonymous=1"],
            env=self.env, stdout=subprocess.DEVNULL, stderr=self.log)

    def kill(self):
        if self.process:
            self.process.kill()
            self.process.wait()
            self.process = None

    def pactl(self, *arguments):
        """Fails silently, because the server may not be running."""
        return subprocess.run(["pactl", *arguments], env=self.env, capture_output=True, text=True, timeout=PATIENCE,
                              check=False).stdout.strip()

    def new_underruns(self):
        """The times of the underruns logged since the last call, by the monotonic clock."""
        self.log.seek(self.log_read)
        text = self.log.read()
        self.log_read += len(text)
        times = re.findall(rb"^\(\s*([\d.]+)\|.*(?:Underrun on|Implicit underrun of) '", text, re.MULTILINE)
        return [self.begun + float(seconds) for seconds in times]


class Machine:
    """Records when the machine stalled (see stalls.py). Records nothing if real-time priority is not allowed."""

    def __init__(self, folder):
        self.path, self.read, self.stalls = f"{folder}/stalls", 0, []
        self.watch = subprocess.Popen([sys.executable, str(pathlib.Path(__file__).with_name("stalls.py")), self.path])
        time.sleep(0.5)
        if self.watch.poll() is not None:
            print("soak: no real-time priority here: underruns while the machine stands still count like all others")

    def look(self):
        if not os.path.exists(self.path):
            return
        with open(self.path, encoding="ascii") as file:
            file.seek(self.read)
            text = file.read()
        text = text[:text.rfind("\n") + 1]
        self.read += len(text)
        for line in text.splitlines():
            processor, due, late = line.split()
            self.stalls.append((processor, float(due), float(late)))

    def standstill(self, at):
        """How many seconds a processor was kept from its work around the time `at`."""
        kept = collections.Counter()
        for processor, due, late in self.stalls:
            if due <= at + AFTER and due + late >= at - BEFORE:
                kept[processor] += late
        return max(kept.values(), default=0.0)

    def end(self):
        self.watch.kill()
        self.watch.wait()


class Music:
    """The folders in the program. Songs from a pool appear in them, change and vanish."""

    def __init__(self, root):
        self.pool = pathlib.Path(root, "pool")
        self.shown = pathlib.Path(root, "home", "Music")
        self.pool.mkdir()
        tones = enumerate(("wav", "flac", "mp3", "ogg", "m4a", "flac", "mp3", "opus"))
        for number, extension in tones:
            seconds = (3, 40, 20, 90, 2, 240, 60, 12)[number]
            subprocess.run(["ffmpeg", "-loglevel", "error", "-f", "lavfi", "-i",
                            f"sine=frequency={220 + 55 * number}:sample_rate={(44100, 48000, 22050)[number % 3]}"
                            f":duration={seconds}", "-ac", str(1 + number % 2), "-metadata", f"title=Song {number}",
                            "-metadata", f"artist=Oboe {number % 3}", str(self.pool / f"{number}.{extension}")],
                           check=True)
        whole = (self.pool / "1.flac").read_bytes()
        (self.pool / "broken.flac").write_bytes(whole[:len(whole) // 3])
        (self.pool / "empty.mp3").write_bytes(b"")
        (self.pool / "text.wav").write_text("not a song")
        self.songs = sorted(self.pool.iterdir())
        for name in ("Alpha", "Beta", "Beta/Inner"):
            (self.shown / name).mkdir(parents=True)
            for number in range(5):
                self.put(self.shown / name, self.songs[number], f"start {number}")

    def put(self, folder, song, name):
        try:
            shutil.copyfile(song, folder / f"{name}{song.suffix}")
        except OSError:
            pass  # the folder has just been removed

    def folders(self):
        return sorted(path for path in [self.shown, *self.shown.rglob("*")] if path.is_dir())

    def files(self):
        return sorted(path for path in self.shown.rglob("*") if not path.is_dir())

    def act(self, dice):
        kind = dice.choice(("add", "add", "add", "remove", "remove", "rename", "truncate", "replace", "rewrite",
                            "folder", "drop folder", "rename folder", "fifo", "loop", "permission"))
        song, number = dice.choice(self.songs), dice.randrange(40)
        name = dice.choice((f"Song {number}", f"Ä {number}", f"{number} <b>&", "x" * 200, "\udcff\udcfe" + str(number)))
        folders, files = self.folders(), self.files()
        folder = folders[dice.randrange(1 << 30) % len(folders)]
        file = files[dice.randrange(1 << 30) % len(files)] if files else None
        try:
            if kind == "add" and len(files) < 120:
                self.put(folder, song, name)
            elif kind == "remove" and file and len(files) > 8:
                file.unlink()
            elif kind == "rename" and file:
                file.rename(folder / f"{name}{file.suffix}")
            elif kind == "truncate" and file and file.is_file():
                os.truncate(file, file.stat().st_size // 2)
            elif kind == "replace" and file:
                temporary = file.with_name(".new")
                shutil.copyfile(song, temporary)
                temporary.rename(file)
            elif kind == "rewrite" and file and file.is_file():
                shutil.copyfile(song, file)
            elif kind == "folder" and len(folders) < 20:
                (folder / f"Folder {number}").mkdir(exist_ok=True)
            elif kind == "drop folder" and folder != self.shown and len(folders) > 3:
                shutil.rmtree(folder, ignore_errors=True)
            elif kind == "rename folder" and folder != self.shown:
                folder.rename(folder.with_name(f"Renamed {number}"))
            elif kind == "fifo":
                os.mkfifo(folder / f"pipe {number}.mp3")
            elif kind == "loop":
                os.symlink("..", folder / f"up {number}")
            elif kind == "permission" and file:
                os.chmod(file, dice.choice((0o000, 0o644)))
        except OSError:
            pass
        return f"{kind}: {str(file)!a} in {str(folder)!a}"


class Soak:
    def __init__(self, program, seed, first, root):
        self.program, self.seed, self.first, self.root = program, seed, first, root
        self.children, self.child, self.state, self.held = [], None, {}, False
        self.recent = collections.deque(maxlen=50)
        self.samples, self.starts, self.modal_since, self.server_returns, self.modules = [], 0, None, None, []
        self.slowest = 0.0
        self.built_in = set()  # the ids of the presets that ship with the program
        self.underruns, self.device_underruns, self.stalled_underruns, self.device_changed = 0, 0, 0, 0.0
        self.seen = collections.Counter()  # number of checks that saw each state: a soak that never plays a song proves nothing
        self.errors = open(f"{root}/stderr", "ab+")
        self.errors_read = 0
        for name in ("home", "data", "config", "cache", "run", "bin"):
            os.mkdir(f"{root}/{name}", 0o700)
        # Requests of the program to open something in another program have no effect.
        opener = pathlib.Path(root, "bin", "xdg-open")
        opener.write_text("#!/bin/sh\n")
        opener.chmod(0o755)
        self.env = dict(os.environ, HOME=f"{root}/home", XDG_DATA_HOME=f"{root}/data",
                        XDG_CONFIG_HOME=f"{root}/config", XDG_CACHE_HOME=f"{root}/cache",
                        XDG_RUNTIME_DIR=f"{root}/run", PULSE_SERVER=f"unix:{root}/native",
                        PULSE_COOKIE=f"{root}/cookie", DBUS_SESSION_BUS_ADDRESS="disabled:", QT_QPA_PLATFORM="xcb",
                        QT_MESSAGE_PATTERN="[%{type}] %{message}", LC_ALL="C.UTF-8",
                        PATH=f"{root}/bin:{os.environ['PATH']}", http_proxy="", https_proxy="http://127.0.0.1:9")
        for name in ("WAYLAND_DISPLAY", "SESSION_MANAGER"):
            self.env.pop(name, None)
        self.sound = Soundserver(root, self.env)
        self.machine = Machine(root)
        self.start_display()
        self.music = Music(root)
        self.exports = pathlib.Path(root, "exports")
        self.exports.mkdir()
        os.makedirs(f"{root}/data/Lyrabox")
        os.makedirs(f"{root}/config/Lyrabox")
        with open(f"{root}/data/Lyrabox/Folders.plist", "wb") as out:
            plistlib.dump([str(self.music.shown)], out)
        pathlib.Path(root, "config/Lyrabox/Lyrabox.conf").write_text(
            f"[General]\nlastTab=1\nfolderPath={self.music.shown}/Alpha\nexportFolder={self.exports}\n"
            "exportFormat=opus\n")

    def start_display(self):
        reading, writing = os.pipe()
        self.children.append(subprocess.Popen(
            ["Xvfb", "-screen", "0", "1280x860x24", "-nolisten", "tcp", "-noreset", "-displayfd", str(writing)],
            pass_fds=[writing], stderr=subprocess.DEVNULL))
        os.close(writing)
        self.env["DISPLAY"] = ":" + os.read(reading, 16).decode().strip()
        self.children.append(subprocess.Popen(["openbox", "--sm-disable"], env=self.env, stdout=subprocess.DEVNULL,
                                              stderr=subprocess.DEVNULL))

    # The program.

    def start(self):
        if self.server_returns is not None:  # without a server the program would not start
            self.sound.start()
            self.server_returns, self.device_changed = None, time.monotonic()
        for _ in range(200):
            if self.sound.pactl("info"):
                break
            time.sleep(0.05)
        # A core file falls into the working folder.
        self.child = subprocess.Popen([self.program], env=self.env, cwd=self.root, stdin=subprocess.PIPE,
                                      stdout=subprocess.PIPE, stderr=self.errors)
        os.set_blocking(self.child.stdout.fileno(), False)
        self.starts += 1
        begin = time.monotonic()
        while "MainWindow" not in self.ask("state")["targets"]:
            if time.monotonic() - begin > PATIENCE:
                raise Failure("the window does not come")
            time.sleep(0.05)
        stored = self.stored_presets()
        self.ask("settings")
        lost = [name for key, name in stored.items() if key not in self.stored_presets()]
        if lost:
            raise Failure(f"presets that a start has lost: {lost}")

    def stored_presets(self):
        """The names of the presets in the settings file, keyed by id."""
        try:
            content = pathlib.Path(self.root, "data/Lyrabox/EQPresets.plist").read_bytes()
        except FileNotFoundError:
            return {}
        return {preset["id"]: preset["name"] for preset in plistlib.loads(content)}

    def ask(self, question):
        begin = time.monotonic()
        try:
            self.child.stdin.write(question.encode() + b"\n")
            self.child.stdin.flush()
        except BrokenPipeError:
            self.gone()
        line = b""
        while not line.endswith(b"\n"):
            left = PATIENCE - (time.monotonic() - begin)
            if left <= 0:
                raise Failure(f"the program does not answer\n{self.stack()}")
            if select.select([self.child.stdout], [], [], left)[0]:
                block = self.child.stdout.read()
                if not block:
                    self.gone()
                line += block
        self.slowest = max(self.slowest, time.monotonic() - begin)
        self.state = json.loads(line)
        return self.state

    def gone(self):
        status = self.child.wait(PATIENCE)
        if status != 0:
            raise Failure(f"the program has ended with {status}\n{self.core()}")
        raise StopIteration  # an action has chosen Quit

    def stack(self):
        done = subprocess.run(["gdb", "-batch", "-ex", "thread apply all bt 25", "-p", str(self.child.pid)],
                              capture_output=True, text=True, check=False) if shutil.which("gdb") else None
        return done.stdout[-12000:] if done else "(no gdb, no stack)"

    def core(self):
        cores = sorted(pathlib.Path(self.root).glob("core*"), key=os.path.getmtime)
        if not cores or not shutil.which("gdb"):
            return "(no core file or no gdb: no stack)"
        return subprocess.run(["gdb", "-batch", "-ex", "thread apply all bt 25", self.program, str(cores[-1])],
                              capture_output=True, text=True, check=False).stdout[-12000:]

    def restart(self, how):
        if how == "terminate":
            self.child.send_signal(signal.SIGTERM)
        try:
            if self.child.wait(PATIENCE) != 0:
                raise Failure(f"the program has ended with {self.child.returncode}\n{self.core()}")
        except subprocess.TimeoutExpired:
            raise Failure(f"the program does not end\n{self.stack()}") from None
        self.check_files()
        self.check_errors()
        self.start()

    # Mouse and keyboard.

    def xdotool(self, *arguments):
        subprocess.run(["xdotool", *map(str, arguments)], env=self.env, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, timeout=PATIENCE, check=False)

    def point(self, dice, target):
        """A point in a widget, or anywhere in a window if the widget is not on the screen."""
        across, down = dice.random(), dice.random()
        frame = self.state.get("targets", {}).get(target) or self.state.get("modal") or [0, 0, 1280, 860]
        return int(frame[0] + across * frame[2]), int(frame[1] + down * frame[3])

    def row(self, dice, target):
        across, row = dice.random(), dice.randrange(12)
        frame = self.state.get("targets", {}).get(target) or [20, 100, 300, 300]
        return int(frame[0] + across * frame[2]), int(frame[1] + min(row * ROW + 12, frame[3] - 2))

    # The actions. Each draws all its random numbers first, whatever the state is.

    def click(self, dice):
        target = dice.choice(CLICKED)
        x, y = self.point(dice, target)
        self.xdotool("mousemove", x, y, "click", 1)
        return f"click {target} {x},{y}"

    def click_row(self, dice):
        target, times = dice.choice(LISTS + ("trackTableView", "folderOutlineView")), dice.choice((1, 2, 2))
        x, y = self.row(dice, target)
        self.xdotool("mousemove", x, y, "click", "--repeat", times, "--delay", 20, 1)
        return f"click row {target} {x},{y} times {times}"

    def play(self, dice):
        """Plays one of the first songs in the song table."""
        row = dice.randrange(6)
        self.xdotool("key", "Escape", "ctrl+1")
        frame = self.state.get("targets", {}).get("trackTableView") or [300, 100, 300, 300]
        self.xdotool("mousemove", frame[0] + 60, frame[1] + min(row * ROW + 12, frame[3] - 2), "click", "--repeat", 2,
                     "--delay", 20, 1)
        return f"play row {row}"

    def click_anywhere(self, dice):
        window, button = dice.choice(("MainWindow", "MainWindow", "EqualizerWindow")), dice.choice((1, 1, 1, 2, 3))
        x, y = self.point(dice, window)
        self.xdotool("mousemove", x, y, "click", button)
        return f"click anywhere {x},{y} button {button}"

    def click_dialog(self, dice):
        across, down = dice.random(), dice.random()
        frame = self.state.get("popup") or self.state.get("modal")
        if not frame:
            return "no dialog"
        x, y = int(frame[0] + across * frame[2]), int(frame[1] + down * frame[3])
        self.xdotool("mousemove", x, y, "click", 1)
        return f"click dialog {x},{y}"

    def drag(self, dice):
        target = dice.choice(SLID)
        x, y = self.point(dice, target)
        to_x, to_y = self.point(dice, target)
        self.xdotool("mousemove", x, y, "mousedown", 1, "mousemove", (x + to_x) // 2, (y + to_y) // 2, "mousemove", to_x,
                     to_y, "mouseup", 1)
        return f"drag {target} {x},{y} to {to_x},{to_y}"

    def drag_header(self, dice):
        a, b = dice.random(), dice.random()
        frame = self.state.get("targets", {}).get("trackTableView") or [300, 100, 300, 300]
        self.xdotool("mousemove", int(frame[0] + a * frame[2]), frame[1] - 12, "mousedown", 1, "mousemove",
                     int(frame[0] + b * frame[2]), frame[1] - 12, "mouseup", 1)
        return f"drag header {a:.3f} to {b:.3f}"

    def click_header(self, dice):
        across = dice.random()
        frame = self.state.get("targets", {}).get("trackTableView") or [300, 100, 300, 300]
        self.xdotool("mousemove", int(frame[0] + across * frame[2]), frame[1] - 12, "click", 1)
        return f"click header {across:.3f}"

    def hold(self, dice):
        """Presses a seek button and holds it during some actions."""
        target = dice.choice(("seekBackwardButton", "seekForwardButton", "navigationView", "outputVolumeSlider"))
        x, y = self.point(dice, target)
        self.xdotool("mouseup", 1, "mousemove", x, y, "mousedown", 1)
        self.held = True
        return f"hold {target} {x},{y}"

    def let_go(self, dice):
        self.xdotool("mouseup", 1, "keyup", "Left", "keyup", "Right")
        self.held = False
        return "let go"

    def press_long(self, dice):
        """Holds a key for several repeats and releases it."""
        keys, rests = dice.choice(HELD_KEYS).split("+"), dice.uniform(0.4, 1.2)
        self.xdotool("keydown", *keys) if len(keys) == 1 else self.xdotool("keydown", keys[0], "keydown", keys[1])
        time.sleep(rests)
        for key in reversed(keys):
            self.xdotool("keyup", key)
        return f"press {'+'.join(keys)} for {rests:.1f} s"

    def ask_behind(self, dice):
        """Opens the question whether to remove a preset or folder, and then does something else."""
        kind, row = dice.choice(("preset", "preset", "folder")), dice.randrange(3)
        event = dice.choice(("wheel", "wheel", "second folder", "second song", "ctrl+Right", "ctrl+1", "ctrl+2",
                             "ctrl+w", "ctrl+o", "space", "nothing", "files"))
        band, name = dice.randrange(10), dice.choice(("Hall", "Stage", "New"))
        answer = dice.choice(("Return", "Return", "Escape", "leave"))
        song = self.music.songs[dice.randrange(len(self.music.songs))]
        if kind == "preset":
            # A preset of the user's, which is then selected.
            self.xdotool("key", "Escape", "ctrl+2")
            self.click_in("presetTableView", 30, 12)
            self.xdotool("key", "Insert", "type", "--delay", 1, name)
            self.xdotool("key", "Return", "Delete")
        else:
            self.xdotool("key", "Escape", "ctrl+1", "ctrl+b")
            self.click_in("folderOutlineView", 90, row * 24 + 12)
            self.xdotool("key", "Delete")
        self.ask("state")
        self.seen["a question"] += "okButton" in self.state["targets"]
        if event == "wheel":
            x, y = self.point(random.Random(band), f"slider{band}")
            self.xdotool("mousemove", x, y, "click", "--repeat", 2, "--delay", 1, 4 + band % 2)
        elif event.startswith("second"):
            self.hand_over(str(song if event == "second song" else self.music.shown))
        elif event == "files":
            self.music.act(random.Random(band))
        elif event == "ctrl+w" and kind == "folder":
            pass  # it would end the program
        elif event != "nothing":
            self.xdotool("key", event)
        self.check()
        if answer != "leave":
            self.xdotool("key", answer)
        return f"ask whether a {kind} is to go, {event}, {answer}"

    def click_in(self, target, across, down):
        frame = self.state.get("targets", {}).get(target) or [20, 100, 300, 300]
        self.xdotool("mousemove", frame[0] + across, frame[1] + min(down, max(frame[3] - 2, 0)), "click", 1)

    def try_out(self, question):
        state = self.ask(question)
        if state["trial"]:
            raise Failure("; ".join(state["trial"]))
        return question

    def normal(self, dice):
        del dice
        return self.try_out("normal")

    def own_order(self, dice):
        del dice
        return self.try_out("own order")

    def subfolders(self, dice):
        del dice
        return self.try_out("command Include Subfolders")

    def practice(self, dice):
        """Works on loops and markers; opens the pane first, or now and then closes it."""
        keys = [dice.choice(PRACTICE_KEYS) for _ in range(dice.randrange(1, 4))]
        drags, closes = dice.random() < 0.4, dice.random() < 0.03
        start, end, down, keeps = dice.random(), dice.random(), dice.random(), dice.random() < 0.5
        trains = dice.random() < 0.4
        wave = self.state.get("targets", {}).get("practiceWave")
        if wave is None or closes:
            self.xdotool("key", "Escape", "ctrl+1", "ctrl+3")
            return "open or close the practice pane"
        y = int(wave[1] + down * (wave[3] - 1))
        if drags:
            self.xdotool("mousemove", int(wave[0] + start * wave[2]), y, "mousedown", 1, "mousemove",
                         int(wave[0] + (start + end) / 2 * wave[2]), y, "mousemove", int(wave[0] + end * wave[2]), y,
                         "mouseup", 1)
            keys = ["k"] * keeps + keys + ["r"] * trains
        self.xdotool("key", *keys)
        return f"practice {'a drag and ' if drags else ''}{' '.join(keys)}"

    def sharing(self, dice):
        """Opens a shared practice file, good or broken, and answers what is asked; needs the pane."""
        kind, answer = dice.randrange(6), dice.choice(("accept", "decline", "nothing"))
        if self.state.get("targets", {}).get("practiceWave") is None:
            return "no shared file without the pane"
        begin = dice.randrange(0, 20)
        loops = [{"name": f"Lesson {n}", "from": f"0:{begin + n:02d}.00000", "to": f"0:{begin + n + 1:02d}.50000"}
                 for n in range(dice.randrange(1, 4))]
        content = (json.dumps({"lyrabox practice": 1, "song": {"title": "Lesson", "audio": "0" * 40}, "loops": loops}),
                   json.dumps({"lyrabox practice": 2, "loops": loops}), "{broken", "5.0\t2.5\tback\n7,5\t7,5\tmark\n",
                   "", json.dumps({"lyrabox practice": 1, "loops": [{"name": "n" * 999_999}]}))[kind]
        shared = pathlib.Path(self.env["HOME"]) / ("Shared.txt" if kind == 3 else "Shared.json")
        shared.write_text(content, encoding="utf-8")
        self.hand_over(str(shared))
        button = self.state.get("targets", {}).get({"accept": "sharingAccept", "decline": "sharingDecline"}.get(answer))
        if button is not None:
            self.xdotool("mousemove", button[0] + button[2] // 2, button[1] + button[3] // 2, "click", 1)
        return f"open a shared file of kind {kind}, {answer}"

    def beats(self, dice):
        """Taps along, types a tempo, moves beats, or chooses a command of the beats; needs the pane."""
        way, command = dice.random(), dice.choice(BEAT_COMMANDS)
        taps, delay = dice.choice((3, 8, 8, 12)), dice.choice((60, 180, 250))
        text, place, by = dice.choice(TEXTS), dice.random(), dice.randrange(-30, 31)
        wave = self.state.get("targets", {}).get("practiceWave")
        tempo = self.state.get("targets", {}).get("practiceTempo")
        if wave is None or tempo is None:
            return "no beats without the pane"
        if way < 0.3:
            self.xdotool("key", "--delay", delay, *["t"] * taps)
            return f"tap {taps} times"
        if way < 0.4:
            self.xdotool("mousemove", tempo[0] + 20, tempo[1] + tempo[3] // 2, "click", 1, "key", "ctrl+a", "type", text)
            self.xdotool("key", "Return")
            return f"type the tempo {text}"
        if way < 0.6:
            x, y = int(wave[0] + place * wave[2]), wave[1] + wave[3] - 4
            self.xdotool("mousemove", x, y, "mousedown", 1, "mousemove", x + by // 2, y, "mousemove", x + by, y,
                         "mouseup", 1)
            return "drag at the lower edge of the wave"
        self.xdotool("key", "alt+i", "b", command, "Escape", "Escape")
        return f"the command {command} of the beats"

    def channels(self, dice):
        """Drags balance or Centre, or chooses a command of the sound; needs the pane."""
        way, command, place = dice.random(), dice.choice(SOUND_COMMANDS), dice.random()
        targets = self.state.get("targets", {})
        slider = targets.get(dice.choice(("practiceBalance", "practiceCentre")))
        if targets.get("practiceWave") is None:
            return "no channels without the pane"
        if slider is not None and way < 0.5:
            x, y = int(slider[0] + place * (slider[2] - 1)), slider[1] + slider[3] // 2
            self.xdotool("mousemove", slider[0] + slider[2] // 2, y, "mousedown", 1, "mousemove", x, y, "mouseup", 1)
            return "drag balance or Centre"
        self.xdotool("key", "alt+i", "n", command, "Escape", "Escape")
        return f"the command {command} of the sound"

    def export(self, dice):
        """Exports a loop and cancels half of them, or begins to export the song; needs the pane and a song."""
        cancels, replaces, times = dice.random() < 0.5, dice.random() < 0.5, dice.choice(("1", "3", "99"))
        removes, every = dice.random() < 0.2, dice.random() < 0.2
        if self.state.get("targets", {}).get("practiceWave") is None or not self.state.get("frames"):
            return "no export without the pane and a song"
        if removes:
            for file in self.exports.iterdir():
                file.unlink(missing_ok=True)
        if not self.state["loops"]:
            cancels, every = True, False  # whole songs would take too long
        self.xdotool("key", "ctrl+e")
        if every:
            self.xdotool("key", "Right", "Right")
        else:
            self.xdotool("key", "Tab", "Tab", "type", times)
            self.xdotool("key", "Return", "shift+Tab")
        self.xdotool("key", "Return", *(["Tab", "space"] if replaces else ["Escape"]))
        if cancels:
            self.xdotool("key", "ctrl+e", "shift+Tab", "shift+Tab", "shift+Tab", "shift+Tab", "Home", *["Delete"] * 12)
        self.xdotool("key", "Escape")
        return f"export {'every loop' if every else times + ' times'}{', cancelled' if cancels else ''}"

    def hold_key(self, dice):
        key = dice.choice(("Left", "Right"))
        self.xdotool("keydown", key)
        self.held = True
        return f"hold key {key}"

    def wheel(self, dice):
        target = dice.choice(tuple(SLID) + LISTS)
        button, times = dice.choice((4, 5, 6, 7)), dice.randrange(1, 5)
        x, y = self.point(dice, target)
        self.xdotool("mousemove", x, y, "click", "--repeat", times, "--delay", 1, button)
        return f"wheel {target} {button} times {times}"

    def key(self, dice):
        key = dice.choice(KEYS)
        self.xdotool("key", key)
        return f"key {key}"

    def menu(self, dice):
        letter, down, end = dice.choice("fevpswh"), dice.randrange(12), dice.choice(("Return", "Return", "Escape"))
        if letter == "f" and end == "Return":
            down = min(down, 1)  # Quit has an action of its own
        self.xdotool("key", "--delay", 4, f"alt+{letter}", *["Down"] * down, end)
        return f"menu {letter} {down} {end}"

    def write(self, dice):
        target = dice.choice(("searchField", "playbackSpeedTextField", "playbackPitchTextField", "inputField",
                              f"box{dice.randrange(10)}"))
        text, end = dice.choice(TEXTS), dice.choice(("Return", "Return", "Tab", "Escape", "space"))
        x, y = self.point(dice, target)
        self.xdotool("mousemove", x, y, "click", 1, "key", "ctrl+a", "type", "--delay", 1, text)
        self.xdotool("key", end)
        return f"write {text} into {target}, {end}"

    def resize(self, dice):
        name = dice.choice(("^Lyrabox$", "^Equalizer"))
        width, height, x, y = dice.randrange(200, 1280), dice.randrange(150, 860), dice.randrange(200), dice.randrange(
            150)
        self.xdotool("search", "--onlyvisible", "--name", name, "windowsize", width, height, "windowmove", x, y)
        return f"resize {name} {width}x{height}+{x}+{y}"

    def minimize(self, dice):
        self.xdotool("search", "--onlyvisible", "--name", "^Lyrabox$", "windowminimize")
        time.sleep(PERIOD)
        self.xdotool("search", "--name", "^Lyrabox$", "windowmap", "windowactivate")
        return "minimize"

    def files(self, dice):
        return self.music.act(dice)

    def device(self, dice):
        kind = dice.choice(("default",) * 5 + ("suspend", "module", "unload", "mute", "kill"))
        sink, away = dice.choice(SINKS), dice.uniform(0.1, 2.5)
        if kind == "kill" and self.server_returns is None:
            self.sound.kill()
            self.modules = []
            self.server_returns = time.monotonic() + away
        elif kind == "default":
            self.sound.pactl("set-default-sink", sink)
        elif kind == "suspend":
            self.sound.pactl("suspend-sink", sink, "1")
            self.sound.pactl("suspend-sink", sink, "0")
        elif kind == "mute":
            self.sound.pactl("set-sink-mute", sink, "toggle")
        elif kind == "module" and len(self.modules) < 3:
            self.modules.append(self.sound.pactl("load-module", "module-null-sink", "sink_name=c", "rate=96000",
                                                 "channels=6"))
            self.sound.pactl("set-default-sink", "c")
        elif kind == "unload" and self.modules:
            self.sound.pactl("unload-module", self.modules.pop())
        return f"device {kind} {sink} {away:.1f}"

    def second(self, dice):
        """A second start passes its files to the first and ends."""
        kind = dice.choice(("nothing", "song", "folder"))
        song = dice.choice(self.music.songs)
        self.hand_over(*{"nothing": (), "song": (str(song),), "folder": (str(self.music.shown),)}[kind])
        return f"second start with {kind}"

    def hand_over(self, *arguments):
        done = subprocess.run([self.program, *arguments], env=self.env, stdin=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL, stderr=self.errors, timeout=PATIENCE, check=False)
        if done.returncode != 0:
            raise Failure(f"a second start has ended with {done.returncode}")

    def rest(self, dice):
        del dice
        return "rest"

    ACTIONS = (("click", 22), ("click_row", 16), ("play", 6), ("click_anywhere", 4), ("click_dialog", 5), ("drag", 10),
               ("drag_header", 1), ("click_header", 2), ("hold", 3), ("let_go", 6), ("hold_key", 2), ("press_long", 1),
               ("wheel", 5), ("key", 22), ("menu", 3), ("write", 6), ("resize", 2), ("minimize", 0.3), ("files", 8),
               ("device", 3), ("second", 0.2), ("practice", 12), ("beats", 4), ("channels", 4), ("export", 2), ("sharing", 1),
               ("ask_behind", 1), ("normal", 0.5), ("own_order", 0.5),
               ("subfolders", 0.3), ("rest", 3))

    def act(self, number):
        dice = random.Random(f"{self.seed}/{number}")
        name = dice.choices([a for a, _ in self.ACTIONS], [weight for _, weight in self.ACTIONS])[0]
        if name == "device" or self.server_returns is not None:
            self.device_changed = time.monotonic()
        if self.server_returns is not None and time.monotonic() >= self.server_returns:
            self.sound.start()
            self.server_returns = None
        return getattr(self, name)(dice)

    # The checks.

    def count_underruns(self):
        """Leaves out underruns of a moved stream, of a server that has just started and of a stall. The program does not cause them."""
        times = self.sound.new_underruns()
        self.machine.look()
        for at in times:
            if at - self.device_changed < DEVICE_SETTLE:
                self.device_underruns += 1
            elif (standstill := self.machine.standstill(at)) >= STANDSTILL:
                self.stalled_underruns += 1
            else:
                self.underruns += 1
                print(f"soak: an underrun at {self.recent[-1]}, {1000 * standstill:.1f} ms of standstill", flush=True)

    def told_underruns(self):
        stalls = self.machine.stalls
        return (f"{self.underruns} underruns, {self.device_underruns} at device changes and {self.stalled_underruns} as "
                f"the machine stood still ({len(stalls)} times, {sum(late for _, _, late in stalls):.1f} s)")

    def check(self):
        begin = time.monotonic()
        state = self.ask("state")
        self.seen.update(name for name, is_so in (
            ("a song loaded", state["frames"] > 0), ("playing", state["runs"]), ("looping", state["loops"]),
            ("a dialog", state["modal"]), ("a menu", state["popup"]), ("a popover", "okButton" in state["targets"]),
            ("the equalizer", "slider0" in state["targets"]), ("the practice pane", "practiceWave" in state["targets"]), ("kept loops", state["kept"]),
            ("markers", state["markers"]), ("the history", state["history"]), ("the export window", state["exports"]), ("a loop called up", state["called up"]), ("the trainer", state["trains"]), ("channel tools", state["channels"]), ("no sound server", self.server_returns is not None))
            if is_so)
        while state["broken"]:
            # Animations may wait for a held button or an open dialog, but never longer than this.
            if time.monotonic() - begin > SETTLE:
                raise Failure("; ".join(state["broken"]))
            time.sleep(0.1)
            state = self.ask("state")
        # A user leaves every dialog sooner or later.
        if not (state["modal"] or state["popup"]):
            self.modal_since = None
        elif self.modal_since is None:
            self.modal_since = begin
        elif begin - self.modal_since > 2.0:
            self.recent.append("     (Escape, out of a dialog)")
            self.xdotool("key", "Escape")

    def check_errors(self):
        self.errors.flush()
        text = pathlib.Path(f"{self.root}/stderr").read_text(errors="replace")
        new, self.errors_read = text[self.errors_read:], len(text)
        bad = [line for line in new.splitlines()
               if re.search(r"\[(warning|critical|fatal)\]|Sanitizer|runtime error|ASSERT|assertion|CRITICAL", line)
               and not any(harmless in line for harmless in HARMLESS)]
        if bad:
            raise Failure("the program complains: " + "\n".join(new.splitlines()[-60:] if any(
                "Sanitizer" in line or "runtime error" in line for line in bad) else bad[:10]))

    def check_files(self):
        """The settings sets from the files."""
        folder = pathlib.Path(self.root, "data/Lyrabox")
        stray = [path.name for path in folder.iterdir() if path.suffix not in (".plist", ".lock") and path.is_file()
                 and ".plist" in path.name]
        user, presets, folders = (plistlib.loads((folder / f"{name}.plist").read_bytes())
                                  for name in ("UserSettings", "EQPresets", "Folders"))

        def require(holds, what):
            if not holds:
                raise Failure(what)

        require(not stray, f"stray files next to the settings: {stray}")
        for key, identifier in (("sorts", "id"), ("songSettings", "inode")):
            names = [entry[identifier] for entry in user[key]]
            require(len(names) == len(set(names)), f"an {identifier} twice in {key}")
        require(all(not (e["key"] == "order" and e["ascending"]) for e in user["sorts"]), "a default sort is stored")
        require(all(not (e["speed"] == 100.0 and e["pitch"] == 0.0) for e in user["songSettings"]),
                "default song settings are stored")
        ids = [preset["id"] for preset in presets]
        require(len(ids) == len(set(ids)) and 0 in ids, "the presets' ids are not one each, or without the manual one")
        self.built_in = self.built_in or {preset["id"] for preset in presets if "persistent" in preset}
        require(self.built_in <= {preset["id"] for preset in presets if "persistent" in preset},
                "a preset that ships with the program is lost")
        require(all(len(p["levels"]) == 10 and all(-12 <= level <= 12 for level in p["levels"]) for p in presets),
                "a preset without ten levels within 12 dB")
        for path in folder.glob("Practice/*.json"):
            self.check_practice(path, require)
        history = folder / "Practice/History.csv"
        if history.exists():
            self.check_history(history, require)
        stray = [path.name for path in folder.glob("Practice/*") if path.suffix != ".json" and path != history
                 and not re.search(r"\.json\.(unreadable|changed)-\d+$", path.name)]
        require(not stray, f"stray files next to the practice files: {stray}")
        if self.child.poll() is not None:  # while a file gets its name, it has another one for a moment
            parts = [path.name for path in self.exports.iterdir() if path.suffix != ".opus" or path.stat().st_size == 0]
            require(not parts, f"parts of exports are left: {parts}")
        require(all(isinstance(path, str) and path for path in folders), "a folder without a path")
        require(len(folders) == len(set(folders)), "a folder twice")

    @staticmethod
    def check_practice(path, require):
        """A practice file, or the index, can be read and is in order."""
        content = json.loads(path.read_text(encoding="utf-8"))
        if path.name == "Index.json":
            return

        def frames(text):
            minutes, seconds = text.split(":")
            return int(minutes) * 60.0 + float(seconds)

        require(content["lyrabox practice"] == 1, f"{path.name} has another version")
        places = [frames(loop["from"]) for loop in content.get("loops", [])]
        require(places == sorted(places), f"the loops of {path.name} are not in order")
        require(all(frames(loop["from"]) < frames(loop["to"]) for loop in content.get("loops", [])),
                f"{path.name} has a loop without length")
        sound = content.get("sound", {})
        require(all(-100 <= sound.get(key, 0) <= 100 for key in ("balance", "centre", "tuning") if
                    sound.get(key) != "not clear"), f"{path.name} has an odd sound: {sound}")

    @staticmethod
    def check_history(path, require):
        """The history has whole lines in the order of the time, with sensible numbers."""
        with open(path, encoding="utf-8", newline="") as file:
            lines = list(csv.DictReader(file))
        require(all(len(line) == 10 and None not in line.values() for line in lines), "the history has a broken line")
        times = [datetime.datetime.fromisoformat(line["time"]) for line in lines]
        require(times == sorted(times), "the history is not in order")
        for line in lines:
            passes, missed, seconds = int(line["passes"]), int(line["missed"]), int(line["seconds"])
            require(0 <= missed <= passes and 10 <= float(line["speed"]) <= 200 and (passes > 0 or seconds >= 10),
                    f"the history has an odd line: {line}")

    def sample(self):
        pid = self.child.pid
        with open(f"/proc/{pid}/statm", encoding="ascii") as file:
            resident = int(file.read().split()[1]) * os.sysconf("SC_PAGE_SIZE") / 1e6
        songs = (self.state["frames"] * 8 + self.state["ready"]) / 1e6
        self.samples.append((self.starts, self.state["heap"] / 1e6, resident - songs,
                             len(os.listdir(f"/proc/{pid}/fd")), len(os.listdir(f"/proc/{pid}/task"))))

    def check_memory(self):
        """Compares the medians of the last third and the first third since the restart, after the warm-up."""
        mine = [s for s in self.samples if s[0] == self.starts][WARM_UP // SAMPLE_EVERY:]
        if len(mine) < 30:
            return
        third = len(mine) // 3
        for column, what, limit in ((1, "heap, MB", HEAP_GROWTH), (2, "resident set, MB", RESIDENT_GROWTH),
                                    (3, "open files", 12), (4, "threads", PANE_THREADS + 4)):
            early = statistics.median(s[column] for s in mine[:third])
            late = statistics.median(s[column] for s in mine[-third:])
            if late - early > limit and not (column < 3 and "san" in pathlib.Path(self.program).parent.name):
                raise Failure(f"{what}: {early:.1f} became {late:.1f}")

    def run(self, seconds):
        begin = time.monotonic()
        number = self.first
        self.start()
        while time.monotonic() - begin < seconds:
            next_action = time.monotonic() + PERIOD
            try:
                self.recent.append(f"{number:6} {self.act(number)}")
                self.check()
                self.recent[-1] += " | {frame:.0f} of {frames:.0f}{how}".format(
                    **self.state, how=" playing" if self.state["runs"] else "")
                self.count_underruns()
                if number % CHECK_FILES_EVERY == CHECK_FILES_EVERY - 1:
                    self.ask("settings")
                    self.check_files()
                    self.check_errors()
                if number % SAMPLE_EVERY == 0:
                    self.sample()
                if number % RESTART_EVERY == RESTART_EVERY - 1:
                    self.check_memory()
                    self.recent.append("     (ends and starts again)")
                    self.restart("terminate")
            except StopIteration:
                self.recent.append("     (has been ended, starts again)")
                self.restart("by itself")
            number += 1
            time.sleep(max(0.0, next_action - time.monotonic()))
            if number % 600 == 0:
                heap, resident = (self.samples[-1][1:3] if self.samples else (0, 0))
                print(f"soak: {number - self.first} actions, {(time.monotonic() - begin) / 60:.1f} min, heap "
                      f"{heap:.1f} MB, resident {resident:.0f} MB, {self.told_underruns()}", flush=True)
        self.check_memory()
        self.xdotool("mouseup", 1)
        self.child.send_signal(signal.SIGTERM)
        if self.child.wait(PATIENCE) != 0:
            raise Failure(f"the program has ended with {self.child.returncode}\n{self.core()}")
        self.check_files()
        self.check_errors()
        return number - self.first

    def end(self):
        if self.child and self.child.poll() is None:
            self.child.kill()
            self.child.wait()
        self.sound.kill()
        self.machine.end()
        for child in reversed(self.children):
            child.kill()
            child.wait()


def main():
    program, minutes = os.path.abspath(sys.argv[1]), float(sys.argv[2])
    seed = int(sys.argv[3]) if len(sys.argv) > 3 else random.randrange(1 << 30)
    first = int(sys.argv[4]) if len(sys.argv) > 4 else 0
    print(f"soak: {minutes:g} minutes, seed {seed}", flush=True)
    if "san" not in pathlib.Path(program).parent.name:  # a sanitizer reports by itself, and its core is huge
        resource.setrlimit(resource.RLIMIT_CORE, (resource.getrlimit(resource.RLIMIT_CORE)[1],) * 2)
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(128 + signal.SIGTERM))  # runs the cleanup
    status = 0
    with tempfile.TemporaryDirectory(prefix="soak", ignore_cleanup_errors=True) as root:
        os.chmod(root, 0o700)
        soak = Soak(program, seed, first, root)
        try:
            done = soak.run(minutes * 60.0)
            print(f"soak: {done} actions without a fault, {soak.starts} starts, slowest answer {soak.slowest:.2f} s, "
                  f"{soak.told_underruns()}")
            print("soak: seen at", ", ".join(f"{name} {count}" for name, count in soak.seen.most_common()))
        except Failure as failure:
            status = 1
            print("\n".join(soak.recent))
            print(pathlib.Path(root, "stderr").read_text(errors="replace")[-6000:])
            print({name: value for name, value in soak.state.items() if name != "targets"})
            print(f"soak: after the actions above: {failure}\nsoak: to repeat: scripts/soak {minutes:g} {seed}")
        finally:
            soak.end()
    sys.exit(status)


if __name__ == "__main__":
    main()
