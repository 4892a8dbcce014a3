#pragma once

#include "platform/ui/StateButton.h"

class QMenu;

/// A button that opens a menu. It shows the image of the menu's first item, centred. While it is
/// highlighted it shows its alternate image, if it has one. Main thread.
class LB_PopUpButtonCell : public lyrabox::StateButton {
    Q_OBJECT

public:
    explicit LB_PopUpButtonCell(QWidget *parent = nullptr);

    /// The menu, owned by the button. The first item's image belongs to the button and is not
    /// listed in the menu.
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
