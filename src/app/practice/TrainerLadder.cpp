#include "app/practice/TrainerLadder.h"

#include "app/practice/TrainerRun.h"
#include "app/practice/TrainerWords.h"
#include "app/practice/WaveColors.h"
#include "platform/ui/DevicePixels.h"
#include "platform/ui/Theme.h"

#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace lyrabox {

namespace {

constexpr int gap = 5;
constexpr int topMargin = 4;
constexpr int rowHeight = 24;
constexpr int textMargin = 8; // at the sides of a step
constexpr int leastStepWidth = 34;
/// The ground of the steps that were played.
constexpr QColor doneGround{0xD6, 0xEA, 0xF8};
constexpr QColor partGround{0xAE, 0xD6, 0xF1};

/// The tempo at 100 %; 0 if it is not known.
double songTempo(const TrainerStrip &strip)
{
    return strip.tempo && strip.speed > 0.0 ? *strip.tempo * 100.0 / strip.speed : 0.0;
}

} // namespace

LadderStep::LadderStep(QWidget *parent) : QAbstractButton(parent)
{
    setFocusPolicy(Qt::TabFocus);
}

void LadderStep::setStep(const QString &speed, State state, double part)
{
    const QString name = state == State::Present ? TrainerLadder::tr("%1, present speed").arg(speed)
                         : state == State::Done  ? TrainerLadder::tr("%1, played").arg(speed)
                                                 : speed;
    m_state = state;
    m_part = std::clamp(part, 0.0, 1.0);
    setText(speed);
    setAccessibleName(name);
    setToolTip(TrainerLadder::tr("Go on at %1").arg(speed));
    setVisible(true);
    update();
}

void LadderStep::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    alignToDevicePixels(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    const double inset = m_state == State::Present ? 1.0 : 0.5;
    const QRectF box = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
    QPainterPath shape;
    shape.addRoundedRect(box, Theme::radius - 1.0, Theme::radius - 1.0);
    painter.fillPath(shape, isDown()                 ? Theme::pressed
                            : m_state == State::Done ? doneGround
                                                     : Theme::surface);
    if (m_state == State::Present && m_part > 0.0) {
        painter.save();
        painter.setClipPath(shape);
        painter.fillRect(QRectF(box.left(), box.top(), box.width() * m_part, box.height()),
                         partGround);
        painter.restore();
    }
    painter.setPen(QPen(m_state == State::Coming ? Theme::lineGray : Theme::accent, 2.0 * inset));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(shape);
    QFont words = font();
    words.setBold(m_state == State::Present);
    painter.setFont(words);
    painter.setPen(m_state == State::Coming ? Theme::secondaryText : Theme::text);
    painter.drawText(rect(), static_cast<int>(Qt::AlignCenter) | Qt::TextSingleLine, text());
    if (hasFocus())
        drawFocusRing(painter, rect(), Theme::radius);
}

ShownRungs shownRungs(int rungs, int present, int room)
{
    const int count = std::clamp(room, 0, rungs);
    const int first = std::clamp(present - count / 2, 0, rungs - count);
    return {.first = first, .count = count};
}

TrainerLadder::TrainerLadder(TrainerRun *run, QWidget *parent)
    : QWidget(parent), m_run(run), m_words(new QLabel(this))
{
    setObjectName(QStringLiteral("trainerLadder"));
    setAccessibleName(tr("Ladder"));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_words->setTextFormat(Qt::PlainText);
    QPalette colors = m_words->palette();
    colors.setColor(QPalette::WindowText, Theme::secondaryText);
    m_words->setPalette(colors);
    connect(run, &TrainerRun::changed, this, &TrainerLadder::showRun);
    showRun();
}

QSize TrainerLadder::sizeHint() const
{
    return {300, topMargin + rowHeight};
}

QList<LadderStep *> TrainerLadder::steps() const
{
    return m_steps.first(m_shown);
}

QString TrainerLadder::words() const
{
    return m_words->text();
}

void TrainerLadder::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    showRun();
}

/// The short words are shown where the long ones would hide steps.
void TrainerLadder::showRun()
{
    setVisible(m_run->isRunning());
    if (!m_run->isRunning())
        return;
    const std::vector<int> ladder = m_run->ladder();
    const TrainerStrip &strip = m_run->strip();
    const double tempo = songTempo(strip);
    const auto speedText = [&](double percent) {
        return trainerWords::speed(percent, m_run->unit(), tempo);
    };
    QFont bold = font();
    bold.setBold(true);
    const int widest = QFontMetrics(bold).horizontalAdvance(speedText(ladder.back()));
    const int stepWidth = std::max(leastStepWidth, widest + 2 * textMargin);
    const std::optional<double> next = m_run->nextSpeed();
    QString words = trainerWords::strip(strip, next ? speedText(*next) : QString());
    const auto rungs = static_cast<int>(ladder.size());
    const auto roomBeside = [&](const QString &text) {
        const int left = width() - m_words->fontMetrics().horizontalAdvance(text) - 2 * gap;
        return left / (stepWidth + gap);
    };
    if (roomBeside(words) < rungs)
        words = trainerWords::shortStrip(strip);
    const ShownRungs shown =
        shownRungs(rungs, std::max(0, strip.rung - 1), std::max(1, roomBeside(words)));
    m_words->setText(words);
    m_words->setToolTip(trainerWords::strip(strip, next ? speedText(*next) : QString()));
    showSteps(shown.first, shown.count, stepWidth);
    const int end = shown.count * (stepWidth + gap);
    m_words->setGeometry(QStyle::visualRect(
        layoutDirection(), rect(),
        QRect(end + gap, topMargin, std::max(0, width() - end - gap), rowHeight)));
}

void TrainerLadder::showSteps(int first, int count, int stepWidth)
{
    const std::vector<int> ladder = m_run->ladder();
    const TrainerStrip &strip = m_run->strip();
    const double tempo = songTempo(strip);
    m_first = first;
    m_shown = count;
    for (int index = 0; index < count; ++index) {
        const int rung = first + index;
        const bool isPresent = rung == strip.rung - 1;
        // A speed between two steps stands on the lower one.
        const double percent = isPresent ? strip.speed : ladder[static_cast<std::size_t>(rung)];
        LadderStep *shown = step(index);
        shown->setGeometry(
            QStyle::visualRect(layoutDirection(), rect(),
                               QRect(index * (stepWidth + gap), topMargin, stepWidth, rowHeight)));
        shown->setStep(trainerWords::speed(percent, m_run->unit(), tempo),
                       isPresent               ? LadderStep::State::Present
                       : rung < strip.rung - 1 ? LadderStep::State::Done
                                               : LadderStep::State::Coming,
                       1.0 * strip.passesDone / std::max(1, strip.passesNeeded));
    }
    for (qsizetype index = count; index < m_steps.size(); ++index)
        m_steps.at(index)->hide();
}

LadderStep *TrainerLadder::step(int index)
{
    while (m_steps.size() <= index) {
        auto *made = new LadderStep(this);
        const auto number = static_cast<int>(m_steps.size());
        connect(made, &QAbstractButton::clicked, this, [this, number] {
            const std::vector<int> ladder = m_run->ladder();
            const auto rung = static_cast<std::size_t>(m_first + number);
            if (rung < ladder.size())
                m_run->goTo(ladder[rung]);
        });
        m_steps.append(made);
    }
    return m_steps.at(index);
}

} // namespace lyrabox
