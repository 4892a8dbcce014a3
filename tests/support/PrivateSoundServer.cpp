#include "support/PrivateSoundServer.h"

#include <QElapsedTimer>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <csignal>
#include <cstring>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::test {
namespace {

// How long a helper process may take before the test fails. Never reached when all is well.
constexpr int patienceMilliseconds = 20'000;

/// Nothing that a test starts outlives it, even when it crashes.
void dieWithTheTest(QProcess &process)
{
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
}

bool waitUntil(const auto &condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.hasExpired(patienceMilliseconds))
            return false;
        usleep(5000);
    }
    return true;
}

} // namespace

PrivateSoundServer::PrivateSoundServer(At start, Sinks sinks)
    : m_sinks(sinks),
      m_oldServer(qgetenv("PULSE_SERVER")),
      m_oldRuntimeDir(qgetenv("XDG_RUNTIME_DIR"))
{
    qputenv("XDG_RUNTIME_DIR", m_folder.path().toLocal8Bit());
    qputenv("PULSE_SERVER", "unix:" + m_folder.filePath(u"native"_s).toLocal8Bit());
    qputenv("PULSE_COOKIE", m_folder.filePath(u"cookie"_s).toLocal8Bit());
    if (start == At::Once)
        restart();
}

PrivateSoundServer::~PrivateSoundServer()
{
    kill();
    const auto restore = [](const char *name, const QByteArray &value) {
        if (value.isNull())
            qunsetenv(name);
        else
            qputenv(name, value);
    };
    restore("XDG_RUNTIME_DIR", m_oldRuntimeDir);
    restore("PULSE_SERVER", m_oldServer);
    qunsetenv("PULSE_COOKIE");
}

bool PrivateSoundServer::isServing() const
{
    return m_server.state() == QProcess::Running;
}

void PrivateSoundServer::kill()
{
    if (m_server.state() == QProcess::NotRunning)
        return;
    m_server.kill();
    m_server.waitForFinished(patienceMilliseconds);
}

void PrivateSoundServer::hang()
{
    EXPECT_EQ(::kill(static_cast<pid_t>(m_server.processId()), SIGSTOP), 0);
}

void PrivateSoundServer::resume()
{
    EXPECT_EQ(::kill(static_cast<pid_t>(m_server.processId()), SIGCONT), 0);
}

bool PrivateSoundServer::restart()
{
    kill();
    dieWithTheTest(m_server);
    m_server.setStandardOutputFile(QProcess::nullDevice());
    m_server.setStandardErrorFile(QProcess::nullDevice());
    const QString sink =
        u"module-null-sink sink_name=%1 rate=44100 channels=2 format=float32le norewinds=%2"_s.arg(
            u"%1"_s, m_sinks == Sinks::Plain ? u"1"_s : u"0"_s);
    const QString socket = m_folder.filePath(u"native"_s);
    m_server.start(u"pulseaudio"_s,
                   {u"-n"_s, u"--daemonize=no"_s, u"--exit-idle-time=-1"_s, u"--use-pid-file=no"_s,
                    u"--high-priority=yes"_s, u"--realtime=yes"_s, u"-L"_s, sink.arg(u"a"_s),
                    u"-L"_s, sink.arg(u"b"_s), u"-L"_s,
                    u"module-native-protocol-unix socket=%1 auth-anonymous=1"_s.arg(socket)});
    if (!m_server.waitForStarted(patienceMilliseconds)) {
        ADD_FAILURE() << "pulseaudio does not start: " << m_server.errorString().toStdString();
        return false;
    }
    const bool answers = waitUntil([this] {
        QProcess ask;
        dieWithTheTest(ask);
        ask.setStandardErrorFile(QProcess::nullDevice());
        ask.start(u"pactl"_s, {u"info"_s});
        return ask.waitForFinished(patienceMilliseconds) &&
               ask.exitStatus() == QProcess::NormalExit && ask.exitCode() == 0;
    });
    EXPECT_TRUE(answers) << "the private sound server does not answer";
    return answers && setDefaultSink(u"a"_s);
}

