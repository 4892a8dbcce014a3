#pragma once

#include "app/controls/LB_PopUpButtonCell.h"
#include "app/controls/LB_ScrollingTextView.h"
#include "app/controls/LB_Slider.h"
#include "engine/DecodedSong.h"
#include "engine/LoopRange.h"
#include "engine/TrackRecord.h"
#include "platform/audio/SoundRanges.h"
#include "platform/audio/StreamFormat.h"
#include "platform/foundation/ProgressPacer.h"
#include "platform/foundation/Status.h"
#include "platform/ui/ButtonMatrix.h"
#include "platform/ui/ImageView.h"
#include "platform/ui/NumberField.h"
#include "platform/ui/StateButton.h"
#include "settings/SongValues.h"

#include <QByteArray>
#include <QImage>
#include <QObject>

#include <functional>
#include <future>
#include <memory>
#include <optional>

class LB_SettingsController;

/// The rest of the program plays sound through this object. It builds the engine when it is
/// created, loads and unloads songs, and applies the transport controls to the engine. Main thread
/// only. Outlets are set once, before awakeFromNib(), and are not owned.
class LB_AudioController : public QObject {
    Q_OBJECT

public:
    /// Called in this order if the engine cannot be built. Tests replace both.
    struct FatalErrorHandling {
        std::function<void(const QString &description, const QString &recoverySuggestion)> present;
        std::function<void()> terminate;
    };

    /// The usual `present`: a modal alert. Returns when the user has closed it.
    static void showAlert(const QString &description, const QString &recoverySuggestion);

    /// Builds the engine. On failure it calls `handling`.
    explicit LB_AudioController(FatalErrorHandling handling, QObject *parent = nullptr);
    /// The same for an engine that another thread is building with buildAudioSystem(). Waits for
    /// `building`.
    LB_AudioController(FatalErrorHandling handling, std::future<lyrabox::Status> building,
                       QObject *parent = nullptr);
    ~LB_AudioController() override;

    /// Sets up the controls. Call it once, when every outlet is set.
    void awakeFromNib();

    // Outlets.
    lyrabox::ImageView *albumArtImageView() const { return m_albumArtImageView; }
    void setAlbumArtImageView(lyrabox::ImageView *view) { m_albumArtImageView = view; }
    LB_ScrollingTextView *artistField() const { return m_artistField; }
    void setArtistField(LB_ScrollingTextView *field) { m_artistField = field; }
    LB_ScrollingTextView *titleField() const { return m_titleField; }
    void setTitleField(LB_ScrollingTextView *field) { m_titleField = field; }
    lyrabox::StateButton *loopButton() const { return m_loopButton; }
    void setLoopButton(lyrabox::StateButton *button) { m_loopButton = button; }
    lyrabox::StateButton *playPauseButton() const { return m_playPauseButton; }
    void setPlayPauseButton(lyrabox::StateButton *button) { m_playPauseButton = button; }
    lyrabox::StateButton *seekBackwardButton() const { return m_seekBackwardButton; }
    void setSeekBackwardButton(lyrabox::StateButton *button) { m_seekBackwardButton = button; }
    lyrabox::StateButton *seekForwardButton() const { return m_seekForwardButton; }
    void setSeekForwardButton(lyrabox::StateButton *button) { m_seekForwardButton = button; }
    LB_Slider *outputVolumeSlider() const { return m_outputVolumeSlider; }
    void setOutputVolumeSlider(LB_Slider *slider) { m_outputVolumeSlider = slider; }
    lyrabox::ButtonMatrix *playbackPitchMatrix() const { return m_playbackPitchMatrix; }
    void setPlaybackPitchMatrix(lyrabox::ButtonMatrix *matrix) { m_playbackPitchMatrix = matrix; }
    LB_Slider *playbackPitchSlider() const { return m_playbackPitchSlider; }
    void setPlaybackPitchSlider(LB_Slider *slider) { m_playbackPitchSlider = slider; }
    lyrabox::NumberField *playbackPitchTextField() const { return m_playbackPitchTextField; }
    void setPlaybackPitchTextField(lyrabox::NumberField *field)
    {
        m_playbackPitchTextField = field;
    }
    lyrabox::ButtonMatrix *playbackSpeedMatrix() const { return m_playbackSpeedMatrix; }
    void setPlaybackSpeedMatrix(lyrabox::ButtonMatrix *matrix) { m_playbackSpeedMatrix = matrix; }
    LB_Slider *playbackSpeedSlider() const { return m_playbackSpeedSlider; }
    void setPlaybackSpeedSlider(LB_Slider *slider) { m_playbackSpeedSlider = slider; }
    lyrabox::NumberField *playbackSpeedTextField() const { return m_playbackSpeedTextField; }
    void setPlaybackSpeedTextField(lyrabox::NumberField *field)
    {
        m_playbackSpeedTextField = field;
    }
    LB_SettingsController *settings() const { return m_settings; }
    void setSettings(LB_SettingsController *settings) { m_settings = settings; }
    LB_PopUpButtonCell *settingsPopup() const { return m_settingsPopup; }
    void setSettingsPopup(LB_PopUpButtonCell *popup) { m_settingsPopup = popup; }

