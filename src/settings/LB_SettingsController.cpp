#include "settings/LB_SettingsController.h"

#include "platform/foundation/Files.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/foundation/PropertyList.h"
#include "settings/EntrySet.h"
#include "settings/SettingsFile.h"
#include "settings/SettingsFolder.h"
#include "settings/SettingsRecords.h"

#include <QDir>
#include <QLoggingCategory>

#include <cmath>

/// The macro requires a function outside every namespace.
static void initShippedFiles()
{
    Q_INIT_RESOURCE(settings);
}

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

const QString userSettingsName = u"UserSettings.plist"_s;
const QString eqPresetsName = u"EQPresets.plist"_s;
const QString foldersName = u"Folders.plist"_s;
const QString sortsKey = u"sorts"_s;
const QString songSettingsKey = u"songSettings"_s;

PropertyList shipped(const QString &name)
{
    initShippedFiles();
    return readPropertyList(u":/settings/"_s + name).value_or(PropertyList());
}

/// The paths of the shipped folders. In the file they are relative to the installed folder of
/// resources.
QStringList shippedFolders()
{
    const QDir resources(files::sharedResourceDirectory());
    QStringList folders;
    for (const QString &entry : strings(shipped(foldersName)))
        folders.append(QDir::cleanPath(resources.absoluteFilePath(entry)));
    return folders;
}

} // namespace

struct LB_SettingsController::Private {
    std::optional<QUrl> appSupportURL;
    SortDescriptor defaultSort{u"order"_s, true};
    EntrySet settingSet{u"inode"_s};
    EntrySet sortSet{u"id"_s};
    PropertyList::Dictionary otherSettings; ///< members of the root whose keys are unknown
    std::shared_ptr<EqPresetList> eqPresetArray = std::make_shared<EqPresetList>();
    QStringList folderDataArray;

    SettingsFile userSettings{userSettingsName};
    SettingsFile eqPresets{eqPresetsName};
    SettingsFile folders{foldersName};
    bool isSetUp = false;
};

LB_SettingsController::LB_SettingsController(QObject *parent)
    : QObject(parent), d(std::make_unique<Private>())
{}

LB_SettingsController::~LB_SettingsController() = default;

std::optional<QUrl> LB_SettingsController::applicationSupportDirectory()
{
    if (d->appSupportURL)
        return d->appSupportURL;
    const SettingsFolder folder = makeSettingsFolder();
    if (!folder.url) {
        qWarning("Unable to access Application Support Directory");
        return std::nullopt;
    }
    d->appSupportURL =
        folder.url; // later calls return it even if it cannot be made; see docs/kept-on-purpose.md
    if (folder.error) {
        qWarning("Unable to access Application Support Directory (%s)",
                 folder.error.message().c_str());
        return std::nullopt;
    }
    return d->appSupportURL;
}

void LB_SettingsController::setup()
{
    const auto isDictionary = [](const PropertyList &list) { return list.dictionary() != nullptr; };
    const auto isArray = [](const PropertyList &list) { return list.array() != nullptr; };

    const PropertyList user =
        d->userSettings.read(applicationSupportDirectory(), isDictionary).value_or(PropertyList());
    d->sortSet.load(user.value(sortsKey));
    d->settingSet.load(user.value(songSettingsKey));
    d->otherSettings = otherMembers(user, {sortsKey, songSettingsKey});

    const EqPresetList shippedPresets = eqPresets(shipped(eqPresetsName));
    const std::optional<PropertyList> presets =
        d->eqPresets.read(applicationSupportDirectory(), isArray);
    d->eqPresetArray =
        std::make_shared<EqPresetList>(presets ? eqPresets(*presets) : shippedPresets);
    ensureManualPreset(*d->eqPresetArray, shippedPresets);

    const std::optional<PropertyList> folders =
        d->folders.read(applicationSupportDirectory(), isArray);
    d->folderDataArray = folders ? strings(*folders) : shippedFolders();

    if (!d->isSetUp) {
        NotificationCenter::defaultCenter().addObserver(
            this, notification::applicationWillTerminate, [this] { appWillTerminate(); });
    }
    d->isSetUp = true;
}

bool LB_SettingsController::hasSettingsForInode(const QString &inode) const
{
    return d->settingSet.find(inode) != nullptr;
}

SongValues LB_SettingsController::valuesForInode(const QString &inode) const
{
    const PropertyList *const entry = d->settingSet.find(inode);
    return entry ? songValues(*entry) : SongValues();
}

bool LB_SettingsController::setValuesForInode(SongValues values, const QString &inode)
{
    const SongValues normal;
    if (!std::isfinite(values.speed))
        values.speed = normal.speed;
    if (!std::isfinite(values.pitch))
        values.pitch = normal.pitch;
    const bool isStored = values != normal;
    if (isStored)
        d->settingSet.replace(inode, songEntry(values, inode));
    else
        d->settingSet.remove(inode);
    NotificationCenter::defaultCenter().post(notification::songSettingsChanged);
    return isStored;
}

SortDescriptor LB_SettingsController::sortDescriptorForListID(const QString &listID) const
{
    const PropertyList *const entry = d->sortSet.find(listID);
    return entry ? sortDescriptor(*entry, d->defaultSort) : d->defaultSort;
}

void LB_SettingsController::setSortDescriptorForListID(const SortDescriptor &descriptor,
                                                       const std::optional<QString> &listID)
{
    if (!listID)
        return;
    if (descriptor == d->defaultSort)
        d->sortSet.remove(*listID);
    else
        d->sortSet.replace(*listID, sortEntry(descriptor, *listID));
}

std::shared_ptr<EqPresetList> LB_SettingsController::eqPresetArray() const
{
    return d->eqPresetArray;
}

void LB_SettingsController::setEqPresetArray(std::shared_ptr<EqPresetList> presets)
{
    d->eqPresetArray = presets ? std::move(presets) : std::make_shared<EqPresetList>();
}

QStringList LB_SettingsController::folderDataArray() const
{
    return d->folderDataArray;
}

void LB_SettingsController::setFolderDataArray(const QStringList &paths)
{
    d->folderDataArray = paths;
}

void LB_SettingsController::appWillTerminate()
{
    if (!d->isSetUp)
        return; // nothing was read, so the files must stay as they are
    PropertyList::Dictionary user{{sortsKey, d->sortSet.elements()},
                                  {songSettingsKey, d->settingSet.elements()}};
    user.insert(user.end(), d->otherSettings.begin(), d->otherSettings.end());
    d->userSettings.write(applicationSupportDirectory(), std::move(user));
    d->eqPresets.write(applicationSupportDirectory(), eqPresetEntries(*d->eqPresetArray));
    d->folders.write(applicationSupportDirectory(),
                     PropertyList::Array(d->folderDataArray.begin(), d->folderDataArray.end()));
}
