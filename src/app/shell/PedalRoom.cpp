// Pedals and keys: their assignments, and what they reach in the player.

#include "app/practice/PressedPlace.h"
#include "app/shell/FirstPaint.h"
#include "app/shell/ProgramParts.h"
#include "app/shell/Room.h"
#include "app/shell/WindowMemory.h"
#include "platform/audio/SoundRanges.h"
#include "practice/PracticeFiles.h"

#include <QAction>
#include <QApplication>

#include <algorithm>
#include <cmath>

namespace lyrabox {

namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(lyrabox::Composition)
};

void build(ProgramParts &) {}

/// A value of the player that a pedal moves between two limits.
PedalPlayer::Value valueBetween(const QString &name, double low, double high, double step,
                                const std::function<double()> &get,
                                const std::function<void(double)> &set)
{
    const double way = high - low;
    return {.name = name,
            .get = [=] { return (get() - low) / way; },
            .set = [=](double place) { set(low + place * way); },
            .step = step / way};
}

std::map<QString, PedalPlayer::Value> valuesOf(LB_AudioController *audio)
{
    // The whole way of a pedal is where musicians practise: half to full speed, and a semitone
    // around the original pitch. Steps reach the rest.
    constexpr double slowest = 50.0;
    constexpr double fastest = 100.0;
    constexpr double semitone = 100.0;
    constexpr double volumeStep = 0.02;
    const auto setSpeed = [audio](double percent) {
        const auto whole = static_cast<float>(std::round(percent));
        audio->setPlaybackSpeedPct(std::clamp(whole, speedRange.minimum, speedRange.maximum));
    };
    const auto setPitch = [audio](double cents) {
        const auto whole = static_cast<float>(std::round(cents));
        audio->setPlaybackPitch(std::clamp(whole, pitchRange.minimum, pitchRange.maximum));
    };
    const auto setVolume = [audio](double volume) {
        audio->setOutputVolume(static_cast<float>(std::clamp(volume, 0.0, 1.0)));
    };
    return {
        {QStringLiteral("volume"), valueBetween(
                                       Text::tr("Volume"), 0.0, 1.0, volumeStep,
                                       [audio] { return audio->outputVolume(); }, setVolume)},
        {QStringLiteral("speed"), valueBetween(
                                      Text::tr("Speed"), slowest, fastest, 1.0,
                                      [audio] { return audio->playbackSpeedPct(); }, setSpeed)},
        {QStringLiteral("pitch"), valueBetween(
                                      Text::tr("Pitch"), -semitone, semitone, 1.0,
                                      [audio] { return audio->playbackPitch(); }, setPitch)},
    };
}

quint64 frameHeardAgo(const LB_AudioController *audio, std::chrono::microseconds age)
{
    const quint64 heard = audio->heardFrame();
    const double speed = static_cast<double>(audio->playbackSpeedPct()) / 100.0;
    return audio->isRunning() ? frameHeardBefore(heard, age, speed, audio->loop()) : heard;
}

/// A dialog that must be answered first keeps pedals away, as it does keys.
void perform(const PedalAssignments &assignments, const QString &id, quint64 frame,
             PedalTime pressed)
{
    const MenuCommand *command = assignments.keys().command(id);
    if (command == nullptr || QApplication::activeModalWidget() != nullptr)
        return;
    const PressedPlaceScope place(
        {.frame = frame, .time = std::chrono::duration_cast<std::chrono::milliseconds>(pressed)});
    command->action->trigger();
}

const QString windowName = QStringLiteral("pedalsWindow");

PedalsWindow *makeWindow(ProgramParts &parts)
{
    parts.pedals->load();
    auto *window = new PedalsWindow(parts.pedals.get(), &parts.mainWindow);
    parts.pedalsWindow.reset(window);
    windowMemory::keepWindow(window, windowName);
    return window;
}

void connectRoom(ProgramParts &parts)
{
    LB_AudioController *audio = parts.audio.get();
    PedalPlayer::Hooks hooks{
        .heardFrame = [audio](std::chrono::microseconds age) { return frameHeardAgo(audio, age); },
        .perform = [&parts](const QString &id, quint64 frame,
                            PedalTime pressed) { perform(*parts.pedals, id, frame, pressed); },
        .values = valuesOf(audio),
        .now = &PedalPlayer::steadyNow,
    };
    parts.pedals = std::make_unique<PedalAssignments>(practiceFolder(), parts.menu->commands(),
                                                      std::move(hooks));
    PedalAssignments *pedals = parts.pedals.get();
    QObject::connect(pedals, &PedalAssignments::keysChanged, parts.menu,
                     &MainMenu::noteChangedKeys);
    QObject::connect(parts.menu->pedals, &QAction::triggered, pedals, [&parts] {
        bringToFront(parts.pedalsWindow ? parts.pedalsWindow.get() : makeWindow(parts));
    });
    afterFirstPaint(&parts.mainWindow, [pedals] { pedals->load(); });
}

} // namespace

const Room pedalRoom{.build = build, .connect = connectRoom};

} // namespace lyrabox
