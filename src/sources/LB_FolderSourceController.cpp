#include "sources/LB_FolderSourceController.h"

#include "app/controls/LB_PopoverViewController.h"
#include "library/LB_TrackController.h"
#include "platform/foundation/DiskPatience.h"
#include "platform/foundation/Files.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/ButtonMatrix.h"
#include "platform/ui/Popover.h"
#include "settings/LB_SettingsController.h"
#include "sources/BrowserPopover.h"
#include "sources/LB_BrowserButton.h"
#include "sources/LB_DirectoryItem.h"
#include "ui_RemovePopover.h"

#include <QAbstractButton>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <utility>

using lyrabox::NotificationCenter;
namespace notification = lyrabox::notification;

namespace {

/// Returns the path unchanged if its disk does not answer.
QString resolvingSymbolicLinks(const QString &path)
{
    return lyrabox::files::askPatiently<QString>(
               path, [path] { return lyrabox::files::resolvingSymbolicLinks(path); })
        .value_or(path);
}

} // namespace

LB_FolderSourceController::LB_FolderSourceController(QObject *parent)
    : QObject(parent), m_model(new lyrabox::SourceTreeModel(this))
{}

LB_FolderSourceController::~LB_FolderSourceController() = default;

void LB_FolderSourceController::setFolderOutlineView(lyrabox::SourceTreeView *view)
{
    m_folderOutlineView = view;
    view->setModel(m_model);
    view->setAcceptsFolders(true);
    view->setPlaceholderText(tr("No folders yet. Press + to add one, or drop a folder here."));
    connect(view, &lyrabox::SourceTreeView::selectionDidChange, this,
            &LB_FolderSourceController::outlineViewSelectionDidChange);
    connect(view, &lyrabox::SourceTreeView::foldersDropped, this,
            &LB_FolderSourceController::addFolders);
    connect(view, &lyrabox::SourceTreeView::selectedRowClicked, this, [this] {
        if (m_tracks->isListIncomplete())
            outlineViewSelectionDidChange();
    });
}

void LB_FolderSourceController::setPopover(lyrabox::Popover *popover)
{
    m_popover = popover;
    connect(popover, &lyrabox::Popover::closed, this, [this] { m_folderToRemove = nullptr; });
}

void LB_FolderSourceController::setup()
{
    NotificationCenter &center = NotificationCenter::defaultCenter();
    center.addObserver(this, notification::volumeDidMount, [this] { volumeMountChanged(); });
    center.addObserver(this, notification::volumeDidUnmount, [this] { volumeMountChanged(); });
    // Selecting a folder does not forget the playlist, see docs/kept-on-purpose.md.
    center.addObserver(this, notification::playlistSelected, [this] { deselectFolder(); });

    m_model->setRoots({});
    const QStringList paths = m_settings->folderDataArray();
    for (const QString &path : paths)
        addDirectoryToFolderList(lyrabox::folderURL(resolvingSymbolicLinks(path)));
    setSelectedFolder(nullptr);
}

void LB_FolderSourceController::restoreSelection()
{
    const QVariant stored = lyrabox::userDefaults().value(lyrabox::defaultsKey::folderPath);
    const QString path = stored.toString();
    if (!stored.isValid() || !lyrabox::isReadableFolder(path)) {
        deselectFolder();
        return;
    }

    QString current = lyrabox::folderPath(lyrabox::folderURL(path));
    QStringList components;
    FolderRef node = rootWithURL(lyrabox::folderURL(current));
    while (node == nullptr) {
        const qsizetype separator = current.lastIndexOf(QLatin1Char('/'));
        if (separator < 0 || current.size() <= 1)
            return; // It is not below any root.
        components.prepend(current.mid(separator + 1));
        current.truncate(qMax<qsizetype>(separator, 1));
        node = rootWithURL(lyrabox::folderURL(current));
    }

    m_folderOutlineView->expand(m_model->indexOf(node));
    for (const QString &component : std::as_const(components)) {
        current =
            (current == QLatin1String("/") ? QString() : current) + QLatin1Char('/') + component;
        const FolderRef child = childWithURL(node, lyrabox::folderURL(current));
        if (child == nullptr)
            break;
        node = child;
        m_folderOutlineView->expand(m_model->indexOf(node));
    }

    if (node->isReachable())
        m_folderOutlineView->selectRow(m_model->indexOf(node));
    else
        deselectFolder();
}

