#include "hostile/HostileBytes.h"
#include "hostile/HostileSongs.h"

#include <QBuffer>
#include <QImage>
#include <QtEndian>

#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::test {

namespace {

constexpr quint32 most = 0xffffffff;

QByteArray wave(quint16 channels, quint32 rate, quint16 bits, quint32 dataBytes, quint16 tag = 1)
{
    const quint32 frameBytes = quint32{channels} * bits / 8; // Numbers that are too large wrap
                                                             // around.
    return "RIFF" + little32(most) + "WAVEfmt " + little32(16) + little16(tag) +
           little16(channels) + little32(rate) + little32(rate * frameBytes) +
           little16(static_cast<quint16>(frameBytes)) + little16(bits) + "data" +
           little32(dataBytes) + QByteArray(4000, '\x11');
}

/// Replaces four bytes of `bytes`, `offset` bytes after the beginning of the first `mark`.
QByteArray patched(QByteArray bytes, const char *mark, qsizetype offset, const QByteArray &with)
{
    const qsizetype at = bytes.indexOf(mark);
    return at < 0 ? QByteArray() : bytes.replace(at + offset, with.size(), with);
}

/// A frame of an ID3v2.3 tag.
QByteArray frame(const char *name, const QByteArray &content)
{
    return name + big32(static_cast<quint32>(content.size())) + QByteArray(2, '\0') + content;
}

QByteArray id3(const QByteArray &frames, quint32 size)
{
    QByteArray sync;
    for (int shift = 21; shift >= 0; shift -= 7)
        sync += static_cast<char>(size >> shift & 0x7fU);
    return QByteArray("ID3\x03\0\0", 6) + sync + frames;
}

QByteArray id3(const QByteArray &frames)
{
    return id3(frames, static_cast<quint32>(frames.size()));
}

QByteArray picture(const QByteArray &image, const QByteArray &type = "image/png")
{
    return frame("APIC", QByteArray(1, '\0') + type + QByteArray("\0\3\0", 3) + image);
}

QByteArray flacBlock(int type, const QByteArray &content, bool isLast = false)
{
    return QByteArray(1, static_cast<char>(type | (isLast ? 0x80 : 0))) +
           big32(static_cast<quint32>(content.size())).mid(1) + content;
}

QByteArray vorbisComments(int count, int claimed)
{
    QByteArray text = little32(1) + "x" + little32(static_cast<quint32>(claimed));
    for (int i = 0; i < count; ++i) {
        const QByteArray comment = QByteArray::number(i, 36) + "=b";
        text += little32(static_cast<quint32>(comment.size())) + comment;
    }
    return text;
}

/// `flac` with other blocks after its first one.
QByteArray flacWith(const QByteArray &blocks)
{
    const QByteArray &song = soundBytes(u"flac");
    return song.left(42) + blocks + flacBlock(1, {}, true) + song.right(song.size() / 2);
}

QByteArray png(int width, int height, bool isCompressed)
{
    QImage image(isCompressed ? width : 8, isCompressed ? height : 8, QImage::Format_RGB32);
    image.fill(Qt::black);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    if (!isCompressed)
        bytes.replace(16, 8,
                      big32(static_cast<quint32>(width)) + big32(static_cast<quint32>(height)));
    return bytes;
}

} // namespace

