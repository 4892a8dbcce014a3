#include "platform/ui/EmptyViewText.h"

#include "platform/ui/Theme.h"

#include <QAbstractScrollArea>
#include <QEvent>

namespace lyrabox {

EmptyViewText::EmptyViewText(QAbstractScrollArea *view) : QLabel(view), m_view(view)
{
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setMargin(2 * Theme::grid);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, Theme::secondaryText);
    setPalette(colors);
    hide();
    view->viewport()->installEventFilter(this);
    fitViewport();
}

void EmptyViewText::showText(const QString &text)
{
    setText(text);
    setVisible(!text.isEmpty());
    if (!text.isEmpty())
        raise();
}

bool EmptyViewText::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
        fitViewport();
    return QLabel::eventFilter(watched, event);
}

void EmptyViewText::fitViewport()
{
    setGeometry(m_view->viewport()->geometry());
}

} // namespace lyrabox
