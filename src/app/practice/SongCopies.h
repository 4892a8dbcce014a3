#pragma once

#include "app/practice/SongPeaks.h"
#include "practice/KnownAnchors.h"
#include "practice/PracticeRecord.h"

#include <QObject>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace lyrabox {

class SongPractice;

/// Knows the song that the pane shows by its sound. After its peaks are measured, the song's
/// anchors are made and noted in its record. If it has no practice file, one that was made for
/// another copy is looked for, and offered. Nothing is taken over before use(). Main thread; the
/// analysis runs on the thread of the peaks.
class SongCopies : public QObject {
    Q_OBJECT

public:
    /// Both must outlive this object.
    SongCopies(SongPractice *practice, SongPeaks *peaks, QObject *parent = nullptr);
    ~SongCopies() override;

    /// A copy of the song with loops, markers or beats.
    struct Offer {
        PracticeRecord record;   ///< with places of the song that is shown
        QString name;            ///< see KnownCopy::name
        std::int64_t offset = 0; ///< by which it was moved, in frames
    };
    /// The copy that is offered. Null if there is none.
    const Offer *offer() const { return m_offer ? &*m_offer : nullptr; }

    /// Takes over what the offered copy has, as one step. False if that is not possible.
    bool use();
    /// The song is no copy of the offered one. It is not offered again.
    void refuse();

    /// Looks for anchors in the song that is shown. `told` gets the offset, in frames, or none; it
    /// is not called if another song is shown before, or if another search begins.
    void find(const SongAnchors &anchors, std::function<void(std::optional<std::int64_t>)> told);

    /// The anchors of the song; makes them now if there are none yet, which takes about 0.1 s.
    /// Empty if it has none.
    SongAnchors anchorsNow();

    /// Whether the analysis runs, or waits for the peaks or for the song to be recognised.
    bool isListening() const;

Q_SIGNALS:
    void offerChanged();
    /// isListening() changed.
    void stateChanged();

private:
    struct Heard {
        SongAnchors anchors;
        std::optional<KnownCopy> copy;
    };

    void forgetSong();
    void stop();
    void workOn();
    void listen();
    void takeHeard(Heard heard);
    void noteAnchors();
    void withdraw();

    SongPractice *m_practice;
    SongPeaks *m_peaks;
    std::shared_ptr<KnownAnchors> m_known; ///< used by one job at a time
    std::optional<SongAnchors> m_anchors;  ///< none until the song was listened to
    std::optional<Offer> m_offer;
    QString m_offeredFor; ///< the path of the song that the offer is for
    std::optional<BackgroundRunner::Job> m_job;
    std::optional<BackgroundRunner::Job> m_search; ///< of find()
};

} // namespace lyrabox
