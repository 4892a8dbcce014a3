#pragma once

#include "app/practice/LoopList.h"

#include <QWidget>

#include <functional>

class QHBoxLayout;

namespace lyrabox {

class SongPractice;

/// A page of the practice pane: the list of loops and markers, and a row of buttons below
/// it. Keeps the list and the SongPractice in line with each other. Main thread.
class LoopsPage : public QWidget {
    Q_OBJECT

public:
    /// `practice` must outlive the page. `sound` tells the present speed and pitch.
    LoopsPage(SongPractice *practice, std::function<LoopList::Sound()> sound,
              QWidget *parent = nullptr);

    LoopList *list() const { return m_list; }
    /// Adds a button below the list, from left to right.
    void addButton(QWidget *button);

    /// Shows that there is a song of so many frames; 0 for none.
    void setSongFrames(std::uint64_t frames);

Q_SIGNALS:
    /// The user wants to type a name, so the page must be shown.
    void wanted();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void showCalledUp();
    void showSelection();

    SongPractice *m_practice;
    LoopList *m_list;
    QHBoxLayout *m_buttons;
};

} // namespace lyrabox
