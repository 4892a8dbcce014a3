#include "support/PrivateSoundServer.h"

#include <QScopeGuard>

#include <gtest/gtest.h>

namespace lyrabox::test {
namespace {

TEST(PrivateSoundServer, IsPipeWireIfPulseAudioIsNotInstalled)
{
    const QByteArray path = qgetenv("PATH");
    const bool wasChosen = qEnvironmentVariableIsSet(PrivateSoundServer::kindVariable);
    const QByteArray chosen = qgetenv(PrivateSoundServer::kindVariable);
    const auto restore = qScopeGuard([&] {
        qputenv("PATH", path);
        if (wasChosen)
            qputenv(PrivateSoundServer::kindVariable, chosen);
    });
    qunsetenv(PrivateSoundServer::kindVariable);

    qputenv("PATH", "/nonexistent");
    EXPECT_EQ(PrivateSoundServer::chosenKind(), PrivateSoundServer::Kind::PipeWire);
    qputenv(PrivateSoundServer::kindVariable, "pulseaudio");
    EXPECT_EQ(PrivateSoundServer::chosenKind(), PrivateSoundServer::Kind::PulseAudio);
    qunsetenv(PrivateSoundServer::kindVariable);
}

} // namespace
} // namespace lyrabox::test
