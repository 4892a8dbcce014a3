#include "app/practice/PracticePane.h"

#include "app/practice/ArrowButton.h"
#include "app/practice/BeatCommands.h"
#include "app/practice/BeatPage.h"
#include "app/practice/LoopCommands.h"
#include "app/practice/LoopEnds.h"
#include "app/practice/LoopList.h"
#include "app/practice/LoopListModel.h"
#include "app/practice/LoopsPage.h"
#include "app/practice/Metronome.h"
#include "app/practice/MetronomeButtons.h"
#include "app/practice/MetronomeCommands.h"
#include "app/practice/OverviewBar.h"
#include "app/practice/PaneDivider.h"
#include "app/practice/PaneLayout.h"
#include "app/practice/PracticeFooter.h"
#include "app/practice/PracticeHeader.h"
#include "app/practice/PracticeLane.h"
#include "app/practice/PracticePages.h"
#include "app/practice/PracticeSharing.h"
#include "app/practice/RotationBox.h"
#include "app/practice/SharingBar.h"
#include "app/practice/SnapButton.h"
#include "app/practice/SongBeats.h"
#include "app/practice/SongCopies.h"
#include "app/practice/SongPractice.h"
#include "app/practice/SongSound.h"
#include "app/practice/SongTones.h"
#include "app/practice/SoundCommands.h"
#include "app/practice/SoundPage.h"
#include "app/practice/TempoReadout.h"
#include "app/practice/TextButton.h"
#include "app/practice/TrainerCommands.h"
#include "app/practice/TrainerLadder.h"
#include "app/practice/TrainerPage.h"
#include "app/practice/TrainerRun.h"
#include "app/practice/WaveCommands.h"
#include "app/practice/WaveView.h"
#include "engine/LB_AudioController.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/ui/MenuText.h"
#include "platform/ui/Theme.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace lyrabox {

namespace {
constexpr QColor paneBackground = Theme::sidebar;

/// The present speed and pitch, which a loop can keep.
std::function<LoopList::Sound()> soundOf(const LB_AudioController *audio)
{
    return [audio] {
        return LoopList::Sound{static_cast<int>(std::lround(audio->playbackSpeedPct())),
                               static_cast<int>(std::lround(audio->playbackPitch()))};
    };
}

} // namespace

PracticePane::PracticePane(LB_AudioController *audio, SongPractice *practice, Metronome *metronome,
                           SongSound *sound, std::function<void(quint64)> seek, QWidget *parent)
    : QWidget(parent),
      m_audio(audio),
      m_practice(practice),
      m_metronome(metronome),
      m_sound(sound),
      m_beats(new SongBeats(audio, practice, &m_peaks, this)),
      m_tones(new SongTones(audio, practice, &m_peaks, sound, this)),
      m_copies(new SongCopies(practice, &m_peaks, this)),
      m_sharing(new PracticeSharing(practice, m_copies, &m_peaks, this)),
      m_divider(new PaneDivider(this)),
      m_header(new PracticeHeader(this)),
      m_wave(new WaveView(audio, practice, &m_peaks, std::move(seek), this)),
      m_lane(new PracticeLane(m_wave, &m_peaks, &practice->store())),
      m_overview(new OverviewBar(m_wave, &m_peaks, this)),
      m_pages(new PracticePages(this)),
      m_loops(new LoopsPage(practice, soundOf(audio), this)),
      m_sharingBar(new SharingBar(m_sharing, this)),
      m_footer(new PracticeFooter(practice, this)),
      m_trainer(new TrainerRun(audio, practice, this)),
      m_trainerPage(new TrainerPage(m_trainer, practice, this))
{
    setObjectName(QStringLiteral("practicePane"));
    setAccessibleName(tr("Practice"));
    QPalette colors = palette();
    colors.setColor(QPalette::Window, paneBackground);
    setPalette(colors);
    setAutoFillBackground(true);

    auto *loopCommands = new LoopCommands(audio, practice, &m_peaks, this);
    connect(loopCommands, &LoopCommands::removeWanted, m_loops->list(), &LoopList::deleteSelection);
    addCommands(loopCommands);
    addCommands(new WaveCommands(m_wave, this));
    addBeats();
    addMetronome();
    m_pages->addPage(tr("Loops"), m_loops);
    addTrainer();
    addBeatPage();
    addSound();
    fillHeader();

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_divider);
    column->addWidget(m_header);
    column->addLayout(makeMiddle(), 1);
    column->addWidget(m_sharingBar);
    column->addWidget(m_footer);

    connect(audio, &LB_AudioController::loopChanged, this, &PracticePane::showLoop);
    connect(&m_peaks, &SongPeaks::songChanged, this, &PracticePane::showLoop);
    NotificationCenter::defaultCenter().addObserver(this, notification::currentTrackChanged,
                                                    [this] { takeSong(); });
    connectLoops(practice);
    connect(this, &PracticePane::commandsChanged, this, &PracticePane::updateButtons);
    showLoop();
    updateButtons();
}

