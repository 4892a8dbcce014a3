#include "app/practice/RotationBox.h"

#include "app/practice/ChoiceButton.h"
#include "app/practice/SongPractice.h"
#include "app/practice/TrainerRun.h"
#include "platform/ui/NumberField.h"
#include "platform/ui/Theme.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

namespace lyrabox {

namespace {
constexpr int gap = 6;
constexpr int fieldWidth = 44;
constexpr int nameWidth = 200;
constexpr LoopRotation::Turn usualTurn{};
} // namespace

RotationBox::RotationBox(TrainerRun *run, SongPractice *practice, QWidget *parent)
    : QWidget(parent),
      m_run(run),
      m_practice(practice),
      m_boxes(new QVBoxLayout),
      m_amount(new NumberField(this)),
      m_unit(new ChoiceButton(tr("Unit of a turn"), {tr("passes"), tr("minutes")}, this))
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(gap);
    auto *title = new QLabel(tr("Rotation"), this);
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    column->addWidget(title);
    auto *hint =
        new QLabel(tr("Loops take turns, in shuffled order. Without a tick, all do."), this);
    hint->setWordWrap(true);
    QPalette colors = hint->palette();
    colors.setColor(QPalette::WindowText, Theme::secondaryText);
    hint->setPalette(colors);
    column->addWidget(hint);
    m_boxes->setSpacing(2);
    column->addLayout(m_boxes);
    auto *row = new QHBoxLayout;
    row->setSpacing(gap);
    auto *label = new QLabel(tr("Each for"), this);
    label->setPalette(colors);
    row->addWidget(label);
    m_amount->setFixedSize(fieldWidth, Theme::controlHeight);
    m_amount->setLimits(1.0F, static_cast<float>(LoopRotation::Turn::maximum));
    m_amount->setFloatValue(static_cast<float>(usualTurn.amount));
    m_amount->setAccessibleName(tr("Length of a turn"));
    row->addWidget(m_amount);
    row->addWidget(m_unit, 1);
    column->addLayout(row);
    connect(&practice->store(), &PracticeStore::recordChanged, this, &RotationBox::showLoops);
    showLoops();
}

LoopRotation::Turn RotationBox::turn() const
{
    return {.unit = m_unit->current() == 0 ? LoopRotation::Turn::Unit::Passes
                                           : LoopRotation::Turn::Unit::Minutes,
            .amount = static_cast<int>(std::lround(m_amount->floatValue()))};
}

std::vector<PracticeId> RotationBox::loops() const
{
    std::vector<PracticeId> all;
    std::vector<PracticeId> ticked;
    for (const PracticeLoop &loop : m_practice->record().loops) {
        if (!m_practice->isPlayable(loop))
            continue;
        all.push_back(loop.id);
        if (const QCheckBox *box = tick(loop.id); box != nullptr && box->isChecked())
            ticked.push_back(loop.id);
    }
    return ticked.empty() ? all : ticked;
}

QCheckBox *RotationBox::tick(PracticeId loop) const
{
    const auto found = std::ranges::find(m_ticks, loop, &Tick::loop);
    return found == m_ticks.end() ? nullptr : found->box;
}

void RotationBox::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    showLoops();
}

/// Boxes are made only while they are seen: there may be hundreds of loops.
void RotationBox::showLoops()
{
    const std::vector<PracticeLoop> &loops = m_practice->record().loops;
    std::set<PracticeId> present;
    for (const PracticeLoop &loop : loops)
        present.insert(loop.id);
    m_ticks.removeIf([&](const Tick &each) {
        if (present.contains(each.loop))
            return false;
        delete each.box;
        return true;
    });
    if (isVisible())
        showTicks(loops);
    Q_EMIT loopsChanged();
}

void RotationBox::showTicks(const std::vector<PracticeLoop> &loops)
{
    QList<Shown> wanted;
    for (const PracticeLoop &loop : loops) {
        const QString name = loop.name.isEmpty() ? tr("Loop %1").arg(wanted.size() + 1) : loop.name;
        wanted.append({.loop = loop.id, .name = name, .isPlayable = m_practice->isPlayable(loop)});
    }
    if (std::exchange(m_shown, wanted) == wanted)
        return; // as after most edits
    for (int row = 0; row < wanted.size(); ++row) {
        const Shown &each = wanted.at(row);
        QCheckBox *box = tick(each.loop);
        if (box == nullptr) {
            box = new QCheckBox(this);
            box->setFocusPolicy(Qt::TabFocus);
            connect(box, &QCheckBox::toggled, this, &RotationBox::loopsChanged);
            m_ticks.append({.loop = each.loop, .box = box});
        }
        m_boxes->removeWidget(box);
        m_boxes->insertWidget(row, box);
        // A long name must not widen the page. Names are untrusted, and a tool tip may be rich
        // text.
        QString shown = box->fontMetrics().elidedText(each.name, Qt::ElideRight, nameWidth);
        box->setText(shown.replace(u'&', QStringLiteral("&&")));
        box->setAccessibleName(each.name);
        box->setToolTip(QStringLiteral("<span>%1</span>").arg(each.name.toHtmlEscaped()));
        box->setEnabled(each.isPlayable);
    }
}

} // namespace lyrabox
