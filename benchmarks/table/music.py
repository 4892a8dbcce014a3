"""Makes the test data: songs, a folder of tagged files, a music library. Kept in build/bench."""
import concurrent.futures
import os
import plistlib
import shutil
import subprocess

from .measuring import DATA, ROOT, tell

RATES = (44100, 48000)
CODECS = {
    "mp3": ("mp3", ["-c:a", "libmp3lame", "-b:a", "256k"]),
    "aac": ("m4a", ["-c:a", "aac", "-b:a", "256k"]),
    "flac": ("flac", ["-c:a", "flac"]),
    "vorbis": ("ogg", ["-c:a", "libvorbis", "-q:a", "6"]),
    "opus": ("opus", ["-c:a", "libopus", "-b:a", "160k"]),
}
SONG_SECONDS = 240
SHORT_SECONDS = 5
MASTER_SECONDS = 300


def ffmpeg(*arguments):
    subprocess.run(["ffmpeg", "-y", "-nostdin", "-loglevel", "error", *map(str, arguments)], check=True)


def made(path, make):
    """Returns `path`. If it does not exist, calls `make(path)`. An interrupted attempt is repeated."""
    if not path.exists():
        tell(f"making {path.relative_to(ROOT)}")
        DATA.mkdir(parents=True, exist_ok=True)
        half = path.with_name(f"half-{path.name}")
        if half.is_dir():
            shutil.rmtree(half)
        make(half)
        half.rename(path)
    return path


def master():
    """Five minutes of the demo band, with different hiss on each side, so that no codec finds silence or mono."""
    def make(path):
        demo = sorted(str(file) for file in (ROOT / "resources/demo").iterdir() if file.suffix != ".xml")
        band = DATA / "band.wav"
        inputs = [argument for file in demo for argument in ("-i", file)]
        ffmpeg(*inputs, "-filter_complex", f"concat=n={len(demo)}:v=0:a=1", "-ar", 44100, "-ac", 2, band)
        hiss = [argument for seed in (1, 2)
                for argument in ("-f", "lavfi", "-i", f"anoisesrc=color=pink:amplitude=0.03:seed={seed}:r=44100")]
        ffmpeg("-stream_loop", -1, "-i", band, *hiss, "-filter_complex",
               "[1][2]join=inputs=2:channel_layout=stereo[hiss];[0][hiss]amix=inputs=2:normalize=0",
               "-t", MASTER_SECONDS, "-sample_fmt", "s16", path)
        band.unlink()
    return made(DATA / "master.flac", make)


def song(codec, rate, seconds=SONG_SECONDS):
    """A song in one codec at one rate, and NAME.short to warm up with. Opus always uses 48,000 Hz and keeps the source's rate in its header."""
    suffix, options = CODECS[codec]

    def make(path):
        repeats = (seconds - 1) // MASTER_SECONDS
        ffmpeg("-stream_loop", repeats, "-i", master(), "-t", seconds,
               *(["-ar", rate] if codec != "opus" or rate == 48000 else []), *options, path)
    path = made(DATA / f"song-{rate}-{seconds}.{suffix}", make)
    short = path.with_name(path.name + ".short")
    if seconds != SHORT_SECONDS and not short.is_symlink():
        short.symlink_to(song(codec, rate, SHORT_SECONDS))
    return path


def songs():
    """{(codec, rate): file}"""
    master()
    kinds = [(codec, rate) for codec in CODECS for rate in RATES]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        return dict(zip(kinds, pool.map(lambda kind: song(*kind), kinds)))


def practice_song():
    """A song of five minutes, for measurements during playback."""
    return song("flac", 44100, MASTER_SECONDS)


def tones(songs, name):
    """A folder of MP3 songs {name: frequency in hertz, a number or an expression of the time t}: a loud tone, and the
    demo band quietly behind it, so that decoding takes as long as usual. Returns the files."""
    codec, options = CODECS["mp3"]

    def make(path):
        path.mkdir()
        for song, frequency in songs.items():
            ffmpeg("-i", master(), "-f", "lavfi", "-i", f"aevalsrc='0.5*sin(2*PI*t*({frequency}))':s=44100:c=mono",
                   "-filter_complex", "[0]volume=0.05[band];[1]pan=stereo|c0=c0|c1=c0[tone];"
                   "[band][tone]amix=inputs=2:normalize=0", "-t", SONG_SECONDS, "-ar", 44100, *options,
                   path / f"{song}.{codec}")
    return sorted(made(DATA / name, make).iterdir())


def folder(count):
    """`count` tagged files with a cover: mp3, m4a and flac in turn, in a folder with nothing else in it."""
    def make(path):
        path.mkdir()
        cover = DATA / "cover.jpg"
        ffmpeg("-f", "lavfi", "-i", "testsrc2=size=300x300", "-frames:v", 1, cover)
        templates = []
        for codec in ("mp3", "aac", "flac"):
            suffix, options = CODECS[codec]
            file = DATA / f"template.{suffix}"
            ffmpeg("-i", master(), "-i", cover, "-map", 0, "-map", 1, "-c:v", "copy", "-disposition:v", "attached_pic",
                   "-t", 5, "-metadata", "title=Title 00000 of a song", "-metadata", "artist=Artist 00000",
                   "-metadata", "album=Album 00000", *options, file)
            templates.append((suffix, file.read_bytes()))
            file.unlink()
        cover.unlink()
        for number in range(count):
            suffix, content = templates[number % len(templates)]
            for word, value in (("Title", number), ("Artist", number // 12), ("Album", number // 12)):
                content = content.replace(f"{word} 00000".encode(), f"{word} {value:05}".encode())
            (path / f"{number:05}.{suffix}").write_bytes(content)
    return made(DATA / f"folder-{count}", make)


def library(tracks, playlists=200, playlist_songs=500):
    """A music library in XML, similar to those that music applications write."""
    def make(path):
        entries = {"Major Version": 1, "Minor Version": 1, "Tracks": {}, "Playlists": []}
        for number in range(1, tracks + 1):
            entries["Tracks"][str(number)] = {
                "Track ID": number, "Name": f"Song number {number}", "Artist": f"Artist {number % 700}",
                "Album Artist": f"Artist {number % 700}", "Album": f"Album {number % 4000}", "Genre": "Jazz",
                "Kind": "MPEG audio file", "Size": 4_000_000 + number, "Total Time": 180_000 + number,
                "Track Number": number % 12, "Year": 1990 + number % 30, "Bit Rate": 256, "Sample Rate": 44100,
                "Play Count": number % 40, "Persistent ID": f"{number:016X}", "Track Type": "File",
                "Location": f"file://localhost/music/Artist%20{number % 700}/Song%20number%20{number}.mp3"}
        for number in range(max(1, playlists * tracks // 50_000)):
            items = [{"Track ID": (number * playlist_songs + i) % tracks + 1} for i in range(playlist_songs)]
            entries["Playlists"].append({"Name": f"Playlist {number}", "Playlist ID": 100_000 + number,
                                         "Playlist Persistent ID": f"{number:016X}", "Playlist Items": items})
        with open(path, "wb") as out:
            plistlib.dump(entries, out, sort_keys=False)
    return made(DATA / f"library-{tracks}.xml", make)