HostileSongs absurdSongs()
{
    const QByteArray &m4a = soundBytes(u"m4a-aac");
    HostileSongs songs;
    for (const quint32 rate : {0U, 1U, 7U, 767999U, most}) {
        for (const quint16 channels : {0, 1, 2, 64, 65, 65535}) {
            for (const quint16 bits : {0, 1, 16, 65535})
                songs.push_back({u"%1-%2-%3.wav"_s.arg(rate).arg(channels).arg(bits),
                                 wave(channels, rate, bits, most)});
        }
    }
    for (int tag = 0; tag < 0x0180; tag += tag < 0x0080 ? 1 : 0x11)
        songs.push_back(
            {u"tag-%1.wav"_s.arg(tag), wave(2, 44100, 4, most, static_cast<quint16>(tag))});
    const QByteArray big64(8, '\x7f');
    songs.push_back({u"duration.m4a"_s, patched(m4a, "mdhd", 20, big32(most))});
    songs.push_back({u"timescale.m4a"_s, patched(m4a, "mdhd", 16, big32(1))});
    songs.push_back({u"no-timescale.m4a"_s, patched(m4a, "mdhd", 16, big32(0))});
    songs.push_back({u"samples.m4a"_s, patched(m4a, "stsz", 12, big32(most))});
    songs.push_back({u"same-samples.m4a"_s, patched(m4a, "stsz", 8, big32(1) + big32(0x7fffffff))});
    songs.push_back({u"times.m4a"_s,
                     patched(m4a, "stts", 8, big32(1) + big32(0x7fffffff) + big32(0x7fffffff))});
    songs.push_back({u"many-times.m4a"_s, patched(m4a, "stts", 8, big32(most))});
    songs.push_back({u"chunks.m4a"_s, patched(m4a, "stsc", 8, big32(most))});
    songs.push_back({u"offsets.m4a"_s, patched(m4a, "stco", 8, big32(0x0fffffff))});
    songs.push_back({u"edits.m4a"_s, patched(m4a, "elst", 8, big32(0x0fffffff))});
    songs.push_back(
        {u"length.flac"_s, patched(soundBytes(u"flac"), "fLaC", 21, "\xff\xff\xff\xff\xff")});
    songs.push_back(
        {u"rate.flac"_s, patched(soundBytes(u"flac"), "fLaC", 18, QByteArray("\0\0\1", 3))});
    songs.push_back(
        {u"frames.mp3"_s, patched(soundBytes(u"mp3"), "Info", 8, big32(most) + big32(most))});
    songs.push_back({u"preskip.opus"_s, patched(soundBytes(u"opus"), "OpusHead", 10, "\xff\xff")});
    songs.push_back({u"channels.opus"_s, patched(soundBytes(u"opus"), "OpusHead", 9, "\xff")});
    songs.push_back({u"frames.caf"_s, patched(soundBytes(u"caf"), "pakt", 12, big64 + big64)});
    songs.push_back({u"size.au"_s, patched(soundBytes(u"au"), ".snd", 4, big32(most))});
    songs.push_back({u"rate.au"_s, patched(soundBytes(u"au"), ".snd", 16, big32(1))});
    songs.push_back({u"channels.au"_s, patched(soundBytes(u"au"), ".snd", 20, big32(most))});
    songs.push_back({u"frames.aiff"_s, patched(soundBytes(u"aiff"), "COMM", 10, big32(most))});
    songs.push_back(
        {u"rate.aiff"_s, patched(soundBytes(u"aiff"), "COMM", 16, QByteArray(10, '\x7f'))});
    songs.push_back({u"frames.tta"_s, patched(soundBytes(u"tta"), "TTA1", 14, little32(most))});
    songs.push_back({u"rate.tta"_s, patched(soundBytes(u"tta"), "TTA1", 10, little32(1))});
    songs.push_back({u"frames.wv"_s, patched(soundBytes(u"wv"), "wvpk", 12, little32(0xfffffffe))});
    return songs;
}

