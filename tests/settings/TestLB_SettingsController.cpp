#include "settings/LB_SettingsController.h"

#include "platform/foundation/Files.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "settings/SettingsFixture.h"

#include <gmock/gmock.h>

#include <limits>
#include <set>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

TEST_F(SettingsController, FirstRunMakesTheFolderAndTakesTheShippedLists)
{
    LB_SettingsController settings;
    settings.setup();

    EXPECT_TRUE(QDir(folder()).exists());
    EXPECT_EQ(settings.applicationSupportDirectory(), QUrl::fromLocalFile(folder()));
    EXPECT_GE(settings.eqPresetArray()->size(), 20U);
    EXPECT_EQ(settings.folderDataArray(),
              QStringList{files::sharedResourceDirectory() + u"/Demo"_s});
    EXPECT_EQ(settings.valuesForInode(u"4711"_s), (SongValues{100.0F, 0.0F}));
    EXPECT_FALSE(settings.hasSettingsForInode(u"4711"_s));
    EXPECT_EQ(settings.sortDescriptorForListID(u"/music"_s), byOrder);
    EXPECT_TRUE(warnings().isEmpty());
}

TEST_F(SettingsController, NothingIsWrittenBeforeTermination)
{
    LB_SettingsController settings;
    settings.setup();
    settings.setValuesForInode({50.0F, 0.0F}, u"1"_s);
    EXPECT_TRUE(QDir(folder()).isEmpty());
}

TEST_F(SettingsController, TheShippedPresetsAreWellFormed)
{
    LB_SettingsController settings;
    settings.setup();

    std::set<qint64> ids;
    std::set<QString> names;
    for (const EqPresetRef &preset : *settings.eqPresetArray()) {
        ids.insert(preset->id);
        names.insert(preset->name);
        ASSERT_EQ(preset->levels->size(), 10U);
        EXPECT_THAT(*preset->levels,
                    testing::Each(testing::AllOf(testing::Ge(-12.0F), testing::Le(12.0F))));
        ASSERT_TRUE(preset->persistent.has_value());
        if (preset->id != 0) {
            EXPECT_LT(QString::localeAwareCompare(*preset->persistent,
                                                  *presetWithId(settings, 0)->persistent),
                      0)
                << "the manual preset comes first in descending order";
        }
    }
    EXPECT_EQ(ids.size(), settings.eqPresetArray()->size());
    EXPECT_EQ(names.size(), settings.eqPresetArray()->size());
    ASSERT_NE(presetWithId(settings, 0), nullptr);
    EXPECT_EQ(presetWithId(settings, 0)->name, u"Manual"_s);
}

TEST_F(SettingsController, StoresTheValuesOfASongAndPostsANotification)
{
    LB_SettingsController settings;
    settings.setup();
    QObject observer;
    int posts = 0;
    NotificationCenter::defaultCenter().addObserver(&observer, notification::songSettingsChanged,
                                                    [&] { ++posts; });

    EXPECT_TRUE(settings.setValuesForInode({85.0F, -300.0F}, u"1"_s));
    EXPECT_EQ(posts, 1);
    EXPECT_TRUE(settings.hasSettingsForInode(u"1"_s));
    EXPECT_EQ(settings.valuesForInode(u"1"_s), (SongValues{85.0F, -300.0F}));
    EXPECT_FALSE(settings.hasSettingsForInode(u"01"_s));
}

TEST_F(SettingsController, DefaultValuesRemoveASongAndPostANotification)
{
    LB_SettingsController settings;
    settings.setup();
    settings.setValuesForInode({85.0F, 0.0F}, u"1"_s);
    QObject observer;
    int posts = 0;
    NotificationCenter::defaultCenter().addObserver(&observer, notification::songSettingsChanged,
                                                    [&] { ++posts; });

    EXPECT_FALSE(settings.setValuesForInode({100.0F, 0.0F}, u"1"_s));
    EXPECT_EQ(posts, 1);
    EXPECT_FALSE(settings.hasSettingsForInode(u"1"_s));
    EXPECT_FALSE(settings.setValuesForInode({100.0F, 0.0F}, u"never stored"_s));
    EXPECT_EQ(posts, 2);
}

