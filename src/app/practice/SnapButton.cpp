#include "app/practice/SnapButton.h"

#include "app/practice/WaveView.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/DevicePixels.h"
#include "platform/ui/Theme.h"

#include <QAction>
#include <QMenu>
#include <QPainter>

#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

const QString snapKey = u"practiceSnap"_s; // "beat", "attack" or "off"

constexpr double arrowHalf = 3.5; // points
constexpr double arrowHeight = 4.0;
constexpr int arrowRoom = 12;
constexpr double arrowMargin = 10.0;

struct Choice {
    SnapTo snapTo;
    const char16_t *key;
    const char *name;
};

constexpr std::array<Choice, 3> choices{{
    {SnapTo::Beat, u"beat", QT_TRANSLATE_NOOP("lyrabox::SnapButton", "Beat")},
    {SnapTo::Attack, u"attack", QT_TRANSLATE_NOOP("lyrabox::SnapButton", "Attack")},
    {SnapTo::Off, u"off", QT_TRANSLATE_NOOP("lyrabox::SnapButton", "Off")},
}};

} // namespace

SnapButton::SnapButton(WaveView *wave, QWidget *parent) : TextButton({}, parent), m_wave(wave)
{
    setObjectName(u"snapButton"_s);
    setToolTip(tr("What the ends of loops, and markers, snap to when they are dragged. With Shift "
                  "they don't."));
    const QString remembered = userDefaults().value(snapKey).toString();
    for (const Choice &choice : choices) {
        if (remembered == QStringView(choice.key))
            wave->setSnapTo(choice.snapTo);
    }
    connect(this, &QAbstractButton::clicked, this, &SnapButton::openMenu);
    showChoice();
}

QSize SnapButton::sizeHint() const
{
    // As wide as the widest choice, so that nothing beside it moves.
    int width = 0;
    for (const Choice &choice : choices)
        width =
            std::max(width, fontMetrics().horizontalAdvance(tr("Snap: %1").arg(tr(choice.name))));
    return {width + arrowRoom + 2 * static_cast<int>(arrowMargin), Theme::controlHeight};
}

void SnapButton::showChoice()
{
    for (const Choice &choice : choices) {
        if (choice.snapTo == m_wave->snapTo())
            setText(tr("Snap: %1").arg(tr(choice.name)));
    }
    setAccessibleName(text());
}

void SnapButton::openMenu()
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const Choice &choice : choices) {
        QAction *action = menu->addAction(tr(choice.name));
        action->setCheckable(true);
        action->setChecked(choice.snapTo == m_wave->snapTo());
        connect(action, &QAction::triggered, this, [this, choice] {
            m_wave->setSnapTo(choice.snapTo);
            userDefaults().setValue(snapKey, QString::fromUtf16(choice.key));
            showChoice();
        });
        if (action->isChecked())
            menu->setActiveAction(action);
    }
    menu->popup(mapToGlobal(QPoint(0, height())));
}

void SnapButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    alignToDevicePixels(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    drawControlBox(painter, rect(), Theme::radius, isDown());
    painter.setPen(isEnabled() ? Theme::text : Theme::disabledText);
    const int margin = static_cast<int>(arrowMargin);
    painter.drawText(rect().adjusted(margin, 0, -arrowRoom - margin, 0),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text());
    const QPointF tip(width() - arrowMargin - arrowHalf, height() / 2.0 + arrowHeight / 2.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::secondaryText);
    painter.drawPolygon(QPolygonF{{tip.x() - arrowHalf, tip.y() - arrowHeight},
                                  {tip.x() + arrowHalf, tip.y() - arrowHeight},
                                  tip});
    if (hasFocus())
        drawFocusRing(painter, rect(), Theme::radius);
}

} // namespace lyrabox
