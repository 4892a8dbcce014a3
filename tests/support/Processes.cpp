#include "support/Processes.h"

#include <QElapsedTimer>
#include <QThread>

#include <sys/prctl.h>

#include <csignal>

namespace lyrabox::test {

bool waitUntil(const std::function<bool()> &condition, double seconds)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.hasExpired(static_cast<qint64>(seconds * 1000.0)))
            return false;
        QThread::msleep(5);
    }
    return true;
}

void dieWithTheTest(QProcess &process)
{
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
}

} // namespace lyrabox::test
