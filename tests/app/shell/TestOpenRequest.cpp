#include "app/shell/OpenRequest.h"

#include "platform/foundation/Files.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

using Refusal = OpenRequest::Refusal;

struct Classify : testing::Test {
    QUrl file(const QString &name)
    {
        QFile made(folder.filePath(name));
        EXPECT_TRUE(made.open(QIODevice::WriteOnly));
        return QUrl::fromLocalFile(made.fileName());
    }

    QTemporaryDir folder;
};

TEST_F(Classify, FilesAndFoldersKeepTheirOrder)
{
    const QUrl b = file(u"b.mp3"_s);
    const QUrl a = file(u"a.mp3"_s);
    const QUrl place = QUrl::fromLocalFile(folder.path());
    const OpenRequest request = classify({b, place, a});
    EXPECT_EQ(request.files, QList<QUrl>({b, a}));
    EXPECT_EQ(request.folders, QList<QUrl>({place}));
    EXPECT_TRUE(request.refused.isEmpty());
}

TEST_F(Classify, NamesWithPercentSignAndLineBreakAreFound)
{
    const QUrl odd = file(u"100% a\nb.mp3"_s);
    EXPECT_EQ(classify({odd}).files, QList<QUrl>({odd}));
}

TEST_F(Classify, AMissingFileIsRefusedByName)
{
    const OpenRequest request = classify({QUrl::fromLocalFile(folder.filePath(u"gone.mp3"_s))});
    ASSERT_EQ(request.refused.size(), 1);
    EXPECT_EQ(request.refused.front().reason, Refusal::Missing);
    EXPECT_EQ(refusalText(request.refused), u"There is no 'gone.mp3'"_s);
}

TEST_F(Classify, ANameThatIsNotUtf8IsRefused)
{
    const QByteArray name = folder.path().toLocal8Bit() + "/caf\xe9.mp3";
    FILE *made = std::fopen(name.constData(), "w");
    ASSERT_NE(made, nullptr);
    std::fclose(made);
    const OpenRequest request =
        classify({QUrl::fromEncoded("file://" + name.toPercentEncoding("/"))});
    ASSERT_EQ(request.refused.size(), 1);
    EXPECT_EQ(request.refused.front().reason, Refusal::Missing);
    EXPECT_TRUE(refusalText(request.refused).contains(u"caf"_s));
    ::unlink(name.constData());
}

TEST_F(Classify, AnUnreadableFileIsRefused)
{
    const QUrl secret = file(u"secret.mp3"_s);
    files::setReadabilityProbe([](const QString &) { return false; });
    const OpenRequest request = classify({secret});
    files::setReadabilityProbe({});
    ASSERT_EQ(request.refused.size(), 1);
    EXPECT_EQ(refusalText(request.refused), u"'secret.mp3' may not be read"_s);
}

TEST_F(Classify, AUrlOfAnotherMachineIsRefused)
{
    const OpenRequest request = classify(
        {QUrl(u"https://lyrabox.example/a.mp3"_s), QUrl(u"file://elsewhere/music/b.mp3"_s)});
    ASSERT_EQ(request.refused.size(), 2);
    EXPECT_EQ(request.refused.at(0).reason, Refusal::NotHere);
    EXPECT_EQ(request.refused.at(1).reason, Refusal::NotHere);
    EXPECT_EQ(refusalText(request.refused.mid(0, 1)),
              u"'https://lyrabox.example/a.mp3' is not a file on this computer"_s);
}

TEST(RefusalText, NamesAFileThatIsNotAudio)
{
    EXPECT_EQ(refusalText({{u"note.txt"_s, Refusal::NotAudio}}),
              u"'note.txt' is not an audio file"_s);
}

TEST(RefusalText, SeveralAreCounted)
{
    const QString text = refusalText(
        {{u"a"_s, Refusal::Missing}, {u"b"_s, Refusal::NotAudio}, {u"c"_s, Refusal::NotHere}});
    EXPECT_EQ(text, u"'a' and 2 more could not be opened"_s);
}

TEST(RefusalText, IsOneLine)
{
    EXPECT_EQ(refusalText({{u"a\nb.mp3"_s, Refusal::Missing}}), u"There is no 'a b.mp3'"_s);
}

TEST(RefusalText, IsEmptyIfNothingWasRefused)
{
    EXPECT_TRUE(refusalText({}).isEmpty());
}

} // namespace
} // namespace lyrabox
