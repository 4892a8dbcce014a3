#include "engine/LB_AudioController.h"

#include "engine/Artwork.h"
#include "engine/AudioEngine.h"
#include "engine/TransportRules.h"
#include "platform/audio/AudioUnit.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/NamedImage.h"
#include "settings/LB_SettingsController.h"

#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QScopeGuard>

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;
namespace engine = lyrabox::engine;
namespace transport = lyrabox::transport;

namespace {

constexpr double titleFontSize = 22.0;
constexpr double artistFontSize = 16.0;

/// Ends the editing of a text field, which commits its text. Other controls keep the keyboard.
void makeWindowFirstResponder(const QWidget *control)
{
    if (auto *field = qobject_cast<QLineEdit *>(control->window()->focusWidget()))
        field->clearFocus();
}

} // namespace

void LB_AudioController::showAlert(const QString &description, const QString &recoverySuggestion)
{
    QMessageBox alert(QMessageBox::Critical, QApplication::applicationDisplayName(), description);
    alert.setTextFormat(Qt::PlainText);
    alert.setInformativeText(recoverySuggestion);
    alert.exec();
}

LB_AudioController::LB_AudioController(FatalErrorHandling handling, QObject *parent)
    : LB_AudioController(std::move(handling),
                         std::async(std::launch::deferred, &engine::buildAudioSystem), parent)
{}

LB_AudioController::LB_AudioController(FatalErrorHandling handling,
                                       std::future<lyrabox::Status> building, QObject *parent)
    : QObject(parent), m_fatalErrorHandling(std::move(handling))
{
    engine::setSoundStatusHook([this] {
        QMetaObject::invokeMethod(this, &LB_AudioController::soundProblemChanged,
                                  Qt::QueuedConnection);
    });
    const lyrabox::Status status = building.get();
    if (status == lyrabox::status::noError)
        return;
    m_fatalErrorHandling.present(buildFailureText(status), tr("The program will now terminate"));
    m_fatalErrorHandling.terminate();
}

LB_AudioController::~LB_AudioController()
{
    engine::setLoadProgressHook({});
    engine::setSoundStatusHook({});
    engine::tearDownAudioSystem();
}

void LB_AudioController::awakeFromNib()
{
    // A stored 0 becomes full volume: docs/kept-on-purpose.md.
    const float storedVolume =
        lyrabox::userDefaults().value(lyrabox::defaultsKey::outputVolume).toFloat();
    setOutputVolume(storedVolume != 0.0F ? storedVolume : 1.0F);
    m_titleField->setFontSize(titleFontSize);
    m_artistField->setFontSize(artistFontSize);
    m_albumArtImageView->setImage(albumArtImage());

    using Highlight = lyrabox::StateButton::Highlight;
    m_playPauseButton->setHighlightMode(Highlight::PushIn);
    m_settingsPopup->setHighlightMode(Highlight::PushIn);
    m_loopButton->setHighlightMode(Highlight::None);
    for (auto *button : {static_cast<lyrabox::StateButton *>(m_playPauseButton), m_loopButton,
                         m_seekForwardButton, m_seekBackwardButton})
        button->setImageDimsWhenDisabled(false);
    setTransportEnabled(false);

    updateSettingsPopup();
    resetPlaybackSystem();
    setIsRunning(false);
}

QString LB_AudioController::buildFailureText(lyrabox::Status status)
{
    return tr("Lyrabox cannot build its audio system. (Error %1)").arg(status);
}

QString LB_AudioController::soundProblem() const
{
    const lyrabox::Status status = engine::soundStatus();
    if (status == lyrabox::status::noError)
        return {};
    return status == lyrabox::status::soundServerHangs
               ? tr("No sound: the sound server does not answer")
               : buildFailureText(status);
}

void LB_AudioController::setTransportEnabled(bool enabled)
{
    m_loopButton->setEnabled(enabled);
    m_seekBackwardButton->setEnabled(enabled);
    m_seekForwardButton->setEnabled(enabled);
}

lyrabox::Status LB_AudioController::loadTrackObject(const lyrabox::TrackRecordRef &track)
{
    setIsRunning(false);
    if (m_playPauseButton->state() != 0)
        engine::expectOutputStart();
    m_currentTrack = track;
    const lyrabox::Status status = engine::loadAudioFile(track ? track->fileURL : QUrl());
    if (status == lyrabox::status::noError && m_currentTrack)
        showLoadedTrack();
    announceTrackChange();
    return status;
}

