#pragma once

#include "PaneFixture.h"
#include "app/practice/BeatPage.h"
#include "app/practice/PracticePages.h"
#include "app/practice/SongBeats.h"

#include <vector>

namespace lyrabox::test {

/// The pane of PaneFixture with its song, whose beats are 0.5 s apart from 0 on.
struct BeatsFixture : PaneFixture {
    static constexpr std::uint64_t beatFrames = rate / 2;

    BeatsFixture()
    {
        showSong();
        pane->pages()->showPage(page());
        waitForAnalysis();
    }

    SongBeats &beats() { return *pane->beats(); }
    BeatPage *page() { return pane->findChild<BeatPage *>(); }
    const BeatGrid &grid() { return beats().grid(); }
    PracticeStore &store() { return practice->store(); }

    void waitForAnalysis()
    {
        QSignalSpy changed(&beats(), &SongBeats::stateChanged);
        while (beats().isListening())
            ASSERT_TRUE(changed.wait());
    }

    /// 60 beats of 120 a minute from the start on, in bars of 4.
    static BeatGrid steadyGrid(int beatCount = 60)
    {
        std::vector<std::uint64_t> frames;
        for (int beat = 0; beat < beatCount; ++beat)
            frames.push_back(static_cast<std::uint64_t>(beat) * beatFrames);
        return fittedGrid(frames, 0, 4);
    }

    void setBeats(const BeatGrid &grid)
    {
        ASSERT_TRUE(store().apply({PutBeats{grid}}));
        waitForAnalysis();
    }

    /// Taps so many beats in time from the beat `first` on, each late by so many milliseconds in
    /// turn.
    void tapBeats(int count, int first = 4, const std::vector<int> &late = {12, -20, 5, 25, -8})
    {
        for (int tap = 0; tap < count; ++tap, ++m_tapped) {
            const int ms = late.at(static_cast<std::size_t>(m_tapped) % late.size());
            const auto place = static_cast<double>((first + tap) * static_cast<int>(beatFrames));
            m_time += 500.0;
            beats().tapAt(static_cast<std::uint64_t>(place + ms * 44.1), m_time);
        }
        waitForAnalysis();
    }

    /// Lets so much time pass that the next tap begins a new series.
    void pauseTaps() { m_time += 20'000.0; }

    double m_time = 1'000'000.0; ///< of the taps, in milliseconds
    int m_tapped = 0;
};

} // namespace lyrabox::test
