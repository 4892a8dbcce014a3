#pragma once

#include <QStackedWidget>

class LB_FolderSourceController;
class LB_PlaylistSourceController;

namespace lyrabox {
class ButtonMatrix;
class SegmentedControl;
} // namespace lyrabox

/// Switches between the playlists (tab 0) and the folders (tab 1), and sets up the source side at
/// start. Main thread only. Outlets are set once, before awakeFromNib(), and are not owned.
class LB_SourceTabView : public QStackedWidget {
    Q_OBJECT

public:
    enum Tab { PlaylistTab = 0, FolderTab = 1 };

    using QStackedWidget::QStackedWidget;

    lyrabox::SegmentedControl *tabSelector() const { return m_tabSelector; }
    void setTabSelector(lyrabox::SegmentedControl *selector) { m_tabSelector = selector; }
    lyrabox::ButtonMatrix *addRemoveButtons() const { return m_addRemoveButtons; }
    void setAddRemoveButtons(lyrabox::ButtonMatrix *buttons) { m_addRemoveButtons = buttons; }
    LB_FolderSourceController *folderController() const { return m_folderController; }
    void setFolderController(LB_FolderSourceController *controller)
    {
        m_folderController = controller;
    }
    LB_PlaylistSourceController *playlistController() const { return m_playlistController; }
    void setPlaylistController(LB_PlaylistSourceController *controller)
    {
        m_playlistController = controller;
    }

    /// Sets up the settings store, the track list, the playlists and the folders, in this order,
    /// and restores the remembered tab with its selection.
    void awakeFromNib();

    void segmentedControlPressed(lyrabox::SegmentedControl *sender);

    /// Switches as a press on the segment would.
    void showTab(Tab tab);

    /// Leaves nothing selected on either tab, for a list that comes from neither.
    void selectNoSource();

    /// Remembers the selected segment.
    void storeSelectedTab();

private:
    void showAddRemoveButtonsOn(int tab);

    lyrabox::SegmentedControl *m_tabSelector = nullptr;
    lyrabox::ButtonMatrix *m_addRemoveButtons = nullptr;
    LB_FolderSourceController *m_folderController = nullptr;
    LB_PlaylistSourceController *m_playlistController = nullptr;
};