PracticePane::~PracticePane()
{
    // They use the peaks, which are destroyed before the children of a widget. The lane is a child
    // of the wave.
    delete m_overview;
    delete m_wave;
    delete m_tones;
    delete m_beats;
    delete m_sharing;
    delete m_copies;
}

QLayout *PracticePane::makeMiddle()
{
    auto *waves = new QVBoxLayout;
    waves->setSpacing(4);
    waves->addWidget(m_overview);
    waves->addWidget(m_wave, 1);
    waves->addSpacing(4);
    const auto makeButton = [this](const QString &text, PracticeCommand command, int argument) {
        return addButton(text, command, argument);
    };
    waves->addWidget(new LoopEnds(m_audio, m_practice, makeButton, this));
    waves->addWidget(new TrainerLadder(m_trainer, this));
    m_loops->addButton(addButton(QStringLiteral("+"), PracticeCommand::KeepLoop));
    m_loops->addButton(addButton(QStringLiteral("+ ⚑"), PracticeCommand::AddMarker));
    m_loops->addButton(addButton(QStringLiteral("−"), PracticeCommand::Remove));
    auto *middle = new QHBoxLayout;
    middle->setContentsMargins(paneLayout::sideMargin, 4, paneLayout::sideMargin, Theme::grid);
    middle->setSpacing(paneLayout::sideMargin);
    middle->addLayout(waves, 1);
    middle->addWidget(m_pages);
    return middle;
}

void PracticePane::connectLoops(SongPractice *practice)
{
    connect(m_loops, &LoopsPage::wanted, m_pages, [this] { m_pages->showPage(m_loops); });
    connect(m_lane, &PracticeLane::playRequested, practice,
            [practice](PracticeId id) { practice->play(id); });
    connect(m_lane, &PracticeLane::seekRequested, practice,
            [practice](PracticeId id) { practice->seekTo(id); });
    const auto showCalledUp = [this, practice] { m_lane->setCalledUp(practice->calledUp()); };
    connect(practice, &SongPractice::calledUpChanged, m_lane, showCalledUp);
    showCalledUp();
    connect(practice, &SongPractice::calledUpChanged, this, &PracticePane::showLoop);
    connect(&practice->store(), &PracticeStore::recordChanged, this, &PracticePane::showLoop);
    const auto showSong = [this] { m_loops->setSongFrames(m_peaks.frames()); };
    connect(&m_peaks, &SongPeaks::songChanged, m_loops, showSong);
    showSong();
}

void PracticePane::addCommands(CommandSet *commands)
{
    m_commands.append(commands);
    connect(commands, &CommandSet::changed, this, &PracticePane::commandsChanged);
}

void PracticePane::addMetronome()
{
    auto *commands = new MetronomeCommands(m_metronome, this);
    addCommands(commands);
    m_metronomeButtons = new MetronomeButtons(m_metronome, commands, this);
    adoptButton(m_metronomeButtons->click(), {}, PracticeCommand::Click);
    adoptButton(m_metronomeButtons->countIn(), {}, PracticeCommand::CountIn);
    m_header->addLeft(m_metronomeButtons->click());
    m_header->addLeft(m_metronomeButtons->countIn());
    connect(m_metronome, &Metronome::changed, this, &PracticePane::showLoop);
}

void PracticePane::addTrainer()
{
    m_trainer->setBeforePassHandler(
        [this](std::optional<BeforePass> before) { m_metronome->setBeforePass(before); });
    RotationBox *rotation = m_trainerPage->rotation();
    addCommands(new TrainerCommands(m_trainer, rotation, this));
    m_pages->addPage(tr("Trainer"), m_trainerPage);
    const auto makeSwitch = [this](const QString &text, PracticeCommand command) {
        TextButton *button = addButton(text, command);
        button->setCheckable(true);
        return button;
    };
    m_header->addLeft(makeSwitch(tr("Trainer"), PracticeCommand::Train));
    m_trainerPage->addButton(addButton(tr("Missed"), PracticeCommand::PassMissed));
    m_trainerPage->addButton(addButton(tr("Right"), PracticeCommand::PassRight));
    m_trainerPage->addRotationButton(makeSwitch(tr("Rotate"), PracticeCommand::Rotate));
}

/// The tempo in the header, the beats in the wave, and their page.
void PracticePane::addBeats()
{
    m_wave->setBeats(m_beats);
    addCommands(new BeatCommands(m_beats, m_wave, this));
    m_header->addLeft(new TempoReadout(m_audio, m_beats, m_wave, this));
}

