#include "support/SoundServerPrograms.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::test {
namespace {

// PipeWire's programs get complete settings instead of additions to those of the system, because
// versions load different modules by default and a system may have additions of its own. The graph
// runs at the sample rate of the songs, so that the server changes no sample.

const QByteArray pipeWireSettings = R"(
context.properties = {
    core.daemon = true
    core.name = pipewire-0
    default.clock.rate = 44100
    default.clock.allowed-rates = [ 44100 48000 ]
}
context.spa-libs = {
    audio.convert.* = audioconvert/libspa-audioconvert
    support.* = support/libspa-support
}
context.modules = [
    { name = libpipewire-module-rt args = { nice.level = -11 } flags = [ ifexists nofail ] }
    { name = libpipewire-module-protocol-native }
    { name = libpipewire-module-profiler }
    { name = libpipewire-module-metadata }
    { name = libpipewire-module-spa-device-factory }
    { name = libpipewire-module-spa-node-factory }
    { name = libpipewire-module-client-node }
    { name = libpipewire-module-client-device }
    { name = libpipewire-module-access }
    { name = libpipewire-module-adapter }
    { name = libpipewire-module-link-factory }
    { name = libpipewire-module-session-manager }
]
context.objects = [
    {
        factory = spa-node-factory
        args = {
            factory.name = support.node.driver node.name = Dummy-Driver
            node.group = pipewire.dummy priority.driver = 20000
        }
    }
    {
        factory = spa-node-factory
        args = {
            factory.name = support.node.driver node.name = Freewheel-Driver
            node.group = pipewire.freewheel node.freewheel = true priority.driver = 19000
        }
    }
]
)";

// There is no fallback sink, because tests also need a server without any sink.
const QByteArray pulseSettings = R"(
context.spa-libs = {
    audio.convert.* = audioconvert/libspa-audioconvert
    support.* = support/libspa-support
}
context.modules = [
    { name = libpipewire-module-rt args = { nice.level = -11 } flags = [ ifexists nofail ] }
    { name = libpipewire-module-protocol-native }
    { name = libpipewire-module-client-node }
    { name = libpipewire-module-adapter }
    { name = libpipewire-module-metadata }
    { name = libpipewire-module-protocol-pulse }
]
pulse.properties = { server.address = [ "unix:%1" ] }
pulse.cmd = [
    { cmd = "load-module" args = "module-null-sink sink_name=a rate=44100 channels=2 format=float32le" }
    { cmd = "load-module" args = "module-null-sink sink_name=b rate=44100 channels=2 format=float32le" }
]
)";

// The session manager uses its own rules, but no devices of this machine and no message bus.
// Version 0.4 reads scripts, later versions read a profile. Each ignores the settings of the other.

const QByteArray sessionScript = R"(
alsa_monitor.enabled = false
v4l2_monitor.enabled = false
libcamera_monitor.enabled = false
default_access.properties["enable-flatpak-portal"] = false
)";

const QByteArray bluetoothScript = "bluez_monitor.enabled = false\n";

const QByteArray sessionProfile = R"(
wireplumber.profiles = {
    main = {
        hardware.audio = disabled
        hardware.bluetooth = disabled
        hardware.video-capture = disabled
        support.portal-permissionstore = disabled
        support.reserve-device = disabled
        support.logind = disabled
    }
}
)";

void write(const QString &path, const QByteArray &text)
{
    EXPECT_TRUE(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size())
        << qPrintable(path);
}

} // namespace

std::vector<SoundServerProgram> pulseAudioPrograms(const QString &socket, bool rewindingSinks)
{
    const QString sink =
        u"module-null-sink sink_name=%1 rate=44100 channels=2 format=float32le norewinds=%2"_s.arg(
            u"%1"_s, rewindingSinks ? u"0"_s : u"1"_s);
    return {{.name = u"pulseaudio"_s,
             .arguments = {u"-n"_s, u"--daemonize=no"_s, u"--exit-idle-time=-1"_s,
                           u"--use-pid-file=no"_s, u"--high-priority=yes"_s, u"--realtime=yes"_s,
                           u"-L"_s, sink.arg(u"a"_s), u"-L"_s, sink.arg(u"b"_s), u"-L"_s,
                           u"module-native-protocol-unix socket=%1 auth-anonymous=1"_s.arg(socket)},
             .socket = {}}};
}

std::vector<SoundServerProgram> pipeWirePrograms(const QString &folder, const QString &socket)
{
    const QDir settings(QDir(folder).filePath(u"config"_s));
    write(settings.filePath(u"pipewire/pipewire.conf"_s), pipeWireSettings);
    write(settings.filePath(u"pipewire/pulse.conf"_s),
          QByteArray(pulseSettings).replace("%1", QFile::encodeName(socket)));
    const QDir session(settings.filePath(u"wireplumber"_s));
    write(session.filePath(u"main.lua.d/80-private.lua"_s), sessionScript);
    write(session.filePath(u"bluetooth.lua.d/80-private.lua"_s), bluetoothScript);
    write(session.filePath(u"wireplumber.conf.d/80-private.conf"_s), sessionProfile);
    // Removes what the session manager stored in an earlier run.
    QDir(QDir(folder).filePath(u"state"_s)).removeRecursively();

    // The PulseAudio server is PipeWire with other settings. A package offers it under a name of
    // its own, but would also make it the sound server of this machine's desktop.
    return {
        {.name = u"pipewire"_s, .arguments = {}, .socket = QDir(folder).filePath(u"pipewire-0"_s)},
        {.name = u"wireplumber"_s, .arguments = {}, .socket = {}},
        {.name = u"pipewire"_s, .arguments = {u"-c"_s, u"pulse.conf"_s}, .socket = socket}};
}

QProcessEnvironment pipeWireEnvironment(const QString &folder)
{
    const QDir place(folder);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString &name : environment.keys()) {
        if (name.startsWith(u"PIPEWIRE_"_s) || name.startsWith(u"WIREPLUMBER_"_s))
            environment.remove(name);
    }
    environment.insert(u"XDG_RUNTIME_DIR"_s, folder);
    environment.insert(u"PIPEWIRE_RUNTIME_DIR"_s, folder);
    environment.insert(u"PULSE_RUNTIME_PATH"_s, folder);
    environment.insert(u"XDG_CONFIG_HOME"_s, place.filePath(u"config"_s));
    environment.insert(u"XDG_STATE_HOME"_s, place.filePath(u"state"_s));
    environment.insert(u"PIPEWIRE_CONFIG_DIR"_s, place.filePath(u"config/pipewire"_s));
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"disabled:"_s);
    return environment;
}

} // namespace lyrabox::test
