#pragma once

#include "engine/DecodedSong.h"
#include "platform/audio/ChannelTools.h"
#include "practice/PracticeEdits.h"

#include <QObject>

#include <memory>
#include <optional>

class LB_AudioController;

namespace lyrabox {

class SongPractice;

/// What is done with the channels of the song that plays. The channel tools belong to the song and
/// are kept in its record. This object lets the engine carry them out, and follows every change:
/// an edit, an undone step, another song. Main thread.
///
/// If the pane is closed, the song that plays goes on as it is: a view that is closed changes no
/// sound. A song that is loaded meanwhile is heard as it was made, because its record is not
/// opened. When the pane is opened again, the record is, and its tools are heard.
class SongSound : public QObject {
    Q_OBJECT

public:
    /// Both must outlive this object.
    SongSound(LB_AudioController *audio, SongPractice *practice, QObject *parent = nullptr);
    /// Lets the song be heard as it was made.
    ~SongSound() override;

    /// What is done with the song that is heard now. Neutral without a song, and while the original
    /// is heard. Without a centre for a mono song.
    ChannelTools tools() const;

    /// What the record of the song says. Neutral if there is none.
    const ChannelTools &kept() const;
    /// Whether there is a record that can be changed.
    bool canChange() const;
    /// Changes the record. Numbers are brought within their ranges. With JoinsLast the change is
    /// undone together with the step before, if that was a call of this function, too. The original
    /// is no longer heard then. False if the record cannot be changed.
    bool change(const ChannelTools &tools, PracticeStep step = PracticeStep::New);
    /// Switches the centre off, or on again with the value that it had last, at first -100.
    void toggleCentre();

    /// Whether the song has nothing but a middle. For a song with two equal channels it is not
    /// known before noteMono() is called.
    bool isMono() const { return m_isMono; }
    /// An analysis has found that both channels of `song` are the same. Nothing if another song is
    /// loaded by now.
    void noteMono(const std::shared_ptr<const DecodedSong> &song);

    /// Whether the song is heard as it was made, to compare. That ends with every change of the
    /// tools and with the song. It is kept nowhere.
    bool originalIsHeard() const { return m_originalIsHeard; }
    /// Does nothing while the tools are neutral.
    void hearOriginal(bool original);

Q_SIGNALS:
    /// Anything above has changed.
    void changed();

private:
    void follow();
    void followSong();

    LB_AudioController *m_audio;
    SongPractice *m_practice;
    std::weak_ptr<const DecodedSong> m_song; ///< that the rest is about
    bool m_isMono = false;
    bool m_originalIsHeard = false;
    int m_lastCentre;
    ChannelTools m_seen;    ///< kept() when follow() ran last
    bool m_canJoin = false; ///< the last step of the record is a change() here
};

} // namespace lyrabox
