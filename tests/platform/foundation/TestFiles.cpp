#include "platform/foundation/Files.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <sys/stat.h>
#include <unistd.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

class Files : public testing::Test {
protected:
    ~Files() override { files::setReadabilityProbe({}); }

    QString path(const QString &name) const { return m_folder.filePath(name); }
    void makeFile(const QString &name) const
    {
        ASSERT_TRUE(QFile(path(name)).open(QIODevice::WriteOnly));
    }
    void makeFolder(const QString &name) const { ASSERT_TRUE(QDir().mkpath(path(name))); }
    void makeLink(const QString &target, const QString &name) const
    {
        ASSERT_EQ(symlink(QFile::encodeName(target).constData(),
                          QFile::encodeName(path(name)).constData()),
                  0);
    }

    /// The names in the order of the listing.
    static QStringList namesIn(const QString &folder)
    {
        QStringList names;
        for (const files::Entry &entry : files::shallowEntries(folder))
            names.append(entry.path.section(u'/', -1));
        return names;
    }

    QTemporaryDir m_folder;
};

/// Sets the language of the program while it lives.
class DefaultLocale {
public:
    explicit DefaultLocale(QLocale::Language language) { QLocale::setDefault(QLocale(language)); }
    ~DefaultLocale() { QLocale::setDefault(m_old); }
    Q_DISABLE_COPY_MOVE(DefaultLocale)

private:
    QLocale m_old;
};

/// Sets an environment variable, or removes it, while it lives.
class Environment {
public:
    Environment(const char *name, const char *value)
        : m_name(name), m_old(qgetenv(name)), m_wasSet(qEnvironmentVariableIsSet(name))
    {
        if (value)
            qputenv(name, value);
        else
            qunsetenv(name);
    }
    ~Environment()
    {
        if (m_wasSet)
            qputenv(m_name, m_old);
        else
            qunsetenv(m_name);
    }
    Q_DISABLE_COPY_MOVE(Environment)

private:
    const char *m_name;
    QByteArray m_old;
    bool m_wasSet;
};

} // namespace

TEST_F(Files, AnInodeIsTheNumberOfTheFileInDecimals)
{
    makeFile(u"Ä #1.mp3"_s);
    struct stat attributes = {};
    ASSERT_EQ(stat(QFile::encodeName(path(u"Ä #1.mp3"_s)).constData(), &attributes), 0);
    EXPECT_EQ(files::inodeText(path(u"Ä #1.mp3"_s)), QString::number(attributes.st_ino));
    EXPECT_EQ(files::inodeText(QUrl::fromLocalFile(path(u"Ä #1.mp3"_s))),
              QString::number(attributes.st_ino));
}

TEST_F(Files, ALinkHasTheInodeOfItsFile)
{
    makeFile(u"a"_s);
    makeLink(path(u"a"_s), u"b"_s);
    EXPECT_EQ(files::inodeText(path(u"b"_s)), files::inodeText(path(u"a"_s)));
}

TEST_F(Files, TheInodeOfAnUnreadableFileIsTheTextNull)
{
    makeLink(path(u"nothing"_s), u"dangling"_s);
    for (const QString &missing :
         {path(u"missing"_s), path(u"dangling"_s), QString(), path(u"a"_s) + QChar::Null})
        EXPECT_EQ(files::inodeText(missing), u"(null)"_s);
    EXPECT_EQ(files::inodeText(QUrl()), u"(null)"_s);
    EXPECT_EQ(files::inodeText(QUrl(u"http://example.org/etc"_s)), u"(null)"_s);
}

