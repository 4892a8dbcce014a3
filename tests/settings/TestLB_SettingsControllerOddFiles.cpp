// Settings files that are malformed or unreadable, and a folder in place of one.

#include "settings/LB_SettingsController.h"

#include "settings/SettingsFixture.h"

#include <gmock/gmock.h>

#include <limits>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

TEST_F(SettingsController, MalformedEntriesDoNotAffectOthers)
{
    PropertyList::Array songs{song(u"1"_s, 50, 0)};
    PropertyList::Array sorts{sort(u"a"_s, u"title"_s, 0)};
    for (int i = 0; i < 3000; ++i) {
        songs.emplace_back(i);
        songs.emplace_back(u"text"_s);
        songs.emplace_back(PropertyList::Array{PropertyList::Dictionary()});
        songs.push_back(song(QString::number(100 + i), u"fast"_s, QByteArray("x")));
        sorts.emplace_back(true);
        sorts.push_back(PropertyList::Dictionary{{u"id"_s, QString::number(i)}});
        sorts.push_back(PropertyList::Dictionary{{u"id"_s, i}, {u"key"_s, u"title"_s}});
    }
    songs.push_back(song(u"2"_s, 60.5, -100));
    sorts.push_back(sort(u"b"_s, u"artist"_s, true));
    put(u"UserSettings.plist"_s, userSettings(sorts, songs));

    LB_SettingsController settings;
    settings.setup();
    EXPECT_EQ(settings.valuesForInode(u"1"_s), (SongValues{50.0F, 0.0F}));
    EXPECT_EQ(settings.valuesForInode(u"2"_s), (SongValues{60.5F, -100.0F}));
    EXPECT_EQ(settings.valuesForInode(u"100"_s), SongValues())
        << "neither value is a finite number";
    EXPECT_EQ(settings.sortDescriptorForListID(u"a"_s), (SortDescriptor{u"title"_s, false}));
    EXPECT_EQ(settings.sortDescriptorForListID(u"b"_s), (SortDescriptor{u"artist"_s, true}));
    EXPECT_EQ(settings.sortDescriptorForListID(u"7"_s), byOrder);
    settings.setSortDescriptorForListID({u"album"_s, true}, u"7"_s);
    EXPECT_EQ(settings.sortDescriptorForListID(u"7"_s), (SortDescriptor{u"album"_s, true}));
}

TEST_F(SettingsController, WrongTypesInTheRootCountAsEmpty)
{
    put(u"UserSettings.plist"_s,
        PropertyList::Dictionary{{u"sorts"_s, 5}, {u"songSettings"_s, u"x"_s}});
    LB_SettingsController settings;
    settings.setup();
    EXPECT_FALSE(settings.hasSettingsForInode(u"1"_s));
    EXPECT_EQ(settings.sortDescriptorForListID(u"a"_s), byOrder);
}

TEST_F(SettingsController, StoredDefaultsAndDuplicatesAreTakenAsTheyAreUntilTheyAreReplaced)
{
    const PropertyList stored =
        userSettings({sort(u"a"_s, u"order"_s, true), sort(u"b"_s, u"title"_s, true),
                      sort(u"b"_s, u"album"_s, true)},
                     {song(u"1"_s, 100, 0), song(u"2"_s, 50, 0), song(u"2"_s, 70, 0)});
    put(u"UserSettings.plist"_s, stored);
    LB_SettingsController settings;
    settings.setup();
    EXPECT_TRUE(settings.hasSettingsForInode(u"1"_s)) << "the file has an entry for it";
    EXPECT_EQ(settings.valuesForInode(u"1"_s), SongValues());
    EXPECT_EQ(settings.valuesForInode(u"2"_s), (SongValues{70.0F, 0.0F}))
        << "the later entry must count";
    EXPECT_EQ(settings.sortDescriptorForListID(u"a"_s), byOrder);
    EXPECT_EQ(settings.sortDescriptorForListID(u"b"_s), (SortDescriptor{u"album"_s, true}));
    settings.appWillTerminate();
    EXPECT_EQ(list(u"UserSettings.plist"_s), stored);

    EXPECT_FALSE(settings.setValuesForInode(SongValues(), u"1"_s));
    EXPECT_FALSE(settings.hasSettingsForInode(u"1"_s));
    EXPECT_TRUE(settings.setValuesForInode({60.0F, 0.0F}, u"2"_s));
    settings.setSortDescriptorForListID(byOrder, u"a"_s);
    settings.setSortDescriptorForListID(byOrder, u"b"_s);
    settings.appWillTerminate();
    EXPECT_EQ(list(u"UserSettings.plist"_s), userSettings({}, {song(u"2"_s, 60.0, 0.0)}))
        << "every entry of the song or list must be replaced";
}

