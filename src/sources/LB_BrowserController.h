#pragma once

#include "platform/foundation/Volumes.h"
#include "sources/SourceTreeModel.h"
#include "sources/SourceTreeView.h"

#include <QObject>

#include <functional>
#include <vector>

/// The directory browser: a tree of the home folder and the writable volumes. A new one is made
/// each time the browser opens. Main thread only. The outlet is not owned; set it once, before
/// awakeFromNib().
class LB_BrowserController : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool hasSelection READ hasSelection NOTIFY hasSelectionChanged)

public:
    explicit LB_BrowserController(QObject *parent = nullptr);

    lyrabox::SourceTreeView *browserOutlineView() const { return m_browserOutlineView; }
    void setBrowserOutlineView(lyrabox::SourceTreeView *view);

    /// Builds the roots. Further calls do nothing.
    void awakeFromNib();

    /// Whether a row of the tree is selected.
    bool hasSelection() const { return m_hasSelection; }

    /// Updates hasSelection(). Called when the view's selection changes.
    void outlineViewSelectionDidChange();

    /// The tree. Null before awakeFromNib(); owned by the controller.
    const lyrabox::SourceTreeModel *model() const { return m_model; }

    /// Replaces the function that lists mounted volumes; call before awakeFromNib(). For tests.
    void setMountedVolumes(std::function<std::vector<lyrabox::Volume>()> volumes)
    {
        m_mountedVolumes = std::move(volumes);
    }

Q_SIGNALS:
    void hasSelectionChanged(bool hasSelection);

private:
    lyrabox::SourceTreeView *m_browserOutlineView = nullptr;
    lyrabox::SourceTreeModel *m_model = nullptr;
    std::function<std::vector<lyrabox::Volume>()> m_mountedVolumes;
    bool m_hasSelection = false;
};
