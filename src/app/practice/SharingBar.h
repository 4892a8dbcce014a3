#pragma once

#include <QWidget>

namespace lyrabox {

class ElidedLabel;
class PracticeSharing;
class TextButton;

/// The row of the pane that shows the notice of a PracticeSharing with its answers. Hidden while
/// there is none. Escape in one of its buttons declines. Main thread.
class SharingBar : public QWidget {
    Q_OBJECT

public:
    /// `sharing` must outlive the bar.
    explicit SharingBar(PracticeSharing *sharing, QWidget *parent = nullptr);

    ElidedLabel *label() const { return m_text; }
    TextButton *acceptButton() const { return m_accept; }
    TextButton *declineButton() const { return m_decline; }

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void showNotice();

    PracticeSharing *m_sharing;
    ElidedLabel *m_text;
    TextButton *m_accept;
    TextButton *m_decline;
};

} // namespace lyrabox