bool PrivateSoundServer::setDefaultSink(const QString &name)
{
    return pactl({u"set-default-sink"_s, name});
}

bool PrivateSoundServer::keepRecordersInPlace()
{
    return pactl({u"set-default-source"_s, u"a.monitor"_s});
}

int PrivateSoundServer::loadModule(const QString &name, const QStringList &arguments)
{
    QByteArray output;
    if (!pactl(QStringList{u"load-module"_s, name} + arguments, &output))
        return -1;
    return output.trimmed().toInt();
}

bool PrivateSoundServer::unloadModule(int index)
{
    return pactl({u"unload-module"_s, QString::number(index)});
}

bool PrivateSoundServer::removeSinks()
{
    return pactl({u"unload-module"_s, u"module-null-sink"_s});
}

bool PrivateSoundServer::setSinkVolume(const QString &sink, int percent)
{
    return pactl({u"set-sink-volume"_s, sink, u"%1%"_s.arg(percent)});
}

int PrivateSoundServer::streamCount() const
{
    return static_cast<int>(streams().size());
}

QList<QByteArray> PrivateSoundServer::streams() const
{
    QByteArray output;
    pactl({u"list"_s, u"short"_s, u"sink-inputs"_s}, &output);
    QList<QByteArray> indices;
    for (const QByteArray &line : output.split('\n')) {
        if (!line.isEmpty())
            indices.append(line.left(line.indexOf('\t')));
    }
    return indices;
}

void PrivateSoundServer::killStreams()
{
    // No command of pactl's: the server's own command line has one.
    const QByteArray path = m_folder.filePath(u"commands"_s).toLocal8Bit();
    const int module =
        loadModule(u"module-cli-protocol-unix"_s, {u"socket="_s + QString::fromLocal8Bit(path)});
    const QList<QByteArray> killed = streams();
    ASSERT_FALSE(killed.isEmpty()) << "nobody plays";

    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(static_cast<std::size_t>(path.size()), sizeof(address.sun_path));
    std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
    const int connection = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(::connect(connection, reinterpret_cast<const sockaddr *>(&address), sizeof(address)),
              0);
    for (const QByteArray &stream : killed) {
        const QByteArray command = "kill-sink-input " + stream + "\n";
        EXPECT_EQ(
            ::write(connection, command.constData(), static_cast<std::size_t>(command.size())),
            command.size());
    }
    // Others may have come meanwhile.
    EXPECT_TRUE(waitUntil([&] {
        const QList<QByteArray> left = streams();
        return std::none_of(killed.begin(), killed.end(),
                            [&](const QByteArray &stream) { return left.contains(stream); });
    })) << "streams are left";
    ::close(connection);
    unloadModule(module);
}

std::unique_ptr<Recorder> PrivateSoundServer::record(const QString &sink)
{
    auto recorder = std::make_unique<Recorder>(sink);
    recorder->waitForSize(1);
    return recorder;
}

bool PrivateSoundServer::pactl(const QStringList &arguments, QByteArray *output) const
{
    QProcess process;
    dieWithTheTest(process);
    process.start(u"pactl"_s, arguments);
    const bool done = process.waitForFinished(patienceMilliseconds) &&
                      process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    if (output != nullptr)
        *output = process.readAllStandardOutput();
    EXPECT_TRUE(done) << "pactl " << arguments.join(u' ').toStdString() << ": "
                      << process.readAllStandardError().toStdString();
    return done;
}

