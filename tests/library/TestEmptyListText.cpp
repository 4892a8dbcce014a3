#include "library/EmptyListText.h"

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

using Kind = ListOrigin::Kind;

TEST(EmptyListText, AsksForAPlaylistOrFolderAtFirst)
{
    EXPECT_EQ(emptyListText({}, 0, {}), u"Choose a playlist or folder"_s);
}

TEST(EmptyListText, CountsTheFoldersInAFolderWithoutSongs)
{
    EXPECT_EQ(emptyListText({.kind = Kind::Folder, .foldersInside = 12}, 0, {}),
              u"No songs here. Open the folder with its arrow: 12 folders inside."_s);
    EXPECT_EQ(emptyListText({.kind = Kind::Folder, .foldersInside = 1}, 0, {}),
              u"No songs here. Open the folder with its arrow: 1 folder inside."_s);
    EXPECT_EQ(emptyListText({.kind = Kind::Folder, .foldersInside = 0}, 0, {}),
              u"No songs here."_s);
}

TEST(EmptyListText, DistinguishesAnUnreadableFolderFromAnEmptyOne)
{
    EXPECT_EQ(emptyListText({.kind = Kind::Folder, .isReadable = false}, 0, {}),
              u"This folder cannot be read."_s);
    EXPECT_EQ(emptyListText({.kind = Kind::Tree, .isReadable = false}, 0, {}),
              u"This folder cannot be read."_s);
}

TEST(EmptyListText, ExplainsAnEmptyTreeAndAnEmptyPlaylist)
{
    EXPECT_EQ(emptyListText({.kind = Kind::Tree}, 0, {}),
              u"No songs here or in the folders inside."_s);
    EXPECT_EQ(emptyListText({.kind = Kind::Playlist}, 0, {}), u"This playlist has no songs."_s);
}

TEST(EmptyListText, NamesTheSearchOnlyWhenItHidesSongs)
{
    EXPECT_EQ(emptyListText({.kind = Kind::Folder}, 3, u"xyz"_s), u"Nothing matches 'xyz'."_s);
    EXPECT_EQ(emptyListText({.kind = Kind::Folder}, 0, u"xyz"_s), u"No songs here."_s);
}

TEST(EmptyListText, PutsALongOrBrokenSearchTextOnOneLine)
{
    EXPECT_EQ(emptyListText({}, 1, u"%1\n<b>"_s), u"Nothing matches '%1 <b>'."_s);
    EXPECT_LT(emptyListText({}, 1, QString(10000, u'x')).size(), 100);
}

TEST(EmptyListText, SaysThatTheListWasStopped)
{
    EXPECT_EQ(emptyListText({.kind = Kind::Tree, .isIncomplete = true}, 0, {}),
              u"Stopped before a song was read."_s);
}
