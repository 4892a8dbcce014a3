// Long because it goes through one controller and every odd entry of its three files.

#include "settings/LB_SettingsController.h"

#include "platform/foundation/Files.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/foundation/PropertyList.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <set>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

QStringList &warnings()
{
    static QStringList collected;
    return collected;
}

void collect(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtWarningMsg)
        warnings().append(text);
}

/// A settings folder of its own for every test, and the warnings that were logged.
class SettingsController : public testing::Test {
protected:
    SettingsController()
    {
        qputenv("XDG_DATA_HOME", m_data.path().toLocal8Bit());
        warnings().clear();
        m_before = qInstallMessageHandler(collect);
    }

    ~SettingsController() override
    {
        qInstallMessageHandler(m_before);
        qputenv("XDG_DATA_HOME", m_oldData);
    }

    QString folder() const { return m_data.filePath(u"Lyrabox"_s); }
    QString file(const QString &name) const { return QDir(folder()).filePath(name); }

    void put(const QString &name, const QByteArray &content) const
    {
        QDir().mkpath(folder());
        QFile out(file(name));
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(content);
    }

    void put(const QString &name, const PropertyList &list) const
    {
        put(name, propertyListXml(list));
    }

    QByteArray content(const QString &name) const
    {
        QFile in(file(name));
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }

    PropertyList list(const QString &name) const
    {
        return readPropertyList(file(name)).value_or(PropertyList());
    }

    QTemporaryDir m_data;
    QByteArray m_oldData = qgetenv("XDG_DATA_HOME");
    QtMessageHandler m_before = nullptr;
};

PropertyList song(const QString &inode, const PropertyList &speed, const PropertyList &pitch)
{
    return PropertyList::Dictionary{{u"inode"_s, inode}, {u"speed"_s, speed}, {u"pitch"_s, pitch}};
}

PropertyList sort(const QString &id, const QString &key, const PropertyList &ascending)
{
    return PropertyList::Dictionary{{u"id"_s, id}, {u"key"_s, key}, {u"ascending"_s, ascending}};
}

PropertyList userSettings(PropertyList::Array sorts, PropertyList::Array songs)
{
    return PropertyList::Dictionary{{u"sorts"_s, std::move(sorts)},
                                    {u"songSettings"_s, std::move(songs)}};
}

const EqPreset *presetWithId(const LB_SettingsController &settings, qint64 id)
{
    const auto presets = settings.eqPresetArray();
    for (const EqPresetRef &preset : *presets) {
        if (preset->id == id)
            return preset.get();
    }
    return nullptr;
}

const SortDescriptor byOrder{u"order"_s, true};

} // namespace

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

TEST_F(SettingsController, StoresTheValuesOfASongAndTellsEverybody)
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

TEST_F(SettingsController, DefaultValuesForgetASongAndStillTellEverybody)
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

TEST_F(SettingsController, OneOfTheTwoValuesIsEnough)
{
    LB_SettingsController settings;
    settings.setup();
    EXPECT_TRUE(settings.setValuesForInode({100.0F, 0.5F}, u"1"_s));
    EXPECT_TRUE(settings.setValuesForInode({99.5F, 0.0F}, u"2"_s));
    EXPECT_EQ(settings.valuesForInode(u"1"_s), (SongValues{100.0F, 0.5F}));
}

TEST_F(SettingsController, ValuesThatAreNoNumbersCountAsDefaults)
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

TEST_F(SettingsController, OrderAscendingForgetsASortAndOrderDescendingStoresOne)
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
    EXPECT_EQ(settings.eqPresetArray()->back().get(), own) << "the order of the list is kept";
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
    EXPECT_EQ(settings.eqPresetArray(), replaced) << "the very list, no copy";
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

TEST_F(SettingsController, MalformedEntriesDoNotSpoilTheirNeighbours)
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
    EXPECT_FALSE(settings.hasSettingsForInode(u"100"_s))
        << "what is left of it are the default values";
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

TEST_F(SettingsController, StoredDefaultsAndDuplicatesAreClearedAway)
{
    put(u"UserSettings.plist"_s,
        userSettings({sort(u"a"_s, u"order"_s, true), sort(u"b"_s, u"title"_s, true),
                      sort(u"b"_s, u"album"_s, true)},
                     {song(u"1"_s, 100, 0), song(u"2"_s, 50, 0), song(u"2"_s, 70, 0)}));
    LB_SettingsController settings;
    settings.setup();
    EXPECT_FALSE(settings.hasSettingsForInode(u"1"_s));
    EXPECT_EQ(settings.valuesForInode(u"2"_s), (SongValues{70.0F, 0.0F}));
    settings.appWillTerminate();
    EXPECT_EQ(list(u"UserSettings.plist"_s),
              userSettings({sort(u"b"_s, u"album"_s, true)}, {song(u"2"_s, 70, 0)}));
}

TEST_F(SettingsController, EntriesOfUnknownShapeAreWrittenAgain)
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

TEST_F(SettingsController, OddPresetsAreRepaired)
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

TEST_F(SettingsController, AnUnreadableFileIsKeptBesideTheNewOne)
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
        << "kept once, although written twice";
}

TEST_F(SettingsController, AFolderInTheFilesPlaceIsKeptToo)
{
    QDir().mkpath(file(u"Folders.plist"_s));
    LB_SettingsController settings;
    settings.setup();
    settings.appWillTerminate();
    EXPECT_TRUE(QFileInfo(file(u"Folders.plist.unreadable-1"_s)).isDir());
    EXPECT_TRUE(list(u"Folders.plist"_s).array());
}

TEST_F(SettingsController, WithoutAnApplicationSupportDirectoryTheDefaultsServe)
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

TEST_F(SettingsController, AFolderThatCannotBeMadeIsReportedOnceAndRememberedAllTheSame)
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

TEST_F(SettingsController, FolderEntriesThatAreNoTextsAreLeftOut)
{
    put(u"Folders.plist"_s, PropertyList::Array{u"/a"_s, 3, u""_s, PropertyList::Array(), u"/b"_s});
    LB_SettingsController settings;
    settings.setup();
    EXPECT_EQ(settings.folderDataArray(), (QStringList{u"/a"_s, u"/b"_s}));
}
