#include "platform/foundation/UserDefaults.h"
#include "platform/ui/Application.h"

#include <QLocale>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#ifdef __SANITIZE_THREAD__
#include <cstdarg>

extern "C" int __clone(int (*function)(void *), void *stack, int flags, void *argument, ...);

/// QProcess starts its child in the memory of its parent (CLONE_VM). The sanitizer's own wrapper
/// takes that for a fork. From then on it ignores every lock and atomic of the calling thread in
/// the parent. So this function replaces the wrapper.
extern "C" int clone(int (*function)(void *), void *stack, int flags, void *argument, ...)
{
    va_list list;
    va_start(list, argument);
    auto *const parentId = va_arg(list, void *);
    auto *const storage = va_arg(list, void *);
    auto *const childId = va_arg(list, void *);
    va_end(list);
    return __clone(function, stack, flags, argument, parentId, storage, childId);
}
#endif

/// Runs the tests of one executable on the offscreen platform, with home, settings and user
/// defaults in a temporary folder, in English.
int main(int argc, char **argv)
{
    const QTemporaryDir home;
    const auto inHome = [&](const char *name) {
        return home.filePath(QLatin1String(name)).toLocal8Bit();
    };
    qputenv("HOME", inHome("home"));
    qputenv("XDG_DATA_HOME", inHome("data"));
    qputenv("XDG_CONFIG_HOME", inHome("config"));
    qputenv("XDG_CACHE_HOME", inHome("cache"));
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));

    testing::InitGoogleMock(&argc, argv);
    const lyrabox::Application application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Lyrabox"));
    const int result = RUN_ALL_TESTS();
    // Otherwise the file is written after main(), which makes the removed folder again.
    lyrabox::userDefaults().sync();
    return result;
}