HostileSongs bombs()
{
    const QByteArray &mp3 = soundBytes(u"mp3");
    const QByteArray many = [] {
        QByteArray frames;
        for (int i = 0; frames.size() < (30 << 20); ++i)
            frames += frame("TXXX", QByteArray("\0", 1) + QByteArray::number(i, 36) + '\0' + "b");
        return frames;
    }();
    QByteArray chapters;
    for (int i = 0; chapters.size() < (8 << 20); ++i)
        chapters += frame("CHAP", QByteArray::number(i, 36) + QByteArray(17, '\0'));
    QByteArray huge = QByteArray(30 << 20, 'x');
    huge.replace(0, 64, png(8, 8, true).left(64));

    HostileSongs songs;
    songs.push_back({u"tag-of-256-megabytes.mp3"_s,
                     id3(frame("TIT2", QByteArray(1, '\0') + "a"), 0x0fffffff) + mp3});
    songs.push_back({u"tag-of-256-megabytes-that-are-there.mp3"_s,
                     id3(frame("TIT2", QByteArray(1, '\0') + "a"), 0x0fffffff), qint64{300} << 20});
    songs.push_back({u"two-gigabytes-of-nothing.mp3"_s, mp3.left(600), qint64{2} << 30});
    songs.push_back(
        {u"two-gigabytes-of-nothing.flac"_s, soundBytes(u"flac").left(600), qint64{2} << 30});
    songs.push_back(
        {u"two-gigabytes-of-nothing.ogg"_s, soundBytes(u"ogg").left(600), qint64{2} << 30});
    songs.push_back(
        {u"two-gigabytes-of-nothing.aac"_s, soundBytes(u"aac").left(600), qint64{2} << 30});
    songs.push_back(
        {u"frame-of-gigabytes.mp3"_s, id3(QByteArray("TIT2\x7f\xff\xff\xff\0\0", 10), 1000) + mp3});
    songs.push_back({u"picture-of-gigabytes.mp3"_s,
                     id3(QByteArray("APIC\x7f\xff\xff\xff\0\0", 10), 1000) + mp3});
    songs.push_back({u"millions-of-frames.mp3"_s, id3(many) + mp3});
    songs.push_back({u"chapters.mp3"_s, id3(chapters) + mp3});
    songs.push_back({u"picture-of-30-megabytes.mp3"_s, id3(picture(huge)) + mp3});
    songs.push_back({u"comments.flac"_s, flacWith(flacBlock(4, vorbisComments(1500000, 1500000)))});
    songs.push_back({u"claimed-comments.flac"_s,
                     flacWith(flacBlock(4, vorbisComments(1, std::numeric_limits<int>::max())))});
    songs.push_back({u"padding.flac"_s, flacWith(flacBlock(1, QByteArray((1 << 24) - 1, '\0')))});
    songs.push_back({u"seek-points.flac"_s, flacWith(flacBlock(3, QByteArray(18 * 900000, '\1')))});
    songs.push_back({u"chapters.aiff"_s, soundBytes(u"aiff") + "ID3 " +
                                             big32(static_cast<quint32>(chapters.size() + 10)) +
                                             id3(chapters)});
    QByteArray claimed = flacBlock(6, QByteArray(15 << 20, '\0'));
    songs.push_back({u"picture.flac"_s, flacWith(claimed)});
    songs.push_back(
        {u"list.wav"_s, patched(soundBytes(u"wav"), "data", 0,
                                "LIST" + little32(most) + "INFOINAM" + little32(0x7ffffff0))});
    songs.push_back(
        {u"format.wav"_s, patched(soundBytes(u"wav"), "fmt ", 4, little32(0x7ffffff0))});
    songs.push_back(
        {u"atom.m4a"_s, patched(soundBytes(u"m4a-aac"), "ilst", -4, big32(0x7fffffff))});
    songs.push_back({u"long-atom.m4a"_s, patched(soundBytes(u"m4a-aac"), "moov", -4,
                                                 big32(1) + "moov" + QByteArray(8, '\x7f'))});
    songs.push_back({u"tag.ape"_s, mp3 + "APETAGEX" + little32(2000) + little32(0x7fffffff) +
                                       little32(0x7fffffff) + little32(0x80000000) +
                                       QByteArray(8, '\0')});
    for (const auto &[width, height] :
         {std::pair(65535, 65535), {2147483647, 2147483647}, {8192, 8192}, {0, 0}})
        songs.push_back({u"claims-%1x%2.mp3"_s.arg(width).arg(height),
                         id3(picture(png(width, height, false))) + mp3});
    songs.push_back({u"explodes.mp3"_s, id3(picture(png(8192, 8192, true))) + mp3});
    songs.push_back({u"is-large.mp3"_s, id3(picture(png(4000, 4000, true))) + mp3});
    return songs;
}

