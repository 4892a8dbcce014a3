#include "app/practice/LoopsPage.h"

#include "app/practice/SongPractice.h"
#include "platform/ui/DevicePixels.h"
#include "platform/ui/Theme.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

#include <utility>

namespace lyrabox {

namespace {
constexpr int boxBorder = 2; // keeps the list within the round corners
}

LoopsPage::LoopsPage(SongPractice *practice, std::function<LoopList::Sound()> sound,
                     QWidget *parent)
    : QWidget(parent), m_practice(practice), m_list(new LoopList(&practice->store(), this))
{
    m_list->setSoundSource(std::move(sound));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Theme::grid);
    auto *box = new QVBoxLayout;
    box->setContentsMargins(boxBorder, boxBorder, boxBorder, boxBorder);
    box->addWidget(m_list);
    column->addLayout(box, 1);
    m_buttons = new QHBoxLayout;
    m_buttons->setSpacing(Theme::grid);
    m_buttons->addStretch(1);
    column->addLayout(m_buttons);

    connect(m_list, &LoopList::playRequested, practice,
            [practice](PracticeId id) { practice->play(id); });
    connect(m_list, &LoopList::seekRequested, practice,
            [practice](PracticeId id) { practice->seekTo(id); });
    connect(m_list, &LoopList::selectionMoved, practice,
            [this] { m_practice->select(m_list->currentId()); });
    connect(practice, &SongPractice::selectionChanged, this, &LoopsPage::showSelection);
    connect(practice, &SongPractice::calledUpChanged, this, &LoopsPage::showCalledUp);
    connect(practice, &SongPractice::nameWanted, this, [this](PracticeId entry) {
        Q_EMIT wanted();
        m_list->rename(entry);
    });
    showCalledUp();
    showSelection();
    setSongFrames(0);
}

void LoopsPage::addButton(QWidget *button)
{
    m_buttons->insertWidget(m_buttons->count() - 1, button);
}

void LoopsPage::setSongFrames(std::uint64_t frames)
{
    m_list->setSongFrames(frames);
    m_list->setEmptyText(frames == 0
                             ? tr("The loops and markers of a song are listed here.")
                             : tr("Press K to keep the loop that sounds, M to set a marker."));
}

void LoopsPage::showCalledUp()
{
    m_list->setCalledUp(m_practice->calledUp());
}

/// The list may have more rows selected than the one that commands apply to.
void LoopsPage::showSelection()
{
    if (m_list->currentId() != m_practice->selection())
        m_list->selectId(m_practice->selection());
}

void LoopsPage::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    alignToDevicePixels(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    drawControlBox(painter,
                   m_list->geometry().adjusted(-boxBorder, -boxBorder, boxBorder, boxBorder),
                   Theme::radius);
}

} // namespace lyrabox
