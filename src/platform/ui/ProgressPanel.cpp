#include "platform/ui/ProgressPanel.h"

#include "platform/ui/Theme.h"

#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace lyrabox {

namespace {

constexpr int panelWidth = 300;
constexpr int barHeight = 8;
constexpr int fullBar = 1000;
/// How long the panel stays at least, so that it does not flash. The work does not wait for it.
constexpr auto hideDelay = 150ms;

QString barStyle()
{
    return u"QProgressBar { background: %1; border: none; border-radius: 4px; }"
           u"QProgressBar::chunk { background: %2; border-radius: 4px; }"_s.arg(
               Theme::hairline.name(), Theme::accent.name());
}

} // namespace

ProgressPanel::ProgressPanel(QWidget *view)
    : QWidget(view->parentWidget()),
      m_view(view),
      m_label(new QLabel(this)),
      m_bar(new QProgressBar(this))
{
    setAccessibleName(tr("Progress"));
    m_bar->setAccessibleName(tr("Progress"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setAlignment(Qt::AlignCenter);
    m_bar->setRange(0, fullBar);
    m_bar->setTextVisible(false);
    m_bar->setFixedHeight(barHeight);
    m_bar->setStyleSheet(barStyle());
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(2 * Theme::grid, 2 * Theme::grid, 2 * Theme::grid, 2 * Theme::grid);
    layout->setSpacing(Theme::grid);
    layout->addWidget(m_label);
    layout->addWidget(m_bar);
    hide();

    m_hideTimer.setSingleShot(true);
    m_hideTimer.setInterval(hideDelay);
    connect(&m_hideTimer, &QTimer::timeout, this, &QWidget::hide);
}

void ProgressPanel::showProgress(const QString &text, qint64 done, qint64 total)
{
    m_label->setText(text);
    setAccessibleName(text);
    m_bar->setAccessibleName(text);
    if (total > 0) {
        const double fraction =
            static_cast<double>(std::clamp<qint64>(done, 0, total)) / static_cast<double>(total);
        m_bar->setRange(0, fullBar);
        m_bar->setValue(static_cast<int>(fraction * fullBar));
    } else {
        m_bar->setRange(0, 0);
    }
    const QSize size(std::min(std::max(panelWidth, sizeHint().width()), m_view->width()),
                     sizeHint().height());
    QRect frame(QPoint(), size);
    frame.moveCenter(m_view->geometry().center());
    setGeometry(frame);
    raise();
    show();
    repaint();
    m_hideTimer.start(); // fires once the event loop runs again
}

QString ProgressPanel::text() const
{
    return m_label->text();
}

int ProgressPanel::shownPermille() const
{
    return m_bar->maximum() > 0 ? m_bar->value() : -1;
}

void ProgressPanel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    drawControlBox(painter, rect(), Theme::radius);
}

} // namespace lyrabox
