#pragma once

#include "PaneFixture.h"
#include "app/practice/SongTones.h"
#include "app/practice/SoundPage.h"
#include "app/practice/SoundWords.h"
#include "platform/foundation/UserDefaults.h"

#include <array>

namespace lyrabox::test {

/// The pane of PaneFixture with the page of the sound. Its song has the chords A minor, D minor
/// and E minor, 23 cents flat, and is softer on the right.
struct SoundFixture : PaneFixture {
    SoundFixture()
    {
        userDefaults().clear();
        tones.setSettings({});
        transport.song->sample = [this](std::uint32_t channel, std::uint64_t frame) {
            return (channel == 0 ? 1.0F : rightShare) * chords(frame, cents);
        };
        pane->pages()->showPage(page());
    }
    ~SoundFixture() { userDefaults().clear(); }

    static float chords(std::uint64_t frame, double fromCents)
    {
        // Semitones above the A of 220 Hz.
        static constexpr std::array<std::array<int, 3>, 4> notes{
            {{0, 3, 7}, {5, 8, 12}, {7, 10, 14}, {0, 3, 7}}};
        const double time = static_cast<double>(frame) / rate;
        double sum = 0.0;
        for (const int note : notes.at(static_cast<std::size_t>(time / 2.0) % notes.size()))
            sum += 0.2 * std::sin(2.0 * std::numbers::pi * 220.0 *
                                  std::exp2((100.0 * note + fromCents) / 1200.0) * time);
        return static_cast<float>(sum);
    }

    /// Shows the song, and waits until it is analysed.
    void hearSong(const QString &name = QStringLiteral("A"))
    {
        transport.load(TransportFixture::track(name));
        pane->show();
        waitForAnalysis();
    }

    void waitForAnalysis()
    {
        QSignalSpy changed(&tones, &SongTones::changed);
        while (tones.isListening())
            ASSERT_TRUE(changed.wait());
    }

    SoundPage *page() { return pane->findChild<SoundPage *>(); }
    /// A control of the page by its name for assistive technologies, or the start of it.
    template <typename Control>
    Control *control(const QString &name)
    {
        for (auto *each : page()->findChildren<Control *>()) {
            if (each->accessibleName().startsWith(name))
                return each;
        }
        ADD_FAILURE() << "no control " << name.toStdString();
        return nullptr;
    }
    PracticeStore &store() { return practice->store(); }

    float rightShare = 0.5F;
    double cents = -23.0;
    SongTones &tones = *pane->tones();
};

} // namespace lyrabox::test
