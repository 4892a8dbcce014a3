"""Lyrabox, worked with keys and mouse, and mpv, worked through its socket, with the same actions.

Every action that changes the sound returns the time (time.monotonic()) right before it was sent.
"""
import json
import socket
import time

from .measuring import BUILD

SIZE = (1120, 720)
ROW_X, FIRST_ROW_Y, ROW_HEIGHT = 420, 117, 26  # the table of songs in a window of that size
CENTER = (640, 430)  # of the screen
STEP = 5  # seconds of song that a seek moves by


class Lyrabox:
    variables = {}

    def __init__(self, desktop, hands, songs, defaults=()):
        """`songs` are those of one folder, in their order."""
        self.desktop, self.hands = desktop, hands
        env = dict(desktop.home("keys", songs[0].parent, defaults), **self.variables)
        ground = hands.pixel(*CENTER)
        self.process = desktop.start([BUILD / "lyrabox"], env)
        desktop.wait_for("the first picture", lambda: hands.keyboard_owner() == self.process.pid and
                         hands.pixel(*CENTER) != ground, pause=0.002)
        self.window = 0

    def settle(self, size=SIZE):
        """Gives the window the size in which the rows are found."""
        self.window = int(self.desktop.call("xdotool", "getactivewindow").stdout)
        self.desktop.call("xdotool", "windowsize", "--sync", str(self.window), *map(str, size))
        time.sleep(1.0)

    def end(self):
        self.desktop.stop(self.process)

    def play_first(self):
        return self.hands.key("space")

    def play_or_pause(self):
        return self.hands.key("space")

    def next(self):
        return self.hands.key("ctrl+Right")

    def slow_down(self):
        self.desktop.keys(*["minus"] * 5)

    def seek(self):
        return self.hands.key("shift+Right")

    def point_at(self, song):
        self.hands.move(self.window, ROW_X, FIRST_ROW_Y + song * ROW_HEIGHT)
        time.sleep(0.1)

    def select(self, song):
        self.point_at(song)
        self.hands.click()

    def play(self, song):
        self.point_at(song)
        return self.hands.double_click()


class LyraboxWithoutReadySongs(Lyrabox):
    """Decodes no song before it is asked for."""
    variables = {"LYRABOX_READY_SONGS": "0"}


class Mpv:
    def __init__(self, desktop, _hands, songs):
        self.desktop = desktop
        self.songs = [str(song) for song in songs]
        self.path = desktop.folder / "mpv"
        self.path.unlink(missing_ok=True)
        self.process = desktop.start(["mpv", "--no-config", "--no-terminal", "--no-video", "--ao=pulse", "--idle",
                                      f"--input-ipc-server={self.path}"])
        self.socket = socket.socket(socket.AF_UNIX)
        desktop.wait_for("mpv", self.is_connected)
        self.answers = self.socket.makefile("rb")
        self.tell("get_property", "idle-active")

    def is_connected(self):
        return self.socket.connect_ex(str(self.path)) == 0

    def tell(self, *command):
        now = time.monotonic()
        self.socket.sendall(json.dumps({"command": command}).encode() + b"\n")
        while "request_id" not in json.loads(self.answers.readline()):  # events may come before the answer
            pass
        return now

    def settle(self):
        for song in self.songs:
            self.tell("loadfile", song, "append")

    def end(self):
        self.socket.close()
        self.desktop.stop(self.process)

    def play_first(self):
        return self.tell("loadfile", self.songs[0])

    def play_or_pause(self):
        return self.tell("cycle", "pause")

    def next(self):
        return self.tell("playlist-next")

    def slow_down(self):
        self.tell("af", "set", "rubberband=engine=finer")
        self.tell("set_property", "speed", 0.75)

    def seek(self):
        return self.tell("seek", STEP)

    def select(self, song):
        pass

    def play(self, song):
        return self.tell("playlist-play-index", song)
