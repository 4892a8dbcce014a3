#pragma once

#include "sources/LB_FolderItem.h"
#include "sources/SourceTreeModel.h"
#include "sources/SourceTreeView.h"

#include <QObject>

#include <memory>
#include <vector>

class LB_AppDelegate;
class LB_BrowserButton;
class LB_SettingsController;
class LB_TrackController;

namespace lyrabox {
class ButtonMatrix;
class Popover;
} // namespace lyrabox

/// The folder tab: the root folders that the user added, their trees, and the selected folder,
/// whose songs the track table shows. Main thread only. Outlets are not owned; set them once,
/// before setup().
class LB_FolderSourceController : public QObject {
    Q_OBJECT

public:
    using FolderRef = std::shared_ptr<LB_FolderItem>;

    /// The tags of the cells of the add and remove buttons.
    enum ButtonTag { RemoveTag = 0, AddTag = 1 };

    explicit LB_FolderSourceController(QObject *parent = nullptr);
    ~LB_FolderSourceController() override;

    /// Not used, see docs/kept-on-purpose.md.
    LB_AppDelegate *appDelegate() const { return m_appDelegate; }
    void setAppDelegate(LB_AppDelegate *delegate) { m_appDelegate = delegate; }
    lyrabox::SourceTreeView *folderOutlineView() const { return m_folderOutlineView; }
    void setFolderOutlineView(lyrabox::SourceTreeView *view);
    lyrabox::Popover *popover() const { return m_popover; }
    void setPopover(lyrabox::Popover *popover);
    LB_SettingsController *settings() const { return m_settings; }
    void setSettings(LB_SettingsController *settings) { m_settings = settings; }
    LB_TrackController *tracks() const { return m_tracks; }
    void setTracks(LB_TrackController *tracks) { m_tracks = tracks; }

    /// Registers observers and loads the roots from the settings. Call it once, at start-up.
    void setup();

    /// Selects the folder remembered in the user defaults, or its deepest listed ancestor.
    void restoreSelection();

    /// Handles the + and - buttons. The tag of the pressed cell decides, see ButtonTag.
    void addRemoveButtonPressed(lyrabox::ButtonMatrix *sender);

    /// Opens the directory browser at `anchor`.
    void addFolder(QWidget *anchor);

    /// Adds the folder that is selected in the directory browser.
    void directorySelectedToAdd(LB_BrowserButton *sender);

    /// Appends a root unless one with the same path exists.
    void addDirectoryToFolderList(const QUrl &url);

    /// Adds folders that were dropped, or opened with the program, and selects the last one.
    void addFolders(const QList<QUrl> &folders);

    /// Asks at `anchor` whether to remove the selected folder.
    void removeFolder(QWidget *anchor);

    /// Removes the root that the popover asks about, or the selected one if the popover is closed.
    /// The popover closes when another folder is selected.
    void removeOkButtonPressed();

    /// Stores the paths of the roots in the settings.
    void storeFolders();

    /// Clears the selection and forgets the remembered folder. The song list stays.
    void deselectFolder();

    /// Lists all trees again after a volume was mounted or unmounted. Expanded folders that still
    /// exist stay expanded, and the selection stays without a new scan. If the selected folder is
    /// gone, nothing is selected.
    void volumeMountChanged();

    /// Reads the songs of the newly selected folder and remembers it.
    void outlineViewSelectionDidChange();

    /// Null if nothing is selected.
    FolderRef selectedFolder() const { return m_selectedFolder; }

    /// Whether the selected folder is a root, which can be removed.
    bool canRemoveSelectedFolder() const
    {
        return m_selectedFolder != nullptr && m_selectedFolder->isRemovable();
    }

Q_SIGNALS:
    void selectedFolderChanged();

private:
    /// Identifies a folder across new listings. The path alone is not enough, because one root may
    /// be inside another.
    struct Place {
        FolderRef root;
        QString path;
    };

    static Place placeOf(const FolderRef &folder);
    QModelIndex indexOf(const Place &place) const;
    void collectExpanded(const QModelIndex &parent, std::vector<Place> &places) const;
    FolderRef rootWithURL(const QUrl &url) const;
    FolderRef folderAt(const QModelIndex &index) const;
    FolderRef childWithURL(const FolderRef &folder, const QUrl &url) const;
    void setSelectedFolder(const FolderRef &folder);

    LB_AppDelegate *m_appDelegate = nullptr;
    lyrabox::SourceTreeView *m_folderOutlineView = nullptr;
    lyrabox::Popover *m_popover = nullptr;
    LB_SettingsController *m_settings = nullptr;
    LB_TrackController *m_tracks = nullptr;
    lyrabox::SourceTreeModel *m_model;
    FolderRef m_selectedFolder;
    FolderRef m_folderToRemove; ///< Set while the popover asks about it.
    bool m_relisting = false;
};
