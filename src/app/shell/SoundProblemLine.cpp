#include "app/shell/SoundProblemLine.h"

#include "engine/LB_AudioController.h"

#include <QLabel>

#include <chrono>

namespace lyrabox {

namespace {
constexpr std::chrono::milliseconds checkInterval{1000};
} // namespace

SoundProblemLine::SoundProblemLine(LB_AudioController *audio, QLabel *line)
    : QObject(line), m_audio(audio), m_line(line)
{
    connect(audio, &LB_AudioController::soundProblemChanged, this, &SoundProblemLine::update);
    // A song that starts clears the line. Without sound, Play is where the user expects a message.
    connect(audio, &LB_AudioController::runningChanged, this, &SoundProblemLine::update);
    // The sound server may stop in the middle of a song without any event.
    connect(&m_checkTimer, &QTimer::timeout, this, &SoundProblemLine::update);
}

void SoundProblemLine::update()
{
    const QString problem = m_audio->soundProblem();
    const bool showsEarlier = !m_shownText.isEmpty() && m_line->text() == m_shownText;
    if (!problem.isEmpty() || showsEarlier)
        m_line->setText(problem);
    m_shownText = problem;
    if (!m_audio->isRunning())
        m_checkTimer.stop();
    else if (!m_checkTimer.isActive())
        m_checkTimer.start(checkInterval);
}

} // namespace lyrabox
