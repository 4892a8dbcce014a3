#include "app/controls/LB_PopoverViewController.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::Literals::StringLiterals;

LB_PopoverViewController::LB_PopoverViewController(QWidget *view, QObject *parent)
    : QObject(parent), m_view(view)
{
    // A folder or preset may be called anything, markup too.
    if (QLabel *message = messageField())
        message->setTextFormat(Qt::PlainText);
}

QWidget *LB_PopoverViewController::newView()
{
    return new QWidget;
}

QLineEdit *LB_PopoverViewController::inputField() const
{
    return m_view ? m_view->findChild<QLineEdit *>(u"inputField"_s) : nullptr;
}

QLabel *LB_PopoverViewController::messageField() const
{
    return m_view ? m_view->findChild<QLabel *>(u"messageField"_s) : nullptr;
}

QAbstractButton *LB_PopoverViewController::okButton() const
{
    return m_view ? m_view->findChild<QAbstractButton *>(u"okButton"_s) : nullptr;
}
