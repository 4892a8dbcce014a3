#include "sources/LB_BrowserController.h"

#include "app/controls/LB_TableRowView.h"
#include "sources/LB_DirectoryItem.h"

#include <QDir>

LB_BrowserController::LB_BrowserController(QObject *parent)
    : QObject(parent), m_mountedVolumes(&lyrabox::mountedVolumes)
{}

void LB_BrowserController::setBrowserOutlineView(lyrabox::SourceTreeView *view)
{
    m_browserOutlineView = view;
}

void LB_BrowserController::awakeFromNib()
{
    if (m_model != nullptr)
        return;
    m_model = new lyrabox::SourceTreeModel(this);
    std::vector<lyrabox::SourceItemRef> roots;
    roots.push_back(std::make_shared<LB_DirectoryItem>(QUrl(QDir::homePath()), nullptr));
    for (const lyrabox::Volume &volume : m_mountedVolumes()) {
        if (volume.isReadOnly)
            continue;
        auto item = std::make_shared<LB_DirectoryItem>(lyrabox::folderURL(volume.path), nullptr);
        item->setIsVolume(true);
        item->setVolumeName(volume.name);
        roots.push_back(item);
    }
    m_model->setRoots(std::move(roots));
    m_browserOutlineView->setModel(m_model);
    LB_TableRowView::install(m_browserOutlineView);
    connect(m_browserOutlineView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { outlineViewSelectionDidChange(); });
    outlineViewSelectionDidChange();
}

void LB_BrowserController::outlineViewSelectionDidChange()
{
    const bool selected = m_browserOutlineView->selectedRow().isValid();
    if (selected == m_hasSelection)
        return;
    m_hasSelection = selected;
    Q_EMIT hasSelectionChanged(selected);
}