HostileSongs endlessSongs()
{
    HostileSongs songs;
    QByteArray nested;
    for (int i = 0; i < 100000; ++i)
        nested += big32(0x7fffffff) + "moov";
    const QByteArray type = big32(16) + "ftypM4A " + QByteArray(4, '\0');
    songs.push_back({u"nested-moov.m4a"_s, type + nested});
    songs.push_back(
        {u"nested-trak.m4a"_s, type + big32(0x7fffffff) + "moov" + nested.replace("moov", "trak")});
    songs.push_back({u"zero-atoms.m4a"_s, type + (big32(8) + "moov").repeated(200000)});
    songs.push_back(
        {u"endless-atom.m4a"_s, type + big32(0) + "moov" + big32(0) + "trak" + big32(0) + "mdia"});
    songs.push_back(
        {u"tracks.m4a"_s, type + big32(0x7fffffff) + "moov" +
                              (big32(16) + "trak" + big32(8) + "mdia").repeated(100000)});
    songs.push_back({u"items.m4a"_s,
                     type + big32(0x7fffffff) + "moov" + big32(0x7fffffff) + "udta" +
                         big32(0x7fffffff) + "meta" + big32(0) + big32(0x7fffffff) + "ilst" +
                         (big32(28) + "\xa9nam" + big32(20) + "data" + big32(1) + big32(0) + "name")
                             .repeated(300000)});
    QByteArray freeform;
    for (int i = 0; i < 150000; ++i) {
        const QByteArray name = QByteArray::number(i, 36).rightJustified(6, '0');
        freeform += big32(8 + 16 + 18 + 20) + "----" + big32(16) + "mean" + big32(0) + "mine" +
                    big32(18) + "name" + big32(0) + name + big32(20) + "data" + big32(1) +
                    big32(0) + "text";
    }
    songs.push_back({u"names.m4a"_s, type + big32(0x7fffffff) + "moov" + big32(0x7fffffff) +
                                         "udta" + big32(0x7fffffff) + "meta" + big32(0) +
                                         big32(static_cast<quint32>(freeform.size() + 8)) + "ilst" +
                                         freeform});
    const QByteArray &ogg = soundBytes(u"ogg-libvorbis");
    songs.push_back({u"chain.ogg"_s, ogg.repeated(50)});
    songs.push_back({u"beginnings.ogg"_s, ogg.left(58).repeated(50000)});
    QByteArray streams;
    for (quint32 i = 0; i < 5000; ++i)
        streams += ogg.left(14) + little32(i) + ogg.mid(18, 40);
    songs.push_back({u"streams.ogg"_s, streams});
    const QByteArray tag = id3({}, 0);
    songs.push_back({u"tags.mp3"_s, tag.repeated(400000) + soundBytes(u"mp3")});
    QByteArray chapter = frame("CHAP", QByteArray("a\0", 2) + QByteArray(16, '\0'));
    for (int i = 0; i < 2000; ++i)
        chapter = frame("CHAP", QByteArray("a\0", 2) + QByteArray(16, '\0') + chapter);
    songs.push_back({u"nested-chapters.mp3"_s, id3(chapter) + soundBytes(u"mp3")});
    const QByteArray ebml = soundBytes(u"mka").left(48);
    songs.push_back(
        {u"nested-tags.mka"_s,
         ebml +
             QByteArray("\x12\x54\xc3\x67\x01\xff\xff\xff\xff\xff\xff\xff", 12).repeated(100000)});
    songs.push_back(
        {u"nested-simple-tags.mka"_s,
         ebml +
             "\x12\x54\xc3\x67\x01\xff\xff\xff\xff\xff\xff\xff\x73\x73\x01\xff\xff\xff\xff\xff\xff"
             "\xff" +
             QByteArray("\x67\xc8\x01\xff\xff\xff\xff\xff\xff\xff", 10).repeated(100000)});
    songs.push_back(
        {u"chunks.wav"_s, soundBytes(u"wav").left(36) + ("LIST" + little32(0)).repeated(500000)});
    songs.push_back(
        {u"chunks.aiff"_s, soundBytes(u"aiff").left(12) + ("NAME" + big32(0)).repeated(500000)});
    songs.push_back({u"names.aiff"_s,
                     soundBytes(u"aiff").left(12) + ("NAME" + big32(2) + "ab").repeated(200000)});
    songs.push_back({u"chunks.caf"_s,
                     soundBytes(u"caf").left(8) + ("free" + QByteArray(8, '\0')).repeated(200000)});
    return songs;
}

