#pragma once

#include <QPointer>

#include <functional>
#include <memory>

class QKeyEvent;
class QWidget;

namespace lyrabox {

/// Whether the widget takes what is typed: a text field that can be edited.
bool takesText(const QWidget *widget);

/// Whether a held key goes on acting in `focus`, the widget that has the keyboard (or null). Every
/// key does in a text field, except Return and Escape. Elsewhere only the keys that move do: the
/// arrows, PageUp, PageDown, Home, End and Tab. Shortcuts are not asked here; they have
/// QAction::autoRepeat().
bool keyActsWhileHeld(int key, const QWidget *focus);

/// Tells what a held key repeats from fresh presses. An X server sends a repeat as a release and a
/// press with one timestamp. The toolkit marks the pair only if the press has arrived when it looks
/// at the release, which often is not so. Main thread.
class KeyRepeat {
public:
    /// Whether the key with this native code is down now, as far as that is known.
    using KeyQuery = std::function<bool(quint32 nativeScanCode)>;

    explicit KeyRepeat(KeyQuery isDown);
    ~KeyRepeat();
    KeyRepeat(const KeyRepeat &) = delete;
    KeyRepeat &operator=(const KeyRepeat &) = delete;

    /// What a key event for `receiver` means.
    ///
    /// A release counts as a repeat while its key is still down. If the next press of that key then
    /// has another timestamp, the key was really released and pressed again before the release was
    /// looked at. takeMissedRelease() returns that release, which has to be sent before the press.
    bool isRepeat(QObject *receiver, const QKeyEvent &event);

    /// A release of a key, and whom it was for.
    struct Release {
        QPointer<QObject> receiver;
        std::unique_ptr<QKeyEvent> event;
    };
    /// After each isRepeat(); its `event` is null if no release was missed.
    Release takeMissedRelease();

private:
    bool isReleaseOfRepeat(QObject *receiver, const QKeyEvent &event);

    KeyQuery m_isDown;
    quint64 m_releasedKey = 0; ///< of the last release, and its time
    quint64 m_releasedTime = 0;
    Release m_pending; ///< taken for a repeat until the next press of its key
    Release m_missed;
};

} // namespace lyrabox
