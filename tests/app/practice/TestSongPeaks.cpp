#include "PaneFixture.h"
#include "app/practice/SongPeaks.h"

#include <array>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class ThePeaks : public testing::Test, protected PaneFixture {
protected:
    std::shared_ptr<const DecodedSong> load(const QString &title)
    {
        transport.load(TransportFixture::track(title));
        return audio().decodedSong();
    }

    SongPeaks peaks;
};

TEST_F(ThePeaks, AreMeasuredInTheBackgroundUntilTheyAreComplete)
{
    QSignalSpy grown(&peaks, &SongPeaks::grown);
    peaks.setSong(load(u"A"_s));
    EXPECT_EQ(peaks.frames(), seconds * rate);
    EXPECT_FALSE(peaks.isComplete());
    peaks.measure(0);
    while (!peaks.isComplete())
        ASSERT_TRUE(grown.wait());
    EXPECT_GT(peaks.loudRms(), 0.05F);
    std::array<PeakColumn, 10> columns;
    peaks.fillColumns(0.0, static_cast<double>(peaks.frames()), columns);
    for (const PeakColumn &column : columns)
        EXPECT_TRUE(column.isKnown && column.hasBands);
}

TEST_F(ThePeaks, ASongThatIsReplacedIsNoLongerHeld)
{
    peaks.setSong(load(u"A"_s));
    std::weak_ptr<const DecodedSong> first = peaks.song();
    peaks.measure(0);
    peaks.setSong(load(u"B"_s));
    QSignalSpy grown(&peaks, &SongPeaks::grown);
    peaks.measure(0);
    while (!peaks.isComplete())
        ASSERT_TRUE(grown.wait());
    QCoreApplication::processEvents();
    EXPECT_TRUE(first.expired());
}

TEST_F(ThePeaks, MeasuringGoesOnWhereItWasStopped)
{
    QSignalSpy grown(&peaks, &SongPeaks::grown);
    peaks.setSong(load(u"A"_s));
    peaks.measure(0);
    peaks.stop();
    peaks.measure(0);
    while (!peaks.isComplete())
        ASSERT_TRUE(grown.wait());
}

TEST_F(ThePeaks, WithoutASongNoColumnIsKnown)
{
    EXPECT_EQ(peaks.frames(), 0U);
    EXPECT_TRUE(peaks.isComplete());
    std::array<PeakColumn, 3> columns;
    columns.fill({.isKnown = true});
    peaks.measure(0);
    peaks.fillColumns(0.0, 100.0, columns);
    for (const PeakColumn &column : columns)
        EXPECT_FALSE(column.isKnown);
}

} // namespace
