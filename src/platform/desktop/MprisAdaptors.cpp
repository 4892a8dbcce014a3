#include "platform/desktop/MprisAdaptors.h"

#include "platform/desktop/MprisService.h"

#include <QGuiApplication>

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

MprisRootAdaptor::MprisRootAdaptor(MprisService *service)
    : QDBusAbstractAdaptor(service), m_service(service)
{}

QString MprisRootAdaptor::identity() const
{
    return QGuiApplication::applicationDisplayName();
}

QString MprisRootAdaptor::desktopEntry() const
{
    return QGuiApplication::desktopFileName();
}

QStringList MprisRootAdaptor::uriSchemes() const
{
    return {u"file"_s};
}

QStringList MprisRootAdaptor::mimeTypes() const
{
    return m_service->mimeTypes();
}

void MprisRootAdaptor::Raise()
{
    m_service->commands().raise();
}

void MprisRootAdaptor::Quit()
{
    m_service->commands().quit();
}

MprisPlayerAdaptor::MprisPlayerAdaptor(MprisService *service)
    : QDBusAbstractAdaptor(service), m_service(service)
{}

QString MprisPlayerAdaptor::playbackStatus() const
{
    return mprisProperties(m_service->state()).value(u"PlaybackStatus"_s).toString();
}

QString MprisPlayerAdaptor::loopStatus() const
{
    return mprisProperties(m_service->state()).value(u"LoopStatus"_s).toString();
}

void MprisPlayerAdaptor::setLoopStatus(const QString &status)
{
    // Only the user can set the start and the end of a loop, so clients can only clear it.
    if (status == u"None"_s)
        m_service->commands().clearLoop();
    else
        m_service->resendProperty(u"LoopStatus"_s);
}

double MprisPlayerAdaptor::rate() const
{
    return m_service->state().rate;
}

void MprisPlayerAdaptor::setRate(double rate)
{
    if (!std::isfinite(rate))
        return;
    if (rate == 0.0) { // in MPRIS, a rate of 0 means pause
        m_service->commands().pause();
        return;
    }
    m_service->commands().setRate(std::clamp(rate, minimumRate(), maximumRate()));
}

bool MprisPlayerAdaptor::shuffle() const
{
    return m_service->state().shuffle;
}

void MprisPlayerAdaptor::setShuffle(bool shuffle)
{
    m_service->commands().setShuffle(shuffle);
}

QVariantMap MprisPlayerAdaptor::metadata() const
{
    return mprisMetadata(m_service->state());
}

double MprisPlayerAdaptor::volume() const
{
    return m_service->state().volume;
}

void MprisPlayerAdaptor::setVolume(double volume)
{
    if (std::isfinite(volume))
        m_service->commands().setVolume(std::clamp(volume, 0.0, 1.0));
}

qlonglong MprisPlayerAdaptor::position() const
{
    return m_service->commands().position();
}

double MprisPlayerAdaptor::minimumRate() const
{
    return m_service->state().minimumRate;
}

double MprisPlayerAdaptor::maximumRate() const
{
    return m_service->state().maximumRate;
}

bool MprisPlayerAdaptor::canGoNext() const
{
    return m_service->state().canGoNext;
}

bool MprisPlayerAdaptor::canGoPrevious() const
{
    return m_service->state().canGoPrevious;
}

bool MprisPlayerAdaptor::canPlay() const
{
    return m_service->state().canPlay;
}

bool MprisPlayerAdaptor::canPause() const
{
    return m_service->state().canPause;
}

bool MprisPlayerAdaptor::canSeek() const
{
    return m_service->state().canSeek;
}

void MprisPlayerAdaptor::Next()
{
    m_service->commands().next();
}

void MprisPlayerAdaptor::Previous()
{
    m_service->commands().previous();
}

void MprisPlayerAdaptor::Pause()
{
    m_service->commands().pause();
}

void MprisPlayerAdaptor::PlayPause()
{
    m_service->commands().playPause();
}

void MprisPlayerAdaptor::Stop()
{
    m_service->commands().stop();
}

void MprisPlayerAdaptor::Play()
{
    m_service->commands().play();
}

void MprisPlayerAdaptor::Seek(qlonglong Offset)
{
    if (!canSeek())
        return;
    const qint64 length = m_service->state().length;
    const qint64 now = std::clamp<qint64>(position(), 0, length);
    if (Offset > length - now)
        m_service->commands().next();
    else
        m_service->commands().seekTo(Offset < -now ? 0 : now + Offset);
}

void MprisPlayerAdaptor::SetPosition(const QDBusObjectPath &TrackId, qlonglong Position)
{
    // The client may mean a song that is gone by now.
    if (canSeek() && TrackId == mprisTrackPath(m_service->state().songNumber) && Position >= 0 &&
        Position <= m_service->state().length)
        m_service->commands().seekTo(Position);
}

void MprisPlayerAdaptor::OpenUri(const QString &Uri)
{
    const QUrl url(Uri);
    if (url.isLocalFile())
        m_service->commands().open(url);
}

} // namespace lyrabox
