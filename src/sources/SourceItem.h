#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

#include <memory>
#include <vector>

namespace lyrabox {

/// A node of one of the source trees: folders, playlists, directories. A child keeps its parent
/// alive and a parent its listed children; whoever owns the roots calls discardChildren() on them
/// before letting go.
class SourceItem : public std::enable_shared_from_this<SourceItem> {
public:
    explicit SourceItem(std::shared_ptr<SourceItem> parent) : m_parent(std::move(parent)) {}
    SourceItem(const SourceItem &) = delete;
    SourceItem &operator=(const SourceItem &) = delete;
    virtual ~SourceItem() = default;

    /// None for a root.
    const std::shared_ptr<SourceItem> &parent() const { return m_parent; }

    /// The children; a node that lists them lazily does it now.
    virtual const std::vector<std::shared_ptr<SourceItem>> &children() = 0;

    int numberOfChildren() { return static_cast<int>(children().size()); }

    /// `index` is in the range of numberOfChildren().
    std::shared_ptr<SourceItem> childAtIndex(int index)
    {
        return children().at(static_cast<std::size_t>(index));
    }

    /// Whether children() would have nothing to list.
    virtual bool isListed() const = 0;

    /// Lets go of the listed children, theirs first.
    virtual void discardChildren() = 0;

    /// What the node is called. Asks nothing of the disk.
    virtual QString text() const = 0;

    /// The picture before the name; null for none. May ask the disk.
    virtual QIcon icon() const { return {}; }

    /// How the name is drawn. May ask the disk.
    struct TextStyle {
        QColor foreground = QColor(Qt::black);
        double obliqueness = 0.0; ///< slant of the letters; anything but 0 is drawn italic
    };
    virtual TextStyle textStyle() const { return {}; }

private:
    std::shared_ptr<SourceItem> m_parent;
};

using SourceItemRef = std::shared_ptr<SourceItem>;

} // namespace lyrabox
