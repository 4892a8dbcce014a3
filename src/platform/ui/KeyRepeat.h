#pragma once

#include <QPointer>

#include <functional>
#include <memory>

class QKeyEvent;
class QWidget;

namespace lyrabox {

/// Whether the user can type text into the widget: an editable text field. `widget` may be null.
bool takesText(const QWidget *widget);

/// Whether a held key keeps acting in `focus`, the widget that has the keyboard (may be null). In a
/// text field every key does, except Return and Escape. Elsewhere only the arrows, PageUp,
/// PageDown, Home, End and Tab do. Shortcuts have their own QAction::autoRepeat() instead.
bool keyActsWhileHeld(int key, const QWidget *focus);

/// Distinguishes repeats of a held key from fresh presses. An X server sends a repeat as a release
/// and a press with the same timestamp. The toolkit marks such a pair only if the press has already
/// arrived when it handles the release, which is often not the case. Main thread.
class KeyRepeat {
public:
    /// Returns whether the key with this native scan code is down now; false if that is not known.
    using KeyQuery = std::function<bool(quint32 nativeScanCode)>;

    explicit KeyRepeat(KeyQuery isDown);
    ~KeyRepeat();
    KeyRepeat(const KeyRepeat &) = delete;
    KeyRepeat &operator=(const KeyRepeat &) = delete;

    /// Whether a key event for `receiver` is a repeat. Call it once for each event, in order.
    ///
    /// A release counts as a repeat while its key is still down. If the next press of that key has
    /// another timestamp, the user really released the key and pressed it again before the release
    /// was handled. Then takeMissedRelease() returns that release, which must be delivered before
    /// the press.
    bool isRepeat(QObject *receiver, const QKeyEvent &event);

    /// A release event, owned, and its receiver.
    struct Release {
        QPointer<QObject> receiver;
        std::unique_ptr<QKeyEvent> event;
    };
    /// Call it after each isRepeat(). `event` is null if no release was missed.
    Release takeMissedRelease();

private:
    bool isReleaseOfRepeat(QObject *receiver, const QKeyEvent &event);

    KeyQuery m_isDown;
    quint64 m_releasedKey = 0; ///< key and timestamp (ms) of the last release
    quint64 m_releasedTime = 0;
    Release m_pending; ///< counted as a repeat until its key is pressed again
    Release m_missed;
};

} // namespace lyrabox