HostileSongs disguises(const QString &secret)
{
    const QByteArray path = secret.toUtf8();
    const QByteArray url = "file://" + path;
    const QByteArray web = "http://127.0.0.1:9/song.mp3";
    const QByteArray media = "#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXTINF:1,\n";
    const std::vector<std::pair<QString, QByteArray>> lists = {
        {u"m3u"_s, "#EXTM3U\n#EXTINF:1,Song\n" + path + '\n' + web + '\n'},
        {u"m3u8"_s, media + url + "\n#EXT-X-ENDLIST\n"},
        {u"web"_s, media + web + "\n#EXT-X-ENDLIST\n"},
        {u"key"_s,
         "#EXTM3U\n#EXT-X-KEY:METHOD=AES-128,URI=\"" + url + "\"\n#EXTINF:1,\n" + web + "\n"},
        {u"concat"_s, "ffconcat version 1.0\nfile '" + path + "'\nfile '" + web + "'\n"},
        {u"sdp"_s,
         "v=0\no=- 0 0 IN IP4 127.0.0.1\ns=x\nc=IN IP4 127.0.0.1\nm=audio 5004 RTP/AVP 0\n"},
        {u"mpd"_s, "<?xml version=\"1.0\"?><MPD xmlns=\"urn:mpeg:dash:schema:mpd:2011\" "
                   "type=\"static\"><Period>"
                   "<AdaptationSet mimeType=\"audio/mp4\"><Representation id=\"1\"><BaseURL>" +
                       url +
                       "</BaseURL>"
                       "</Representation></AdaptationSet></Period></MPD>"},
        {u"pls"_s, "[playlist]\nFile1=" + path + "\nNumberOfEntries=1\n"},
        {u"asx"_s, "<asx version=\"3.0\"><entry><ref href=\"" + web + "\"/></entry></asx>"},
        {u"ram"_s, "rtsp://127.0.0.1:9/song.ra\n" + web + "\n"},
        {u"reference"_s, "[Reference]\nRef1=" + web + "\n"},
        {u"cue"_s, "FILE \"" + path + "\" WAVE\nTRACK 01 AUDIO\nINDEX 01 00:00:00\n"},
        {u"ffmetadata"_s, ";FFMETADATA1\ntitle=x\n[CHAPTER]\nSTART=0\nEND=1\n"},
        {u"smil"_s, "<smil><body><audio src=\"" + url + "\"/></body></smil>"},
    };
    HostileSongs songs;
    for (const auto &[name, bytes] : lists) {
        songs.push_back({u"list."_s + name, bytes});
        for (const QString &extension :
             {u"mp3"_s, u"m4a"_s, u"wav"_s, u"flac"_s, u"ogg"_s, u"aac"_s})
            songs.push_back({name + u'.' + extension, bytes});
    }
    const QByteArray image = png(8, 8, true);
    for (const QString &name :
         {u"picture%03d.png"_s, u"picture001.png"_s, u"picture*.png"_s, u"concat:a|b.mp3"_s,
          u"http:..127.0.0.1.mp3"_s, u"pipe:0.mp3"_s, u"data:audio.mp3"_s, u"-i.mp3"_s,
          u"subfile,,start,0,end,0,,:a.mp3"_s, u"async:a.mp3"_s, u"tee:a.mp3"_s})
        songs.push_back({name, name.endsWith(u"mp3") ? soundBytes(u"mp3") : image});

    // Samples and pictures in other files.
    const QByteArray alias = "url " + QByteArray(4, '\0') + url + '\0';
    const QByteArray reference = big32(static_cast<quint32>(alias.size() + 4)) + alias;
    QByteArray elsewhere = soundBytes(u"m4a-aac");
    elsewhere.replace("url ", "alis")
        .replace(QByteArray("alis\0\0\0\1", 8), QByteArray("alis\0\0\0\0", 8));
    songs.push_back({u"data-reference.m4a"_s, elsewhere});
    const QByteArray data = "url " + big32(static_cast<quint32>(url.size() + 1)) + url + '\0';
    const QByteArray rdrf =
        big32(static_cast<quint32>(data.size() + 12)) + "rdrf" + QByteArray(4, '\0') + data;
    const QByteArray rmda = big32(static_cast<quint32>(rdrf.size() + 8)) + "rmda" + rdrf;
    const QByteArray rmra = big32(static_cast<quint32>(rmda.size() + 8)) + "rmra" + rmda;
    songs.push_back({u"movie.m4a"_s, big32(16) + "ftypqt  " + QByteArray(4, '\0') +
                                         big32(static_cast<quint32>(rmra.size() + 8)) + "moov" +
                                         rmra});
    songs.push_back({u"track.mov"_s, soundBytes(u"m4a-aac") + reference});
    songs.push_back(
        {u"link.mp3"_s, id3(picture(path, "-->") + frame("WXXX", QByteArray(2, '\0') + web) +
                            frame("LINK", "APIC" + url)) +
                            soundBytes(u"mp3")});
    songs.push_back(
        {u"drawing.mp3"_s,
         id3(picture("<svg xmlns=\"http://www.w3.org/2000/svg\" "
                     "xmlns:xlink=\"http://www.w3.org/1999/xlink\"><image xlink:href=\"" +
                         url + "\" width=\"9\" height=\"9\"/></svg>",
                     "image/svg+xml")) +
             soundBytes(u"mp3")});
    songs.push_back(
        {u"cover.flac"_s,
         flacWith(flacBlock(6, big32(3) + big32(3) + "-->" + big32(0) + QByteArray(16, '\0') +
                                   big32(static_cast<quint32>(url.size())) + url))});
    return songs;
}

} // namespace lyrabox::test
