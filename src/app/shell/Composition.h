#pragma once

#include "app/shell/ProgramParts.h"
#include "platform/foundation/BackgroundRunner.h"
#include "platform/foundation/VolumeWatcher.h"

#include <QObject>

#include <memory>

namespace lyrabox {

class BatteryWatch;
class MediaPlayerBridge;
class ProgressPanel;

/// The composition root. It owns the parts of the program, lets each room wire its own (Room.h),
/// and wakes the controllers in the fixed start-up order. No other class knows all the parts. Main
/// thread; one object.
class Composition : public QObject {
    Q_OBJECT

public:
    /// Builds the windows. This does not need the engine, which may be built at the same time.
    Composition();
    ~Composition() override;

    /// Takes over `audio`, whose engine must be built, and connects everything to it. Call it once,
    /// before launch().
    void setAudio(std::unique_ptr<LB_AudioController> audio);

    /// Wakes the controllers, shows the main window and announces that the program has launched. If
    /// the first list takes longer than 30 ms, the window is shown before it.
    void launch();

    /// The window to pass to afterFirstPaint().
    QWidget *mainWindow() { return &m_parts.mainWindow; }

    /// Saves the geometry of the windows and announces that the program ends. Only the first call
    /// does anything.
    void terminate();

    /// Brings the main window to the front. `activationToken` is the token that Wayland requires
    /// for this; a second instance passes it on. It may be empty.
    void bringToFront(const QString &activationToken = {});

    /// Makes audio files the list of songs and plays the first one. Adds folders to the list of
    /// folders. Anything else is named in the message line. Without any audio file the list stays.
    void open(const QList<QUrl> &urls);

private:
    void awakeControllers();
    void prepareUpdater();
    void connectProgress();
    void connectStopping();
    void showMainWindow();
    void paintWhileLaunching();
    void connectDesktop();
    void watchBattery();
    void loadDecoders();

    ProgramParts m_parts;
    std::unique_ptr<VolumeWatcher> m_volumes;
    ProgressPanel *m_progress = nullptr;          ///< owned by the main window
    std::unique_ptr<MediaPlayerBridge> m_desktop; ///< null without a session bus
    std::unique_ptr<BatteryWatch> m_battery;      ///< null without a system bus
    bool m_isLaunching = false;
    bool m_terminated = false;
    std::unique_ptr<BackgroundRunner> m_background; ///< last, because its jobs use the parts
};

} // namespace lyrabox