TEST_F(Files, EntriesAreShallowVisibleAndOfTheirOwnKind)
{
    makeFolder(u"folder/inner"_s);
    makeFolder(u".hidden folder"_s);
    makeFolder(u"Program.app"_s);
    makeFile(u"song.mp3"_s);
    makeFile(u".hidden.mp3"_s);
    makeFile(u"file.app"_s);
    makeLink(path(u"folder"_s), u"link"_s);

    QStringList found;
    for (const files::Entry &entry : files::shallowEntries(m_folder.path()))
        found.append(entry.path.mid(m_folder.path().size()) +
                     (entry.isDirectory ? u" directory"_s : QString()) +
                     (entry.isPackage ? u" package"_s : QString()));
    EXPECT_THAT(found, testing::UnorderedElementsAre(u"/folder directory"_s,
                                                     u"/Program.app directory package"_s,
                                                     u"/song.mp3"_s, u"/file.app"_s, u"/link"_s));
}

TEST_F(Files, EntriesAreSortedByNameAsInAFileManager)
{
    const QStringList sorted{u"1 Intro.mp3"_s, u"2"_s,     u"9 Song.mp3"_s, u"10 End.mp3"_s,
                             u"Apple"_s,       u"apple"_s, u"banana"_s,     u"eta"_s,
                             u"Étude"_s,       u"etz"_s,   u"Zebra"_s};
    makeFolder(u"2"_s);
    for (const int i : {4, 0, 9, 3, 10, 2, 7, 5, 8, 6})
        makeFile(sorted.at(i));
    EXPECT_EQ(namesIn(m_folder.path() + u'/'), sorted);
}

TEST_F(Files, NamesThatCompareEqualAreSortedByTheirBytes)
{
    const QStringList sorted{u"SONG 1"_s, u"Song 01"_s,         u"Song 1"_s,
                             u"song 1"_s, u"caf\u0065\u0301"_s, u"caf\u00E9"_s};
    for (const int i : {3, 5, 0, 2, 4, 1})
        makeFile(sorted.at(i));
    EXPECT_EQ(namesIn(m_folder.path()), sorted.mid(4) + sorted.mid(0, 4));
}

TEST_F(Files, EntriesFollowTheAlphabetOfTheLanguage)
{
    for (const QString &name : {u"zebra"_s, u"öl"_s, u"ost"_s})
        makeFile(name);
    EXPECT_EQ(namesIn(m_folder.path()), QStringList({u"öl"_s, u"ost"_s, u"zebra"_s}));
    const DefaultLocale swedish(QLocale::Swedish);
    EXPECT_EQ(namesIn(m_folder.path()), QStringList({u"ost"_s, u"zebra"_s, u"öl"_s}));
}

TEST_F(Files, NumbersAreSortedByValueEvenWithoutALanguage)
{
    for (const QString &name : {u"b 10"_s, u"B 9"_s, u"a"_s})
        makeFile(name);
    const DefaultLocale none(QLocale::C);
    EXPECT_EQ(namesIn(m_folder.path()), QStringList({u"a"_s, u"B 9"_s, u"b 10"_s}));
}

TEST_F(Files, AFolderThatCannotBeListedIsEmpty)
{
    makeFile(u"file"_s);
    EXPECT_TRUE(files::shallowEntries(path(u"missing"_s)).empty());
    EXPECT_TRUE(files::shallowEntries(path(u"file"_s)).empty());
    EXPECT_TRUE(files::shallowEntries(QString()).empty());
}

TEST_F(Files, TheRootHasNoDoubledSeparator)
{
    for (const files::Entry &entry : files::shallowEntries(u"/"_s))
        EXPECT_EQ(entry.path.count(u'/'), 1);
}

TEST_F(Files, ASuffixMakesAPackage)
{
    for (const QString &name :
         {u"A.app"_s, u"a.VST3"_s, u"My.Song.logicx"_s, u"x.lv2"_s, u"y.component"_s})
        EXPECT_TRUE(files::isPackageName(name)) << name.toStdString();
    for (const QString &name : {u"app"_s, u".app"_s, u"A.app.old"_s, u"Mr. Big"_s, u"vol.1"_s,
                                u"Dave.Band"_s, u"a."_s, QString()})
        EXPECT_FALSE(files::isPackageName(name)) << name.toStdString();
}

