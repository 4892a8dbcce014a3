#pragma once

#include <QObject>
#include <QPointer>

class QAbstractButton;
class QLabel;
class QLineEdit;
class QWidget;

/// The content of a popover, made from an interface definition:
/// `LB_PopoverViewController::load<Ui::AddPopover>()`. Its outlets are the widgets of these names
/// in the definition, null where it has none.
class LB_PopoverViewController : public QObject {
    Q_OBJECT

public:
    /// Builds a fresh view; the caller owns the controller, and whoever shows the view owns the
    /// view.
    template <typename Interface>
    static LB_PopoverViewController *load(QObject *parent = nullptr)
    {
        auto *view = newView();
        Interface().setupUi(view);
        return new LB_PopoverViewController(view, parent);
    }

    LB_PopoverViewController(QWidget *view, QObject *parent);

    QWidget *view() const { return m_view; }
    QLineEdit *inputField() const;
    QLabel *messageField() const;
    QAbstractButton *okButton() const;

private:
    static QWidget *newView();

    QPointer<QWidget> m_view;
};
