#include "hostile/HostileBytes.h"
#include "hostile/HostileSongs.h"

#include <array>
#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::test {

namespace {

/// Concatenates `make(0)`, `make(1)` and so on until `bytes` bytes are reached.
QByteArray filled(qsizetype bytes, const std::function<QByteArray(int)> &make)
{
    QByteArray all;
    all.reserve(bytes + 1000);
    for (int i = 0; all.size() < bytes; ++i)
        all += make(i);
    return all;
}

QByteArray before(const QByteArray &song, const char *mark, const QByteArray &inserted)
{
    const qsizetype at = song.indexOf(mark);
    return song.left(at) + inserted + song.mid(at);
}

// Ogg

quint32 checksum(const QByteArray &page)
{
    static const auto table = [] {
        std::array<quint32, 256> values{};
        for (quint32 i = 0; i < values.size(); ++i) {
            values[i] = i << 24;
            for (int bit = 0; bit < 8; ++bit)
                values[i] = values[i] << 1 ^ ((values[i] >> 31) != 0 ? 0x04c11db7U : 0U);
        }
        return values;
    }();
    quint32 sum = 0;
    for (const char byte : page)
        sum = sum << 8 ^ table[(sum >> 24) ^ static_cast<uchar>(byte)];
    return sum;
}

struct Packet {
    QByteArray bytes;
    QByteArray time;
};

std::vector<Packet> packetsOf(const QByteArray &song)
{
    std::vector<Packet> packets(1);
    for (qsizetype page = 0; page + 27 <= song.size();) {
        const qsizetype segments = static_cast<uchar>(song[page + 26]);
        qsizetype at = page + 27 + segments;
        for (qsizetype i = 0; i < segments; ++i) {
            const qsizetype length = static_cast<uchar>(song[page + 27 + i]);
            packets.back().bytes += song.mid(at, length);
            packets.back().time = song.mid(page + 6, 8);
            at += length;
            if (length < 255)
                packets.emplace_back();
        }
        page = at;
    }
    packets.pop_back();
    return packets;
}

/// Puts each packet on pages of its own.
QByteArray oggOf(const std::vector<Packet> &packets)
{
    QByteArray song;
    quint32 number = 0;
    for (const auto &[bytes, time] : packets) {
        QByteArray laces(bytes.size() / 255, '\xff');
        laces += static_cast<char>(bytes.size() % 255);
        for (qsizetype lace = 0; lace < laces.size(); lace += 255) {
            const QByteArray part = laces.mid(lace, 255);
            const bool ends = lace + 255 >= laces.size();
            const char flags = static_cast<char>((lace > 0 ? 1 : 0) | (number == 0 ? 2 : 0));
            QByteArray page = QByteArray("OggS\0", 5) + flags +
                              (ends ? time : QByteArray(8, '\xff')) + "song" + little32(number++) +
                              QByteArray(4, '\0') + static_cast<char>(part.size()) + part +
                              bytes.mid(lace * 255, part.size() * 255);
            song += page.replace(22, 4, little32(checksum(page)));
        }
    }
    return song;
}

QByteArray comments(qsizetype bytes)
{
    quint32 count = 0;
    const QByteArray entries = filled(bytes, [&](int i) {
        const QByteArray entry = QByteArray::number(i, 36) + "=b";
        ++count;
        return little32(static_cast<quint32>(entry.size())) + entry;
    });
    return little32(1) + "x" + little32(count) + entries;
}

QByteArray longComment(qsizetype bytes)
{
    return little32(1) + "x" + little32(1) + little32(static_cast<quint32>(bytes)) +
           "title=" + QByteArray(bytes - 6, 'v');
}

QByteArray vorbisWith(const QByteArray &text)
{
    std::vector<Packet> packets = packetsOf(soundBytes(u"ogg-libvorbis"));
    packets[1].bytes = "\x03vorbis" + text + '\1';
    return oggOf(packets);
}

QByteArray opusWith(const QByteArray &text)
{
    std::vector<Packet> packets = packetsOf(soundBytes(u"opus"));
    packets[1].bytes = "OpusTags" + text;
    return oggOf(packets);
}

QByteArray oggFlacWith(const QByteArray &text)
{
    std::vector<Packet> packets = packetsOf(soundBytes(u"ogg-flac"));
    packets[1].bytes = '\x04' + big32(static_cast<quint32>(text.size())).mid(1) + text;
    return oggOf(packets);
}

constexpr qsizetype partBytes = 60000; ///< Bytes of comments within a page.

QByteArray commentsWithinTheSound(qsizetype bytes)
{
    std::vector<Packet> packets = packetsOf(soundBytes(u"ogg-libvorbis"));
    const QByteArray part = "\x03vorbis" + comments(partBytes) + '\1';
    const std::vector<Packet> sound(packets.begin() + 3, packets.end() - 1);
    for (qsizetype i = 0; i < bytes / partBytes; ++i) {
        const Packet &packet = sound[static_cast<std::size_t>(i) % sound.size()];
        packets.insert(packets.end(), {{part, packet.time}, packet});
    }
    return oggOf(packets);
}

QByteArray chain(qsizetype bytes)
{
    const QByteArray link = vorbisWith(comments(partBytes));
    return link.repeated(bytes / link.size() + 1);
}

// Matroska

QByteArray element(const char *identifier, const QByteArray &content)
{
    const QByteArray size = content.size() < 127
                                ? QByteArray(1, static_cast<char>(0x80 | content.size()))
                                : '\x01' + big64(static_cast<quint64>(content.size())).mid(1);
    return identifier + size + content;
}

constexpr auto tags = "\x12\x54\xc3\x67";
constexpr auto tag = "\x73\x73";

QByteArray simpleTag(int i)
{
    return element("\x67\xc8",
                   element("\x45\xa3", QByteArray::number(i, 36)) + element("\x44\x87", "v"));
}

QByteArray matroskaBeginning()
{
    const QByteArray &song = soundBytes(u"mka");
    return song.left(song.indexOf("\x18\x53\x80\x67")) + "\x18\x53\x80\x67\x01" +
           QByteArray(7, '\xff');
}

/// Inserts elements before everything else in the song.
QByteArray matroskaWith(const QByteArray &elements)
{
    const QByteArray &song = soundBytes(u"mka");
    return matroskaBeginning() + elements + song.mid(song.indexOf("\x18\x53\x80\x67") + 12);
}

QByteArray matroskaWithMany(const char *identifier, qsizetype bytes, const QByteArray &child)
{
    return matroskaWith(element(identifier, child.repeated(bytes / child.size())));
}

/// Puts tags after the sound. The table at the beginning points to them.
QByteArray tagsAtTheEnd(qsizetype bytes)
{
    const QByteArray &song = soundBytes(u"mka");
    const QByteArray body = song.mid(song.indexOf("\x18\x53\x80\x67") + 12);
    const auto position = static_cast<quint32>(body.size() + 22);
    const QByteArray seek =
        element("\x4d\xbb", element("\x53\xab", tags) + element("\x53\xac", big32(position)));
    return matroskaBeginning() + element("\x11\x4d\x9b\x74", seek) + body +
           element(tags, element(tag, filled(bytes, simpleTag)));
}

// MP4

QByteArray atom(const char *name, const QByteArray &content)
{
    return big32(static_cast<quint32>(content.size() + 8)) + name + content;
}

QByteArray mp4With(const QByteArray &items)
{
    const QByteArray &song = soundBytes(u"m4a-aac");
    const QByteArray header = QByteArray(8, '\0') + "mdirappl" + QByteArray(9, '\0');
    const QByteArray data = atom(
        "udta", atom("meta", QByteArray(4, '\0') + atom("hdlr", header) + atom("ilst", items)));
    const qsizetype at = song.indexOf("moov") - 4;
    const auto length = qFromBigEndian<quint32>(song.constData() + at);
    return song.left(at) + big32(length + static_cast<quint32>(data.size())) +
           song.mid(at + 4, length - 4) + data + song.mid(at + length);
}

QByteArray mp4Data(const QByteArray &text)
{
    return atom("data", big32(1) + big32(0) + text);
}

QByteArray freeform(int i)
{
    return atom("----", atom("mean", big32(0) + "mine") +
                            atom("name", big32(0) + QByteArray::number(i, 36)) + mp4Data("v"));
}

// RIFF, AIFF, CAF, APE

QByteArray chunk(const QByteArray &name, const QByteArray &content)
{
    return name + little32(static_cast<quint32>(content.size())) + content;
}

QByteArray infoEntry(int i)
{
    return chunk(QByteArray::number(i, 36).rightJustified(4, 'A').right(4), QByteArray("v", 2));
}

QByteArray aiffWith(const QByteArray &chunks)
{
    const QByteArray &song = soundBytes(u"aiff");
    return "FORM" + big32(static_cast<quint32>(song.size() - 8 + chunks.size())) + song.mid(8, 4) +
           chunks + song.mid(12);
}

QByteArray apeTag(qsizetype bytes)
{
    const QByteArray items = filled(bytes, [](int i) {
        return little32(1) + little32(0) + QByteArray::number(i + 1000, 36) + '\0' + 'v';
    });
    return items + "APETAGEX" + little32(2000) + little32(static_cast<quint32>(items.size() + 32)) +
           little32(65535) + little32(0x80000000) + QByteArray(8, '\0');
}

} // namespace