Recorder::Recorder(const QString &sink)
{
    std::array<int, 2> pipe{-1, -1};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0) {
        ADD_FAILURE() << "no pipe";
        return;
    }
    m_pipe = pipe[0];
    const int writeEnd = pipe[1];
    m_process.setChildProcessModifier([writeEnd] {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        dup2(writeEnd, STDOUT_FILENO);
    });
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.setProcessChannelMode(QProcess::ForwardedOutputChannel);
    m_process.start(u"parec"_s, {u"--raw"_s, u"--format=float32le"_s,
                                 u"--rate=%1"_s.arg(sampleRate), u"--channels=2"_s,
                                 u"--latency-msec=10"_s, u"--device=%1.monitor"_s.arg(sink)});
    const bool started = m_process.waitForStarted(patienceMilliseconds);
    ::close(writeEnd);
    EXPECT_TRUE(started) << "parec does not start";
    m_reader = std::thread([this] {
        std::array<float, 2048> block{};
        std::size_t held = 0; // bytes
        for (;;) {
            const ssize_t got =
                ::read(m_pipe, reinterpret_cast<char *>(block.data()) + held, sizeof(block) - held);
            if (got <= 0)
                return;
            held += static_cast<std::size_t>(got);
            const std::size_t frames = held / (2 * sizeof(float));
            {
                const std::lock_guard lock(m_mutex);
                for (std::size_t i = 0; i < frames; ++i)
                    m_samples.push_back(block[2 * i]);
            }
            held -= frames * 2 * sizeof(float);
            std::memmove(block.data(), block.data() + 2 * frames, held);
        }
    });
}

Recorder::~Recorder()
{
    m_process.kill();
    m_process.waitForFinished(patienceMilliseconds);
    if (m_reader.joinable())
        m_reader.join();
    if (m_pipe >= 0)
        ::close(m_pipe);
}

std::size_t Recorder::size() const
{
    const std::lock_guard lock(m_mutex);
    return m_samples.size();
}

std::vector<float> Recorder::samples(std::size_t begin, std::size_t end) const
{
    const std::lock_guard lock(m_mutex);
    end = std::min(end, m_samples.size());
    begin = std::min(begin, end);
    return {m_samples.begin() + static_cast<std::ptrdiff_t>(begin),
            m_samples.begin() + static_cast<std::ptrdiff_t>(end)};
}

bool Recorder::waitForSize(std::size_t count) const
{
    // Patience with every new sample: only a server that has stopped delivering ends the wait.
    while (size() < count) {
        const std::size_t before = size();
        if (!waitUntil([&] { return size() > before; })) {
            ADD_FAILURE() << "the recording has stopped";
            return false;
        }
    }
    return true;
}

bool Recorder::waitFor(double seconds) const
{
    return waitForSize(size() + static_cast<std::size_t>(seconds * sampleRate));
}

std::ptrdiff_t Recorder::waitForSound(std::size_t begin, double level, double seconds) const
{
    return waitForWindow(begin, sampleRate / 100, true, level, seconds);
}

std::ptrdiff_t Recorder::waitForSilence(std::size_t begin, double level, double seconds) const
{
    return waitForWindow(begin, sampleRate / 10, false, level, seconds);
}

std::ptrdiff_t Recorder::waitForWindow(std::size_t begin, std::size_t window, bool loud,
                                       double level, double seconds) const
{
    const std::size_t last =
        std::max(begin, size()) + static_cast<std::size_t>(seconds * sampleRate);
    const auto isLouder = [level](float sample) { return std::abs(sample) > level; };
    while (begin + window <= last && waitForSize(begin + window)) {
        const std::vector<float> part = samples(begin, begin + window);
        if (loud) {
            const auto found = std::find_if(part.begin(), part.end(), isLouder);
            if (found != part.end())
                return static_cast<std::ptrdiff_t>(begin) + (found - part.begin());
            begin += window;
        } else {
            const auto found = std::find_if(part.rbegin(), part.rend(), isLouder);
            if (found == part.rend())
                return static_cast<std::ptrdiff_t>(begin);
            begin += static_cast<std::size_t>(part.rend() - found);
        }
    }
    ADD_FAILURE() << "no " << (loud ? "sound" : "silence") << " within " << seconds << " s";
    return -1;
}

} // namespace lyrabox::test
