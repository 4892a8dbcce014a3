#include "platform/ui/NamedImage.h"

#include <QImage>

#include <gtest/gtest.h>

using lyrabox::NamedImage;
using namespace Qt::Literals::StringLiterals;

namespace {

TEST(NamedImage, EveryImageOfTheInterfaceExists)
{
    const QStringList names = {u"LoopButton1"_s,
                               u"LoopButton2"_s,
                               u"LoopButton3"_s,
                               u"SettingsButtonOn"_s,
                               u"SettingsButtonOff"_s,
                               u"LBAlbumArt"_s,
                               u"IsPlaying"_s,
                               u"IsPlayingLight"_s,
                               u"HasSettings"_s,
                               u"HasSettingsLight"_s,
                               u"PlusButton"_s,
                               u"PlusButtonLight"_s,
                               u"PlusButtonAlt"_s,
                               u"MinusButton"_s,
                               u"MinusButtonLight"_s,
                               u"MinusButtonAlt"_s,
                               u"PlayButton"_s,
                               u"PlayButtonAlt"_s,
                               u"PauseButton"_s,
                               u"PauseButtonAlt"_s,
                               u"SeekBackward"_s,
                               u"SeekBackwardAlt"_s,
                               u"SeekForward"_s,
                               u"SeekForwardAlt"_s,
                               u"ShuffleOff"_s,
                               u"ShuffleOn"_s,
                               u"Search"_s,
                               u"Cancel"_s,
                               u"Folder"_s,
                               u"FolderLight"_s};
    for (const QString &name : names) {
        const NamedImage image(name);
        EXPECT_FALSE(image.isNull()) << name.toStdString();
        const QImage pixels = image.pixmap(1.0).toImage();
        bool drawn = false;
        for (int y = 0; y < pixels.height() && !drawn; ++y) {
            for (int x = 0; x < pixels.width() && !drawn; ++x)
                drawn = qAlpha(pixels.pixel(x, y)) > 128;
        }
        EXPECT_TRUE(drawn) << name.toStdString();
        EXPECT_FALSE(image.icon().pixmap(16, 16).isNull()) << name.toStdString();
    }
}

TEST(NamedImage, IsRenderedAtDeviceResolution)
{
    const NamedImage image(u"IsPlaying"_s);
    EXPECT_EQ(image.pixmap(1.0).size(), image.size());
    EXPECT_EQ(image.pixmap(2.0).size(), image.size() * 2);
    EXPECT_EQ(image.pixmap(2.0).deviceIndependentSize(), QSizeF(image.size()));
    EXPECT_EQ(image.pixmap(QSize(40, 40), 1.5).size(), QSize(60, 60));
}

TEST(NamedImage, UnknownNameIsNullButKept)
{
    const NamedImage image(u"NoSuchImage"_s);
    EXPECT_TRUE(image.isNull());
    EXPECT_EQ(image.name(), u"NoSuchImage"_s);
    EXPECT_TRUE(image.size().isEmpty());
    EXPECT_TRUE(image.pixmap(2.0).isNull());
    EXPECT_TRUE(NamedImage(u"../images/IsPlaying"_s).name().contains(u"IsPlaying"_s));
}

} // namespace
