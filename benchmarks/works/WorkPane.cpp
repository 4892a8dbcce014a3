// The practice pane, without a display. The argument says what is measured: "first" is the time
// from the end of a load, when the song sounds, until the wave around the line is drawn. "list" is
// the time to fill and draw a list of 500 loops and 2,000 markers. "scroll" is the longest time
// that one step of its scrolling takes; the amount is the number of steps.

#include "Work.h"

#include "app/practice/LoopList.h"
#include "app/practice/LoopListModel.h"
#include "app/practice/Metronome.h"
#include "app/practice/PracticePane.h"
#include "app/practice/SongPractice.h"
#include "app/practice/SongSound.h"
#include "app/practice/WaveView.h"
#include "support/TransportFixture.h"

#include <QCoreApplication>
#include <QScrollBar>

#include <algorithm>
#include <chrono>
#include <cmath>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::uint64_t rate = 44100;
constexpr std::uint64_t minutes = 4;
constexpr QSize listSize{276, 240};
constexpr int steps = 600;

double secondsSince(Clock::time_point begin)
{
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

/// Noise, so that no column is empty.
float sample(std::uint32_t channel, std::uint64_t frame)
{
    const auto mixed = static_cast<std::uint32_t>((frame * 2 + channel) * 2654435761U);
    return static_cast<float>(mixed % 2000) / 2000.0F - 0.5F;
}

void measureFirstPicture()
{
    test::TransportFixture transport;
    transport.song->frames = minutes * 60 * rate;
    transport.song->sample = sample;
    LB_AudioController &audio = *transport.controller;
    const auto seek = [&audio](quint64 frame) { audio.setCurrentFrame(frame); };
    SongPractice practice(&audio, seek, {}, test::fakeSongReaderFactory(transport.song));
    practice.setOpen(true);
    Metronome metronome(&audio, &practice);
    SongSound sound(&audio, &practice);
    PracticePane pane(&audio, &practice, &metronome, &sound, seek);
    pane.resize(1120, 320);
    pane.show();
    QCoreApplication::processEvents();
    transport.load(test::TransportFixture::track(u"A"_s));
    const Clock::time_point begin = Clock::now();
    PeakColumn column;
    const auto isMeasured = [&] {
        const WaveScale scale = pane.wave()->scale();
        const double line = pane.wave()->line();
        pane.peaks().fillColumns(line, line + scale.framesPerPoint, {&column, 1});
        return column.isKnown;
    };
    while (!isMeasured())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    pane.repaint();
    work::report({.seconds = secondsSince(begin)}, 1.0);
}

/// A store with as much as a song can have.
struct FullStore {
    FullStore()
    {
        store.openSong({.path = u"/songs/A.wav"_s, .title = {}, .artist = {}});
        PracticeEdits edits;
        for (std::uint64_t i = 0; i < PracticeLimits::loops; ++i)
            edits.emplace_back(PutLoop{{.name = u"The passage in bar %1"_s.arg(i),
                                        .from = i * 20000,
                                        .to = i * 20000 + 90000,
                                        .colour = static_cast<int>(i % 8) + 1,
                                        .speed = 75}});
        for (std::uint64_t i = 0; i < PracticeLimits::markers; ++i)
            edits.emplace_back(PutMarker{{.at = i * 5000, .name = u"Marker %1"_s.arg(i)}});
        if (!store.apply(edits))
            work::fail("the record is refused");
    }

    BackgroundRunner runner;
    std::shared_ptr<test::FakeSong> song = std::make_shared<test::FakeSong>();
    PracticeStore store{{}, test::fakeSongReaderFactory(song), runner};
};

void measureList()
{
    FullStore full;
    std::unique_ptr<LoopList> list;
    const work::Cost cost = work::measureRepeated([&] { list.reset(); },
                                                  [&] {
                                                      list =
                                                          std::make_unique<LoopList>(&full.store);
                                                      list->resize(listSize);
                                                      list->show();
                                                      list->grab();
                                                  });
    work::report(cost, list->rows()->rowCount());
}

void measureScrolling()
{
    FullStore full;
    LoopList list(&full.store);
    list.resize(listSize);
    list.show();
    list.grab();
    QScrollBar *bar = list.verticalScrollBar();
    double longest = 0.0;
    int done = 0;
    for (; done < steps; ++done) {
        const int value = bar->maximum() * (done + 1) / steps;
        const Clock::time_point begin = Clock::now();
        bar->setValue(value);
        list.grab();
        longest = std::max(longest, secondsSince(begin));
    }
    work::report({.seconds = longest}, done);
}

} // namespace

int main(int argc, char **argv)
{
    const work::Arguments arguments = work::arguments(argc, argv);
    work::startApplication();
    if (arguments.argument == "first")
        measureFirstPicture();
    else if (arguments.argument == "list")
        measureList();
    else
        measureScrolling();
    return EXIT_SUCCESS;
}
