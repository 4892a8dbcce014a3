#pragma once

#include "library/LB_QueueController.h"
#include "navigation/LB_BackButton.h"
#include "navigation/LB_ForwardButton.h"
#include "navigation/LB_NavigationView.h"
#include "support/TransportFixture.h"

#include <QLabel>

#include <gtest/gtest.h>

namespace lyrabox::test {

/// Periodic events that a test triggers.
class ManualPeriodicEvents : public PeriodicEvents {
public:
    struct Log {
        bool running = false;
        double delay = 0.0;
        double period = 0.0;
        std::function<void()> event;
    };
    explicit ManualPeriodicEvents(Log &log) : m_log(log) {}
    void start(double delaySeconds, double periodSeconds, std::function<void()> event) override
    {
        m_log = {true, delaySeconds, periodSeconds, std::move(event)};
    }
    void stop() override { m_log.running = false; }

private:
    Log &m_log;
};

/// A player with a queue of three songs, a navigation view 400 points wide and both seek buttons.
struct NavigationFixture {
    static constexpr quint64 rate = 44100;

    NavigationFixture()
    {
        queue.setAudio(transport.controller.get());
        queue.setErrorField(&errorField);
        view.setAudio(transport.controller.get());
        view.setQueue(&queue);
        view.setClock([this] { return now; });
        view.resize(400, 40);
        for (SeekButton *button :
             {static_cast<SeekButton *>(&back), static_cast<SeekButton *>(&forward)}) {
            button->setNavView(&view);
            button->resize(40, 40);
            button->setPeriodicDelay(0.4);
            button->awakeFromNib();
        }
        back.setPeriodicEvents(std::make_unique<ManualPeriodicEvents>(backEvents));
        forward.setPeriodicEvents(std::make_unique<ManualPeriodicEvents>(forwardEvents));
        back.setKeyEquivalent(Qt::Key_Left);
        forward.setKeyEquivalent(Qt::Key_Right);
    }

    LB_AudioController &audio() { return *transport.controller; }

    /// Queues three songs of `seconds` seconds and loads the one at `index`.
    void play(quint64 seconds, std::size_t index = 0)
    {
        transport.song->frames = seconds * rate;
        list = {TransportFixture::track(QStringLiteral("A"), QStringLiteral("1")),
                TransportFixture::track(QStringLiteral("B"), QStringLiteral("2")),
                TransportFixture::track(QStringLiteral("C"), QStringLiteral("3"))};
        queue.playTrack(list.at(index));
        queue.setPlayQueueWithListID(list, QStringLiteral("list"));
        view.updateTimeDisplay();
    }

    QString playingTitle()
    {
        return audio().currentTrack() ? audio().currentTrack()->title.value() : QString();
    }

    void setLoopStart(quint64 frame)
    {
        audio().setLoopStartFrame(frame);
        audio().setLoopStartIsSet(true);
    }

    TransportFixture transport;
    QLabel errorField;
    LB_QueueController queue;
    LB_NavigationView view;
    LB_BackButton back;
    LB_ForwardButton forward;
    ManualPeriodicEvents::Log backEvents;
    ManualPeriodicEvents::Log forwardEvents;
    TrackRecordList list;
    qint64 now = 1000;
};

} // namespace lyrabox::test
