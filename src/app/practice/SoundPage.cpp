#include "app/practice/SoundPage.h"

#include "app/controls/LB_Slider.h"
#include "app/practice/CentrePanel.h"
#include "app/practice/ChoiceButton.h"
#include "app/practice/PageParts.h"
#include "app/practice/SongSound.h"
#include "app/practice/SongTones.h"
#include "app/practice/SoundWords.h"
#include "app/practice/TextButton.h"
#include "platform/ui/NumberField.h"
#include "platform/ui/Popover.h"
#include "platform/ui/SegmentedControl.h"
#include "platform/ui/Theme.h"

#include <QApplication>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

#include <chrono>
#include <cmath>

namespace lyrabox {

namespace {

constexpr int gap = 6;
constexpr int levelWidth = 44;
constexpr int ownAWidth = 48;
constexpr std::chrono::seconds slidingPause{1};

/// Leaves a field alone in which the user types.
void showNumber(NumberField *field, double number)
{
    if (!field->hasFocus() || !field->isModified())
        field->setFloatValue(static_cast<float>(number));
}

/// The number that the user has typed. The field shows again what is kept.
double takeNumber(NumberField *field)
{
    field->setModified(false);
    return static_cast<double>(field->floatValue());
}

} // namespace

SoundPage::SoundPage(SongSound *sound, SongTones *tones, const MakeButton &makeButton,
                     QWidget *parent)
    : QWidget(parent), m_sound(sound), m_tones(tones)
{
    setObjectName(QStringLiteral("soundPage"));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(gap);
    column->addWidget(pageParts::scrolling(makeForm(makeButton), this), 1);
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(Theme::grid);
    TextButton *original = makeButton(tr("Original"), PracticeCommand::HearOriginal);
    original->setCheckable(true);
    buttons->addWidget(original);
    buttons->addStretch(1);
    buttons->addWidget(makeButton(tr("Normal"), PracticeCommand::NormalChannels));
    column->addLayout(buttons);

    m_pause.setSingleShot(true);
    m_pause.setInterval(slidingPause);
    connect(&m_pause, &QTimer::timeout, this, [this] { m_sliding = nullptr; });
    connect(sound, &SongSound::changed, this, &SoundPage::showSound);
    connect(tones, &SongTones::changed, this, &SoundPage::showTones);
    showSound();
    showTones();
}

QWidget *SoundPage::makeForm(const MakeButton &makeButton)
{
    auto *form = new QWidget(this);
    auto *column = new QVBoxLayout(form);
    column->setContentsMargins(0, 0, gap, 0);
    column->setSpacing(gap);
    m_mode = new SegmentedControl(form);
    m_mode->setSegments({tr("Both"), tr("Mono"), tr("Left"), tr("Right"), tr("Swap")});
    m_mode->setAccessibleName(tr("Channels"));
    connect(m_mode, &SegmentedControl::pressed, this, [this] {
        ChannelTools tools = m_sound->kept();
        tools.mode = static_cast<ChannelMode>(m_mode->selectedSegment());
        m_sound->change(tools);
    });
    column->addWidget(m_mode);
    column->addLayout(makeLevels());
    m_hint = pageParts::quietLabel({}, form);
    m_hint->setWordWrap(true);
    column->addWidget(m_hint);
    column->addLayout(makeTones(makeButton));
    column->addStretch(1);
    return form;
}

QLayout *SoundPage::makeLevels()
{
    auto *rows = new QGridLayout;
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setHorizontalSpacing(gap);
    rows->setVerticalSpacing(gap);
    rows->setColumnStretch(1, 1);
    m_balance = addLevel(rows, tr("Balance"), tr("Balance, -100 is left, 100 is right"),
                         QStringLiteral("practiceBalance"), &ChannelTools::balance);
    m_centre = addLevel(rows, tr("Centre"),
                        tr("Centre, -100 is without the middle, 100 is only the middle"),
                        QStringLiteral("practiceCentre"), &ChannelTools::centre);
    m_limits = new TextButton(QStringLiteral("…"), this);
    m_limits->setAccessibleName(tr("Limits of the middle"));
    m_limits->setToolTip(m_limits->accessibleName());
    connect(m_limits, &QAbstractButton::clicked, this, &SoundPage::showLimits);
    rows->addWidget(m_limits, 1, 3);
    return rows;
}

SoundPage::Level SoundPage::addLevel(QGridLayout *rows, const QString &label, const QString &name,
                                     const QString &objectName, int ChannelTools::*value)
{
    const Level level{
        .slider = new LB_Slider(this), .field = new NumberField(this), .value = value};
    level.slider->setMinValue(balanceRange.minimum);
    level.slider->setMaxValue(balanceRange.maximum);
    level.slider->setStep(1.0);
    level.slider->setKeySteps(5.0, 20.0);
    level.slider->setDefaultValue(0.0);
    level.slider->setObjectName(objectName);
    level.slider->setAccessibleName(name);
    level.slider->setToolTip(name);
    level.slider->installEventFilter(this);
    level.field->setLimits(balanceRange.minimum, balanceRange.maximum);
    level.field->setFixedSize(levelWidth, Theme::controlHeight);
    level.field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    level.field->setAccessibleName(name);
    const int row = value == &ChannelTools::balance ? 0 : 1;
    rows->addWidget(pageParts::quietLabel(label, this), row, 0);
    rows->addWidget(level.slider, row, 1);
    rows->addWidget(level.field, row, 2);
    connect(level.slider, &LB_Slider::moved, this, [this, level] { slide(level); });
    connect(level.field, &NumberField::entered, this, [this, level] {
        ChannelTools tools = m_sound->kept();
        tools.*level.value = static_cast<int>(std::lround(takeNumber(level.field)));
        m_sound->change(tools);
        showSound();
    });
    return level;
}

QLayout *SoundPage::makeTones(const MakeButton &makeButton)
{
    auto *column = new QVBoxLayout;
    column->setContentsMargins(0, gap, 0, 0);
    column->setSpacing(gap);
    m_tuning = new QLabel(this);
    m_key = new QLabel(this);
    for (QLabel *label : {m_tuning, m_key}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        column->addWidget(label);
    }
    m_ownA = new NumberField(this);
    m_ownA->setLimits(ownARange.minimum, ownARange.maximum);
    m_ownA->setFixedSize(ownAWidth, Theme::controlHeight);
    m_ownA->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_ownA->setAccessibleName(tr("The frequency of my A in Hz"));
    m_ownA->setToolTip(m_ownA->accessibleName());
    connect(m_ownA, &NumberField::entered, this, [this] {
        SoundSettings settings = m_tones->settings();
        settings.ownA = takeNumber(m_ownA);
        m_tones->setSettings(settings);
        showTones();
    });
    m_instrument = new ChoiceButton(tr("My instrument"), soundWords::instruments(), this);
    connect(m_instrument, &ChoiceButton::chosen, this, [this](int instrument) {
        SoundSettings settings = m_tones->settings();
        settings.instrument = instrument;
        m_tones->setSettings(settings);
    });
    auto *row = new QHBoxLayout;
    row->setSpacing(gap);
    row->addWidget(makeButton(tr("Tune to A ="), PracticeCommand::TuneToA));
    row->addWidget(m_ownA);
    row->addStretch(1);
    row->addWidget(m_instrument);
    column->addLayout(row);
    return column;
}

QString SoundPage::tuningText() const
{
    return m_tuning->text();
}

QString SoundPage::keyText() const
{
    return m_key->text();
}

bool SoundPage::eventFilter(QObject *watched, QEvent *event)
{
    const bool begins = event->type() == QEvent::MouseButtonPress;
    if (begins || event->type() == QEvent::MouseButtonRelease)
        m_sliding = nullptr;
    return QWidget::eventFilter(watched, event);
}

/// All moves of a drag are one step of undo, and so are those of wheel and keys without a pause.
void SoundPage::slide(const Level &level)
{
    ChannelTools tools = m_sound->kept();
    tools.*level.value = static_cast<int>(std::lround(level.slider->floatValue()));
    const bool goesOn = m_sliding == level.slider;
    m_sliding = level.slider;
    if (QApplication::mouseButtons() == Qt::NoButton)
        m_pause.start();
    else
        m_pause.stop();
    m_sound->change(tools, goesOn ? PracticeStep::JoinsLast : PracticeStep::New);
}

void SoundPage::showSound()
{
    const ChannelTools &kept = m_sound->kept();
    const bool canChange = m_sound->canChange();
    const bool hasCentre = canChange && !m_sound->isMono();
    m_mode->setSelectedSegment(static_cast<int>(kept.mode));
    m_mode->setEnabled(canChange);
    for (const Level &level : {m_balance, m_centre}) {
        const int value = kept.*level.value;
        if (std::lround(level.slider->floatValue()) != value)
            level.slider->setFloatValue(value);
        showNumber(level.field, value);
        const bool isEnabled = level.value == &ChannelTools::centre ? hasCentre : canChange;
        level.slider->setEnabled(isEnabled);
        level.field->setEnabled(isEnabled);
    }
    m_limits->setEnabled(hasCentre);
    m_hint->setText(m_sound->isMono() ? tr("This song is mono: it has nothing but a middle.")
                                      : tr("Works on what was mixed into the middle."));
}

void SoundPage::showTones()
{
    const SoundSettings &settings = m_tones->settings();
    m_instrument->setCurrent(settings.instrument);
    showNumber(m_ownA, settings.ownA);
    QString tuning;
    QString key;
    if (m_tones->isListening()) {
        tuning = tr("Listening to the song …");
    } else if (m_tones->hasSong()) {
        const std::optional<HeardTuning> heard = m_tones->tuning();
        const std::optional<KeyGuess> keys = m_tones->keys();
        tuning = heard ? soundWords::tuning(*heard) : tr("Tuning: not clear");
        key = keys ? soundWords::keys(*keys) : tr("Key: not clear");
    }
    m_tuning->setText(tuning);
    m_key->setText(key);
}

/// A second click closes the panel.
void SoundPage::showLimits()
{
    if (m_popover != nullptr && m_popover->isShown()) {
        m_popover->closePopover();
        return;
    }
    if (m_popover == nullptr)
        m_popover = new Popover(window());
    auto *panel = new CentrePanel(m_sound);
    panel->resize(panel->sizeHint());
    m_popover->showContent(panel, m_limits, Popover::Edge::MinY);
}

} // namespace lyrabox
