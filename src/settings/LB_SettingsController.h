#pragma once

#include "settings/EqPreset.h"
#include "settings/SongValues.h"
#include "settings/SortDescriptor.h"

#include <QObject>
#include <QStringList>
#include <QUrl>

#include <memory>
#include <optional>

/// Keeps what the program remembers between runs: speed and pitch per song, the sort of each list,
/// the equalizer presets and the folder list. Everything is read once by setup() and written once
/// when the application-will-terminate notification arrives. Main thread only; failures are logged,
/// never shown.
class LB_SettingsController : public QObject {
    Q_OBJECT

public:
    explicit LB_SettingsController(QObject *parent = nullptr);
    ~LB_SettingsController() override;

    /// Reads the three files, falling back to the shipped presets and folders. Once, at start-up.
    void setup();

    /// The settings folder, made when it is missing; none when that fails.
    std::optional<QUrl> applicationSupportDirectory();

    bool hasSettingsForInode(const QString &inode) const;

    /// The stored pair, or {100.0, 0.0}.
    lyrabox::SongValues valuesForInode(const QString &inode) const;

    /// Stores the pair, or forgets the song when it is {100.0, 0.0}. Returns whether a pair is
    /// stored now. Posts LBSongSettingsChanged in every case.
    bool setValuesForInode(lyrabox::SongValues values, const QString &inode);

    /// The stored sort, or "order" ascending.
    lyrabox::SortDescriptor sortDescriptorForListID(const QString &listID) const;

    /// Stores a list's sort; "order" ascending is forgotten instead. No list, no change.
    void setSortDescriptorForListID(const lyrabox::SortDescriptor &descriptor,
                                    const std::optional<QString> &listID);

    /// The one preset list: whoever holds it edits what is written at the end.
    std::shared_ptr<lyrabox::EqPresetList> eqPresetArray() const;
    void setEqPresetArray(std::shared_ptr<lyrabox::EqPresetList> presets);

    QStringList folderDataArray() const;
    void setFolderDataArray(const QStringList &paths);

    /// Writes the three files, each whole or not at all.
    void appWillTerminate();

private:
    struct Private;
    std::unique_ptr<Private> d;
};
