#pragma once

#include "app/practice/Metronome.h"
#include "app/practice/PracticePages.h"
#include "app/practice/PracticePane.h"
#include "app/practice/SongPractice.h"
#include "app/practice/SongSound.h"
#include "app/practice/WaveView.h"
#include "support/TransportFixture.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace lyrabox::test {

/// A practice pane on a player without a device. The song lasts 30 s, and has a beat of a low
/// sound, then a high one, every half second.
struct PaneFixture {
    static constexpr std::uint64_t rate = 44100;
    static constexpr std::uint64_t seconds = 30;

    PaneFixture()
    {
        transport.song->frames = seconds * rate;
        transport.song->sample = [](std::uint32_t, std::uint64_t frame) {
            const double time = static_cast<double>(frame) / rate;
            const double beat = std::fmod(time, 0.5);
            const bool isHigh = std::fmod(time, 1.0) >= 0.5;
            const double frequency = isHigh ? 5000.0 : 110.0;
            return static_cast<float>(0.7 * std::exp(-6.0 * beat) *
                                      std::sin(2.0 * std::numbers::pi * frequency * time));
        };
        const auto seek = [this](quint64 frame) {
            seeks.append(frame);
            transport.controller->setCurrentFrame(frame);
        };
        // Without a folder the loops stay in memory.
        practice = std::make_unique<SongPractice>(&audio(), seek, QString(),
                                                  fakeSongReaderFactory(transport.song));
        practice->setOpen(true);
        metronome = std::make_unique<Metronome>(&audio(), practice.get());
        sound = std::make_unique<SongSound>(&audio(), practice.get());
        pane = std::make_unique<PracticePane>(&audio(), practice.get(), metronome.get(),
                                              sound.get(), seek);
        pane->resize(1000 + PracticePages::pageWidth + 14, 320); // a wave of 972 points
    }

    LB_AudioController &audio() { return *transport.controller; }
    WaveView &wave() { return *pane->wave(); }

    /// Loads a song, shows the pane and waits until the song is measured.
    void showSong()
    {
        transport.load(TransportFixture::track(QStringLiteral("A")));
        pane->show();
        QSignalSpy grown(&pane->peaks(), &SongPeaks::grown);
        while (!pane->peaks().isComplete())
            ASSERT_TRUE(grown.wait());
    }

    /// Where the wave shows a frame.
    QPoint at(double frame, int y = 100) { return {qRound(wave().scale().xOf(frame)), y}; }
    /// The frame shown at `x`.
    quint64 frameAt(int x) { return static_cast<quint64>(wave().scale().frameAt(x)); }

    void drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mousePress(&wave(), Qt::LeftButton, modifiers, from);
        move((from + to) / 2, modifiers);
        move(to, modifiers);
        QTest::mouseRelease(&wave(), Qt::LeftButton, modifiers, to);
    }

    void move(QPoint to, Qt::KeyboardModifiers modifiers = {})
    {
        QMouseEvent event(QEvent::MouseMove, to, wave().mapToGlobal(to), Qt::NoButton,
                          Qt::LeftButton, modifiers);
        QCoreApplication::sendEvent(&wave(), &event);
    }

    void turnWheel(int notches, QPoint point, Qt::KeyboardModifiers modifiers = {})
    {
        QWheelEvent event(point, wave().mapToGlobal(point), {}, {0, 120 * notches}, Qt::NoButton,
                          modifiers, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&wave(), &event);
    }

    TransportFixture transport;
    QList<quint64> seeks;
    std::unique_ptr<SongPractice> practice;
    std::unique_ptr<Metronome> metronome;
    std::unique_ptr<SongSound> sound;
    std::unique_ptr<PracticePane> pane;
};

} // namespace lyrabox::test