const std::vector<OversizedSong> &oversizedSongs()
{
    using Bytes = qsizetype;
    static const std::vector<OversizedSong> all = {
        {"VorbisComments", u"a.ogg"_s, [](Bytes n) { return vorbisWith(comments(n)); }, true},
        {"LongVorbisComment", u"a.ogg"_s, [](Bytes n) { return vorbisWith(longComment(n)); }, true},
        {"OpusComments", u"a.opus"_s, [](Bytes n) { return opusWith(comments(n)); }, true},
        {"LongOpusComment", u"a.opus"_s, [](Bytes n) { return opusWith(longComment(n)); }, true},
        {"CommentsOfFlacInOgg", u"a.ogg"_s, [](Bytes n) { return oggFlacWith(comments(n)); }, true},
        {"CommentsWithinTheSound", u"a.ogg"_s, commentsWithinTheSound, true},
        {"ChainOfComments", u"a.ogg"_s, chain, true},
        {"SimpleTags", u"a.mka"_s,
         [](Bytes n) { return matroskaWith(element(tags, element(tag, filled(n, simpleTag)))); },
         true},
        {"Tags", u"a.mka"_s,
         [](Bytes n) { return matroskaWithMany(tags, n, element(tag, simpleTag(1))); }, true},
        {"EmptyTags", u"a.mka"_s, [](Bytes n) { return matroskaWithMany(tags, n, "\x73\x73\x80"); },
         true},
        {"ListsOfTags", u"a.mka"_s,
         [](Bytes n) {
             const QByteArray list = element(tags, element(tag, simpleTag(1)));
             return matroskaWith(list.repeated(n / list.size()));
         },
         false},
        {"LongTag", u"a.mka"_s,
         [](Bytes n) {
             return matroskaWith(element(
                 tags,
                 element(tag, element("\x67\xc8", element("\x45\xa3", "TITLE") +
                                                      element("\x44\x87", QByteArray(n, 'v'))))));
         },
         true},
        {"TagsBehindTheSound", u"a.mka"_s, tagsAtTheEnd, true},
        {"Attachments", u"a.mka"_s,
         [](Bytes n) {
             return matroskaWithMany(
                 "\x19\x41\xa4\x69", n,
                 element("\x61\xa7", element("\x46\x6e", "a") + element("\x46\x5c", "x")));
         },
         true},
        {"Chapters", u"a.mka"_s,
         [](Bytes n) {
             return matroskaWithMany("\x10\x43\xa7\x70", n,
                                     element("\x45\xb9", element("\xb6", element("\x91", "1"))));
         },
         true},
        {"Cues", u"a.mka"_s,
         [](Bytes n) {
             return matroskaWithMany(
                 "\x1c\x53\xbb\x6b", n,
                 element("\xbb", element("\xb3", "1") +
                                     element("\xb7", element("\xf7", "1") + element("\xf1", "1"))));
         },
         true},
        {"Tracks", u"a.mka"_s,
         [](Bytes n) {
             return matroskaWithMany("\x16\x54\xae\x6b", n, element("\xae", element("\xd7", "1")));
         },
         true},
        {"SeekHeads", u"a.mka"_s,
         [](Bytes n) {
             return matroskaWithMany(
                 "\x11\x4d\x9b\x74", n,
                 element("\x4d\xbb", element("\x53\xab", "x") + element("\x53\xac", "1")));
         },
         true},
        {"Freeforms", u"a.m4a"_s, [](Bytes n) { return mp4With(filled(n, freeform)); }, false},
        {"LongTitles", u"a.m4a"_s,
         [](Bytes n) {
             return mp4With(atom("\xa9nam", mp4Data(QByteArray(n / 2, 'v'))).repeated(2));
         },
         true},
        {"Covers", u"a.m4a"_s,
         [](Bytes n) {
             const QByteArray cover =
                 atom("covr", atom("data", big32(14) + big32(0) + QByteArray(20, 'v')));
             return mp4With(cover.repeated(n / cover.size()));
         },
         true},
        {"Info", u"a.wav"_s,
         [](Bytes n) {
             return before(soundBytes(u"wav"), "data",
                           chunk("LIST", "INFO" + filled(n, infoEntry)));
         },
         false},
        {"ListsOfInfo", u"a.wav"_s,
         [](Bytes n) {
             return before(soundBytes(u"wav"), "data",
                           filled(n, [](int i) { return chunk("LIST", "INFO" + infoEntry(i)); }));
         },
         false},
        {"CuePoints", u"a.wav"_s,
         [](Bytes n) {
             return before(soundBytes(u"wav"), "data",
                           chunk("cue ", little32(static_cast<quint32>(n / 24)) +
                                             QByteArray(n / 24 * 24, '\0')));
         },
         true},
        {"Annotations", u"a.aiff"_s,
         [](Bytes n) { return aiffWith(filled(n, [](int) { return "ANNO" + big32(2) + "ab"; })); },
         false},
        {"LongName", u"a.aiff"_s,
         [](Bytes n) {
             return aiffWith("NAME" + big32(static_cast<quint32>(n)) + QByteArray(n, 'v'));
         },
         true},
        {"Strings", u"a.caf"_s,
         [](Bytes n) {
             const QByteArray strings =
                 filled(n, [](int i) { return QByteArray::number(i, 36) + '\0' + 'v' + '\0'; });
             return before(soundBytes(u"caf"), "data",
                           "info" + big64(static_cast<quint64>(strings.size() + 4)) +
                               big32(static_cast<quint32>(n)) + strings);
         },
         false},
        {"ApeItems", u"a.mp3"_s, [](Bytes n) { return soundBytes(u"mp3") + apeTag(n); }, true},
        {"ApeItemsOfWavPack", u"a.wv"_s, [](Bytes n) { return soundBytes(u"wv") + apeTag(n); },
         false},
    };
    return all;
}

} // namespace lyrabox::test
