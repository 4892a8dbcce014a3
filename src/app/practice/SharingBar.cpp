#include "app/practice/SharingBar.h"

#include "app/practice/PaneLayout.h"
#include "app/practice/PracticeSharing.h"
#include "app/practice/TextButton.h"
#include "platform/ui/ElidedLabel.h"
#include "platform/ui/Theme.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QKeyEvent>

namespace lyrabox {

namespace {

constexpr int gap = 4;

/// A button without an answer keeps its name and is hidden.
void showAnswer(TextButton *button, const QString &answer)
{
    button->setVisible(!answer.isEmpty());
    if (answer.isEmpty())
        return;
    button->setText(answer);
    button->setAccessibleName(answer);
}

} // namespace

SharingBar::SharingBar(PracticeSharing *sharing, QWidget *parent)
    : QWidget(parent),
      m_sharing(sharing),
      m_text(new ElidedLabel(this)),
      m_accept(new TextButton({}, this)),
      m_decline(new TextButton({}, this))
{
    setObjectName(QStringLiteral("sharingBar"));
    m_accept->setObjectName(QStringLiteral("sharingAccept"));
    m_decline->setObjectName(QStringLiteral("sharingDecline"));
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(paneLayout::sideMargin, 0, paneLayout::sideMargin, gap);
    row->setSpacing(Theme::grid);
    row->addWidget(m_text, 1);
    row->addWidget(m_accept);
    row->addWidget(m_decline);
    connect(m_accept, &QAbstractButton::clicked, sharing, &PracticeSharing::accept);
    connect(m_decline, &QAbstractButton::clicked, sharing, &PracticeSharing::decline);
    connect(sharing, &PracticeSharing::noticeChanged, this, &SharingBar::showNotice);
    showAnswer(m_accept, PracticeSharing::tr("Use Them"));
    showAnswer(m_decline, PracticeSharing::tr("Close"));
    showNotice();
}

void SharingBar::showNotice()
{
    const PracticeSharing::Notice &notice = m_sharing->notice();
    const bool isNew = !notice.text.isEmpty() && notice.text != m_text->text();
    m_text->setText(notice.text);
    m_text->setToolTip(notice.text);
    showAnswer(m_accept, notice.accept);
    showAnswer(m_decline, notice.decline);
    setVisible(!notice.text.isEmpty());
    if (!isNew || !isVisible())
        return;
    // Screen readers tell of it, the keyboard stays where it is.
    QAccessibleEvent event(m_text, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void SharingBar::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        m_sharing->decline();
    else
        QWidget::keyPressEvent(event);
}

} // namespace lyrabox