    // Position and loop, in frames of audioBufferFormat().
    lyrabox::AudioStreamBasicDescription audioBufferFormat() const;
    quint64 currentFrame() const;
    void setCurrentFrame(quint64 frame);
    /// The same, but if the player runs, it starts anew: what comes before a start comes first, see
    /// engine::startAtFrame().
    void startAtFrame(quint64 frame);
    quint64 totalFrames() const;
    /// The frame that is heard now. currentFrame() is ahead of it by the frames that time/pitch and
    /// the output hold, up to a quarter of a second of song. See engine::heardFrame() for how exact
    /// it is.
    quint64 heardFrame() const;

    /// The loop that plays, or nothing.
    std::optional<lyrabox::LoopRange> loop() const;
    /// Loops from now on, and shows that on the loop button. The points are not checked: if the end
    /// is not after the start, playback stays at the start. Sends loopChanged().
    void setLoop(lyrabox::LoopRange range);
    /// The last end, in frames, at which a loop of this song jumps back. Behind it the song ends
    /// first.
    quint64 lastLoopEnd() const;
    /// Marks the start of a loop whose end is to come, and shows that on the loop button. Playback
    /// does not loop until setLoop(). Sends loopChanged().
    void markLoopStart(quint64 frame);
    /// Ends the loop, or clears the start mark. loopStartFrame() and loopEndFrame() keep their
    /// values. Sends loopChanged().
    void clearLoop();

    // The fields of the loop one by one. The button does not follow, and no signal is sent.
    quint64 loopStartFrame() const;
    void setLoopStartFrame(quint64 frame);
    quint64 loopEndFrame() const;
    void setLoopEndFrame(quint64 frame);
    bool isLooping() const;
    void setIsLooping(bool looping);
    bool loopStartIsSet() const { return m_loopStartIsSet; }
    void setLoopStartIsSet(bool isSet) { m_loopStartIsSet = isSet; }
    /// Whether playback has reached the song's end. It stays true until it is reset.
    bool trackHasEnded() const;
    void setTrackHasEnded(bool ended);

    /// Whole seconds, truncated toward zero. setCurrentSeconds() does not seek; see
    /// docs/kept-on-purpose.md.
    qint64 currentSeconds() const;
    void setCurrentSeconds(qint64 seconds) { m_currentSeconds = seconds; }
    qint64 totalSeconds() const;

    /// Whether the output plays. engine::setOutputRunning() describes the setter.
    bool isRunning() const;
    void setIsRunning(bool running);

    /// Linear, 0.0 to 1.0. The setter also stores it as the user default "outputVolume".
    float outputVolume() const;
    void setOutputVolume(float volume);

    /// In percent; 100 is normal. The setter also moves the slider and the field. The value reads
    /// back exactly as it was set. Values that are not finite are ignored.
    float playbackSpeedPct() const;
    void setPlaybackSpeedPct(float pct);

    /// In cents. The getter truncates to whole cents. The setter also moves the slider and the
    /// field. Values that are not finite are ignored.
    float playbackPitch() const;
    void setPlaybackPitch(float cents);

    /// The ranges of the speed slider and the pitch slider, in percent and cents. The step buttons
    /// and the fields stay within them. The setters above accept any value.
    lyrabox::ValueRange playbackSpeedRange() const;
    lyrabox::ValueRange playbackPitchRange() const;

    /// The level in dB of an equalizer band. `index` is the equalizer's parameter ID.
    float eqLevelForIndex(quint32 index) const;
    void setEqLevelForIndex(float level, quint32 index);

    /// The reason why nothing can be heard, in words for the user. Empty while there is sound.
    QString soundProblem() const;

