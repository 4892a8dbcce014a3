#pragma once

#include <QStackedWidget>

class LB_FolderSourceController;
class LB_PlaylistSourceController;

namespace lyrabox {
class ButtonMatrix;
class SegmentedControl;
} // namespace lyrabox

/// Switches between playlists (tab 0) and folders (tab 1), and sets up the sources at start-up.
/// Main thread only. Outlets are not owned; set them once, before awakeFromNib().
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
    /// and restores the remembered tab and its selection.
    void awakeFromNib();

    /// Shows the tab of the selected segment.
    void segmentedControlPressed(lyrabox::SegmentedControl *sender);

    /// Switches to a tab, as a press on its segment does.
    void showTab(Tab tab);

    /// Clears the selection on both tabs. For a list that comes from neither.
    void selectNoSource();

    /// Stores the selected segment in the user defaults.
    void storeSelectedTab();

private:
    void showAddRemoveButtonsOn(int tab);

    lyrabox::SegmentedControl *m_tabSelector = nullptr;
    lyrabox::ButtonMatrix *m_addRemoveButtons = nullptr;
    LB_FolderSourceController *m_folderController = nullptr;
    LB_PlaylistSourceController *m_playlistController = nullptr;
};
