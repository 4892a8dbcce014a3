#pragma once

#include <QObject>
#include <QPointer>

class QAbstractButton;
class QLabel;
class QLineEdit;
class QWidget;

/// The content of a popover, built from an interface definition:
/// `LB_PopoverViewController::load<Ui::AddPopover>()`. inputField(), messageField() and okButton()
/// are the widgets of these names in the definition, null if it has no such widget. Main thread.
class LB_PopoverViewController : public QObject {
    Q_OBJECT

public:
    /// Builds a new view. The caller owns the controller, or gives it a parent. The view has no
    /// owner until it is shown; the popover that shows it then owns it.
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

    /// Shows `question` in the message field, with `name` in the place of %1. A name that is too
    /// wide for one line is shortened in the middle; the tool tip and assistive technologies then
    /// get the whole name. The view grows if the text needs more height.
    void askAbout(const QString &question, const QString &name);

private:
    static QWidget *newView();

    QPointer<QWidget> m_view;
};
