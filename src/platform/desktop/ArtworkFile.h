#pragma once

#include <QImage>
#include <QString>
#include <QUrl>

namespace lyrabox {

/// The artwork of the song as a file that other programs can read: small, whole at any time, under
/// a new name for every picture (clients remember pictures by name), and gone with the song.
/// What a process that did not end well has left behind is removed by the next. Main thread.
class ArtworkFile {
public:
    /// `folder` is made when there is something to write.
    explicit ArtworkFile(QString folder);
    ~ArtworkFile();
    ArtworkFile(const ArtworkFile &) = delete;
    ArtworkFile &operator=(const ArtworkFile &) = delete;

    /// Replaces the picture; none for a null image or where the file can't be written.
    void setImage(const QImage &image);

    /// The present picture's file; empty without one.
    QUrl url() const { return m_path.isEmpty() ? QUrl() : QUrl::fromLocalFile(m_path); }

    /// The longest side of the picture, in pixels.
    static constexpr int maximumSide = 512;

private:
    void removeLeftovers() const;
    void remove();

    QString m_folder;
    QString m_path;
    quint64 m_number = 0;
};

/// The user's runtime folder for pictures, or the cache where there is none.
QString artworkFolder();

} // namespace lyrabox
