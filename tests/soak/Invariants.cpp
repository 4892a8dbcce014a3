#include "soak/Invariants.h"

#include "app/controls/LB_Slider.h"
#include "app/practice/Metronome.h"
#include "app/practice/PracticePane.h"
#include "app/practice/SongBeats.h"
#include "app/practice/SongPractice.h"
#include "app/practice/SongSound.h"
#include "app/practice/TrainerRun.h"
#include "engine/AudioEngine.h"
#include "engine/ClicksAndLeadIns.h"
#include "engine/LB_AudioController.h"
#include "engine/SongChannels.h"
#include "library/LB_QueueController.h"
#include "library/TrackTableModel.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/NumberField.h"
#include "platform/ui/Popover.h"
#include "platform/ui/StateButton.h"
#include "settings/LB_SettingsController.h"
#include "soak/PresetWatch.h"
#include "soak/Widgets.h"

#include <QItemSelectionModel>
#include <QLabel>
#include <QTableView>
#include <QTreeView>

#include <algorithm>
#include <cmath>
#include <set>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::soak {
namespace {

/// Half of the last decimal that the fields show.
constexpr float fieldPrecision = 0.051F;

class Findings {
public:
    void require(bool holds, const QString &what)
    {
        if (!holds)
            m_broken.append(what);
    }
    void requireNear(float a, float b, float tolerance, const QString &what)
    {
        require(std::abs(a - b) <= tolerance, u"%1: %2 and %3"_s.arg(what).arg(a).arg(b));
    }
    QStringList broken() const { return m_broken; }

private:
    QStringList m_broken;
};

/// A field shows the typed text while it is being edited.
void requireField(Findings &findings, const NumberField *field, float value)
{
    // Typed text stays while another window has the keyboard.
    if (field->window()->focusWidget() != field)
        findings.requireNear(field->floatValue(), value, fieldPrecision,
                             u"the field %1 and its value differ"_s.arg(field->objectName()));
}

void checkPosition(Findings &findings, const LB_AudioController &audio)
{
    const quint64 total = audio.totalFrames();
    findings.require(audio.currentFrame() <= total,
                     u"the position %1 is past the end %2"_s.arg(audio.currentFrame()).arg(total));
    findings.require(audio.loopStartFrame() <= total, u"the loop starts past the end"_s);
    findings.require(audio.loopEndFrame() <= total, u"the loop ends past the end"_s);
    findings.require(audio.currentTrack() != nullptr || total == 0,
                     u"there are samples without a song"_s);
}

void checkButtons(Findings &findings, const LB_AudioController &audio,
                  const LB_QueueController &queue)
{
    const bool loaded = audio.currentTrack() != nullptr;
    const int loop = audio.loopButton()->state();
    findings.require(audio.isLooping() == (loop == 1),
                     u"the loop button does not match the loop"_s);
    findings.require(audio.loopStartIsSet() == (loop != 0),
                     u"the loop button does not match the loop's start"_s);
    for (const StateButton *button :
         {audio.loopButton(), audio.seekBackwardButton(), audio.seekForwardButton()})
        findings.require(button->isEnabled() == loaded,
                         button->objectName() + u" must be enabled only while a song is loaded"_s);
    const bool plays = audio.playPauseButton()->state() != 0;
    // If the last songs of the queue cannot be loaded, the play button stays on without sound, and
    // a message explains it.
    const bool hasFailed = !queue.errorField()->text().isEmpty() && !audio.isRunning();
    findings.require(
        audio.isRunning() == (plays && loaded) || hasFailed,
        u"the play button (%1) does not match the sound (%2)"_s.arg(plays).arg(audio.isRunning()));
}

void checkValues(Findings &findings, const LB_AudioController &audio)
{
    const auto checkPair = [&](const LB_Slider *slider, const NumberField *field, float value,
                               float tolerance) {
        findings.require(value >= static_cast<float>(slider->minValue()) - tolerance &&
                             value <= static_cast<float>(slider->maxValue()) + tolerance,
                         slider->objectName() + u" is outside its range"_s);
        findings.requireNear(slider->floatValue(), value, tolerance,
                             slider->objectName() + u" and its value differ"_s);
        if (field != nullptr)
            requireField(findings, field, value);
    };
    checkPair(audio.playbackSpeedSlider(), audio.playbackSpeedTextField(), audio.playbackSpeedPct(),
              0.01F);
    // Pitch is read in whole cents.
    checkPair(audio.playbackPitchSlider(), nullptr, audio.playbackPitch(), 1.0F);
    checkPair(audio.outputVolumeSlider(), nullptr, audio.outputVolume(), 0.001F);
    findings.requireNear(userDefaults().value(defaultsKey::outputVolume, -1.0F).toFloat(),
                         audio.outputVolume(), 0.001F, u"the volume and its default differ"_s);
}

void checkPresets(Findings &findings, const LB_AudioController &audio)
{
    const std::shared_ptr<EqPresetList> presets = audio.settings()->eqPresetArray();
    std::set<qint64> ids;
    for (const EqPresetRef &preset : *presets) {
        findings.require(ids.insert(preset->id).second,
                         u"two presets have the id %1"_s.arg(preset->id));
        findings.require(preset->levels != nullptr && preset->levels->size() == EqPreset::bands,
                         u"the preset %1 does not have ten bands"_s.arg(preset->name));
        for (const float level : *preset->levels)
            findings.require(level >= -12.0F && level <= 12.0F,
                             u"the preset %1 has a level %2"_s.arg(preset->name).arg(level));
    }
    findings.require(ids.contains(0), u"there is no manual preset"_s);

    const auto *table = widget<QTableView>(u"presetTableView"_s);
    const QModelIndexList rows = table->selectionModel()->selectedRows();
    findings.require(table->model()->rowCount() == static_cast<int>(presets->size()),
                     u"the preset list does not show the presets"_s);
    findings.require(rows.size() == 1, u"%1 presets are selected"_s.arg(rows.size()));
    const qint64 selected = userDefaults().value(defaultsKey::eqPreset, -1).toLongLong();
    const auto preset = std::find_if(presets->begin(), presets->end(),
                                     [&](const EqPresetRef &p) { return p->id == selected; });
    findings.require(preset != presets->end(), u"the remembered preset does not exist"_s);
    if (rows.size() != 1 || preset == presets->end())
        return;
    findings.require(rows.first().data().toString() == (*preset)->name,
                     u"the remembered preset is not the selected one"_s);
    for (std::uint32_t band = 0; band < EqPreset::bands; ++band) {
        const float level = audio.eqLevelForIndex(3 * band + 2);
        const QString number = QString::number(band);
        findings.requireNear((*(*preset)->levels)[band], level, 0.001F,
                             u"band %1 of preset and engine differ"_s.arg(number));
        findings.requireNear(widget<LB_Slider>(u"slider"_s + number)->floatValue(), level, 0.001F,
                             u"slider and band %1 differ"_s.arg(number));
        requireField(findings, widget<NumberField>(u"box"_s + number), level);
    }
}

/// The popover must ask about the row that is selected behind it.
void checkPopovers(Findings &findings, const LB_AudioController &audio)
{
    const auto question = [](const QString &windowName) {
        const auto *window = topLevel(windowName);
        const auto *popover = window != nullptr ? window->findChild<Popover *>() : nullptr;
        return popover != nullptr && popover->isShown() ? popover->accessibleName() : QString();
    };
    const auto *table = widget<QTableView>(u"presetTableView"_s);
    const QString preset = table->selectionModel()->selectedRows().value(0).data().toString();
    const qint64 selected = userDefaults().value(defaultsKey::eqPreset, -1).toLongLong();
    const std::shared_ptr<EqPresetList> presets = audio.settings()->eqPresetArray();
    const bool isBuiltIn =
        std::any_of(presets->begin(), presets->end(), [&](const EqPresetRef &record) {
            return record->id == selected && record->persistent;
        });
    const QString ofPreset = question(u"EqualizerWindow"_s);
    if (!ofPreset.isEmpty())
        findings.require(
            ofPreset == (isBuiltIn ? u"Enter a name for the new preset"_s
                                   : u"Remove preset '%1'?"_s.arg(preset)),
            u"the popover says \"%1\" while \"%2\" is selected"_s.arg(ofPreset, preset));
    const QString ofFolder = question(u"MainWindow"_s);
    if (ofFolder.startsWith(u"Remove"_s)) {
        const auto *tree = widget<QTreeView>(u"folderOutlineView"_s);
        const QModelIndex row = tree->selectionModel()->selectedRows().value(0);
        findings.require(ofFolder == u"Remove folder '%1'?"_s.arg(row.data().toString()) &&
                             !row.parent().isValid(),
                         u"the popover says \"%1\" while \"%2\" is selected"_s.arg(
                             ofFolder, row.data().toString()));
    }
}

void checkQueue(Findings &findings, const LB_QueueController &queue)
{
    // Play on an empty list empties only `content`.
    findings.require(queue.content().empty() ||
                         queue.content().size() == queue.orderedArray().size(),
                     u"the queue has lost or gained songs"_s);
    const bool shuffling = widget<StateButton>(u"shuffleButton"_s)->state() == 1;
    findings.require(shuffling == queue.isShuffling(),
                     u"the shuffle button does not match the queue"_s);
    // A rebuilt list may lack the loaded song. The index then stays.
    const TrackRecordRef track = queue.audio()->currentTrack();
    const auto isLoaded = [&](const TrackRecordRef &record) {
        return record->inode == track->inode;
    };
    if (track && queue.currentIndex() < queue.content().size() &&
        std::any_of(queue.content().begin(), queue.content().end(), isLoaded))
        findings.require(isLoaded(queue.content()[queue.currentIndex()]),
                         u"the queue's song is not the one that is loaded"_s);
}

void checkList(Findings &findings, const LB_AudioController &audio)
{
    const auto *table = widget<QTableView>(u"trackTableView"_s);
    const auto *model = qobject_cast<const TrackTableModel *>(table->model());
    if (model == nullptr)
        return;
    const TrackRecordRef current = audio.currentTrack();
    for (const TrackRecordRef &track : model->arrangedObjects()) {
        findings.require(track->isPlaying == (current && current->inode == track->inode),
                         u"the playing mark of %1 is wrong"_s.arg(track->inode));
        findings.require(track->hasSettings == audio.settings()->hasSettingsForInode(track->inode),
                         u"the settings mark of %1 is wrong"_s.arg(track->inode));
    }
    if (current)
        findings.require(current->hasSettings ==
                             audio.settings()->hasSettingsForInode(current->inode),
                         u"the settings mark of the loaded song is wrong"_s);
}

void checkRecord(Findings &findings, const PracticeRecord &record)
{
    std::set<PracticeId> ids;
    for (const PracticeLoop &loop : record.loops) {
        findings.require(ids.insert(loop.id).second, u"a loop is there twice"_s);
        findings.require(loop.from < loop.to, u"the loop %1 has no length"_s.arg(loop.name));
    }
    for (const PracticeMarker &marker : record.markers)
        findings.require(ids.insert(marker.id).second, u"a marker is there twice"_s);
    findings.require(std::ranges::is_sorted(record.loops, {}, &PracticeLoop::from),
                     u"the loops are not in order"_s);
    findings.require(std::ranges::is_sorted(record.markers, {}, &PracticeMarker::at),
                     u"the markers are not in order"_s);
    findings.require(record.loops.size() <= PracticeLimits::loops &&
                         record.markers.size() <= PracticeLimits::markers,
                     u"there are too many loops or markers"_s);
}

void checkMetronome(Findings &findings, const PracticePane &pane)
{
    const Metronome &metronome = *pane.metronome();
    const bool clicks = metronome.clickIsOn() && pane.practice()->isOpen() &&
                        !metronome.beats().isEmpty() && engine::totalFrames() > 0;
    findings.require((engine::clicks() != nullptr) == clicks,
                     clicks ? u"the click is not heard"_s : u"there are clicks without a reason"_s);
}

/// The trainer sets the speed while it runs, of the loop that is called up.
void checkTrainer(Findings &findings, const TrainerRun &trainer, const SongPractice &practice,
                  const LB_AudioController &audio)
{
    const TrainerStrip &strip = trainer.strip();
    findings.require(strip.isRunning == trainer.isRunning(),
                     u"the trainer's strip does not say whether it runs"_s);
    if (!trainer.isRunning())
        return;
    findings.require(trainer.loop() == practice.calledUp(),
                     u"the trainer has another loop than the player"_s);
    findings.requireNear(audio.playbackSpeedPct(), static_cast<float>(strip.speed), 0.001F,
                         u"the trainer's speed and the player's differ"_s);
    findings.require(std::ranges::is_sorted(trainer.ladder()) && !trainer.ladder().empty(),
                     u"the ladder is not in order"_s);
    findings.require(strip.passesDone >= 0 && strip.passesDone <= strip.passesNeeded,
                     u"the trainer has counted %1 passes"_s.arg(strip.passesDone));
}

/// The engine does with the channels what the song's record says, unless the original is compared.
void checkSound(Findings &findings, const SongSound &sound)
{
    findings.require(engine::channelTools() == sound.tools(),
                     u"the song is not heard with its channel tools"_s);
    findings.require(sound.kept() == cleanChannelTools(sound.kept()),
                     u"the channel tools are beyond their ranges"_s);
    findings.require(!sound.originalIsHeard() || !sound.kept().isNeutral(),
                     u"the original is compared with itself"_s);
}

void checkPractice(Findings &findings, const LB_AudioController &audio)
{
    auto *pane = widget<PracticePane>(u"practicePane"_s);
    if (pane == nullptr)
        return;
    checkMetronome(findings, *pane);
    checkSound(findings, *pane->sound());
    const SongPractice &practice = *pane->practice();
    checkTrainer(findings, *pane->trainer(), practice, audio);
    const PracticeRecord &record = practice.record();
    checkRecord(findings, record);
    findings.require(practice.store().hasSong() || record.loops.empty(),
                     u"there are loops without a song"_s);
    findings.require(!practice.store().hasSong() || audio.totalFrames() > 0,
                     u"a song is open that is not loaded"_s);
    const BeatGrid &grid = record.beats.grid;
    findings.require(grid == BeatGrid(grid.anchors()), u"the beats are not in order"_s);
    findings.require(grid.isEmpty() || pane->beats()->suggestion().isEmpty(),
                     u"beats are suggested although the song has some"_s);
    findings.require(pane->beats()->suggestion().isEmpty() || pane->peaks().frames() > 0,
                     u"beats are suggested without a song"_s);
    if (const auto selected = practice.selection())
        findings.require(record.loop(*selected) || record.marker(*selected),
                         u"what is selected does not exist"_s);
    if (!practice.calledUp())
        return;
    const PracticeLoop *loop = practice.calledUpLoop();
    findings.require(loop != nullptr, u"the loop that is called up does not exist"_s);
    if (loop == nullptr)
        return;
    // A loop to the end of the song is repeated a little before the end.
    const quint64 last = audio.lastLoopEnd();
    const quint64 end = loop->from < last ? std::min<quint64>(loop->to, last) : loop->to;
    findings.require(audio.loop() == LoopRange{.start = loop->from, .end = end},
                     u"the player does not repeat the loop that is called up"_s);
}

} // namespace

QStringList brokenInvariants()
{
    const LB_NavigationView *navigation = navigationView();
    if (navigation == nullptr || navigation->audio() == nullptr)
        return {}; // The program has not been launched yet.
    Findings findings;
    const LB_AudioController &audio = *navigation->audio();
    checkPosition(findings, audio);
    checkPractice(findings, audio);
    checkButtons(findings, audio, *navigation->queue());
    checkValues(findings, audio);
    checkPresets(findings, audio);
    checkPopovers(findings, audio);
    for (const QString &lost : lostPresets(*audio.settings()->eqPresetArray()))
        findings.require(false, u"the preset \"%1\" is lost"_s.arg(lost));
    checkQueue(findings, *navigation->queue());
    checkList(findings, audio);
    return findings.broken();
}

void writeSettings()
{
    if (const LB_NavigationView *navigation = navigationView())
        navigation->audio()->settings()->appWillTerminate();
}

} // namespace lyrabox::soak
