#pragma once

#include "platform/foundation/MusicLibrary.h"
#include "sources/SourceItem.h"

/// A playlist of the music library, or a folder of playlists.
class LB_PlaylistItem : public lyrabox::SourceItem {
public:
    LB_PlaylistItem(const lyrabox::MusicPlaylist &playlist,
                    const std::shared_ptr<LB_PlaylistItem> &parent);

    /// A copy of the library's entry.
    const lyrabox::MusicPlaylist &playlistDictionary() const { return m_playlist; }

    /// The persistent ID.
    QString itemID() const { return m_playlist.persistentID; }
    QString itemName() const { return m_playlist.name; }

    void addChild(const std::shared_ptr<LB_PlaylistItem> &child) { m_children.push_back(child); }

    const std::vector<lyrabox::SourceItemRef> &children() override { return m_children; }
    bool isListed() const override { return true; }
    void resetChildren() override;
    QString text() const override { return itemName(); }

private:
    lyrabox::MusicPlaylist m_playlist;
    std::vector<lyrabox::SourceItemRef> m_children;
};