void LB_FolderSourceController::addRemoveButtonPressed(lyrabox::ButtonMatrix *sender)
{
    switch (sender->selectedTag()) {
    case AddTag:
        addFolder(sender);
        break;
    case RemoveTag:
        removeFolder(sender);
        break;
    default:
        break;
    }
}

void LB_FolderSourceController::addFolder(QWidget *anchor)
{
    m_folderToRemove = nullptr;
    const auto browser = lyrabox::makeBrowserPopover();
    m_popover->showContent(browser.view, anchor, lyrabox::Popover::Edge::MaxX);
    connect(browser.okButton, &QAbstractButton::clicked, this,
            [this, button = browser.okButton] { directorySelectedToAdd(button); });
}

void LB_FolderSourceController::directorySelectedToAdd(LB_BrowserButton *sender)
{
    const lyrabox::SourceTreeView *browser = sender->browserOutlineView();
    const auto *model = qobject_cast<const lyrabox::SourceTreeModel *>(browser->model());
    const auto item =
        std::static_pointer_cast<LB_DirectoryItem>(model->itemAt(browser->selectedRow()));
    if (item == nullptr)
        return;
    addFolders({item->url()});
    m_popover->closePopover();
}

void LB_FolderSourceController::addFolders(const QList<QUrl> &folders)
{
    for (const QUrl &folder : folders)
        addDirectoryToFolderList(folder);
    m_folderOutlineView->selectRow(m_folderOutlineView->lastVisibleRow());
    storeFolders();
}

void LB_FolderSourceController::addDirectoryToFolderList(const QUrl &url)
{
    const QUrl folder = lyrabox::folderURL(lyrabox::folderPath(url));
    if (rootWithURL(folder) == nullptr)
        m_model->appendRoot(std::make_shared<LB_FolderItem>(folder, nullptr));
}

void LB_FolderSourceController::removeFolder(QWidget *anchor)
{
    if (m_selectedFolder == nullptr)
        return;
    m_folderToRemove = m_selectedFolder;
    auto *content = LB_PopoverViewController::load<Ui::RemovePopover>();
    content->setParent(content->view());
    content->askAbout(tr("Remove folder '%1'?"), m_selectedFolder->itemName().text);
    m_popover->showContent(content->view(), anchor, lyrabox::Popover::Edge::MaxX);
    connect(content->okButton(), &QAbstractButton::clicked, this, [this, asked = m_folderToRemove] {
        if (m_folderToRemove == asked)
            removeOkButtonPressed();
    });
}

void LB_FolderSourceController::removeOkButtonPressed()
{
    const FolderRef asked = std::exchange(m_folderToRemove, nullptr);
    const FolderRef folder = asked != nullptr ? asked : m_selectedFolder;
    {
        // Otherwise the view would select a neighbour of the removed row, and the controller would
        // scan it.
        const QScopedValueRollback<bool> guard(m_relisting, true);
        m_folderOutlineView->selectionModel()->clear();
    }
    m_model->removeRoot(folder); // A subfolder is not a root and stays.
    deselectFolder();
    storeFolders();
    m_popover->closePopover();
}

void LB_FolderSourceController::storeFolders()
{
    QStringList paths;
    for (const lyrabox::SourceItemRef &root : m_model->roots())
        paths.append(std::static_pointer_cast<LB_FolderItem>(root)->itemID());
    m_settings->setFolderDataArray(paths);
}

void LB_FolderSourceController::deselectFolder()
{
    m_folderOutlineView->selectionModel()->clear();
    setSelectedFolder(nullptr);
    lyrabox::userDefaults().remove(lyrabox::defaultsKey::folderPath);
}

