#include "app/practice/ChoiceButton.h"

#include "platform/ui/DevicePixels.h"
#include "platform/ui/Theme.h"

#include <QActionGroup>
#include <QMenu>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace lyrabox {

namespace {

constexpr int sideMargin = 8;
constexpr int arrowRoom = 16;
constexpr double arrowWidth = 7.0;
constexpr double arrowHeight = 4.0;
constexpr int leastWidth = 44;

void drawArrow(QPainter &painter, QPointF middle, const QColor &color)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawPolygon(QPolygonF{{middle.x() - arrowWidth / 2.0, middle.y() - arrowHeight / 2.0},
                                  {middle.x() + arrowWidth / 2.0, middle.y() - arrowHeight / 2.0},
                                  {middle.x(), middle.y() + arrowHeight / 2.0}});
}

} // namespace

ChoiceButton::ChoiceButton(const QString &label, const QStringList &choices, QWidget *parent)
    : QPushButton(parent), m_label(label), m_menu(new QMenu(this))
{
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setMenu(m_menu);
    setChoices(choices);
}

void ChoiceButton::setChoices(const QStringList &choices)
{
    m_choices = choices;
    m_menu->clear();
    auto *group = new QActionGroup(m_menu);
    delete std::exchange(m_group, group);
    for (int index = 0; index < choices.size(); ++index) {
        QString text = choices.at(index);
        QAction *action = m_menu->addAction(text.replace(u'&', QStringLiteral("&&")));
        action->setCheckable(true);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, index] {
            setCurrent(index);
            Q_EMIT chosen(index);
        });
    }
    updateGeometry();
    setCurrent(0);
}

void ChoiceButton::setCurrent(int index)
{
    if (index < 0 || index >= m_choices.size())
        return;
    m_current = index;
    m_menu->actions().at(index)->setChecked(true);
    setText(m_choices.at(index));
    const QString name = tr("%1: %2").arg(m_label, m_choices.at(index));
    setAccessibleName(name);
    setToolTip(name);
}

void ChoiceButton::setChoiceEnabled(int index, bool enabled)
{
    if (index >= 0 && index < m_choices.size())
        m_menu->actions().at(index)->setEnabled(enabled);
}

QSize ChoiceButton::sizeHint() const
{
    int widest = leastWidth;
    for (const QString &choice : m_choices)
        widest = std::max(widest, fontMetrics().horizontalAdvance(choice));
    return {widest + 2 * sideMargin + arrowRoom, Theme::controlHeight};
}

/// A text that does not fit is shortened.
QSize ChoiceButton::minimumSizeHint() const
{
    return {leastWidth + arrowRoom, Theme::controlHeight};
}

void ChoiceButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    alignToDevicePixels(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    drawControlBox(painter, rect(), Theme::radius, isDown());
    const QColor ink = isEnabled() ? Theme::text : Theme::disabledText;
    QRect words = rect().adjusted(sideMargin, 0, -arrowRoom, 0);
    QPointF arrow(width() - arrowRoom / 2.0 - 2.0, height() / 2.0);
    if (isRightToLeft()) {
        words = rect().adjusted(arrowRoom, 0, -sideMargin, 0);
        arrow.setX(arrowRoom / 2.0 + 2.0);
    }
    painter.setPen(ink);
    painter.drawText(words,
                     static_cast<int>(Qt::AlignLeading | Qt::AlignVCenter) |
                         static_cast<int>(Qt::TextSingleLine),
                     fontMetrics().elidedText(text(), Qt::ElideRight, words.width()));
    drawArrow(painter, arrow, ink);
    if (hasFocus())
        drawFocusRing(painter, rect(), Theme::radius);
}

} // namespace lyrabox
