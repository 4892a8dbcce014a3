#include "platform/decoding/Tags.h"

#include <cstring>
#include <initializer_list>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::decoding {

namespace {

constexpr int maximumArtwork = 24 << 20; // In bytes. A picture is in memory twice while a song is
                                         // loaded.
constexpr std::size_t maximumTextBytes = 64 << 10;

/// The first of `names` that the container or the stream has. Ogg and Matroska keep tags on the
/// stream.
QString firstTag(const Container &container, std::initializer_list<const char *> names)
{
    for (const char *name : names) {
        for (const AVDictionary *tags :
             {container.context()->metadata, container.stream()->metadata}) {
            const AVDictionaryEntry *entry = av_dict_get(tags, name, nullptr, 0);
            if (const QString text = entry ? tagText(entry->value) : QString(); !text.isEmpty())
                return text;
        }
    }
    return {};
}

} // namespace

QString tagText(const char *bytes)
{
    const auto length = static_cast<qsizetype>(strnlen(bytes, maximumTextBytes));
    return QString::fromUtf8(bytes, length).remove(QChar(0)).trimmed();
}

QMap<QString, QString> infoDictionaryOf(const Container &container)
{
    QMap<QString, QString> info;
    const auto add = [&](const QString &key, std::initializer_list<const char *> names) {
        if (const QString text = firstTag(container, names); !text.isEmpty())
            info.insert(key, text);
    };
    add(u"title"_s, {"title"});
    add(u"artist"_s, {"artist", "author", "performer", "album_artist"});
    add(u"album"_s, {"album"});
    if (const auto seconds = container.duration())
        info.insert(u"approximate duration in seconds"_s, QString::number(*seconds, 'f', 3));
    return info;
}

QByteArray albumArtworkOf(const Container &container)
{
    const AVPacket *chosen = nullptr;
    for (unsigned i = 0; i < container.context()->nb_streams; ++i) {
        const AVStream *stream = container.context()->streams[i];
        const AVPacket &picture = stream->attached_pic;
        if ((stream->disposition & AV_DISPOSITION_ATTACHED_PIC) == 0 || !picture.data ||
            picture.size <= 0 || picture.size > maximumArtwork)
            continue;
        const AVDictionaryEntry *kind = av_dict_get(stream->metadata, "comment", nullptr, 0);
        if (kind && std::strcmp(kind->value, "Cover (front)") == 0)
            return QByteArray(reinterpret_cast<const char *>(picture.data), picture.size);
        if (!chosen)
            chosen = &picture;
    }
    return chosen ? QByteArray(reinterpret_cast<const char *>(chosen->data), chosen->size)
                  : QByteArray();
}

} // namespace lyrabox::decoding