TEST_F(Files, ReadabilityIsTheSystemsAnswerUnlessReplaced)
{
    makeFile(u"a"_s);
    EXPECT_TRUE(files::isReadable(path(u"a"_s)));
    EXPECT_TRUE(files::isReadable(m_folder.path()));
    EXPECT_FALSE(files::isReadable(path(u"missing"_s)));
    EXPECT_FALSE(files::isReadable(QString()));
    files::setReadabilityProbe([](const QString &asked) { return asked == "/never"_L1; });
    EXPECT_FALSE(files::isReadable(path(u"a"_s)));
    EXPECT_TRUE(files::isReadable(u"/never"_s));
    files::setReadabilityProbe({});
    EXPECT_TRUE(files::isReadable(path(u"a"_s)));
}

TEST_F(Files, AHardLinkIsASecondNameOfTheSameFile)
{
    makeFile(u"a"_s);
    makeFile(u"taken"_s);
    EXPECT_TRUE(files::makeHardLink(path(u"a"_s), path(u"b"_s)));
    EXPECT_EQ(files::inodeText(path(u"b"_s)), files::inodeText(path(u"a"_s)));
    EXPECT_FALSE(files::makeHardLink(path(u"a"_s), path(u"taken"_s)));
    EXPECT_NE(files::inodeText(path(u"taken"_s)), files::inodeText(path(u"a"_s)));
    EXPECT_FALSE(files::makeHardLink(path(u"missing"_s), path(u"c"_s)));
    EXPECT_FALSE(files::makeHardLink(path(u"a"_s), path(u"no such folder/c"_s)));
    EXPECT_FALSE(files::makeHardLink(path(u"a"_s), path(u"c"_s) + QChar::Null));
}

TEST_F(Files, LinksAreResolvedAsFarAsTheyExist)
{
    const QString base = QFileInfo(m_folder.path()).canonicalFilePath();
    makeFolder(u"real/sub"_s);
    makeLink(path(u"real"_s), u"link"_s);
    makeLink(path(u"gone"_s), u"dangling"_s);
    makeLink(path(u"loop"_s), u"loop"_s);
    EXPECT_EQ(files::resolvingSymbolicLinks(path(u"link/sub"_s)), base + u"/real/sub"_s);
    EXPECT_EQ(files::resolvingSymbolicLinks(path(u"link/sub/"_s)), base + u"/real/sub"_s);
    EXPECT_EQ(files::resolvingSymbolicLinks(path(u"link/no/such"_s)), base + u"/real/no/such"_s);
    EXPECT_EQ(files::resolvingSymbolicLinks(path(u"dangling/x"_s)), base + u"/dangling/x"_s);
    EXPECT_EQ(files::resolvingSymbolicLinks(path(u"loop"_s)), base + u"/loop"_s);
    EXPECT_EQ(files::resolvingSymbolicLinks(u"/no such folder/a"_s), u"/no such folder/a"_s);
    EXPECT_EQ(files::resolvingSymbolicLinks(u"/no such folder"_s), u"/no such folder"_s);
    EXPECT_EQ(files::resolvingSymbolicLinks(u"/"_s), u"/"_s);
    EXPECT_EQ(files::resolvingSymbolicLinks(QString()), QString());
}

TEST(ApplicationSupport, FollowsTheEnvironment)
{
    const Environment home("HOME", "/home/ann");
    {
        const Environment data("XDG_DATA_HOME", "/data/");
        EXPECT_EQ(files::applicationSupportDirectories(), QStringList{u"/data"_s});
    }
    for (const char *const ignored : {static_cast<const char *>(nullptr), "", "relative"}) {
        const Environment data("XDG_DATA_HOME", ignored);
        EXPECT_EQ(files::applicationSupportDirectories(), QStringList{u"/home/ann/.local/share"_s});
        const Environment nobody("HOME", nullptr);
        EXPECT_TRUE(files::applicationSupportDirectories().isEmpty());
    }
}

TEST(SharedResources, AreInTheBuildTreeForAProgramStartedThere)
{
    EXPECT_EQ(files::sharedResourceDirectory(),
              QStringLiteral(LYRABOX_BINARY_DIR "/share/lyrabox"));
}
