#include "support/PrivateSoundServer.h"

#include "support/Processes.h"
#include "support/SoundServerPrograms.h"
#include "support/StreamKiller.h"

#include <QFile>
#include <QStandardPaths>

#include <algorithm>
#include <csignal>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::test {
namespace {

// How long a helper process may take. A successful test takes much less.
constexpr int patienceMilliseconds = 20'000;

} // namespace

PrivateSoundServer::Kind PrivateSoundServer::chosenKind()
{
    const QByteArray name = qgetenv(kindVariable);
    EXPECT_TRUE(name.isEmpty() || name == "pulseaudio" || name == "pipewire")
        << kindVariable << " is \"" << name.constData() << "\"";
    if (name.isEmpty())
        return QStandardPaths::findExecutable(u"pulseaudio"_s).isEmpty() ? Kind::PipeWire
                                                                         : Kind::PulseAudio;
    return name == "pipewire" ? Kind::PipeWire : Kind::PulseAudio;
}

PrivateSoundServer::PrivateSoundServer(At start, Sinks sinks, Kind kind)
    : m_sinks(sinks),
      m_kind(kind),
      m_oldServer(qgetenv("PULSE_SERVER")),
      m_oldRuntimeDir(qgetenv("XDG_RUNTIME_DIR"))
{
    qputenv("XDG_RUNTIME_DIR", m_folder.path().toLocal8Bit());
    qputenv("PULSE_SERVER", "unix:" + socket().toLocal8Bit());
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
    return !m_programs.empty() &&
           std::all_of(m_programs.begin(), m_programs.end(),
                       [](auto &program) { return program->state() == QProcess::Running; });
}

void PrivateSoundServer::kill()
{
    signalPrograms(SIGKILL);
    for (const auto &program : m_programs)
        program->waitForFinished(patienceMilliseconds);
    m_programs.clear();
}

void PrivateSoundServer::hang()
{
    signalPrograms(SIGSTOP);
}

void PrivateSoundServer::resume()
{
    signalPrograms(SIGCONT);
}

void PrivateSoundServer::signalPrograms(int signal)
{
    // The program that clients talk to comes first, so that it cannot report the end of the others.
    for (auto program = m_programs.rbegin(); program != m_programs.rend(); ++program) {
        if ((*program)->state() == QProcess::Running) {
            EXPECT_EQ(::kill(static_cast<pid_t>((*program)->processId()), signal), 0);
        }
    }
}

bool PrivateSoundServer::restart()
{
    kill();
    const bool isPipeWire = m_kind == Kind::PipeWire;
    const std::vector<SoundServerProgram> programs =
        isPipeWire ? pipeWirePrograms(m_folder.path(), socket())
                   : pulseAudioPrograms(socket(), m_sinks == Sinks::Rewinding);
    for (const SoundServerProgram &program : programs) {
        if (!program.socket.isEmpty())
            QFile::remove(program.socket); // left by an earlier program
        QProcess &process = *m_programs.emplace_back(std::make_unique<QProcess>());
        dieWithTheTest(process);
        process.setStandardOutputFile(QProcess::nullDevice());
        process.setStandardErrorFile(QProcess::nullDevice());
        if (isPipeWire)
            process.setProcessEnvironment(pipeWireEnvironment(m_folder.path()));
        process.start(program.name, program.arguments);
        if (!process.waitForStarted(patienceMilliseconds)) {
            ADD_FAILURE() << program.name.toStdString()
                          << " does not start: " << process.errorString().toStdString();
            return false;
        }
        if (!program.socket.isEmpty() &&
            !waitUntil([&] { return QFile::exists(program.socket); })) {
            ADD_FAILURE() << program.name.toStdString() << " does not listen";
            return false;
        }
    }
    return waitUntilItServes();
}

bool PrivateSoundServer::waitUntilItServes()
{
    const auto ask = [](const QStringList &arguments) -> QByteArray {
        QProcess process;
        dieWithTheTest(process);
        process.setStandardErrorFile(QProcess::nullDevice());
        process.start(u"pactl"_s, arguments);
        process.waitForFinished(patienceMilliseconds);
        return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0
                   ? process.readAllStandardOutput()
                   : QByteArray();
    };
    const bool answers = waitUntil([&] {
        const QByteArray sinks = ask({u"list"_s, u"short"_s, u"sinks"_s});
        return sinks.contains("\ta\t") && sinks.contains("\tb\t");
    });
    EXPECT_TRUE(answers) << "the private sound server does not answer";
    // In PipeWire the session manager chooses the default, and it may not be ready yet.
    const bool serves = answers && waitUntil([&] {
                            ask({u"set-default-sink"_s, u"a"_s});
                            return ask({u"get-default-sink"_s}).trimmed() == "a";
                        });
    EXPECT_TRUE(serves) << "the private sound server has no default";
    return serves;
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

bool PrivateSoundServer::suspendSink(const QString &sink, bool suspended)
{
    return pactl({u"suspend-sink"_s, sink, suspended ? u"1"_s : u"0"_s});
}

bool PrivateSoundServer::setSinkVolume(const QString &sink, int percent)
{
    return pactl({u"set-sink-volume"_s, sink, u"%1%"_s.arg(percent)});
}

double PrivateSoundServer::sinkSeconds(const QString &sink) const
{
    QByteArray output;
    pactl({u"list"_s, u"sinks"_s}, &output);
    const qsizetype begin = output.indexOf("Name: " + sink.toUtf8() + '\n');
    const QByteArray word = "configured ";
    const qsizetype number = output.indexOf(word, std::max<qsizetype>(begin, 0));
    if (begin < 0 || number < 0)
        return 0.0;
    const qsizetype from = number + word.size();
    return output.mid(from, output.indexOf(' ', from) - from).toDouble() * 1e-6;
}

int PrivateSoundServer::streamCount() const
{
    return static_cast<int>(streams().size());
}

QList<std::uint32_t> PrivateSoundServer::streams() const
{
    QByteArray output;
    pactl({u"list"_s, u"short"_s, u"sink-inputs"_s}, &output);
    QList<std::uint32_t> indices;
    for (const QByteArray &line : output.split('\n')) {
        if (!line.isEmpty())
            indices.append(line.left(line.indexOf('\t')).toUInt());
    }
    return indices;
}

void PrivateSoundServer::killStreams()
{
    const QList<std::uint32_t> killed = streams();
    ASSERT_FALSE(killed.isEmpty()) << "nobody plays";
    EXPECT_TRUE(lyrabox::test::killStreams(killed)) << "streams are left";
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
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LC_ALL"_s, u"C"_s);
    process.setProcessEnvironment(environment);
    process.start(u"pactl"_s, arguments);
    const bool done = process.waitForFinished(patienceMilliseconds) &&
                      process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    if (output != nullptr)
        *output = process.readAllStandardOutput();
    EXPECT_TRUE(done) << "pactl " << arguments.join(u' ').toStdString() << ": "
                      << process.readAllStandardError().toStdString();
    return done;
}

} // namespace lyrabox::test
