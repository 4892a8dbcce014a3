#include "app/practice/LoopEnds.h"

#include "app/practice/BarText.h"
#include "app/practice/SongPractice.h"
#include "app/practice/TimeRuler.h"
#include "engine/LB_AudioController.h"
#include "platform/ui/Theme.h"
#include "practice/SongTime.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

namespace lyrabox {

namespace {

constexpr int fieldWidth = 84;
constexpr int gap = 4;
constexpr int milliseconds = 10; // that a button moves an end by

QString timeText(quint64 frame)
{
    return timeRuler::exactText(static_cast<double>(frame) / practiceRate);
}

void setQuiet(QLabel *label)
{
    QPalette colors = label->palette();
    colors.setColor(QPalette::WindowText, Theme::secondaryText);
    label->setPalette(colors);
}

} // namespace

LoopEnds::LoopEnds(LB_AudioController *audio, SongPractice *practice, const MakeButton &makeButton,
                   QWidget *parent)
    : QWidget(parent), m_audio(audio), m_practice(practice), m_length(new QLabel(this))
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    m_start = addEnd(tr("Start"), tr("Start of the loop"), PracticeCommand::MoveStart, makeButton);
    row->addSpacing(2 * Theme::grid);
    m_end = addEnd(tr("End"), tr("End of the loop"), PracticeCommand::MoveEnd, makeButton);
    row->addSpacing(Theme::grid);
    setQuiet(m_length);
    row->addWidget(m_length);
    row->addStretch(1);
    row->addWidget(makeButton(QString(), PracticeCommand::Tidy, 0));
    connect(audio, &LB_AudioController::loopChanged, this, &LoopEnds::showLoop);
    connect(&practice->store(), &PracticeStore::recordChanged, this, &LoopEnds::showLength);
    showLoop();
}

QLineEdit *LoopEnds::addEnd(const QString &label, const QString &name, PracticeCommand command,
                            const MakeButton &makeButton)
{
    auto *row = static_cast<QHBoxLayout *>(layout());
    auto *text = new QLabel(label, this);
    setQuiet(text);
    row->addWidget(text);
    row->addSpacing(gap);
    QAbstractButton *earlier = makeButton(QStringLiteral("‹"), command, -milliseconds);
    earlier->setAutoRepeat(true);
    row->addWidget(earlier);
    auto *field = new QLineEdit(this);
    field->setFixedSize(fieldWidth, Theme::controlHeight);
    field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    field->setAccessibleName(name);
    field->setToolTip(name);
    field->installEventFilter(this);
    connect(field, &QLineEdit::editingFinished, this, [this, field] { enter(field); });
    row->addWidget(field);
    QAbstractButton *later = makeButton(QStringLiteral("›"), command, milliseconds);
    later->setAutoRepeat(true);
    row->addWidget(later);
    return field;
}

void LoopEnds::showLoop()
{
    const std::optional<LoopRange> loop = m_audio->loop();
    for (QLineEdit *field : {m_start, m_end}) {
        field->setEnabled(loop.has_value());
        field->setText(!loop ? QString() : timeText(field == m_start ? loop->start : loop->end));
    }
    showLength();
}

void LoopEnds::showLength()
{
    const std::optional<LoopRange> loop = m_audio->loop();
    m_length->setText(loop ? lengthText(*loop) : QString());
}

/// "2 bars · 4.34 s", or the seconds alone.
QString LoopEnds::lengthText(LoopRange loop) const
{
    const QString seconds =
        tr("%1 s").arg(static_cast<double>(loop.end - loop.start) / practiceRate, 0, 'f', 2);
    const QString bars = barText::length(m_practice->record().beats.grid, loop);
    return bars.isEmpty() ? seconds : QStringLiteral("%1 · %2").arg(bars, seconds);
}

/// Moves the end to the typed time. A text that is no time, or no place for this end, is replaced
/// with the time of before.
void LoopEnds::enter(QLineEdit *field)
{
    const std::optional<LoopRange> loop = m_audio->loop();
    const std::optional<std::uint64_t> typed = framesOfSongTime(field->text().trimmed());
    if (!loop || !field->isModified() || !typed || *typed > m_audio->totalFrames()) {
        showLoop();
        return;
    }
    LoopRange changed = *loop;
    (field == m_start ? changed.start : changed.end) = *typed;
    const bool isValid = changed.start < changed.end;
    if (isValid && changed != *loop)
        m_practice->changeLoop(changed,
                               field == m_start ? loopHands::Grip::Start : loopHands::Grip::End);
    showLoop();
}

bool LoopEnds::eventFilter(QObject *watched, QEvent *event)
{
    auto *field = static_cast<QLineEdit *>(watched);
    if (event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape && field->isModified()) {
        showLoop(); // As it was before the edit.
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace lyrabox