void LB_AudioController::setProgressHook(lyrabox::ProgressHook hook)
{
    engine::setLoadProgressHook(std::move(hook));
}

void LB_AudioController::showLoadedTrack()
{
    const lyrabox::TrackRecordRef track = m_currentTrack;
    m_titleField->setString(track->title.value_or(QString()));
    m_artistField->setString(transport::artistLine(track->artist, track->album));
    m_albumArtImageView->setImage(albumArtImage());
    setTransportEnabled(true);
    resetPlaybackSystem();
    if (track->hasSettings) {
        const lyrabox::SongValues values = m_settings->valuesForInode(track->inode);
        setPlaybackSpeedPct(values.speed);
        setPlaybackPitch(values.pitch);
    }
    updateSettingsPopup();
    setIsRunning(m_playPauseButton->state() != 0);
}

void LB_AudioController::emptyPlayer()
{
    setIsRunning(false);
    engine::emptyAudioBuffers();
    m_currentTrack.reset();
    m_titleField->setString({});
    m_artistField->setString({});
    m_albumArtImageView->setImage(albumArtImage());
    setTransportEnabled(false);
    updateSettingsPopup();
    m_playPauseButton->setState(0);
    resetPlaybackSystem();
    announceTrackChange();
}

void LB_AudioController::changeAfterWhatIsHeld(const std::function<void()> &change)
{
    engine::setHeldSoundIsKept(true);
    const auto end = qScopeGuard([] { engine::setHeldSoundIsKept(false); });
    change();
}

void LB_AudioController::haltWhenPlayedOut()
{
    engine::haltWhenPlayedOut();
}

void LB_AudioController::announceTrackChange()
{
    lyrabox::NotificationCenter::defaultCenter().postCoalescingOnName(
        lyrabox::notification::currentTrackChanged);
}

QImage LB_AudioController::embeddedArtwork() const
{
    // Decoded once per song. As long as it is the same song, both share one buffer.
    const QByteArray data = engine::albumArtData();
    if (data.constData() != m_artworkData.constData() || data.size() != m_artworkData.size()) {
        m_artwork = lyrabox::decodedArtwork(data);
        m_artworkData = data;
    }
    return m_artwork;
}

QImage LB_AudioController::albumArtImage() const
{
    const QImage artwork = embeddedArtwork();
    if (!artwork.isNull())
        return artwork;
    const qreal ratio = m_albumArtImageView ? m_albumArtImageView->devicePixelRatioF() : 1.0;
    return lyrabox::NamedImage(u"LBAlbumArt"_s).pixmap(ratio).toImage();
}

void LB_AudioController::resetPlaybackSystem()
{
    setTrackHasEnded(false);
    showLoop(LoopPhase::Off);
    setLoopEndFrame(0);
    setLoopStartFrame(0);
    setIsLooping(false);
    setLoopStartIsSet(false);
    setPlaybackSpeedPct(transport::normalSpeed);
    setPlaybackPitch(transport::normalPitch);
    Q_EMIT loopChanged();
}

void LB_AudioController::updateSettingsPopup()
{
    const bool hasSettings = m_currentTrack && m_currentTrack->hasSettings;
    m_settingsPopup->setFirstItemImage(
        lyrabox::NamedImage(hasSettings ? u"SettingsButtonOn"_s : u"SettingsButtonOff"_s));
    Q_EMIT songSettingsShown();
}

void LB_AudioController::playPauseButtonPressed(lyrabox::StateButton *sender)
{
    if (m_currentTrack)
        setIsRunning(sender->state() != 0);
    else
        lyrabox::NotificationCenter::defaultCenter().post(
            lyrabox::notification::playPressedOnEmpty);
}

void LB_AudioController::loopButtonPressed(lyrabox::StateButton *sender)
{
    // The button has advanced already, and its new state says what to do: docs/kept-on-purpose.md.
    switch (LoopPhase{sender->state()}) {
    case LoopPhase::StartMarked:
        markLoopStart(currentFrame());
        break;
    case LoopPhase::Looping:
        setLoop({.start = loopStartFrame(), .end = currentFrame()});
        break;
    case LoopPhase::Off:
        clearLoop();
        break;
    }
}

