// The program with damaged parts of its installation.

#include "program/Places.h"
#include "support/program/RunningProgram.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class CopiedProgram : public RunningProgram {
protected:
    /// Copies the installation. The decoders' module gets these bytes as its content; without
    /// `bytes` there is no such file.
    void install(const std::optional<QByteArray> &bytes)
    {
        const QString build = QStringLiteral(LYRABOX_BINARY_DIR);
        ASSERT_TRUE(QDir(installation.path()).mkpath(u"bin"_s));
        program = installation.filePath(u"bin/lyrabox"_s);
        ASSERT_TRUE(QFile::copy(build + u"/lyrabox"_s, program));
        ASSERT_TRUE(QFile::link(build + u"/share"_s, installation.filePath(u"share"_s)));
        ASSERT_TRUE(QDir(installation.path()).mkpath(u"lib/lyrabox"_s));
        const QDir modules(build + u"/lib/lyrabox"_s);
        for (const QString &name : modules.entryList(QDir::Files)) {
            if (name != u"lyrabox-decoding.so"_s) {
                ASSERT_TRUE(QFile::link(modules.filePath(name),
                                        installation.filePath(u"lib/lyrabox/"_s + name)));
            }
        }
        if (bytes) {
            QFile module(installation.filePath(u"lib/lyrabox/lyrabox-decoding.so"_s));
            ASSERT_TRUE(module.open(QIODevice::WriteOnly));
            ASSERT_EQ(module.write(*bytes), bytes->size());
        }
        showFolder(makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0}}));
    }

    static QByteArray decoders()
    {
        QFile file(QStringLiteral(LYRABOX_BINARY_DIR "/lib/lyrabox/lyrabox-decoding.so"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    void expectMessageAndNoSongs()
    {
        start();
        EXPECT_TRUE(waitUntil([this] { return showsMessage(); }));
        EXPECT_TRUE(waitForSongs(0));
        doubleClickSong(0);
        display.key(u"space"_s);
        EXPECT_TRUE(showsMessage());
        EXPECT_EQ(quit(), 0);
    }

    QTemporaryDir installation;
};

TEST_F(CopiedProgram, WithDecodersPlays)
{
    install(decoders());
    start();
    ASSERT_TRUE(waitForSongs(1));
    doubleClickSong(0);
    EXPECT_TRUE(hears(300.0));
    EXPECT_FALSE(showsMessage());
    EXPECT_EQ(quit(), 0);
}

TEST_F(CopiedProgram, WithoutDecodersReportsItAndKeepsRunning)
{
    install(std::nullopt);
    expectMessageAndNoSongs();
}

TEST_F(CopiedProgram, WithTruncatedDecodersReportsItAndKeepsRunning)
{
    const QByteArray whole = decoders();
    install(whole.left(whole.size() / 2));
    expectMessageAndNoSongs();
}

TEST_F(CopiedProgram, WithAnInvalidModuleReportsItAndKeepsRunning)
{
    install(QByteArray("not a module\n").repeated(1000));
    expectMessageAndNoSongs();
}

TEST_F(CopiedProgram, WithoutTheOutputModuleShowsTheNoSoundAlert)
{
    install(decoders());
    ASSERT_TRUE(QFile::remove(installation.filePath(u"lib/lyrabox/lyrabox-output.so"_s)));
    startWithoutWindow();
    display.waitForWindow(u"^Lyrabox$"_s);
    display.key(u"Return"_s);
    EXPECT_EQ(waitForEnd(), 1);
}

} // namespace