TEST_F(SettingsController, EntriesOfUnknownShapeAreWrittenBack)
{
    const PropertyList unknown = PropertyList::Dictionary{{u"volume"_s, 3}};
    PropertyList extended = song(u"1"_s, 50.0, 0.0);
    extended.dictionary()->emplace_back(u"note"_s, u"slow"_s);
    put(u"UserSettings.plist"_s, userSettings({unknown}, {extended, unknown}));
    LB_SettingsController settings;
    settings.setup();
    settings.appWillTerminate();
    EXPECT_EQ(list(u"UserSettings.plist"_s), userSettings({unknown}, {extended, unknown}));
}

TEST_F(SettingsController, UnknownKeysAtTheRootAreWrittenBackAfterTheKnownOnes)
{
    const PropertyList later = PropertyList::Dictionary{{u"a"_s, true}, {u"b"_s, u"x"_s}};
    put(u"UserSettings.plist"_s,
        PropertyList::Dictionary{{u"version"_s, 2},
                                 {u"songSettings"_s, PropertyList::Array{song(u"1"_s, 50.0, 0.0)}},
                                 {u"markers"_s, later}});
    LB_SettingsController settings;
    settings.setup();
    settings.setSortDescriptorForListID({u"title"_s, true}, u"list"_s);
    settings.appWillTerminate();
    EXPECT_EQ(list(u"UserSettings.plist"_s),
              (PropertyList::Dictionary{
                  {u"sorts"_s, PropertyList::Array{sort(u"list"_s, u"title"_s, true)}},
                  {u"songSettings"_s, PropertyList::Array{song(u"1"_s, 50.0, 0.0)}},
                  {u"version"_s, 2},
                  {u"markers"_s, later}}));
}

TEST_F(SettingsController, UnknownKeysInAPresetAreWrittenBackEvenIfItsLevelsHaveChanged)
{
    const PropertyList range = PropertyList::Array{31.25, 16000.0};
    PropertyList::Dictionary entry{
        {u"colour"_s, u"red"_s},   {u"id"_s, 0},
        {u"name"_s, u"By hand"_s}, {u"levels"_s, PropertyList::Array(10, PropertyList(1.0))},
        {u"persistent"_s, u"1"_s}, {u"range"_s, range}};
    put(u"EQPresets.plist"_s, PropertyList::Array{entry});
    LB_SettingsController settings;
    settings.setup();
    settings.eqPresetArray()->front()->levels = std::make_shared<std::vector<float>>(10, 2.0F);
    settings.appWillTerminate();
    EXPECT_EQ(list(u"EQPresets.plist"_s),
              (PropertyList::Array{PropertyList::Dictionary{
                  {u"id"_s, 0},
                  {u"name"_s, u"By hand"_s},
                  {u"levels"_s, PropertyList::Array(10, PropertyList(2.0))},
                  {u"persistent"_s, u"1"_s},
                  {u"colour"_s, u"red"_s},
                  {u"range"_s, range}}}));
}

TEST_F(SettingsController, MalformedPresetsAreRepaired)
{
    const auto levels = [](std::initializer_list<double> values) {
        return PropertyList::Array(values.begin(), values.end());
    };
    put(u"EQPresets.plist"_s,
        PropertyList::Array{
            u"text"_s,
            PropertyList::Dictionary{
                {u"id"_s, 5}, {u"name"_s, u"short"_s}, {u"levels"_s, levels({1, 2, -40})}},
            PropertyList::Dictionary{{u"id"_s, 5}, {u"name"_s, u"twin"_s}},
            PropertyList::Dictionary{
                {u"name"_s, u"no id"_s},
                {u"levels"_s, levels({NAN, INFINITY, 99, 0, 0, 0, 0, 0, 0, 0, 7, 7})}},
            PropertyList::Dictionary{
                {u"id"_s, -3}, {u"levels"_s, u"none"_s}, {u"persistent"_s, true}},
            PropertyList::Dictionary{{u"id"_s, std::numeric_limits<qint64>::max()}, {u"name"_s, 3}},
        });
    LB_SettingsController settings;
    settings.setup();
    const auto presets = settings.eqPresetArray();
    ASSERT_EQ(presets->size(), 6U);
    EXPECT_EQ(presets->at(0)->id, 0) << "the manual preset was missing";
    EXPECT_THAT(*presets->at(1)->levels, testing::ElementsAre(1, 2, -12, 0, 0, 0, 0, 0, 0, 0));
    EXPECT_EQ(presets->at(2)->id, 5);
    EXPECT_EQ(presets->at(2)->levels->size(), 10U);
    EXPECT_EQ(presets->at(3)->id, 6);
    EXPECT_THAT(*presets->at(3)->levels, testing::ElementsAre(0, 0, 12, 0, 0, 0, 0, 0, 0, 0));
    EXPECT_EQ(presets->at(4)->id, 7);
    EXPECT_TRUE(presets->at(4)->persistent.has_value());
    EXPECT_EQ(presets->at(5)->id, 8);
    EXPECT_EQ(presets->at(5)->name, u"Untitled"_s);
}

