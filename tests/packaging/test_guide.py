"""Takes the settings to another machine as docs/guide.md describes, with the guide's own commands."""
import pathlib
import plistlib
import re
import shutil
import subprocess
import tempfile
import unittest

GUIDE = pathlib.Path(__file__).resolve().parents[2] / "docs/guide.md"


def commands():
    """The blocks of commands in the section, in their order."""
    section = GUIDE.read_text().split("## Take everything to another machine\n")[1].split("\n## ")[0]
    return [re.sub(r"^    ", "", block, flags=re.MULTILINE) for block in re.findall(r"(?:^    .*\n)+", section, re.MULTILINE)]


class AnotherMachine(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.old, self.new = (pathlib.Path(folder.name) / name for name in ("old", "new"))
        for home in (self.old, self.new):
            (home / "Music").mkdir(parents=True)
        self.music = self.old / "Music"
        # The last name would break a careless command.
        self.songs = ["a song.mp3", "Album & more/track 1.flac", "12 bars.ogg"]
        for name in self.songs:
            (self.music / name).parent.mkdir(exist_ok=True)
            (self.music / name).write_text(name)
        self.write_settings()

    def write_settings(self):
        data, config = self.old / ".local/share/Lyrabox", self.old / ".config/Lyrabox"
        data.mkdir(parents=True)
        config.mkdir(parents=True)
        entries = [{"inode": str((self.music / name).stat().st_ino), "speed": 50.0 + index, "pitch": 100.0}
                   for index, name in enumerate(self.songs)]
        entries.append({"inode": "7", "speed": 90.0, "pitch": 0.0})  # of a song that is gone
        self.sorts = [{"id": str(self.music), "key": "title", "ascending": False}, {"id": "123", "key": "artist", "ascending": True}]
        (data / "UserSettings.plist").write_bytes(plistlib.dumps({"sorts": self.sorts, "songSettings": entries}, sort_keys=False))
        (data / "Folders.plist").write_bytes(plistlib.dumps([str(self.music)]))
        (data / "EQPresets.plist").write_bytes(plistlib.dumps([{"id": 1, "name": "Mine", "levels": [0.0] * 10}]))
        (config / "Lyrabox.conf").write_text(f"[General]\nfolderPath={self.music}\n")

    @staticmethod
    def run_in(home, script):
        subprocess.run(["bash", "-eu", "-c", script], check=True, cwd=home,
                       env={"HOME": str(home), "PATH": "/usr/bin:/bin", "LC_ALL": "C.UTF-8"})

    def test_speeds_pitches_sorts_presets_and_folders_are_carried_over(self):
        write_down, carry_over, rename_home = commands()
        self.run_in(self.old, write_down)
        for path in sorted(self.music.rglob("*"), reverse=True):  # other numbers in another order
            copy = self.new / "Music" / path.relative_to(self.music)
            if path.is_file():
                copy.parent.mkdir(exist_ok=True)
                shutil.copy(path, copy)
        self.run_in(self.new, carry_over)
        self.run_in(self.new, rename_home.replace("/home/old", str(self.old)))

        data = self.new / ".local/share/Lyrabox"
        settings = plistlib.loads((data / "UserSettings.plist").read_bytes())
        speeds = {entry["inode"]: (entry["speed"], entry["pitch"]) for entry in settings["songSettings"]}
        for index, name in enumerate(self.songs):
            self.assertEqual(speeds[str((self.new / "Music" / name).stat().st_ino)], (50.0 + index, 100.0), name)
        self.assertEqual([entry["id"] for entry in settings["sorts"]], [str(self.new / "Music"), "123"])
        self.assertEqual(plistlib.loads((data / "Folders.plist").read_bytes()), [str(self.new / "Music")])
        self.assertEqual(plistlib.loads((data / "EQPresets.plist").read_bytes())[0]["name"], "Mine")
        self.assertIn(f"folderPath={self.new}/Music\n", (self.new / ".config/Lyrabox/Lyrabox.conf").read_text())
        self.assertEqual(sorted(path.name for path in (self.new / "Music").iterdir()),
                         sorted(path.name for path in self.music.iterdir() if not path.name.startswith("lyrabox-")))


if __name__ == "__main__":
    unittest.main()