void LB_AudioController::markLoopStart(quint64 frame)
{
    setLoopStartFrame(frame);
    setIsLooping(false);
    setLoopStartIsSet(true);
    showLoop(LoopPhase::StartMarked);
    Q_EMIT loopChanged();
}

void LB_AudioController::setLoop(lyrabox::LoopRange range)
{
    // The callback must not see the start of one loop with the end of another.
    if (loopStartFrame() != range.start || loopEndFrame() != range.end)
        setIsLooping(false);
    setLoopStartFrame(range.start);
    setLoopEndFrame(range.end);
    setIsLooping(true);
    setLoopStartIsSet(true);
    showLoop(LoopPhase::Looping);
    Q_EMIT loopChanged();
}

quint64 LB_AudioController::lastLoopEnd() const
{
    // The song ends when two slices are left. The loop's end is looked for once per slice, so it
    // may be overshot by nearly one more.
    constexpr quint64 margin = 3 * lyrabox::TimePitchUnit::sliceFrames;
    const quint64 total = totalFrames();
    return total - std::min(total, margin);
}

void LB_AudioController::clearLoop()
{
    setIsLooping(false);
    setLoopStartIsSet(false);
    showLoop(LoopPhase::Off);
    Q_EMIT loopChanged();
}

void LB_AudioController::showLoop(LoopPhase phase)
{
    m_loopButton->setState(static_cast<int>(phase));
    const QString image = phase == LoopPhase::Off           ? u"LoopButton1"_s
                          : phase == LoopPhase::StartMarked ? u"LoopButton2"_s
                                                            : u"LoopButton3"_s;
    m_loopButton->setImage(lyrabox::NamedImage(image));
}

void LB_AudioController::speedButtonPressed(lyrabox::ButtonMatrix *sender)
{
    makeWindowFirstResponder(sender);
    setPlaybackSpeedPct(playbackSpeedRange().clamped(transport::stepped(
        sender->selectedTag(), playbackSpeedPct(), transport::speedStep, transport::normalSpeed)));
}

void LB_AudioController::pitchButtonPressed(lyrabox::ButtonMatrix *sender)
{
    makeWindowFirstResponder(sender);
    setPlaybackPitch(playbackPitchRange().clamped(transport::stepped(
        sender->selectedTag(), playbackPitch(), transport::pitchStep, transport::normalPitch)));
}

void LB_AudioController::speedSliderMoved(LB_Slider *sender)
{
    // The value is read first, because ending the editing may move the slider.
    const float value = sender->floatValue();
    makeWindowFirstResponder(m_playbackSpeedMatrix);
    setPlaybackSpeedPct(value);
}

void LB_AudioController::pitchSliderMoved(LB_Slider *sender)
{
    const float value = sender->floatValue();
    makeWindowFirstResponder(m_playbackPitchSlider);
    setPlaybackPitch(value);
}

void LB_AudioController::speedTextChanged(lyrabox::NumberField *sender)
{
    const float value = sender->floatValue();
    if (transport::isAcceptedEntry(value))
        setPlaybackSpeedPct(playbackSpeedRange().clamped(value));
    else
        sender->setFloatValue(playbackSpeedPct());
}

void LB_AudioController::pitchTextChanged(lyrabox::NumberField *sender)
{
    const float value = sender->floatValue();
    if (transport::isAcceptedEntry(value))
        setPlaybackPitch(playbackPitchRange().clamped(value));
    else
        sender->setFloatValue(playbackPitch());
}

void LB_AudioController::saveSettings()
{
    storeSettings({.speed = playbackSpeedPct(), .pitch = playbackPitch()});
}

void LB_AudioController::removeSettings()
{
    storeSettings({.speed = transport::normalSpeed, .pitch = transport::normalPitch});
}

void LB_AudioController::storeSettings(lyrabox::SongValues values)
{
    if (!m_currentTrack)
        return;
    // Kept alive, because an observer of the settings may change the track.
    const lyrabox::TrackRecordRef track = m_currentTrack;
    track->hasSettings = m_settings->setValuesForInode(values, track->inode);
    updateSettingsPopup();
}
