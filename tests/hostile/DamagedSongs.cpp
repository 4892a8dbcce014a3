#include "hostile/HostileSongs.h"
#include "support/SampleAudio.h"

#include <QFile>

#include <algorithm>
#include <random>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::test {

namespace {

HostileSong sampleSong(SampleSpec spec)
{
    spec.seconds = 0.5;
    spec.tags = {{u"title"_s, u"Title"_s}, {u"artist"_s, u"Artist"_s}, {u"album"_s, u"Album"_s}};
    QFile file(sampleFile(spec));
    const QString name = spec.extension + u'-' + spec.codec + u'.' + spec.extension;
    return {name, file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray()};
}

} // namespace

const HostileSongs &soundSongs()
{
    static const HostileSongs songs = [] {
        HostileSongs made;
        for (const SampleSpec &spec : everyFormat())
            made.push_back(sampleSong(spec));
        return made;
    }();
    return songs;
}

const QByteArray &soundBytes(QStringView extension)
{
    for (const HostileSong &song : soundSongs()) {
        if (song.name.startsWith(extension))
            return song.bytes;
    }
    static const QByteArray none;
    return none;
}

HostileSongs damaged(const HostileSong &song)
{
    HostileSongs made;
    const QByteArray &whole = song.bytes;
    const auto add = [&](const QString &how, const QByteArray &bytes) {
        made.push_back({how + u'-' + song.name, bytes});
    };
    for (int tenth = 0; tenth < 10; ++tenth)
        add(u"cut-%1"_s.arg(tenth), whole.left(whole.size() * tenth / 10));
    for (const int bytes : {1, 4, 12, 32, 64, 200, 600})
        add(u"headers-%1"_s.arg(bytes), whole.left(bytes));

    std::mt19937 random(4711);
    const auto below = [&](qsizetype limit) {
        return static_cast<qsizetype>(
            random() % static_cast<std::mt19937::result_type>(std::max<qsizetype>(limit, 1)));
    };
    for (const int flips : {1, 4, 16, 64, 256, 2048}) {
        for (const qsizetype reach : {qsizetype{256}, whole.size()}) {
            QByteArray bytes = whole;
            for (int i = 0; i < flips; ++i) {
                const qsizetype at = below(std::min(reach, bytes.size()));
                bytes[at] = static_cast<char>(bytes[at] ^ (1 << below(8)));
            }
            add(u"flips-%1-of-%2"_s.arg(flips).arg(reach), bytes);
        }
    }
    for (const char filling : {'\0', '\xff'}) {
        for (int run = 0; run < 3; ++run) {
            QByteArray bytes = whole;
            const qsizetype from = run == 0 ? 16 : below(bytes.size());
            const qsizetype to = std::min(bytes.size(), from + bytes.size() / 8);
            std::fill(bytes.begin() + std::min(from, to), bytes.begin() + to, filling);
            add(u"wiped-%1-%2"_s.arg(static_cast<uchar>(filling)).arg(run), bytes);
        }
    }
    const qsizetype half = whole.size() / 2;
    add(u"exchanged"_s, whole.mid(half) + whole.left(half));
    add(u"beheaded"_s, whole.mid(64));
    add(u"twice"_s, whole + whole);
    for (const QString &extension : {u"mp3"_s, u"m4a"_s, u"txt"_s, u"png"_s, u"m3u8"_s})
        made.push_back({u"renamed-"_s + song.name + u'.' + extension, whole});
    return made;
}

} // namespace lyrabox::test
