"""A private display and sound server, and the kernel's figures of a process that runs on them."""
import contextlib
import os
import pathlib
import plistlib
import shutil
import subprocess
import sys
import tempfile
import time

from .measuring import BUILD


def processor_seconds(pid):
    """A process's processor time so far: its main thread, and all others."""
    main, others = 0.0, 0.0
    for task in pathlib.Path(f"/proc/{pid}/task").iterdir():
        with contextlib.suppress(FileNotFoundError, ProcessLookupError):
            seconds = int((task / "schedstat").read_text().split()[0]) / 1e9
            if int(task.name) == pid:
                main += seconds
            else:
                others += seconds
    return main, others


def processor_share(pid, span):
    """Cores that a process keeps busy over `span` seconds: its main thread, and all others."""
    before, begin = processor_seconds(pid), time.monotonic()
    time.sleep(span)
    elapsed = time.monotonic() - begin
    return tuple((after - former) / elapsed for after, former in zip(processor_seconds(pid), before))


def used_processor_seconds(pid):
    """A process's processor time so far, with that of the threads that have ended."""
    fields = pathlib.Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()
    return sum(map(int, fields[11:13])) / os.sysconf("SC_CLK_TCK")


def resident_megabytes(pid):
    for line in pathlib.Path(f"/proc/{pid}/status").read_text().splitlines():
        if line.startswith("VmRSS:"):
            return int(line.split()[1]) * 1024 / 1e6
    return 0.0


class Desktop:
    """A virtual display, a session bus and a sound server without a device; use it in a with statement."""

    def __init__(self, window_manager=True, screen="1280x860"):
        self.window_manager, self.screen = window_manager, screen

    def __enter__(self):
        self.children = []
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="lyrabox-bench-"))
        self.env = dict(os.environ, HOME=str(self.folder), XDG_RUNTIME_DIR=str(self.folder),
                        PULSE_SERVER=f"unix:{self.folder}/native", QT_QPA_PLATFORM="xcb", LC_ALL="C.UTF-8",
                        DBUS_SESSION_BUS_ADDRESS=f"unix:path={self.folder}/bus")
        self.env.pop("WAYLAND_DISPLAY", None)
        try:
            self.start_servers()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for child in reversed(self.children):
            child.terminate()
            child.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def start_servers(self):
        self.start(["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
                    "-L", f"module-native-protocol-unix socket={self.folder}/native auth-anonymous=1",
                    "-L", "module-null-sink sink_name=nothing"])
        # Every program would start a bus if it found none. On a desktop there is one.
        self.start(["dbus-daemon", "--session", "--nofork", "--nopidfile", "--nosyslog",
                    f"--address={self.env['DBUS_SESSION_BUS_ADDRESS']}"])
        self.wait_for("a display", self.start_display)
        if self.window_manager:
            self.start(["openbox"])
        self.wait_for("the session bus", (self.folder / "bus").exists)
        self.wait_for("the sound server", lambda: self.call("pactl", "info").returncode == 0)

    def start_display(self):
        """Whether the display was started. Another one may have taken its number."""
        reading, writing = os.pipe()
        display = self.start(["Xvfb", "-screen", "0", f"{self.screen}x24", "-nolisten", "tcp", "-displayfd",
                              str(writing)], pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as pipe:
            number = pipe.readline().strip()  # with its line feed; otherwise the server gets SIGPIPE
        self.env["DISPLAY"] = f":{number}"
        if not number:
            self.stop(display)
        return number != ""

    def start(self, command, env=None, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, **options):
        child = subprocess.Popen(command, env=env or self.env, stdin=stdin, stdout=stdout, stderr=subprocess.DEVNULL,
                                 **options)
        self.children.append(child)
        return child

    def stop(self, child):
        self.children.remove(child)
        child.terminate()
        child.wait()

    def call(self, *command):
        return subprocess.run(command, env=self.env, capture_output=True, text=True, check=False)

    def wait_for(self, what, condition, pause=0.05):
        end = time.monotonic() + 30
        while time.monotonic() < end:
            if condition():
                return
            time.sleep(pause)
        sys.exit(f"bench: waited for {what} in vain")

    def wait_for_sound(self):
        self.wait_for("sound", lambda: "Corked: no" in self.call("pactl", "list", "sink-inputs").stdout)

    def home(self, name, folder=None, defaults=()):
        """The environment of a program with a home of its own that remembers `folder` and has these `defaults`."""
        home = self.folder / name
        shutil.rmtree(home, ignore_errors=True)
        env = dict(self.env, HOME=str(home), XDG_CONFIG_HOME=f"{home}/config", XDG_DATA_HOME=f"{home}/data",
                   XDG_CACHE_HOME=f"{home}/cache")
        home.mkdir()
        if folder:
            (home / "data/Lyrabox").mkdir(parents=True)
            (home / "config/Lyrabox").mkdir(parents=True)
            with open(home / "data/Lyrabox/Folders.plist", "wb") as out:
                plistlib.dump([str(folder)], out)
            lines = ["[General]", "lastTab=1", f"folderPath={folder}", *defaults]
            (home / "config/Lyrabox/Lyrabox.conf").write_text("\n".join(lines) + "\n", encoding="utf-8")
        return env

    def program(self, env):
        """Starts the program and waits until its window has the focus."""
        child = self.start([BUILD / "lyrabox"], env)
        self.call("xdotool", "search", "--sync", "--onlyvisible", "--name", "^Lyrabox$", "windowfocus")
        return child

    def keys(self, *keys):
        self.call("xdotool", "key", *keys)