void LB_FolderSourceController::volumeMountChanged()
{
    const QScopedValueRollback<bool> guard(m_relisting, true);
    std::vector<Place> expanded;
    collectExpanded({}, expanded);
    const FolderRef selected = m_selectedFolder;
    QScrollBar *scrollBar = m_folderOutlineView->verticalScrollBar();
    const int scrolled = scrollBar->value();

    m_model->discardListings();
    for (const Place &place : expanded)
        m_folderOutlineView->expand(indexOf(place));
    if (selected != nullptr) {
        const QModelIndex row = indexOf(placeOf(selected));
        if (row.isValid()) {
            m_folderOutlineView->selectRow(row);
            setSelectedFolder(folderAt(row));
        } else {
            deselectFolder();
        }
    }
    m_folderOutlineView->doItemsLayout(); // Update the scroll bar's range for the new rows.
    scrollBar->setValue(scrolled);
}

void LB_FolderSourceController::outlineViewSelectionDidChange()
{
    if (m_relisting)
        return;
    setSelectedFolder(folderAt(m_folderOutlineView->selectedRow()));
    if (m_selectedFolder == nullptr) {
        lyrabox::userDefaults().remove(lyrabox::defaultsKey::folderPath);
        return;
    }
    const FolderRef folder = m_selectedFolder;
    lyrabox::userDefaults().setValue(lyrabox::defaultsKey::folderPath, folder->itemID());
    NotificationCenter::defaultCenter().post(notification::folderSelected);
    m_tracks->scanForAudioFilesStartingAtURLFolderID(folder->url(), folder->itemID());
}

LB_FolderSourceController::FolderRef LB_FolderSourceController::rootWithURL(const QUrl &url) const
{
    const QString path = lyrabox::folderPath(url);
    for (const lyrabox::SourceItemRef &root : m_model->roots()) {
        auto folder = std::static_pointer_cast<LB_FolderItem>(root);
        if (folder->itemID() == path)
            return folder;
    }
    return nullptr;
}

LB_FolderSourceController::FolderRef
LB_FolderSourceController::childWithURL(const FolderRef &folder, const QUrl &url) const
{
    const QString path = lyrabox::folderPath(url);
    for (const lyrabox::SourceItemRef &child : folder->children()) {
        auto candidate = std::static_pointer_cast<LB_FolderItem>(child);
        if (candidate->itemID() == path)
            return candidate;
    }
    return nullptr;
}

LB_FolderSourceController::FolderRef
LB_FolderSourceController::folderAt(const QModelIndex &index) const
{
    return std::static_pointer_cast<LB_FolderItem>(m_model->itemAt(index));
}

LB_FolderSourceController::Place LB_FolderSourceController::placeOf(const FolderRef &folder)
{
    lyrabox::SourceItemRef root = folder;
    while (root->parent() != nullptr)
        root = root->parent();
    return {std::static_pointer_cast<LB_FolderItem>(root), folder->itemID()};
}

QModelIndex LB_FolderSourceController::indexOf(const Place &place) const
{
    FolderRef node = place.root;
    while (node != nullptr && node->itemID() != place.path) {
        // At most one child is on the path.
        FolderRef next;
        for (const lyrabox::SourceItemRef &child : node->children()) {
            auto candidate = std::static_pointer_cast<LB_FolderItem>(child);
            const QString id = candidate->itemID();
            if (place.path == id || place.path.startsWith(id + QLatin1Char('/')))
                next = candidate;
        }
        node = next;
    }
    return m_model->indexOf(node);
}

/// Collects the expanded folders at and below `parent`, parents before their children.
void LB_FolderSourceController::collectExpanded(const QModelIndex &parent,
                                                std::vector<Place> &places) const
{
    for (int row = 0; row < m_model->rowCount(parent); ++row) {
        const QModelIndex index = m_model->index(row, 0, parent);
        if (!m_folderOutlineView->isExpanded(index))
            continue;
        places.push_back(placeOf(folderAt(index)));
        collectExpanded(index, places);
    }
}

void LB_FolderSourceController::setSelectedFolder(const FolderRef &folder)
{
    if (m_selectedFolder == folder)
        return;
    m_selectedFolder = folder;
    // The identifiers are compared, because a tree that is listed again has new nodes for the same
    // folders.
    if (m_folderToRemove != nullptr &&
        (folder == nullptr || folder->itemID() != m_folderToRemove->itemID()))
        m_popover->closePopover();
    Q_EMIT selectedFolderChanged();
}
