#pragma once

#include "app/practice/SongCopies.h"
#include "practice/SharedPractice.h"

#include <QObject>
#include <QString>

#include <optional>

namespace lyrabox {

class SongPractice;

/// Gives practice files away and takes them over. What there is to say or to ask is a notice with
/// at most two answers, which SharingBar shows. Main thread.
class PracticeSharing : public QObject {
    Q_OBJECT

public:
    /// All must outlive this object.
    PracticeSharing(SongPractice *practice, SongCopies *copies, SongPeaks *peaks,
                    QObject *parent = nullptr);

    /// What the user is told or asked.
    struct Notice {
        QString text;   ///< empty if there is nothing
        QString accept; ///< the text of the button that does it; empty: there is none
        QString decline;
    };
    const Notice &notice() const { return m_notice; }

    /// The user's answer. Both end the notice.
    void accept();
    void decline();

    /// Whether the song has something to share.
    bool canShare() const;
    /// The name of a file for it, without a folder.
    QString suggestedName(bool isLabelTrack) const;
    /// Writes the song's loops and markers into a file: a practice file, or a label track if the
    /// path ends with ".txt".
    void share(const QString &path);

    /// Takes over a practice file or a label track. First the song is looked for: the one that
    /// plays, by its hash or its anchors, then one with a practice file. Otherwise the user is
    /// asked.
    void open(const QString &path);

    /// Whether a file has the name of one that open() can take over.
    static bool isShared(const QString &path);

Q_SIGNALS:
    void noticeChanged();

private:
    enum class Asks { Nothing, AboutCopy, AboutFile };

    /// A file that is being taken over.
    struct Opened {
        QString file; ///< its name
        SharedPractice shared;
    };

    void setNotice(Notice notice, Asks asks = Asks::Nothing);
    void tell(const QString &text);
    void showOffer();
    void followSong();
    void workOn();
    void placeOpened(std::optional<std::int64_t> offset);
    bool addToOtherSong();
    void takeOver(const SharedPractice &shared, std::int64_t offset);

    SongPractice *m_practice;
    SongCopies *m_copies;
    SongPeaks *m_peaks;
    Notice m_notice;
    Asks m_asks = Asks::Nothing;
    std::optional<Opened> m_opened; ///< waits for its song or for an answer
    bool m_waits = false;           ///< for the song to be recognised, or for the search in it
    QString m_song;                 ///< the path of the song that the notice is about
};

} // namespace lyrabox
