#pragma once

#include "support/TransportFixture.h"

#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"

#include <gtest/gtest.h>

namespace lyrabox::test {

/// The player with its controls on the fake chain. Counts the player's notifications.
class AudioController : public testing::Test {
protected:
    AudioController()
    {
        observe(notification::currentTrackChanged, trackChanges);
        observe(notification::playPressedOnEmpty, emptyPresses);
    }
    ~AudioController() override { NotificationCenter::defaultCenter().removeObserver(&context); }

    void observe(const QString &name, int &count)
    {
        NotificationCenter::defaultCenter().addObserver(&context, name, [&count] { ++count; });
    }

    QString settingsImage() const { return transport.settingsPopup->firstItemImage().name(); }
    QString loopImage() const { return transport.loopButton->image().name(); }

    /// Clicks the loop button and calls its action.
    void clickLoop()
    {
        transport.loopButton->click();
        player.loopButtonPressed(transport.loopButton);
    }

    TrackRecordRef loadedTrack(const QString &title = QStringLiteral("Song"))
    {
        auto record = TransportFixture::track(title);
        EXPECT_EQ(transport.load(record), 0);
        return record;
    }

    QObject context;
    int trackChanges = 0;
    int emptyPresses = 0;
    TransportFixture transport;
    LB_AudioController &player = *transport.controller;
};

} // namespace lyrabox::test
