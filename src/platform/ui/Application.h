#pragma once

#include "platform/ui/KeyRepeat.h"

#include <QApplication>

namespace lyrabox {

/// The application object. It alone decides whether a key event is a fresh press or a repeat of a
/// held key. All other code only asks QKeyEvent::isAutoRepeat(). Main thread.
///
/// - Repeats reach their receivers marked as repeats. Until the user releases the key, no unmarked
///   press or release arrives.
/// - If a held key must not act again (see keyActsWhileHeld()), its repeats are dropped.
/// - While a menu is open, letters, digits, Return and Delete belong to it and are no shortcuts.
/// - A shortcut repeats if the autoRepeat() of its QAction or QShortcut is set, even if the display
///   server did not mark the repeats.
class Application : public QApplication {
    Q_OBJECT

public:
    /// Takes the arguments of main(), like QApplication.
    Application(int &argc, char **argv);
    ~Application() override;

    bool notify(QObject *receiver, QEvent *event) override;

    /// For tests: replaces the function that asks the display server whether a key is down, and
    /// forgets all earlier key events.
    void setKeyQuery(KeyRepeat::KeyQuery isDown);

private:
    bool notifyOfKey(QObject *receiver, QKeyEvent *event);
    bool pass(QObject *receiver, QKeyEvent *event);

    std::unique_ptr<KeyRepeat> m_keyRepeat;
    const QEvent *m_passing = nullptr; ///< the event that is being delivered, already classified
    bool m_shortcutRepeats = false; ///< whether the key behind the next Shortcut event is a repeat
};

} // namespace lyrabox
