#include "soak/Probe.h"

#include "app/practice/PracticePane.h"
#include "app/practice/SongPractice.h"
#include "app/practice/TrainerRun.h"
#include "engine/AudioEngine.h"
#include "engine/ReadySongs.h"
#include "engine/SongChannels.h"
#include "soak/Invariants.h"
#include "soak/Trials.h"
#include "soak/Widgets.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMainWindow>
#include <QSocketNotifier>
#include <QTimer>
#include <QWidget>

#include <malloc.h>
#include <unistd.h>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::soak {
namespace {

QJsonArray frameOf(const QWidget *widget)
{
    const QPoint origin = widget->mapToGlobal(QPoint());
    return {origin.x(), origin.y(), widget->width(), widget->height()};
}

bool isOnScreen(const QWidget *widget)
{
    return widget->isVisible() && !widget->visibleRegion().isEmpty() &&
           !widget->window()->isMinimized();
}

/// All visible named widgets by name. For a list, the rows in its viewport.
QJsonObject targets()
{
    QJsonObject found;
    for (const QWidget *window : QApplication::topLevelWidgets()) {
        if (!isOnScreen(window))
            continue;
        const bool isMain = qobject_cast<const QMainWindow *>(window) != nullptr;
        if (isMain)
            found.insert(window->objectName(), frameOf(window));
        for (const QWidget *widget : window->findChildren<QWidget *>()) {
            if (widget->objectName().isEmpty() || widget->objectName().startsWith(u"qt_"_s) ||
                !isOnScreen(widget))
                continue;
            const auto *list = qobject_cast<const QAbstractItemView *>(widget);
            found.insert(widget->objectName(), frameOf(list ? list->viewport() : widget));
        }
    }
    return found;
}

/// Bytes of songs that are decoded in advance.
double readyBytes()
{
    const engine::ReadySongs *songs = engine::readySongs();
    return songs != nullptr ? static_cast<double>(songs->releasableBytes()) : 0.0;
}

/// Bytes that the program has allocated and not freed, without the samples of songs.
double heapBytes()
{
    const struct mallinfo2 info = mallinfo2();
    const auto format = engine::streamFormat();
    const double song = static_cast<double>(engine::totalFrames()) * format.mBytesPerFrame *
                        format.mChannelsPerFrame;
    return static_cast<double>(info.uordblks + info.hblkhd) - song - readyBytes();
}

QJsonObject state()
{
    QJsonObject state;
    state.insert(u"broken"_s, QJsonArray::fromStringList(brokenInvariants()));
    state.insert(u"targets"_s, targets());
    const QWidget *modal = QApplication::activeModalWidget();
    const QWidget *popup = QApplication::activePopupWidget();
    state.insert(u"modal"_s, modal != nullptr ? frameOf(modal) : QJsonArray());
    state.insert(u"popup"_s, popup != nullptr ? frameOf(popup) : QJsonArray());
    state.insert(u"frame"_s, static_cast<double>(engine::currentFrame()));
    state.insert(u"frames"_s, static_cast<double>(engine::totalFrames()));
    state.insert(u"ready"_s, readyBytes());
    state.insert(u"runs"_s, engine::outputIsRunning());
    state.insert(u"ended"_s, engine::trackHasEnded());
    state.insert(u"loops"_s, engine::isLooping());
    state.insert(u"heap"_s, heapBytes());
    const auto *pane = widget<PracticePane>(u"practicePane"_s);
    const SongPractice *practice = pane != nullptr ? pane->practice() : nullptr;
    state.insert(u"kept"_s, practice != nullptr && !practice->record().loops.empty());
    state.insert(u"markers"_s, practice != nullptr && !practice->record().markers.empty());
    state.insert(u"called up"_s, practice != nullptr && practice->calledUp().has_value());
    state.insert(u"trains"_s, pane != nullptr && pane->trainer()->isRunning());
    state.insert(u"channels"_s, !engine::channelTools().isNeutral());
    const QWidget *history = topLevel(u"historyWindow"_s);
    state.insert(u"history"_s, history != nullptr && history->isVisible());
    const QWidget *exports = topLevel(u"exportWindow"_s);
    state.insert(u"exports"_s, exports != nullptr && exports->isVisible());
    return state;
}

void startProbe()
{
    new Probe(qApp);
}

} // namespace

Probe::Probe(QObject *parent)
    : QObject(parent), m_notifier(new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, this))
{
    connect(m_notifier, &QSocketNotifier::activated, this, &Probe::read);
}

void Probe::read()
{
    QByteArray block(256, '\0');
    const ssize_t got = ::read(STDIN_FILENO, block.data(), static_cast<std::size_t>(block.size()));
    if (got <= 0) {
        m_notifier->setEnabled(false); // The other side has closed the input.
        return;
    }
    m_pending.append(block.constData(), got);
    for (qsizetype end = m_pending.indexOf('\n'); end >= 0; end = m_pending.indexOf('\n')) {
        const QByteArray question = m_pending.left(end);
        m_pending.remove(0, end + 1);
        QTimer::singleShot(0, this, [this, question] {
            obey(question);
            answer();
        });
    }
}

void Probe::obey(const QByteArray &question)
{
    if (question == "settings")
        writeSettings();
    // A user can reach nothing else while a dialog or a menu is open.
    if (QApplication::activeModalWidget() != nullptr ||
        QApplication::activePopupWidget() != nullptr)
        return;
    if (question == "normal")
        m_broken = normalIsReachable();
    else if (question == "own order")
        m_broken = ownOrderIsReachable();
    else if (question.startsWith("command "))
        chooseCommand(QString::fromUtf8(question.mid(8)));
}

void Probe::answer()
{
    QJsonObject answer = state();
    answer.insert(u"trial"_s, QJsonArray::fromStringList(std::exchange(m_broken, {})));
    QByteArray line = QJsonDocument(answer).toJson(QJsonDocument::Compact) + '\n';
    while (!line.isEmpty()) {
        const ssize_t written =
            ::write(STDOUT_FILENO, line.constData(), static_cast<std::size_t>(line.size()));
        if (written <= 0)
            return;
        line.remove(0, written);
    }
}

Q_COREAPP_STARTUP_FUNCTION(startProbe)

} // namespace lyrabox::soak