TEST_F(SettingsController, OneValueThatDiffersIsEnough)
{
    LB_SettingsController settings;
    settings.setup();
    EXPECT_TRUE(settings.setValuesForInode({100.0F, 0.5F}, u"1"_s));
    EXPECT_TRUE(settings.setValuesForInode({99.5F, 0.0F}, u"2"_s));
    EXPECT_EQ(settings.valuesForInode(u"1"_s), (SongValues{100.0F, 0.5F}));
}

TEST_F(SettingsController, ValuesThatAreNotFiniteCountAsDefaults)
{
    LB_SettingsController settings;
    settings.setup();
    EXPECT_FALSE(settings.setValuesForInode({std::nanf(""), std::numeric_limits<float>::infinity()},
                                            u"1"_s));
    EXPECT_TRUE(settings.setValuesForInode({std::nanf(""), 100.0F}, u"1"_s));
    EXPECT_EQ(settings.valuesForInode(u"1"_s), (SongValues{100.0F, 100.0F}));
}

TEST_F(SettingsController, StoringTwiceLeavesOneEntryWithTheLaterValues)
{
    LB_SettingsController settings;
    settings.setup();
    settings.setValuesForInode({50.0F, 0.0F}, u"1"_s);
    settings.setValuesForInode({75.0F, 10.0F}, u"1"_s);
    settings.appWillTerminate();

    const PropertyList written = list(u"UserSettings.plist"_s);
    ASSERT_EQ(written.value(u"songSettings").array()->size(), 1U);
    EXPECT_EQ(written.value(u"songSettings").array()->front(), song(u"1"_s, 75.0F, 10.0F));
}

TEST_F(SettingsController, OrderAscendingRemovesASortAndOrderDescendingStoresOne)
{
    LB_SettingsController settings;
    settings.setup();
    const QString id = u"/music"_s;
    settings.setSortDescriptorForListID({u"artist"_s, true}, id);
    EXPECT_EQ(settings.sortDescriptorForListID(id), (SortDescriptor{u"artist"_s, true}));
    settings.setSortDescriptorForListID(byOrder, id);
    EXPECT_EQ(settings.sortDescriptorForListID(id), byOrder);
    settings.setSortDescriptorForListID({u"order"_s, false}, id);
    EXPECT_EQ(settings.sortDescriptorForListID(id), (SortDescriptor{u"order"_s, false}));
    settings.setSortDescriptorForListID({u"title"_s, false}, id);
    settings.appWillTerminate();

    const PropertyList written = list(u"UserSettings.plist"_s);
    ASSERT_EQ(written.value(u"sorts").array()->size(), 1U);
    EXPECT_EQ(written.value(u"sorts").array()->front(), sort(id, u"title"_s, false));
}

TEST_F(SettingsController, ASortWithoutAListChangesNothing)
{
    LB_SettingsController settings;
    settings.setup();
    settings.setSortDescriptorForListID({u"title"_s, false}, std::nullopt);
    settings.appWillTerminate();
    EXPECT_TRUE(list(u"UserSettings.plist"_s).value(u"sorts").array()->empty());
}

TEST_F(SettingsController, AFileWithoutSongSettingsKeepsItsSorts)
{
    put(u"UserSettings.plist"_s,
        PropertyList::Dictionary{
            {u"sorts"_s, PropertyList::Array{sort(u"a"_s, u"title"_s, false)}}});
    LB_SettingsController settings;
    settings.setup();
    EXPECT_EQ(settings.sortDescriptorForListID(u"a"_s), (SortDescriptor{u"title"_s, false}));
    EXPECT_FALSE(settings.hasSettingsForInode(u"1"_s));
    EXPECT_TRUE(warnings().isEmpty());
}