    // Loading.
    /// The loaded song, or the song whose load has just failed. Null if the player is empty.
    lyrabox::TrackRecordRef currentTrack() const { return m_currentTrack; }
    /// Stops playback, decodes the song into memory, applies its stored settings and starts if the
    /// play button is on. Blocks. Returns the decoder's status.
    lyrabox::Status loadTrackObject(const lyrabox::TrackRecordRef &track);
    /// Reports the seconds decoded and, if known, the total, while a load takes long.
    void setProgressHook(lyrabox::ProgressHook hook);
    /// Stops playback, drops the song and clears the controls.
    void emptyPlayer();
    /// Runs `change`, which may load songs or empty the player. If a song has just ended, the
    /// frames of it that time/pitch still holds are played to their end, and the next song follows
    /// them.
    void changeAfterWhatIsHeld(const std::function<void()> &change);
    /// Halts the output if the held frames of an ended song have been heard and nothing else plays.
    /// Call it repeatedly, for example with the display's timer.
    void haltWhenPlayedOut();
    /// The samples of the loaded song, or null if there are none. The caller may keep them while
    /// the next song loads.
    std::shared_ptr<const lyrabox::DecodedSong> decodedSong() const;
    /// The song's own artwork, as decodedArtwork() returns it. Null if it has none.
    QImage embeddedArtwork() const;
    /// The song's artwork, or the image named "LBAlbumArt".
    QImage albumArtImage() const;
    /// Clears the loop and the end of the song, and sets normal speed and pitch.
    void resetPlaybackSystem();
    /// Shows on the pop-up button whether the song has stored settings.
    void updateSettingsPopup();

    // Actions, which take the control that sent them.
    void playPauseButtonPressed(lyrabox::StateButton *sender);
    void loopButtonPressed(lyrabox::StateButton *sender);
    void speedButtonPressed(lyrabox::ButtonMatrix *sender);
    void speedSliderMoved(LB_Slider *sender);
    void speedTextChanged(lyrabox::NumberField *sender);
    void pitchButtonPressed(lyrabox::ButtonMatrix *sender);
    void pitchSliderMoved(LB_Slider *sender);
    void pitchTextChanged(lyrabox::NumberField *sender);
    void saveSettings();
    void removeSettings();

Q_SIGNALS:
    // For views elsewhere, such as menus and the desktop. The outlets above are set directly.
    void outputVolumeChanged(float volume);
    void runningChanged(bool running);
    void speedOrPitchChanged();
    /// The loop, its start mark or both were set or cleared.
    void loopChanged();
    /// updateSettingsPopup() was called. The song's record is up to date.
    void songSettingsShown();
    /// setCurrentFrame() or startAtFrame() was called. Not sent for the jump of a loop or for a new
    /// song.
    void positionSet();
    /// The player is about to start, or to start anew, and `frame` will be heard first. A song that
    /// is loaded starts before the notification of its load. Set here what comes before the start.
    void aboutToStart(quint64 frame);
    /// An operation has changed soundProblem(). Not sent if the server stops in the middle of a
    /// song; ask repeatedly for that.
    void soundProblemChanged();

private:
    /// The states of the loop button.
    enum class LoopPhase { Off = 0, StartMarked = -1, Looping = 1 };

    static QString buildFailureText(lyrabox::Status status);
    void setTransportEnabled(bool enabled);
    void showLoop(LoopPhase phase);
    void showLoadedTrack();
    void storeSettings(lyrabox::SongValues values);
    void announceTrackChange();

    FatalErrorHandling m_fatalErrorHandling;
    lyrabox::ImageView *m_albumArtImageView = nullptr;
    LB_ScrollingTextView *m_artistField = nullptr;
    LB_ScrollingTextView *m_titleField = nullptr;
    lyrabox::StateButton *m_loopButton = nullptr;
    lyrabox::StateButton *m_playPauseButton = nullptr;
    lyrabox::StateButton *m_seekBackwardButton = nullptr;
    lyrabox::StateButton *m_seekForwardButton = nullptr;
    LB_Slider *m_outputVolumeSlider = nullptr;
    lyrabox::ButtonMatrix *m_playbackPitchMatrix = nullptr;
    LB_Slider *m_playbackPitchSlider = nullptr;
    lyrabox::NumberField *m_playbackPitchTextField = nullptr;
    lyrabox::ButtonMatrix *m_playbackSpeedMatrix = nullptr;
    LB_Slider *m_playbackSpeedSlider = nullptr;
    lyrabox::NumberField *m_playbackSpeedTextField = nullptr;
    LB_PopUpButtonCell *m_settingsPopup = nullptr;
    LB_SettingsController *m_settings = nullptr;
    lyrabox::TrackRecordRef m_currentTrack;
    qint64 m_currentSeconds = 0;
    bool m_loopStartIsSet = false;
    float m_speedPct = 100.0F;        ///< as it was set last
    mutable QByteArray m_artworkData; ///< the source of m_artwork
    mutable QImage m_artwork;
};
