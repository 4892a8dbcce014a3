#include "fuzz/targets/FuzzTargets.h"

#include <QByteArray>
#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace lyrabox::fuzz {

namespace {

/// libFuzzer reads this section like the counters of instrumented code.
__attribute__((used, section("__libfuzzer_extra_counters"))) std::array<std::uint8_t, 1U << 14>
    behaviours;

const Target &thisTarget()
{
    const auto &all = targets();
    const auto found = std::find_if(all.begin(), all.end(), [](const Target &target) {
        return std::string_view(target.name) == LYRABOX_FUZZ_TARGET;
    });
    if (found == all.end())
        std::abort();
    return *found;
}

void stayQuiet(QtMsgType, const QMessageLogContext &, const QString &) {}

} // namespace

void require(bool holds, const char *what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

void noteBehaviour(std::size_t kind)
{
    behaviours[(kind ^ kind >> 14U ^ kind >> 28U) % behaviours.size()] = 1;
}

} // namespace lyrabox::fuzz

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    static const QCoreApplication application(*argc, *argv);
    const QByteArray home = lyrabox::fuzz::scratchFolder().toLocal8Bit();
    qputenv("HOME", home);
    qputenv("XDG_DATA_HOME", home + "/data");
    qputenv("XDG_CONFIG_HOME", home + "/config");
    qInstallMessageHandler(&lyrabox::fuzz::stayQuiet);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const lyrabox::fuzz::Target target = lyrabox::fuzz::thisTarget();
    target.run({data, size});
    return 0;
}
