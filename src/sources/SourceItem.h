#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

#include <memory>
#include <vector>

namespace lyrabox {

/// A node of a source tree: a folder, a playlist or a directory. A child keeps its parent alive,
/// and a parent its listed children. The owner of the roots must therefore call resetChildren() on
/// them before it releases them. Main thread.
class SourceItem : public std::enable_shared_from_this<SourceItem> {
public:
    explicit SourceItem(std::shared_ptr<SourceItem> parent) : m_parent(std::move(parent)) {}
    SourceItem(const SourceItem &) = delete;
    SourceItem &operator=(const SourceItem &) = delete;
    virtual ~SourceItem() = default;

    /// Null for a root.
    const std::shared_ptr<SourceItem> &parent() const { return m_parent; }

    /// The children. Lists them first if they are not listed yet.
    virtual const std::vector<std::shared_ptr<SourceItem>> &children() = 0;

    int numberOfChildren() { return static_cast<int>(children().size()); }

    /// `index` must be less than numberOfChildren().
    std::shared_ptr<SourceItem> childAtIndex(int index)
    {
        return children().at(static_cast<std::size_t>(index));
    }

    /// Whether children() returns without listing anything.
    virtual bool isListed() const = 0;

    /// Releases the listed children, and their children before them. The next access to children()
    /// lists them again.
    virtual void resetChildren() = 0;

    /// The displayed name. Does not access the disk.
    virtual QString text() const = 0;

    /// The icon before the name; null for none. May access the disk.
    virtual QIcon icon() const { return {}; }

    /// The style of the name. Reading it may access the disk.
    struct TextStyle {
        QColor foreground = QColor(Qt::black);
        double obliqueness = 0.0; ///< Slant of the letters. Any value other than 0 is drawn italic.
    };
    virtual TextStyle textStyle() const { return {}; }

private:
    std::shared_ptr<SourceItem> m_parent;
};

using SourceItemRef = std::shared_ptr<SourceItem>;

} // namespace lyrabox
