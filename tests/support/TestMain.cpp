#include <QApplication>
#include <QLocale>
#include <QTemporaryDir>

#include <gmock/gmock.h>

/// Runs the tests of one executable on the offscreen platform, with home, settings and user defaults in a
/// temporary folder, in English.
int main(int argc, char **argv)
{
    const QTemporaryDir home;
    const auto inHome = [&](const char *name) { return home.filePath(QLatin1String(name)).toLocal8Bit(); };
    qputenv("HOME", inHome("home"));
    qputenv("XDG_DATA_HOME", inHome("data"));
    qputenv("XDG_CONFIG_HOME", inHome("config"));
    qputenv("XDG_CACHE_HOME", inHome("cache"));
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));

    testing::InitGoogleMock(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Lyrabox"));
    return RUN_ALL_TESTS();
}
