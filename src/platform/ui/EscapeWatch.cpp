#include "platform/ui/EscapeWatch.h"

#include "platform/ui/EscapeListener.h"

#include <QGuiApplication>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

bool isOnX()
{
    return QGuiApplication::platformName() == "xcb"_L1;
}

} // namespace

bool EscapeWatch::isSupported()
{
    return isOnX() || canListenForEscapeOnWayland();
}

EscapeWatch::EscapeWatch()
{
    if (isOnX())
        m_listener = listenForEscapeOnX();
    else if (canListenForEscapeOnWayland())
        m_listener = listenForEscapeOnWayland();
}

EscapeWatch::~EscapeWatch() = default;

bool EscapeWatch::wasPressed()
{
    if (m_listener && m_listener->hasEscape())
        m_wasPressed = true;
    return m_wasPressed;
}

} // namespace lyrabox
