#include "sources/LB_PlaylistItem.h"

LB_PlaylistItem::LB_PlaylistItem(const lyrabox::MusicPlaylist &playlist,
                                 const std::shared_ptr<LB_PlaylistItem> &parent)
    : SourceItem(parent), m_playlist(playlist)
{}

void LB_PlaylistItem::resetChildren()
{
    const std::vector<lyrabox::SourceItemRef> children = std::move(m_children);
    m_children.clear();
    for (const lyrabox::SourceItemRef &child : children)
        child->resetChildren();
}
