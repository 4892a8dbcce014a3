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

/// The folder tab: the root folders that the user added, their trees, and the folder selected,
/// whose songs the track table shows. Main thread only. Outlets are set once, before setup(), and
/// are not owned.
class LB_FolderSourceController : public QObject {
    Q_OBJECT

public:
    using FolderRef = std::shared_ptr<LB_FolderItem>;

    explicit LB_FolderSourceController(QObject *parent = nullptr);
    ~LB_FolderSourceController() override;

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

    /// Registers the observers and loads the roots from the settings. Once, at start-up.
    void setup();

    /// Selects the folder remembered in the user defaults, or its deepest ancestor that is listed.
    void restoreSelection();

    /// The tag of the pressed cell decides: 1 adds, 0 removes.
    void addRemoveButtonPressed(lyrabox::ButtonMatrix *sender);
    void addFolder(QWidget *anchor);
    void directorySelectedToAdd(LB_BrowserButton *sender);

    /// Appends a root unless there is one of an equal URL.
    void addDirectoryToFolderList(const QUrl &url);

    /// Adds folders from elsewhere (dropped, or opened with the program) and selects the last.
    void addFolders(const QList<QUrl> &folders);
    void removeFolder(QWidget *anchor);
    /// Removes the root that the popover asks about, or the selected one while it is closed. The
    /// popover closes by itself when another folder is selected.
    void removeOkButtonPressed();
    void storeFolders();
    void deselectFolder();

    /// A volume came or went: every tree is listed anew. What was expanded and can still be found
    /// stays expanded, and the selection stays without a new scan. Of a selected folder that is
    /// gone nothing is left selected.
    void volumeMountChanged();
    void outlineViewSelectionDidChange();

    /// None while nothing is selected.
    FolderRef selectedFolder() const { return m_selectedFolder; }

Q_SIGNALS:
    void selectedFolderChanged();

private:
    /// Where a folder lies. The path alone would not do, since one root may lie inside another.
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
    FolderRef m_folderToRemove; ///< while the popover asks about it
    bool m_relisting = false;
};
