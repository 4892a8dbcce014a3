#pragma once

#include "engine/LB_AudioController.h"
#include "navigation/LB_NavigationView.h"

#include <QApplication>
#include <QMainWindow>
#include <QString>

/// Finds the windows' widgets by name, and the controllers that a widget leads to. Main thread.
namespace lyrabox::soak {

/// The window of that name, or null.
inline QWidget *topLevel(const QString &name)
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName() == name)
            return window;
    }
    return nullptr;
}

/// Null if no window has a widget of that type and name.
template <typename Widget>
Widget *widget(const QString &name)
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (qobject_cast<QMainWindow *>(window) == nullptr)
            continue;
        if (auto *found = window->findChild<Widget *>(name))
            return found;
    }
    return nullptr;
}

inline LB_NavigationView *navigationView()
{
    return widget<LB_NavigationView>(QStringLiteral("navigationView"));
}

/// Null before the launch.
inline LB_AudioController *audioController()
{
    const LB_NavigationView *navigation = navigationView();
    return navigation != nullptr ? navigation->audio() : nullptr;
}

} // namespace lyrabox::soak
