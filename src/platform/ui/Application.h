#pragma once

#include "platform/ui/KeyRepeat.h"

#include <QApplication>

namespace lyrabox {

/// The application object. It is the one place that decides whether a key is pressed or held, for
/// every key, shortcut and button:
///
/// - Whatever a held key repeats reaches its receivers marked, so that they need only ask
///   QKeyEvent::isAutoRepeat(). Until the key is let go, no unmarked release or press comes.
/// - What a held key must not do again (keyActsWhileHeld()) never reaches anybody.
/// - A shortcut is repeated if its QAction or QShortcut says so, whether or not the display server
///   marked the repeats.
class Application : public QApplication {
    Q_OBJECT

public:
    /// As QApplication's.
    Application(int &argc, char **argv);
    ~Application() override;

    bool notify(QObject *receiver, QEvent *event) override;

    /// Replaces the question to the display server whether a key is down, and forgets what was
    /// pressed before; for tests.
    void setKeyQuery(KeyRepeat::KeyQuery isDown);

private:
    bool notifyOfKey(QObject *receiver, QKeyEvent *event);
    bool pass(QObject *receiver, QKeyEvent *event);

    std::unique_ptr<KeyRepeat> m_keyRepeat;
    const QEvent *m_passing = nullptr; ///< decided on already, on its way through the widgets
    bool m_shortcutRepeats = false;    ///< of the key that shortcuts are looked up for
};

} // namespace lyrabox
