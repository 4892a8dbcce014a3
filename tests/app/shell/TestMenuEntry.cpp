// The MIME types of the desktop entry, compared with files of these types and with the reader.

#include "platform/decoding/AudioFileReader.h"
#include "support/SampleAudio.h"

#include <QFile>
#include <QMimeDatabase>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

QStringList claimedTypes()
{
    QFile entry(
        QStringLiteral(LYRABOX_SOURCE_DIR "/resources/desktop/org.lyrabox.Lyrabox.desktop"));
    EXPECT_TRUE(entry.open(QIODevice::ReadOnly));
    const QString key = u"MimeType="_s;
    for (const QString &line : QString::fromUtf8(entry.readAll()).split(u'\n')) {
        if (line.startsWith(key))
            return line.mid(key.size()).split(u';', Qt::SkipEmptyParts);
    }
    return {};
}

struct Kind {
    const char *extension;
    const char *codec = "";
    int rate = 44100;
    int channels = 2;
    const char *claimed;
};

class MenuEntry : public testing::TestWithParam<Kind> {};

TEST_P(MenuEntry, ListsTheTypesThatTheReaderOpens)
{
    const Kind &kind = GetParam();
    const QString file = test::sampleFile({.extension = QLatin1String(kind.extension),
                                           .codec = QLatin1String(kind.codec),
                                           .seconds = 0.5,
                                           .rate = kind.rate,
                                           .channels = kind.channels});
    ASSERT_FALSE(file.isEmpty());
    AudioFileReader reader;
    EXPECT_EQ(reader.open(file), status::noError);
    const QString type = QLatin1String(kind.claimed);
    EXPECT_TRUE(claimedTypes().contains(type)) << kind.claimed;
    const QMimeType found = QMimeDatabase().mimeTypeForFile(file);
    EXPECT_TRUE(found.name() == type || found.aliases().contains(type) || found.inherits(type))
        << qPrintable(found.name());
    // Desktops look for the main name of a type. Systems differ in which of its names that is.
    const QStringList claimed = claimedTypes();
    const QStringList names = QStringList{found.name()} + found.allAncestors();
    EXPECT_TRUE(std::any_of(names.begin(), names.end(),
                            [&](const QString &name) { return claimed.contains(name); }))
        << qPrintable(found.name()) << " is not claimed by its own name";
}

INSTANTIATE_TEST_SUITE_P(
    Types, MenuEntry,
    testing::Values(
        Kind{.extension = "mp3", .claimed = "audio/mpeg"},
        Kind{.extension = "mp2", .claimed = "audio/mp2"},
        Kind{.extension = "flac", .claimed = "audio/flac"},
        Kind{.extension = "ogg", .codec = "libvorbis", .claimed = "audio/x-vorbis+ogg"},
        Kind{.extension = "opus", .codec = "libopus", .rate = 48000, .claimed = "audio/x-opus+ogg"},
        Kind{.extension = "m4a", .claimed = "audio/mp4"},
        Kind{.extension = "aac", .claimed = "audio/aac"},
        Kind{.extension = "wav", .claimed = "audio/x-wav"},
        Kind{.extension = "aiff", .claimed = "audio/x-aiff"},
        Kind{.extension = "au", .claimed = "audio/basic"},
        Kind{.extension = "wma", .claimed = "audio/x-ms-wma"},
        Kind{.extension = "ac3", .claimed = "audio/ac3"},
        Kind{.extension = "mka", .claimed = "audio/x-matroska"},
        Kind{.extension = "tta", .claimed = "audio/x-tta"},
        Kind{.extension = "voc", .claimed = "audio/x-voc"},
        Kind{.extension = "wv", .claimed = "audio/x-wavpack"}),
    [](const auto &kind) { return std::string(kind.param.extension); });

TEST(MenuEntryTypes, AreAllAudio)
{
    const QStringList types = claimedTypes();
    EXPECT_GT(types.size(), 20);
    for (const QString &type : types)
        EXPECT_TRUE(type.startsWith(u"audio/"_s)) << qPrintable(type);
}

} // namespace
} // namespace lyrabox
