#pragma once

#include "sources/FolderListing.h"

/// A folder in the directory browser: the home folder, a mounted volume, or a subfolder. It lists
/// its subfolders only once.
class LB_DirectoryItem : public lyrabox::DiskFolderItem {
public:
    LB_DirectoryItem(const QUrl &url, const std::shared_ptr<LB_DirectoryItem> &parent);

    bool isVolume() const { return m_isVolume; }
    void setIsVolume(bool isVolume) { m_isVolume = isVolume; }

    /// Sets the file system's name of the volume.
    void setVolumeName(const QString &name) { m_volumeName = name; }

    /// The name of a volume, otherwise the last path component.
    QString name() const;
    QString text() const override { return name(); }

    /// The desktop's icon for the folder.
    QIcon icon() const override;

protected:
    lyrabox::SourceItemRef makeChild(const QUrl &url) override;

private:
    bool m_isVolume = false;
    QString m_volumeName;
};
