#include "engine/TrackRecord.h"

#include <gtest/gtest.h>

#include <limits>

namespace lyrabox {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(TrackRecord, DurationIsReadFromFloatDoubleAndText)
{
    TrackRecord record;
    EXPECT_EQ(record.durationValue(), 0.0);
    record.durationSeconds = 215.373F;
    EXPECT_FLOAT_EQ(static_cast<float>(record.durationValue()), 215.373F);
    record.durationSeconds = 12.5;
    EXPECT_EQ(record.durationValue(), 12.5);
    record.durationSeconds = u"61.25"_s;
    EXPECT_EQ(record.durationValue(), 61.25);
}

TEST(TrackRecord, ADurationThatIsNotANumberIsZero)
{
    TrackRecord record;
    for (const QVariant &value :
         {QVariant(u"long"_s), QVariant(u""_s), QVariant(QStringList{u"1"_s}), QVariant(u"nan"_s),
          QVariant(std::numeric_limits<double>::infinity())}) {
        record.durationSeconds = value;
        EXPECT_EQ(record.durationValue(), 0.0) << value.typeName();
    }
}

TEST(TrackRecord, EveryKeyGivesItsValue)
{
    TrackRecord record;
    record.fileURL = QUrl::fromLocalFile(u"/a.mp3"_s);
    record.title = u"T"_s;
    record.artist = u"A"_s;
    record.album = u"B"_s;
    record.durationSeconds = u"3"_s;
    record.order = 4;
    record.inode = u"5"_s;
    record.isPlaying = true;
    record.hasSettings = true;
    EXPECT_EQ(record.value(u"fileURL").toUrl(), record.fileURL);
    EXPECT_EQ(record.value(u"title").toString(), u"T"_s);
    EXPECT_EQ(record.value(u"artist").toString(), u"A"_s);
    EXPECT_EQ(record.value(u"album").toString(), u"B"_s);
    EXPECT_EQ(record.value(u"durationSeconds").toString(), u"3"_s);
    EXPECT_EQ(record.value(u"order").toInt(), 4);
    EXPECT_EQ(record.value(u"inode").toString(), u"5"_s);
    EXPECT_TRUE(record.value(u"isPlaying").toBool());
    EXPECT_TRUE(record.value(u"hasSettings").toBool());
}

TEST(TrackRecord, MissingValuesAndUnknownKeysAreInvalid)
{
    const TrackRecord record;
    EXPECT_FALSE(record.value(u"fileURL").isValid());
    EXPECT_FALSE(record.value(u"title").isValid());
    EXPECT_FALSE(record.value(u"genre").isValid());
    EXPECT_TRUE(record.value(u"artist").isValid());
}

} // namespace
} // namespace lyrabox
