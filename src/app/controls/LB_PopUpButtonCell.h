#pragma once

#include "platform/ui/StateButton.h"

class QMenu;

/// A button that opens a menu. Its picture is the image of the menu's first item, centred; while
/// highlighted the alternate image, where there is one.
class LB_PopUpButtonCell : public lyrabox::StateButton {
    Q_OBJECT

public:
    explicit LB_PopUpButtonCell(QWidget *parent = nullptr);

    /// The menu is owned by the button. Its first item is the button's own picture and is not shown
    /// in the list.
    QMenu *menu() const { return m_menu; }

    /// The image of the first item.
    void setFirstItemImage(const lyrabox::NamedImage &image) { setImage(image); }
    const lyrabox::NamedImage &firstItemImage() const { return image(); }

protected:
    void drawImage(QPainter &painter, const QRect &rect) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void nextCheckState() override;

private:
    void openMenu();

    QMenu *m_menu;
};
