#pragma once

#include <QImage>
#include <QString>
#include <QUrl>

namespace lyrabox {

/// Writes the artwork of the song to a small file that other programs can read. The file is
/// complete at all times. Every picture gets a new name, because clients cache pictures by name.
/// The file is removed with the picture or this object. Files of a process that crashed are removed
/// by the next one. Main thread only.
class ArtworkFile {
public:
    /// `folder` is created when the first picture is written.
    explicit ArtworkFile(QString folder);
    ~ArtworkFile();
    ArtworkFile(const ArtworkFile &) = delete;
    ArtworkFile &operator=(const ArtworkFile &) = delete;

    /// Replaces the picture. With a null image, or if the file can't be written, there is none.
    void setImage(const QImage &image);

    /// The file of the current picture; empty without one.
    QUrl url() const { return m_path.isEmpty() ? QUrl() : QUrl::fromLocalFile(m_path); }

    /// Larger pictures are scaled so that their longest side has this many pixels.
    static constexpr int maximumSide = 512;

private:
    void removeLeftovers() const;
    void remove();

    QString m_folder;
    QString m_path;
    quint64 m_number = 0;
};

/// The folder for the file: in the user's runtime folder, or in the cache if there is none.
QString artworkFolder();

} // namespace lyrabox
