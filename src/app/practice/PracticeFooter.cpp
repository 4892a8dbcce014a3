#include "app/practice/PracticeFooter.h"

#include "app/practice/SongPractice.h"
#include "platform/ui/Theme.h"

namespace lyrabox {

namespace {
constexpr int sideMargin = 14;
constexpr int bottomMargin = 4;
} // namespace

QString practiceProblemText(PracticeStore::Problem problem)
{
    using Problem = PracticeStore::Problem;
    switch (problem) {
    case Problem::None:
        break;
    case Problem::Unreadable:
        return PracticeFooter::tr(
            "The loops of this song cannot be read. The next change keeps the "
            "old file under another name.");
    case Problem::PartlyRead:
        return PracticeFooter::tr("Some loops or markers of this song cannot be read. The next "
                                  "change keeps the old file under another name.");
    case Problem::NewerVersion:
        return PracticeFooter::tr("A later version of Lyrabox made these loops. They cannot be "
                                  "changed here.");
    case Problem::NotWritable:
        return PracticeFooter::tr("Loops and markers cannot be written to the disk. They are lost "
                                  "when Lyrabox ends.");
    case Problem::ChangedElsewhere:
        return PracticeFooter::tr("Another program has changed the loops of this song, too. Its "
                                  "file was kept under another name.");
    }
    return {};
}

QString historyProblemText(PracticeDiary::Problem problem)
{
    using Problem = PracticeDiary::Problem;
    switch (problem) {
    case Problem::None:
        break;
    case Problem::NotWritable:
        return PracticeFooter::tr("The practice history cannot be written to the disk. What is "
                                  "added to it is lost when Lyrabox ends.");
    case Problem::PartlyRead:
        return PracticeFooter::tr("Some lines of the practice history cannot be read and are left "
                                  "out.");
    }
    return {};
}

PracticeFooter::PracticeFooter(SongPractice *practice, QWidget *parent)
    : QLabel(parent), m_practice(practice)
{
    setObjectName(QStringLiteral("practiceFooter"));
    setTextFormat(Qt::PlainText);
    setContentsMargins(sideMargin, 0, sideMargin, bottomMargin);
    // A long sentence must not widen the window.
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, Theme::secondaryText);
    setPalette(colors);
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, [this] {
        m_isSlow = true;
        showState();
    });
    connect(practice, &SongPractice::problemChanged, this, &PracticeFooter::showState);
    showState();
}

void PracticeFooter::setDiary(const PracticeDiary *diary)
{
    m_diary = diary;
    connect(diary, &PracticeDiary::problemChanged, this, &PracticeFooter::showState);
    showState();
}

void PracticeFooter::showState()
{
    const PracticeStore &store = m_practice->store();
    if (!store.isIdentifying()) {
        m_patience.stop();
        m_isSlow = false;
    } else if (!m_isSlow && !m_patience.isActive()) {
        m_patience.start();
    }
    QString said = practiceProblemText(store.problem());
    if (said.isEmpty() && m_diary != nullptr)
        said = historyProblemText(m_diary->problem());
    if (said.isEmpty() && m_isSlow)
        said = tr("Recognising the song…");
    setText(said);
    setToolTip(said);
    setVisible(!said.isEmpty());
}

} // namespace lyrabox
