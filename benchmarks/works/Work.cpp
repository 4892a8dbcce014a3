#include "Work.h"

#include <QApplication>
#include <QLocale>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <vector>

namespace lyrabox::work {

namespace {

/// Reads a line of /proc/self/status, such as "VmRSS", in bytes.
double memoryLine(const std::string &name)
{
    std::ifstream file("/proc/self/status");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(name + ":"))
            return std::stod(line.substr(name.size() + 1)) * 1024.0;
    }
    fail("/proc/self/status tells no " + name);
}

/// Resets the peak in VmHWM.
void forgetPeak()
{
    std::ofstream("/proc/self/clear_refs") << "5";
}

double secondsOf(const std::function<void()> &work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

} // namespace

Cost measure(const std::function<void()> &work)
{
    forgetPeak();
    const double before = memoryLine("VmRSS");
    Cost cost;
    cost.seconds = secondsOf(work);
    cost.megabytes = (memoryLine("VmHWM") - before) / 1e6;
    return cost;
}

Cost measureRepeated(const std::function<void()> &prepare, const std::function<void()> &work)
{
    std::vector<double> times;
    for (double spent = 0.0; spent < 1.0; spent += times.back()) {
        prepare();
        times.push_back(secondsOf(work));
    }
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return {.seconds = *middle, .megabytes = 0.0};
}

void report(const Cost &cost, double amount)
{
    std::cout << "{\"seconds\": " << cost.seconds << ", \"megabytes\": " << cost.megabytes
              << ", \"amount\": " << amount << '}' << std::endl;
}

Arguments arguments(int argc, char **argv)
{
    const std::string_view side = argc == 3 ? argv[1] : "";
    if (side != "ours" && side != "peer")
        fail("usage: PROGRAM ours|peer ARGUMENT");
    return {.ours = side == "ours", .argument = argv[2]};
}

void fail(std::string_view message)
{
    std::cerr << message << '\n';
    std::exit(EXIT_FAILURE);
}

void startApplication()
{
    static int argc = 1;
    static char name[] = "work";
    static char *argv[] = {name, nullptr};
    static const QTemporaryDir home;
    for (const char *variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"})
        qputenv(variable, home.path().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    new QApplication(argc, argv); // Lives until the process ends.
}

} // namespace lyrabox::work
