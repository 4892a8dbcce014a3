// The context menu of the list, and the panel for a note.

#include "app/practice/LoopList.h"
#include "app/practice/LoopListModel.h"
#include "app/practice/TextButton.h"
#include "app/practice/WaveColors.h"
#include "platform/ui/ElidedLabel.h"
#include "platform/ui/Popover.h"
#include "platform/ui/Theme.h"
#include "practice/PracticeStore.h"

#include <QActionGroup>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPainter>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include <algorithm>

namespace lyrabox {

namespace {

constexpr int dotSize = 16;
constexpr QSize noteSize{280, 150};

QIcon dot(const QColor &color, double ratio)
{
    QPixmap picture(QSize(dotSize, dotSize) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(QRectF(3.0, 3.0, dotSize - 6.0, dotSize - 6.0));
    return picture;
}

} // namespace

QList<PracticeLoop> LoopList::selectedLoops() const
{
    QList<PracticeLoop> loops;
    for (const PracticeId id : selectedIds()) {
        if (const PracticeLoop *loop = m_store->record().loop(id))
            loops.append(*loop);
    }
    return loops;
}

/// Changes all selected loops as one step.
void LoopList::changeLoops(const std::function<void(PracticeLoop &)> &change)
{
    PracticeEdits edits;
    for (PracticeLoop loop : selectedLoops()) {
        change(loop);
        edits.emplace_back(PutLoop{loop});
    }
    m_store->apply(edits);
}

void LoopList::contextMenuEvent(QContextMenuEvent *event)
{
    if (selectedIds().isEmpty())
        return;
    QMenu *menu = makeMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const bool isKey = event->reason() == QContextMenuEvent::Keyboard;
    const QRect row = visualRect(currentIndex());
    menu->popup(isKey ? viewport()->mapToGlobal(row.center()) : event->globalPos());
}

QMenu *LoopList::makeMenu()
{
    auto *menu = new QMenu(this);
    const std::optional<PracticeId> current = currentId();
    const bool isOne = selectedIds().size() == 1;
    const bool canEdit = !m_store->isReadOnly();
    const int row = current ? m_rows->rowOf(*current) : -1;
    const auto add = [&](const QString &text, const QKeySequence &key, bool isEnabled, auto act) {
        QAction *action = menu->addAction(text, this, act);
        action->setShortcut(key); // Shows the key; the list itself handles it.
        action->setEnabled(isEnabled);
    };
    add(tr("&Play"), Qt::Key_Return, isOne && !m_rows->isBeyondSong(row),
        [this] { playCurrent(); });
    add(tr("&Rename"), Qt::Key_F2, isOne && canEdit,
        [this, id = current.value_or(0)] { rename(id); });
    if (canEdit && !selectedLoops().isEmpty()) {
        menu->addSeparator();
        addColors(menu);
        addSound(menu);
        add(tr("&Note…"), {}, isOne, [this, id = current.value_or(0)] { editNote(id); });
    }
    menu->addSeparator();
    add(tr("&Delete"), Qt::Key_Delete, canEdit, [this] { deleteSelection(); });
    return menu;
}

void LoopList::addColors(QMenu *menu)
{
    const QList<PracticeLoop> loops = selectedLoops();
    QMenu *colors = menu->addMenu(tr("&Colour"));
    auto *group = new QActionGroup(colors);
    for (int number = 1; number <= PracticeLimits::colours; ++number) {
        QAction *action = colors->addAction(
            dot(waveColors::loopColor(number), devicePixelRatioF()),
            waveColors::loopColorName(number), this, [this, number] {
                changeLoops([number](PracticeLoop &loop) { loop.colour = number; });
            });
        action->setCheckable(true);
        action->setChecked(std::ranges::all_of(
            loops, [number](const PracticeLoop &loop) { return loop.colour == number; }));
        group->addAction(action);
    }
}

void LoopList::addSound(QMenu *menu)
{
    if (m_sound) {
        menu->addAction(tr("&Keep Speed and Pitch"), this, [this] {
            changeLoops([sound = m_sound()](PracticeLoop &loop) {
                loop.speed = sound.speed;
                loop.pitch = sound.pitch;
            });
        });
    }
    QAction *forget = menu->addAction(tr("&Forget Speed and Pitch"), this, [this] {
        changeLoops([](PracticeLoop &loop) {
            loop.speed.reset();
            loop.pitch.reset();
        });
    });
    forget->setEnabled(std::ranges::any_of(selectedLoops(), [](const PracticeLoop &loop) {
        return loop.speed.has_value() || loop.pitch.has_value();
    }));
}

/// Shows a panel in which the note of a loop is written. OK keeps it.
void LoopList::editNote(PracticeId id)
{
    const PracticeLoop *loop = m_store->record().loop(id);
    if (loop == nullptr)
        return;
    if (m_notePanel == nullptr)
        m_notePanel = new Popover(this);
    auto *content = new QWidget;
    auto *column = new QVBoxLayout(content);
    auto *title = new ElidedLabel(content);
    title->setText(tr("Note for “%1”")
                       .arg(m_rows->index(m_rows->rowOf(id), LoopListModel::Name)
                                .data(Qt::DisplayRole)
                                .toString()));
    auto *text = new QPlainTextEdit(loop->note, content);
    text->setTabChangesFocus(true);
    text->setAccessibleName(tr("Note"));
    auto *button = new TextButton(tr("OK"), content);
    button->setDefault(true);
    column->addWidget(title);
    column->addWidget(text, 1);
    column->addWidget(button, 0, Qt::AlignRight);
    content->resize(noteSize);
    connect(button, &QAbstractButton::clicked, this, [this, id, text] {
        if (const PracticeLoop *present = m_store->record().loop(id)) {
            PracticeLoop changed = *present;
            changed.note = text->toPlainText();
            m_store->apply({PutLoop{changed}});
        }
        m_notePanel->closePopover();
    });
    m_notePanel->showContent(content, this, Popover::Edge::MinX);
}

} // namespace lyrabox