TEST_F(SettingsController, AManualPresetFromAFileCannotBeRemoved)
{
    put(u"EQPresets.plist"_s,
        PropertyList::Array{PropertyList::Dictionary{{u"id"_s, 0}, {u"name"_s, u"By hand"_s}}});
    LB_SettingsController settings;
    settings.setup();
    ASSERT_EQ(settings.eqPresetArray()->size(), 1U);
    EXPECT_EQ(settings.eqPresetArray()->front()->name, u"By hand"_s);
    EXPECT_TRUE(settings.eqPresetArray()->front()->persistent.has_value());
}

TEST_F(SettingsController, AnUnreadableFileIsKeptUnderAnotherName)
{
    put(u"EQPresets.plist"_s, "<plist><array>"_ba);
    put(u"EQPresets.plist.unreadable-1"_s, "older"_ba);
    put(u"UserSettings.plist"_s, PropertyList::Array());
    LB_SettingsController settings;
    settings.setup();
    EXPECT_GE(settings.eqPresetArray()->size(), 20U);
    EXPECT_EQ(warnings().size(), 2);
    settings.appWillTerminate();
    settings.appWillTerminate();

    EXPECT_EQ(content(u"EQPresets.plist.unreadable-1"_s), "older");
    EXPECT_EQ(content(u"EQPresets.plist.unreadable-2"_s), "<plist><array>");
    EXPECT_TRUE(list(u"EQPresets.plist"_s).array());
    EXPECT_TRUE(list(u"UserSettings.plist.unreadable-1"_s).array());
    EXPECT_TRUE(list(u"UserSettings.plist"_s).dictionary());
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files).size(), 6)
        << "the file must be kept once, although it is written twice";
}

TEST_F(SettingsController, AFolderInPlaceOfAFileIsKeptToo)
{
    QDir().mkpath(file(u"Folders.plist"_s));
    LB_SettingsController settings;
    settings.setup();
    settings.appWillTerminate();
    EXPECT_TRUE(QFileInfo(file(u"Folders.plist.unreadable-1"_s)).isDir());
    EXPECT_TRUE(list(u"Folders.plist"_s).array());
}

TEST_F(SettingsController, WithoutAnApplicationSupportDirectoryTheDefaultsAreUsed)
{
    const QByteArray home = qgetenv("HOME");
    qunsetenv("XDG_DATA_HOME");
    qunsetenv("HOME");
    LB_SettingsController settings;
    settings.setup();
    EXPECT_EQ(settings.applicationSupportDirectory(), std::nullopt);
    EXPECT_GE(settings.eqPresetArray()->size(), 20U);
    EXPECT_EQ(settings.folderDataArray().size(), 1);
    settings.appWillTerminate();
    qputenv("HOME", home);
    EXPECT_THAT(warnings(), testing::Each(u"Unable to access Application Support Directory"_s));
}

TEST_F(SettingsController, AFolderThatCannotBeMadeIsReportedOnceButItsPathIsRemembered)
{
    QFile obstacle(folder());
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    LB_SettingsController settings;
    EXPECT_EQ(settings.applicationSupportDirectory(), std::nullopt);
    EXPECT_EQ(settings.applicationSupportDirectory(), QUrl::fromLocalFile(folder()));
    EXPECT_EQ(warnings(),
              QStringList{u"Unable to access Application Support Directory (Not a directory)"_s});
    settings.setup();
    EXPECT_GE(settings.eqPresetArray()->size(), 20U);
    settings.appWillTerminate();
    EXPECT_TRUE(obstacle.exists());
}

TEST_F(SettingsController, FolderEntriesThatAreNotTextsAreLeftOut)
{
    put(u"Folders.plist"_s, PropertyList::Array{u"/a"_s, 3, u""_s, PropertyList::Array(), u"/b"_s});
    LB_SettingsController settings;
    settings.setup();
    EXPECT_EQ(settings.folderDataArray(), (QStringList{u"/a"_s, u"/b"_s}));
}
