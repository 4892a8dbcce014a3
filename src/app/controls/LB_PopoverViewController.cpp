#include "app/controls/LB_PopoverViewController.h"

#include "platform/ui/OneLine.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

LB_PopoverViewController::LB_PopoverViewController(QWidget *view, QObject *parent)
    : QObject(parent), m_view(view)
{
    // The name of a folder or preset may look like markup.
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

void LB_PopoverViewController::askAbout(const QString &question, const QString &name)
{
    constexpr double nameShare = 0.85; // of a line; quotation and question marks take the rest
    QLabel *message = messageField();
    message->ensurePolished();
    const QMargins margins = m_view->layout()->contentsMargins();
    const int line = m_view->width() - margins.left() - margins.right();
    const QString shown = message->fontMetrics().elidedText(lyrabox::oneLine(name), Qt::ElideMiddle,
                                                            static_cast<int>(line * nameShare));
    const QString whole = question.arg(name);
    message->setText(question.arg(shown));
    message->setAccessibleName(whole);
    message->setToolTip(shown == name ? QString()
                                      : u"<span>%1</span>"_s.arg(whole.toHtmlEscaped()));
    const int height = m_view->layout()->totalHeightForWidth(m_view->width());
    m_view->resize(m_view->width(), std::max(m_view->height(), height));
}

QAbstractButton *LB_PopoverViewController::okButton() const
{
    return m_view ? m_view->findChild<QAbstractButton *>(u"okButton"_s) : nullptr;
}
