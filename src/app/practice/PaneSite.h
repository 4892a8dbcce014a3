#pragma once

#include <QObject>

#include <functional>

class QVBoxLayout;
class QWidget;

namespace lyrabox {

class PracticePane;

/// Gives the practice pane its place in the main window, and remembers in the user defaults whether
/// it is shown and how high it is. The pane is made when it is first shown. Main thread.
class PaneSite : public QObject {
    Q_OBJECT

public:
    using MakePane = std::function<PracticePane *(QWidget *parent)>;

    /// `column` is the layout of the window's contents. It holds `lists`, and below them what never
    /// changes its height.
    PaneSite(QVBoxLayout *column, QWidget *lists, MakePane make);
    /// Deletes the pane.
    ~PaneSite() override;

    /// Whether the user has opened the pane. In a low window the lists may be shown instead.
    bool isOpen() const { return m_isOpen; }
    /// Opens or closes the pane, and remembers that. The first time it is opened, the window grows
    /// if the screen has room.
    void setOpen(bool open);
    /// Opens the pane if it was open when the program ended.
    void restore();

    /// Shows the lists. In a low window they take the place of the pane.
    void showLists() { showInstead(false); }
    /// Shows the pane, if it is open. In a low window it takes the place of the lists.
    void showPane() { showInstead(true); }

    /// Whether the pane is visible: open, and not replaced by the lists of a low window.
    bool isShown() const { return m_isShown; }

    /// Null until it is first shown.
    PracticePane *pane() const { return m_pane; }

Q_SIGNALS:
    /// The pane was opened or closed.
    void openChanged(bool open);
    /// The pane is visible now, or it no longer is.
    void shownChanged(bool shown);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void makePane();
    void growWindow() const;
    void showInstead(bool pane);
    int available() const;
    void arrange();

    QVBoxLayout *m_column;
    QWidget *m_lists;
    MakePane m_make;
    PracticePane *m_pane = nullptr; ///< like the strip: in the window, but deleted by this object
    QWidget *m_strip = nullptr;     ///< holds the switch while the lists have the pane's place
    bool m_isOpen = false;
    bool m_prefersPane = true; ///< in a low window
    bool m_isShown = false;
    bool m_isArranging = false;
    int m_height;
};

} // namespace lyrabox
