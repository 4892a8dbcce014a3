#include "sources/LB_PlaylistSourceController.h"

#include "library/LB_TrackController.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/foundation/UserDefaults.h"

using lyrabox::NotificationCenter;
namespace notification = lyrabox::notification;

namespace {

/// Of the playlists that the music application manages itself, only this kind is shown: all music.
constexpr qint64 shownDistinguishedKind = 4;

bool isShown(const lyrabox::MusicPlaylist &playlist)
{
    return playlist.visible.value_or(true) &&
           playlist.distinguishedKind.value_or(shownDistinguishedKind) == shownDistinguishedKind;
}

} // namespace

LB_PlaylistSourceController::LB_PlaylistSourceController(QObject *parent)
    : QObject(parent), m_model(new lyrabox::SourceTreeModel(this))
{}

void LB_PlaylistSourceController::setPlaylistOutlineView(lyrabox::SourceTreeView *view)
{
    m_playlistOutlineView = view;
    view->setModel(m_model);
    view->setPlaceholderText(tr(
        "No playlists. Choose a music library in the File menu, or add folders on the other tab."));
    connect(view, &lyrabox::SourceTreeView::selectionDidChange, this,
            &LB_PlaylistSourceController::outlineViewSelectionDidChange);
    connect(view, &lyrabox::SourceTreeView::selectedRowClicked, this, [this] {
        if (m_tracks->isListIncomplete())
            outlineViewSelectionDidChange();
    });
}

void LB_PlaylistSourceController::setup()
{
    NotificationCenter::defaultCenter().addObserver(
        m_playlistOutlineView, notification::folderSelected, [this] { deselectPlaylist(); });
    std::vector<lyrabox::SourceItemRef> roots;
    if (const lyrabox::MusicLibraryRef library = m_tracks->iTunesLibraryDictionary()) {
        for (const lyrabox::MusicPlaylist &playlist : library->playlists) {
            if (!isShown(playlist))
                continue;
            if (!playlist.parentPersistentID) {
                roots.push_back(std::make_shared<LB_PlaylistItem>(playlist, nullptr));
                continue;
            }
            // The tree is built in one pass. If a folder comes later in the library or is hidden,
            // its playlists are not shown. See docs/kept-on-purpose.md.
            const PlaylistRef parent =
                playlistItemMatchingPersistentIDInArray(playlist.parentPersistentID, roots);
            if (parent != nullptr)
                parent->addChild(std::make_shared<LB_PlaylistItem>(playlist, parent));
        }
    }
    m_model->setRoots(std::move(roots));
}

void LB_PlaylistSourceController::restoreSelection()
{
    const QVariant stored = lyrabox::userDefaults().value(lyrabox::defaultsKey::playlist);
    const PlaylistRef item = playlistItemMatchingPersistentIDInArray(
        stored.isValid() ? std::optional(stored.toString()) : std::nullopt, m_model->roots());
    if (item == nullptr) {
        m_playlistOutlineView->selectRow(m_model->index(0, 0));
        return;
    }
    std::vector<lyrabox::SourceItemRef> ancestors;
    for (lyrabox::SourceItemRef parent = item->parent(); parent != nullptr;
         parent = parent->parent())
        ancestors.insert(ancestors.begin(), parent);
    for (const lyrabox::SourceItemRef &ancestor : ancestors)
        m_playlistOutlineView->expand(m_model->indexOf(ancestor));
    m_playlistOutlineView->selectRow(m_model->indexOf(item));
}

LB_PlaylistSourceController::PlaylistRef
LB_PlaylistSourceController::playlistItemMatchingPersistentIDInArray(
    const std::optional<QString> &persistentID, const std::vector<lyrabox::SourceItemRef> &items)
{
    if (!persistentID)
        return nullptr;
    for (const lyrabox::SourceItemRef &item : items) {
        auto playlist = std::static_pointer_cast<LB_PlaylistItem>(item);
        if (playlist->itemID() == *persistentID)
            return playlist;
        if (auto found =
                playlistItemMatchingPersistentIDInArray(persistentID, playlist->children()))
            return found;
    }
    return nullptr;
}

void LB_PlaylistSourceController::deselectPlaylist()
{
    m_playlistOutlineView->selectionModel()->clear();
}

void LB_PlaylistSourceController::outlineViewSelectionDidChange()
{
    const auto item = std::static_pointer_cast<LB_PlaylistItem>(
        m_model->itemAt(m_playlistOutlineView->selectedRow()));
    if (item == nullptr)
        return;
    lyrabox::userDefaults().setValue(lyrabox::defaultsKey::playlist, item->itemID());
    NotificationCenter::defaultCenter().post(notification::playlistSelected);
    m_tracks->getTracksForiTunesPlaylistArrayPlaylistID(item->playlistDictionary().items,
                                                        item->itemID());
}
