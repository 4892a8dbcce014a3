#pragma once

#include "engine/LB_AudioController.h"
#include "navigation/LB_NavigationView.h"

#include <QApplication>
#include <QMainWindow>
#include <QString>

/// The windows' widgets by name, and those controllers that a widget leads to. Main thread.
namespace lyrabox::soak {

/// The window of that name; null when there is none.
inline QWidget *topLevel(const QString &name)
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName() == name)
            return window;
    }
    return nullptr;
}

/// Null where no window has one of that type and name.
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
