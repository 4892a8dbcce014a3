#pragma once

#include "platform/ui/Application.h"

#include <QKeyEvent>
#include <QTest>
#include <QWindow>

#include <ostream>
#include <string>

namespace lyrabox::test {

/// A key press as an X server sends it to the window with the keyboard focus. While the key is
/// held, each repeat is a release and a press with the same timestamp; the toolkit marks some of
/// them as repeats. Only one object at a time. The display also knows whether the key is down.
class ServerKey {
public:
    struct Way {
        bool marked;            ///< whether the toolkit has marked the repeats
        quint64 delay;          ///< milliseconds before the first repeat
        quint64 interval;       ///< milliseconds between two repeats
        bool idlesBetweenPairs; ///< whether the event loop runs between the release and the press
                                ///< of a repeat
    };

    explicit ServerKey(Way way) : m_way(way)
    {
        application().setKeyQuery([this](quint32) { return m_isDown; });
    }
    ~ServerKey()
    {
        application().setKeyQuery([](quint32) { return false; });
    }
    ServerKey(const ServerKey &) = delete;
    ServerKey &operator=(const ServerKey &) = delete;

    void press(int key, Qt::KeyboardModifiers modifiers = {}, const QString &text = {})
    {
        m_key = key;
        m_modifiers = modifiers;
        m_text = text;
        m_isDown = true;
        m_now += 1000;
        m_nextRepeat = m_now + m_way.delay;
        sendPress(false);
    }

    void repeat(int times = 1)
    {
        for (int i = 0; i < times; ++i) {
            m_now = m_nextRepeat;
            m_nextRepeat += m_way.interval;
            sendRelease(m_way.marked);
            if (m_way.idlesBetweenPairs)
                QCoreApplication::processEvents();
            sendPress(m_way.marked);
        }
    }

    /// Releases the modifiers. The key stays down and repeats without them.
    void letModifiersGo() { m_modifiers = {}; }

    void release()
    {
        m_now += 5;
        m_isDown = false;
        sendRelease(false);
    }

    /// Releases the key and presses it again before the program handles either event.
    void releaseAndPressUnseen()
    {
        m_now += 5;
        sendRelease(false);
        m_now += 5;
        sendPress(false);
    }

    void hold(int key, Qt::KeyboardModifiers modifiers = {}, const QString &text = {},
              int repeats = 5)
    {
        press(key, modifiers, text);
        repeat(repeats);
        release();
    }

private:
    static Application &application() { return *static_cast<Application *>(qApp); }

    static QWidget *target()
    {
        QWidget *focus = QApplication::focusWidget();
        return focus != nullptr ? focus : QApplication::activeWindow();
    }

    void sendPress(bool marked)
    {
        if (target() == nullptr ||
            qt_sendShortcutOverrideEvent(target(), m_now, m_key, m_modifiers, m_text, marked))
            return;
        send(QEvent::KeyPress, marked);
    }

    void sendRelease(bool marked)
    {
        if (target() != nullptr)
            send(QEvent::KeyRelease, marked);
    }

    void send(QEvent::Type type, bool marked)
    {
        QKeyEvent event(type, m_key, m_modifiers, m_text, marked);
        event.setTimestamp(m_now);
        QCoreApplication::sendEvent(target()->window()->windowHandle(), &event);
    }

    Way m_way;
    int m_key = 0;
    Qt::KeyboardModifiers m_modifiers;
    QString m_text;
    bool m_isDown = false;
    quint64 m_nextRepeat = 0;
    static inline quint64 m_now = 1;
};

inline const ServerKey::Way everyWay[] = {
    {true, 150, 10, false},  {true, 150, 10, true},  {true, 1000, 500, true},
    {false, 150, 10, false}, {false, 150, 10, true}, {false, 1000, 500, true},
};

inline std::string nameOfWay(const ServerKey::Way &way)
{
    return std::string(way.marked ? "Marked" : "Unmarked") +
           (way.delay < 500 ? "AfterAShortDelay" : "AfterALongDelay") +
           (way.idlesBetweenPairs ? "OneByOne" : "InPairs");
}

inline void PrintTo(const ServerKey::Way &way, std::ostream *out)
{
    *out << nameOfWay(way);
}

} // namespace lyrabox::test
