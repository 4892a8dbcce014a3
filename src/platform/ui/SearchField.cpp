#include "platform/ui/SearchField.h"

#include "platform/ui/DevicePixels.h"
#include "platform/ui/NamedImage.h"
#include "platform/ui/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QToolButton>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {
constexpr int iconSize = 16;
constexpr int iconMargin = 9;
constexpr int naturalWidth = 240;
constexpr int fieldHeight = 28;
} // namespace

SearchField::SearchField(QWidget *parent) : QLineEdit(parent), m_cancelButton(new QToolButton(this))
{
    setFixedHeight(fieldHeight);
    setPlaceholderText(tr("Search"));
    setAccessibleName(tr("Search"));
    setFrame(false); // paintEvent() draws it
    setTextMargins(iconMargin + iconSize + 4, 0, iconMargin + iconSize + 2, 0);

    m_cancelButton->setIcon(NamedImage(u"Cancel"_s).icon());
    m_cancelButton->setAutoRaise(true);
    m_cancelButton->setIconSize(QSize(iconSize, iconSize));
    m_cancelButton->setFixedSize(iconSize + 4, iconSize + 4);
    m_cancelButton->setFocusPolicy(Qt::NoFocus);
    m_cancelButton->setCursor(Qt::ArrowCursor);
    m_cancelButton->setToolTip(tr("Cancel search"));
    m_cancelButton->setAccessibleName(tr("Cancel search"));
    m_cancelButton->hide();
    connect(m_cancelButton, &QToolButton::clicked, this, &SearchField::cancel);
    connect(this, &QLineEdit::textChanged, this,
            [this](const QString &text) { m_cancelButton->setVisible(!text.isEmpty()); });
}

void SearchField::cancel()
{
    Q_EMIT canceled(this);
}

QSize SearchField::sizeHint() const
{
    return {naturalWidth, fieldHeight};
}

void SearchField::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    alignToDevicePixels(painter);
    drawControlBox(painter, rect(), height() / 2.0 - 0.5);
    NamedImage(u"Search"_s).draw(painter, QPoint(iconMargin, (height() - iconSize) / 2));
    if (hasFocus())
        drawFocusRing(painter, rect(), height() / 2.0 - 1.0);
    painter.end();
    QLineEdit::paintEvent(event);
}

void SearchField::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && !text().isEmpty()) {
        cancel();
        event->accept();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void SearchField::resizeEvent(QResizeEvent *event)
{
    QLineEdit::resizeEvent(event);
    m_cancelButton->move(width() - m_cancelButton->width() - iconMargin + 2,
                         (height() - m_cancelButton->height()) / 2);
}

} // namespace lyrabox
