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

    /// Puts `question`, in which `name` takes the place of %1, into the message field. A name that
    /// is too wide for a line of the view is shortened in the middle; then the tool tip holds the
    /// whole, as assistive programs do. The view grows to the height that the text needs.
    void askAbout(const QString &question, const QString &name);

private:
    static QWidget *newView();

    QPointer<QWidget> m_view;
};
