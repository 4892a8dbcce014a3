#pragma once

#include "platform/foundation/Volumes.h"
#include "sources/SourceTreeModel.h"
#include "sources/SourceTreeView.h"

#include <QObject>

#include <functional>
#include <vector>

/// The directory browser: the home folder and the writable volumes, and what lies beneath. Made
/// anew each time the browser is opened. Main thread only; the outlet is set once, before
/// awakeFromNib(), and is not owned.
class LB_BrowserController : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool hasSelection READ hasSelection NOTIFY hasSelectionChanged)

public:
    explicit LB_BrowserController(QObject *parent = nullptr);

    lyrabox::SourceTreeView *browserOutlineView() const { return m_browserOutlineView; }
    void setBrowserOutlineView(lyrabox::SourceTreeView *view);

    /// Builds the roots; a second call does nothing.
    void awakeFromNib();

    bool hasSelection() const { return m_hasSelection; }
    void outlineViewSelectionDidChange();

    const lyrabox::SourceTreeModel *model() const { return m_model; }

    /// Replaces the list of mounted volumes.
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