void PracticePane::addBeatPage()
{
    const auto makeButton = [this](const QString &text, PracticeCommand command, int argument) {
        return addButton(text, command, argument);
    };
    m_pages->addPage(tr("Beat"), new BeatPage(m_beats, m_wave, makeButton, this));
}

/// The page of the channels, and of tuning and key. It is marked while the song sounds different
/// from how it was made, so that this is seen on the other pages, too.
void PracticePane::addSound()
{
    addCommands(new SoundCommands(m_sound, m_tones, this));
    const auto makeButton = [this](const QString &text, PracticeCommand command) {
        return addButton(text, command);
    };
    auto *page = new SoundPage(m_sound, m_tones, makeButton, this);
    m_pages->addPage(tr("Sound"), page);
    const auto mark = [this, page] { m_pages->setMarked(page, !m_sound->kept().isNeutral()); };
    connect(m_sound, &SongSound::changed, page, mark);
    mark();
}

void PracticePane::fillHeader()
{
    m_header->addRight(new SnapButton(m_wave, this));
    TextButton *follow = addButton({}, PracticeCommand::Follow);
    follow->setCheckable(true);
    m_header->addRight(follow);
    m_header->addRight(addButton(QStringLiteral("−"), PracticeCommand::ZoomOut));
    m_header->addRight(addButton(QStringLiteral("+"), PracticeCommand::ZoomIn));
}

/// A button for a command. Without a text it shows the command's name.
TextButton *PracticePane::addButton(const QString &text, PracticeCommand command, int argument)
{
    auto *button = new TextButton({}, this);
    adoptButton(button, text, command, argument);
    return button;
}

/// The same for a button that exists.
void PracticePane::adoptButton(TextButton *button, const QString &text, PracticeCommand command,
                               int argument)
{
    const QList<PracticeCommandEntry> all = practiceCommands();
    const PracticeCommandEntry entry = *std::ranges::find_if(all, [&](const auto &other) {
        return other.command == command && other.argument == argument;
    });
    // The name of a move alone does not say what is moved.
    const QString name = argument == 0
                             ? entry.name()
                             : tr("%1, %2").arg(withoutMnemonic(entry.submenu), entry.name());
    button->setText(text.isEmpty() ? entry.name() : text);
    button->setAccessibleName(name);
    button->setToolTip(entry.keys.isEmpty() ? name
                                            : QStringLiteral("%1 (%2)").arg(name, entry.keyText()));
    connect(button, &QAbstractButton::clicked, this,
            [this, command, argument] { perform(command, argument); });
    m_buttons.append({button, command, argument});
}

void PracticePane::updateButtons()
{
    for (const CommandButton &each : m_buttons) {
        each.button->setEnabled(canPerform(each.command, each.argument));
        each.button->setChecked(isChecked(each.command, each.argument));
    }
}

void PracticePane::perform(PracticeCommand command, int argument)
{
    for (CommandSet *commands : std::as_const(m_commands))
        commands->perform(command, argument);
    // A click has changed the mark of a button already, whether or not the command did.
    updateButtons();
}

bool PracticePane::canPerform(PracticeCommand command, int argument) const
{
    return std::ranges::any_of(m_commands, [&](const CommandSet *commands) {
        return commands->canPerform(command, argument);
    });
}

bool PracticePane::isChecked(PracticeCommand command, int argument) const
{
    return std::ranges::any_of(m_commands, [&](const CommandSet *commands) {
        return commands->isChecked(command, argument);
    });
}

void PracticePane::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    takeSong();
}

void PracticePane::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous())
        m_peaks.stop();
}

void PracticePane::releaseSong()
{
    m_peaks.setSong(nullptr);
}

void PracticePane::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_overview->setVisible(height() >= paneLayout::overviewHeight);
    m_pages->setTwoColumns(width() >= paneLayout::twoPagesWidth &&
                           height() >= paneLayout::twoPagesHeight);
}

void PracticePane::takeSong()
{
    if (!isVisible()) {
        // The song that was shown is not the player's any more.
        m_peaks.setSong(nullptr);
        return;
    }
    m_peaks.setSong(m_audio->decodedSong());
    m_peaks.measure(m_audio->heardFrame());
}

void PracticePane::showLoop()
{
    if (m_peaks.frames() == 0) {
        m_header->setText(tr("Play a song to see its wave."));
        return;
    }
    if (const QString problem = m_metronomeButtons->problem(); !problem.isEmpty()) {
        m_header->setText(problem);
        return;
    }
    if (!m_audio->loop()) {
        m_header->setText(tr("Drag across the wave to make a loop."));
        return;
    }
    const std::optional<PracticeId> kept = m_practice->calledUp();
    const LoopListModel *rows = m_loops->list()->rows();
    m_header->setText(
        kept ? rows->index(rows->rowOf(*kept), LoopListModel::Name).data(Qt::DisplayRole).toString()
             : tr("Press K to keep this loop."));
}

} // namespace lyrabox