TEST_F(SettingsController, AnEmptyFoldersFileIsAnEmptyList)
{
    put(u"Folders.plist"_s, PropertyList::Array());
    LB_SettingsController settings;
    settings.setup();
    EXPECT_TRUE(settings.folderDataArray().isEmpty());
}

TEST_F(SettingsController, AnEmptyPresetsFileStillGivesTheManualPreset)
{
    put(u"EQPresets.plist"_s, PropertyList::Array());
    LB_SettingsController settings;
    settings.setup();
    ASSERT_EQ(settings.eqPresetArray()->size(), 1U);
    EXPECT_EQ(settings.eqPresetArray()->front()->id, 0);
    EXPECT_TRUE(settings.eqPresetArray()->front()->persistent.has_value());
}

TEST_F(SettingsController, TheTerminationNotificationWritesWhatTheNextRunReads)
{
    {
        LB_SettingsController settings;
        settings.setup();
        settings.setValuesForInode({85.2F, -33.333332F}, u"12"_s);
        settings.setValuesForInode({100.0F, 1e-45F}, u"(null)"_s);
        settings.setSortDescriptorForListID({u"artist"_s, false}, u"/music/Ä & <b>"_s);
        settings.setFolderDataArray({u"/b"_s, u"/a"_s});
        const auto presets = settings.eqPresetArray();
        (*presets->at(1)->levels)[3] = 0.1F;
        auto own = std::make_shared<EqPreset>();
        own->id = 99;
        own->name = u"Mine"_s;
        own->levels = std::make_shared<std::vector<float>>(10, -12.0F);
        presets->push_back(own);
        NotificationCenter::defaultCenter().post(notification::applicationWillTerminate);
    }
    LB_SettingsController settings;
    settings.setup();
    EXPECT_EQ(settings.valuesForInode(u"12"_s), (SongValues{85.2F, -33.333332F}));
    EXPECT_EQ(settings.valuesForInode(u"(null)"_s), (SongValues{100.0F, 1e-45F}));
    EXPECT_EQ(settings.sortDescriptorForListID(u"/music/Ä & <b>"_s),
              (SortDescriptor{u"artist"_s, false}));
    EXPECT_EQ(settings.folderDataArray(), (QStringList{u"/b"_s, u"/a"_s}));
    EXPECT_EQ(settings.eqPresetArray()->at(1)->levels->at(3), 0.1F);
    const EqPreset *const own = presetWithId(settings, 99);
    ASSERT_NE(own, nullptr);
    EXPECT_EQ(own->name, u"Mine"_s);
    EXPECT_FALSE(own->persistent.has_value());
    EXPECT_EQ(settings.eqPresetArray()->back().get(), own) << "the order of the list must be kept";
}

TEST_F(SettingsController, TheRootKeysAreWrittenSortsFirst)
{
    LB_SettingsController settings;
    settings.setup();
    settings.appWillTerminate();
    const PropertyList written = list(u"UserSettings.plist"_s);
    ASSERT_TRUE(written.dictionary());
    ASSERT_EQ(written.dictionary()->size(), 2U);
    EXPECT_EQ(written.dictionary()->at(0).first, u"sorts"_s);
    EXPECT_EQ(written.dictionary()->at(1).first, u"songSettings"_s);
}

TEST_F(SettingsController, ReplacingThePresetListReplacesWhatIsWritten)
{
    LB_SettingsController settings;
    settings.setup();
    auto replaced = std::make_shared<EqPresetList>();
    settings.setEqPresetArray(replaced);
    EXPECT_EQ(settings.eqPresetArray(), replaced)
        << "the controller must keep this list, not a copy";
    settings.appWillTerminate();
    EXPECT_TRUE(list(u"EQPresets.plist"_s).array()->empty());
}

TEST_F(SettingsController, TerminationBeforeSetupLeavesTheFilesAlone)
{
    put(u"Folders.plist"_s, "kept"_ba);
    LB_SettingsController settings;
    settings.appWillTerminate();
    EXPECT_EQ(content(u"Folders.plist"_s), "kept");
}
