#pragma once

#include "sources/LB_PlaylistItem.h"
#include "sources/SourceTreeModel.h"
#include "sources/SourceTreeView.h"

#include <QObject>

#include <memory>
#include <optional>

class LB_TrackController;

/// The playlist tab: the music library's playlists as a tree, which is built once, and the selected
/// playlist, whose songs the track table shows. Main thread only. Outlets are not owned; set them
/// once, before setup().
class LB_PlaylistSourceController : public QObject {
    Q_OBJECT

public:
    using PlaylistRef = std::shared_ptr<LB_PlaylistItem>;

    explicit LB_PlaylistSourceController(QObject *parent = nullptr);

    lyrabox::SourceTreeView *playlistOutlineView() const { return m_playlistOutlineView; }
    void setPlaylistOutlineView(lyrabox::SourceTreeView *view);
    LB_TrackController *tracks() const { return m_tracks; }
    void setTracks(LB_TrackController *tracks) { m_tracks = tracks; }

    /// Builds the tree. Call it once, at start-up.
    void setup();

    /// Selects the playlist remembered in the user defaults, or the first one.
    void restoreSelection();

    /// Returns the first item with this identifier in depth-first order, or null.
    static PlaylistRef
    playlistItemMatchingPersistentIDInArray(const std::optional<QString> &persistentID,
                                            const std::vector<lyrabox::SourceItemRef> &items);

    /// Clears the selection. The song list and the remembered playlist stay.
    void deselectPlaylist();

    /// Shows the songs of the newly selected playlist and remembers it.
    void outlineViewSelectionDidChange();

    const lyrabox::SourceTreeModel *model() const { return m_model; }

private:
    lyrabox::SourceTreeView *m_playlistOutlineView = nullptr;
    LB_TrackController *m_tracks = nullptr;
    lyrabox::SourceTreeModel *m_model;
};
