#include "app/shell/CommandLine.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

using Task = CommandLine::Task;

QByteArray urlOf(const QByteArray &argument, const QByteArray &folder = "/home/me")
{
    const CommandLine line = readCommandLine(QList<QByteArray>{argument}, folder);
    EXPECT_EQ(line.task, Task::Run);
    return line.urls.size() == 1 ? line.urls.front().toEncoded() : QByteArray("none");
}

TEST(CommandLine, WithoutArgumentsNothingIsOpened)
{
    const CommandLine line = readCommandLine(QList<QByteArray>{}, "/");
    EXPECT_EQ(line.task, Task::Run);
    EXPECT_TRUE(line.urls.isEmpty());
}

TEST(CommandLine, RelativePathsAreResolvedAgainstTheWorkingFolder)
{
    EXPECT_EQ(urlOf("/music/a.mp3"), "file:///music/a.mp3");
    EXPECT_EQ(urlOf("a.mp3"), "file:///home/me/a.mp3");
    EXPECT_EQ(urlOf("../a.mp3"), "file:///home/a.mp3");
    EXPECT_EQ(urlOf("."), "file:///home/me");
    EXPECT_EQ(urlOf("/music/"), "file:///music");
    EXPECT_EQ(urlOf("a.mp3", "/"), "file:///a.mp3");
    EXPECT_EQ(urlOf("a.mp3", ""), "file:///a.mp3");
}

TEST(CommandLine, SpacesPercentSignsAndLineBreaksAreKept)
{
    const QByteArray name = "/m/a b%20c#d?\ne;f\xc3\xbc.mp3";
    const CommandLine line = readCommandLine(QList<QByteArray>{name}, "/");
    ASSERT_EQ(line.urls.size(), 1);
    EXPECT_EQ(line.urls.front().toLocalFile(), QString::fromUtf8(name));
    // They also survive the conversion to text and back.
    const QByteArray encoded = line.urls.front().toEncoded();
    EXPECT_FALSE(encoded.contains('\n'));
    EXPECT_EQ(QUrl::fromEncoded(encoded).toLocalFile(), QString::fromUtf8(name));
}

TEST(CommandLine, BytesThatAreNotUtf8AreKeptInTheUrl)
{
    EXPECT_EQ(urlOf("caf\xe9.mp3"), "file:///home/me/caf%E9.mp3");
}

TEST(CommandLine, UrlsAreKeptUnchanged)
{
    EXPECT_EQ(urlOf("file:///music/a%20b.mp3"), "file:///music/a%20b.mp3");
    EXPECT_EQ(urlOf("FILE:/music/a.mp3"), "file:///music/a.mp3");
    EXPECT_EQ(urlOf("https://lyrabox.example/a.mp3"), "https://lyrabox.example/a.mp3");
}

TEST(CommandLine, LocalhostIsThisMachine)
{
    EXPECT_EQ(urlOf("file://localhost/music/a.mp3"), "file:///music/a.mp3");
}

TEST(CommandLine, APathWithAColonIsNotAUrl)
{
    EXPECT_EQ(QUrl::fromEncoded(urlOf("Suite: Prelude.mp3")),
              QUrl::fromLocalFile(u"/home/me/Suite: Prelude.mp3"_s));
}

TEST(CommandLine, EmptyArgumentsAreIgnored)
{
    EXPECT_TRUE(readCommandLine(QList<QByteArray>{""}, "/").urls.isEmpty());
}

TEST(CommandLine, HelpAndVersionWorkAtAnyPosition)
{
    for (const char *option : {"-h", "--help"})
        EXPECT_EQ(readCommandLine(QList<QByteArray>{"a.mp3", option}, "/").task, Task::ShowHelp);
    for (const char *option : {"-v", "--version"})
        EXPECT_EQ(readCommandLine(QList<QByteArray>{"-x", option}, "/").task, Task::ShowVersion);
}

TEST(CommandLine, AnUnknownOptionIsReported)
{
    const CommandLine line = readCommandLine(QList<QByteArray>{"--loud", "--quiet"}, "/");
    EXPECT_EQ(line.task, Task::ReportUnknownOption);
    EXPECT_EQ(line.unknownOption, u"--loud"_s);
}

TEST(CommandLine, AfterTwoDashesEverythingIsAFileName)
{
    const CommandLine line = readCommandLine(QList<QByteArray>{"--", "--help", "--", "-"}, "/m");
    EXPECT_EQ(line.task, Task::Run);
    EXPECT_EQ(line.urls, QList<QUrl>({QUrl(u"file:///m/--help"_s), QUrl(u"file:///m/--"_s),
                                      QUrl(u"file:///m/-"_s)}));
}

TEST(CommandLine, HelpNamesEveryOption)
{
    for (const QString &option : {u"-h, --help"_s, u"-v, --version"_s, u"--  "_s})
        EXPECT_TRUE(commandLineHelp().contains(option)) << option.toStdString();
    EXPECT_TRUE(commandLineHelp().endsWith(u'\n'));
}

TEST(CommandLine, VersionIsOneLine)
{
    EXPECT_EQ(versionText(), u"Lyrabox "_s + QStringLiteral(LYRABOX_VERSION) + u'\n');
}

} // namespace
} // namespace lyrabox
