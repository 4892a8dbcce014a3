#include "sources/LB_SourceTabView.h"

#include "library/LB_TrackController.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/ButtonMatrix.h"
#include "platform/ui/SegmentedControl.h"
#include "settings/LB_SettingsController.h"
#include "sources/LB_FolderSourceController.h"
#include "sources/LB_PlaylistSourceController.h"

using lyrabox::NotificationCenter;
namespace notification = lyrabox::notification;

void LB_SourceTabView::awakeFromNib()
{
    LB_TrackController *tracks = m_playlistController->tracks();
    tracks->settings()->setup(); // First, because the folders are read from the settings.
    tracks->setup();             // Second, because the playlists come from the track list.
    m_playlistController->setup();
    m_folderController->setup();

    const int lastTab = lyrabox::userDefaults().value(lyrabox::defaultsKey::lastTab, 0).toInt();
    setCurrentIndex(lastTab);
    m_tabSelector->setSelectedSegment(lastTab);
    showAddRemoveButtonsOn(lastTab);
    if (lastTab == FolderTab)
        m_folderController->restoreSelection();
    else if (lastTab == PlaylistTab)
        m_playlistController->restoreSelection();

    NotificationCenter &center = NotificationCenter::defaultCenter();
    center.addObserver(this, notification::playlistSelected, [this] { storeSelectedTab(); });
    center.addObserver(this, notification::folderSelected, [this] { storeSelectedTab(); });
}

void LB_SourceTabView::segmentedControlPressed(lyrabox::SegmentedControl *sender)
{
    setCurrentIndex(sender->selectedSegment());
    showAddRemoveButtonsOn(sender->selectedSegment());
}

void LB_SourceTabView::showTab(Tab tab)
{
    m_tabSelector->setSelectedSegment(tab);
    segmentedControlPressed(m_tabSelector);
}

void LB_SourceTabView::selectNoSource()
{
    // Files that were opened or dropped do not belong to a source. Nothing is selected on either
    // tab, so that a click brings a source's list back. The next start selects no folder.
    m_folderController->deselectFolder();
    m_playlistController->deselectPlaylist();
}

void LB_SourceTabView::storeSelectedTab()
{
    lyrabox::userDefaults().setValue(lyrabox::defaultsKey::lastTab,
                                     m_tabSelector->selectedSegment());
}

void LB_SourceTabView::showAddRemoveButtonsOn(int tab)
{
    if (tab == FolderTab)
        m_addRemoveButtons->show();
    else if (tab == PlaylistTab)
        m_addRemoveButtons->hide();
}
