"""Installs a build into a temporary folder and checks the installed files: test_installed_tree.py BUILD VERSION"""
import configparser
import ctypes
import os
import pathlib
import struct
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

BUILD, VERSION = sys.argv[1:3]
SOURCE = pathlib.Path(__file__).resolve().parents[2]
ID = "org.lyrabox.Lyrabox"


class InstalledTree(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.root = pathlib.Path(cls.folder.name)
        subprocess.run(["cmake", "--install", BUILD, "--prefix", cls.root], check=True, stdout=subprocess.DEVNULL)
        cls.share = cls.root / "share"

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def entry(self):
        parser = configparser.ConfigParser(interpolation=None)
        parser.optionxform = str
        parser.read(self.share / f"applications/{ID}.desktop")
        return parser["Desktop Entry"]

    def metainfo(self):
        return xml.etree.ElementTree.parse(self.share / f"metainfo/{ID}.metainfo.xml").getroot()

    def test_only_the_program_and_its_data_are_installed(self):
        files = {str(p.relative_to(self.root)) for p in self.root.rglob("*") if p.is_file()}
        strangers = {f for f in files if "lyrabox" not in f.lower()}
        self.assertEqual(strangers, set())
        self.assertIn("bin/lyrabox", files)
        self.assertIn("lib/lyrabox/lyrabox-decoding.so", files)
        self.assertIn("lib/lyrabox/lyrabox-encoding.so", files)
        self.assertIn("lib/lyrabox/lyrabox-midi.so", files)
        self.assertIn("lib/lyrabox/lyrabox-output.so", files)
        self.assertIn("share/man/man1/lyrabox.1", files)

    def test_only_the_modules_bring_the_codecs_and_the_sound_server(self):
        def needs(file):
            return subprocess.run(["ldd", self.root / file], text=True, capture_output=True, check=True).stdout
        for module, library in (("decoding", "libavcodec"), ("encoding", "libavcodec"), ("midi", "libasound.so"),
                                ("output", "libpulse.so")):
            self.assertIn(library, needs(f"lib/lyrabox/lyrabox-{module}.so"))
            self.assertNotIn("not found", needs(f"lib/lyrabox/lyrabox-{module}.so"))
            self.assertNotIn(library, needs("bin/lyrabox"))

    def test_the_installed_encoders_write_every_format(self):
        encoding = ctypes.CDLL(str(self.root / "lib/lyrabox/lyrabox-encoding.so"))
        encoding.lyraboxWritableSongFormats.restype = ctypes.c_uint32
        self.assertEqual(encoding.lyraboxWritableSongFormats(), 0b1111111)

    def test_every_icon_has_the_size_of_its_folder(self):
        for size in (16, 22, 24, 32, 48, 64, 128, 256, 512):
            data = (self.share / f"icons/hicolor/{size}x{size}/apps/{ID}.png").read_bytes()
            self.assertEqual(struct.unpack(">II", data[16:24]), (size, size))
        self.assertTrue((self.share / f"icons/hicolor/scalable/apps/{ID}.svg").exists())
        self.assertTrue((self.share / f"icons/hicolor/symbolic/apps/{ID}-symbolic.svg").exists())

    def test_the_menu_entry_starts_the_installed_program_with_urls(self):
        entry = self.entry()
        self.assertEqual(entry["Exec"], "lyrabox %U")
        self.assertEqual(entry["Icon"], ID)

    def test_the_menu_entry_offers_audio_and_no_folders(self):
        types = [t for t in self.entry()["MimeType"].split(";") if t]
        self.assertEqual(types, sorted(types, key=str.lower))
        self.assertTrue(types)
        for kind in types:
            self.assertTrue(kind.startswith("audio/"), kind)

    def test_the_desktop_knows_every_audio_type(self):
        mime = pathlib.Path("/usr/share/mime")
        known = set((mime / "types").read_text().split())
        known |= {line.split()[0] for line in (mime / "aliases").read_text().splitlines()}
        for kind in self.entry()["MimeType"].split(";"):
            if kind:
                self.assertIn(kind, known)

    def test_the_software_centre_names_this_version(self):
        info = self.metainfo()
        self.assertEqual(info.findtext("id"), ID)
        self.assertEqual(info.findtext("launchable"), f"{ID}.desktop")
        self.assertEqual(info.find("releases/release").get("version"), VERSION)

    def test_the_screenshots_are_among_the_documents(self):
        for image in self.metainfo().iter("image"):
            name = image.text.strip().rsplit("/", 1)[1]
            self.assertTrue((SOURCE / "docs/images" / name).exists(), name)

    def test_the_manual_and_the_help_know_the_same_options(self):
        manual = (self.share / "man/man1/lyrabox.1").read_text().replace("\\-", "-")
        self.assertIn(f"Lyrabox {VERSION}", manual)
        for option in ("--help", "--version"):
            self.assertIn(option, manual)
            self.assertIn(option, self.run_program("--help").stdout)

    def test_the_manual_and_the_readme_know_the_same_keys(self):
        manual = (self.share / "man/man1/lyrabox.1").read_text().replace("\\-", "-").replace("\\e", "\\")
        readme = (SOURCE / "README.md").read_text().split("## Keys", 1)[1].split("## ", 1)[0]
        rows = [line.split("|")[1:3] for line in readme.splitlines() if line.startswith("| ")][1:]
        self.assertTrue(rows)
        for keys, meaning in rows:
            self.assertIn(f'.B "{keys.strip()}"\n{meaning.strip()}\n', manual)

    def test_the_demo_music_is_where_the_program_looks(self):
        demo = self.share / "lyrabox/Demo"
        self.assertEqual({p.name for p in demo.iterdir()}, {p.name for p in (SOURCE / "resources/demo").iterdir()})

    def run_program(self, *arguments):
        environment = {k: v for k, v in os.environ.items() if k not in ("DISPLAY", "WAYLAND_DISPLAY")}
        environment.pop("QT_QPA_PLATFORM", None)
        environment["LC_ALL"] = "C.UTF-8"
        return subprocess.run([self.root / "bin/lyrabox", *arguments], env=environment, text=True,
                              capture_output=True, timeout=60, check=False)

    def test_help_and_version_need_no_display(self):
        for option in ("--help", "-h", "--version", "-v"):
            result = self.run_program(option)
            self.assertEqual((result.returncode, result.stderr), (0, ""), option)
        self.assertEqual(self.run_program("--version").stdout, f"Lyrabox {VERSION}\n")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
