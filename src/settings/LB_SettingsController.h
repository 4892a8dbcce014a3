#pragma once

#include "settings/EqPreset.h"
#include "settings/SongValues.h"
#include "settings/SortDescriptor.h"

#include <QObject>
#include <QStringList>
#include <QUrl>

#include <memory>
#include <optional>

/// Stores what the program remembers between runs: speed and pitch of each song, the sort of each
/// list, the equalizer presets and the list of folders. setup() reads everything once. The
/// notification applicationWillTerminate writes everything once. Errors are logged and never shown.
/// Main thread only.
class LB_SettingsController : public QObject {
    Q_OBJECT

public:
    explicit LB_SettingsController(QObject *parent = nullptr);
    ~LB_SettingsController() override;

    /// Reads the three files. If the file of the presets or folders cannot be read, the shipped
    /// ones are used. Called once, at the start.
    void setup();

    /// The settings folder, which is created if it is missing. None if that fails the first time;
    /// later calls return its path without another attempt.
    std::optional<QUrl> applicationSupportDirectory();

    /// Whether a speed and pitch are stored for the song.
    bool hasSettingsForInode(const QString &inode) const;

    /// The stored values, or {100.0, 0.0} if there are none.
    lyrabox::SongValues valuesForInode(const QString &inode) const;

    /// Stores the values, or removes those of the song if they are {100.0, 0.0}. A value that is
    /// not finite counts as its default. Returns whether values are stored now. Always posts
    /// songSettingsChanged.
    bool setValuesForInode(lyrabox::SongValues values, const QString &inode);

    /// The stored sort, or "order" ascending if there is none.
    lyrabox::SortDescriptor sortDescriptorForListID(const QString &listID) const;

    /// Stores the sort of a list, or removes it if it is "order" ascending. Does nothing without a
    /// list.
    void setSortDescriptorForListID(const lyrabox::SortDescriptor &descriptor,
                                    const std::optional<QString> &listID);

    /// The list of presets, never null. It is shared: changes made through any of the pointers are
    /// written at the end of the program.
    std::shared_ptr<lyrabox::EqPresetList> eqPresetArray() const;
    /// Replaces the list; null makes it empty.
    void setEqPresetArray(std::shared_ptr<lyrabox::EqPresetList> presets);

    /// The absolute paths of the folders in the source list, in its order.
    QStringList folderDataArray() const;
    void setFolderDataArray(const QStringList &paths);

    /// Writes the three files, each as a whole or not at all. Does nothing before setup().
    /// Nothing is written earlier; docs/kept-on-purpose.md says why.
    void appWillTerminate();

private:
    struct Private;
    std::unique_ptr<Private> d;
};
