#include "platform/foundation/TerminationSignals.h"

#include <QSocketNotifier>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace lyrabox {

namespace {

constexpr std::array terminationSignals{SIGTERM, SIGINT, SIGHUP};
std::array<int, 2> signalPipe{-1, -1};
std::atomic<bool> hasCome{false};

void onSignal(int)
{
    const int savedErrno = errno;
    hasCome.store(true, std::memory_order_relaxed);
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &byte, 1);
    errno = savedErrno;
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> terminate, QObject *parent)
    : QObject(parent), m_terminate(std::move(terminate))
{
    if (::pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        qFatal("No pipe for the termination signals");
    m_notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] {
        std::array<char, 16> bytes{};
        while (::read(signalPipe[0], bytes.data(), bytes.size()) > 0) {
        }
        m_terminate();
    });
    hasCome = false;
    struct sigaction action = {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART;
    for (const int signal : terminationSignals)
        sigaction(signal, &action, nullptr);
}

bool TerminationSignals::haveCome()
{
    return hasCome.load(std::memory_order_relaxed);
}

TerminationSignals::~TerminationSignals()
{
    for (const int signal : terminationSignals)
        std::signal(signal, SIG_DFL);
    for (int &end : signalPipe)
        ::close(std::exchange(end, -1));
}

} // namespace lyrabox
