#pragma once

#include "library/LB_QueueController.h"
#include "library/LB_TrackController.h"
#include "platform/foundation/Files.h"
#include "platform/foundation/MusicLibrary.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/ButtonMatrix.h"
#include "platform/ui/Popover.h"
#include "platform/ui/SegmentedControl.h"
#include "settings/LB_SettingsController.h"
#include "sources/LB_FolderSourceController.h"
#include "sources/LB_PlaylistSourceController.h"
#include "support/TransportFixture.h"

#include <QDir>
#include <QLabel>
#include <QTableView>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <memory>

namespace lyrabox::test {

/// Both source controllers and a track list, with folders in the temporary folder `disk` and a
/// library in memory.
struct SourcesFixture : testing::Test {
    SourcesFixture()
    {
        for (const QString &key :
             {defaultsKey::folderPath, defaultsKey::playlist, defaultsKey::lastTab})
            userDefaults().remove(key);
        queue.setAudio(transport.controller.get());
        queue.setErrorField(&errorField);
        tracks.setQueue(&queue);
        tracks.setSettings(&transport.settings);
        tracks.setTrackTableView(&table);
        tracks.setLibraryLocator([this]() -> MusicLibraryRef { return library; });
        playlists.setTracks(&tracks);
        playlists.setPlaylistOutlineView(&playlistView);
        folders.setSettings(&transport.settings);
        folders.setTracks(&tracks);
        folders.setPopover(&popover);
        folders.setFolderOutlineView(&folderView);
        folderView.resize(240, 400);
        playlistView.resize(240, 400);
    }

    ~SourcesFixture() override { files::setReadabilityProbe({}); }

    QString path(const QString &name) const { return disk.filePath(name); }
    void makeFolder(const QString &name) const { ASSERT_TRUE(QDir(disk.path()).mkpath(name)); }
    void setRoots(const QStringList &names)
    {
        QStringList paths;
        for (const QString &name : names)
            paths.append(path(name));
        transport.settings.setFolderDataArray(paths);
    }
    void setUnreadable(const QString &name)
    {
        files::setReadabilityProbe(
            [unreadable = path(name)](const QString &probed) { return probed != unreadable; });
    }

    /// The expanded rows of a tree, each indented by two spaces per level.
    static QStringList rowsOf(const SourceTreeView &view, const QModelIndex &parent = {},
                              int level = 0)
    {
        QStringList rows;
        for (int row = 0; row < view.model()->rowCount(parent); ++row) {
            const QModelIndex index = view.model()->index(row, 0, parent);
            rows.append(QString(2 * level, QLatin1Char(' ')) + index.data().toString());
            if (view.isExpanded(index))
                rows += rowsOf(view, index, level + 1);
        }
        return rows;
    }
    static QString selectedText(const SourceTreeView &view)
    {
        return view.selectedRow().isValid() ? view.selectedRow().data().toString() : QString();
    }
    QString listShown() const { return tracks.listID().value_or(QString()); }

    QTemporaryDir disk;
    std::shared_ptr<MusicLibrary> library;
    TransportFixture transport;
    QLabel errorField;
    QTableView table;
    QWidget window;
    SourceTreeView folderView;
    SourceTreeView playlistView;
    Popover popover{&window};
    LB_QueueController queue;
    LB_TrackController tracks;
    LB_PlaylistSourceController playlists;
    LB_FolderSourceController folders;
};

} // namespace lyrabox::test
