#include "app/practice/PracticeSharing.h"

#include "app/practice/SharingWords.h"
#include "app/practice/SongPractice.h"
#include "platform/foundation/DiskPatience.h"
#include "platform/foundation/FileReplacement.h"
#include "practice/LabelTrack.h"

#include <QDir>
#include <QFileInfo>

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

constexpr auto labelExtension = ".txt"_L1;
constexpr auto practiceExtension = ".json"_L1;

bool isLabelTrack(const QString &path)
{
    return path.endsWith(labelExtension, Qt::CaseInsensitive);
}

} // namespace

PracticeSharing::PracticeSharing(SongPractice *practice, SongCopies *copies, SongPeaks *peaks,
                                 QObject *parent)
    : QObject(parent), m_practice(practice), m_copies(copies), m_peaks(peaks)
{
    connect(copies, &SongCopies::offerChanged, this, &PracticeSharing::showOffer);
    connect(&practice->store(), &PracticeStore::recordChanged, this, &PracticeSharing::followSong);
    connect(practice, &SongPractice::problemChanged, this, &PracticeSharing::workOn);
    connect(peaks, &SongPeaks::songChanged, this, &PracticeSharing::workOn);
    connect(peaks, &SongPeaks::wantedChanged, this, [this] {
        if (m_peaks->isWanted())
            workOn();
    });
    showOffer();
}

bool PracticeSharing::isShared(const QString &path)
{
    return isLabelTrack(path) || path.endsWith(practiceExtension, Qt::CaseInsensitive);
}

void PracticeSharing::setNotice(Notice notice, Asks asks)
{
    m_notice = std::move(notice);
    m_asks = asks;
    m_song = m_practice->store().songPath();
    Q_EMIT noticeChanged();
}

void PracticeSharing::tell(const QString &text)
{
    m_opened.reset();
    setNotice({.text = text, .accept = {}, .decline = tr("Close")});
}

void PracticeSharing::showOffer()
{
    if (const SongCopies::Offer *offer = m_copies->offer())
        setNotice({.text = sharingWords::offer(offer->offset),
                   .accept = tr("Use Them"),
                   .decline = tr("Not This Song")},
                  Asks::AboutCopy);
    else if (m_asks == Asks::AboutCopy)
        setNotice({});
}

/// A notice about another song is over.
void PracticeSharing::followSong()
{
    const bool waits = m_waits && m_opened;
    if (m_practice->store().songPath() != m_song && !waits) {
        m_opened.reset();
        setNotice({});
        showOffer();
    }
}

void PracticeSharing::accept()
{
    const Asks asked = m_asks;
    if (asked == Asks::AboutCopy) {
        const std::int64_t offset = m_copies->offer() ? m_copies->offer()->offset : 0;
        PracticeMerge merge;
        if (m_copies->offer())
            merge = mergeOf(m_practice->record(), m_copies->offer()->record);
        tell(m_copies->use() ? sharingWords::taken(merge, offset, true) : sharingWords::notTaken());
    } else if (asked == Asks::AboutFile && m_opened) {
        takeOver(std::exchange(m_opened, std::nullopt)->shared, 0);
    }
}

void PracticeSharing::decline()
{
    if (m_asks == Asks::AboutCopy) {
        m_copies->refuse(); // ends the notice
        return;
    }
    m_opened.reset();
    setNotice({});
    showOffer();
}

bool PracticeSharing::canShare() const
{
    const PracticeRecord &record = m_practice->record();
    return m_practice->store().hasSong() &&
           (!record.loops.empty() || !record.markers.empty() || !record.beats.grid.isEmpty());
}

QString PracticeSharing::suggestedName(bool labels) const
{
    const QString name =
        practiceFileName(m_practice->store().songName(), {}, [](const QString &) { return false; });
    return labels ? name.chopped(practiceExtension.size()) + labelExtension : name;
}

void PracticeSharing::share(const QString &path)
{
    if (!canShare())
        return;
    PracticeRecord record = m_practice->store().describedRecord();
    if (record.song.anchors.empty())
        record.song.anchors = m_copies->anchorsNow();
    const QByteArray text = isLabelTrack(path) ? labelTrackText(record) : practiceText(record);
    const QString name = QFileInfo(path).fileName();
    const auto isWritten =
        files::askPatiently<bool>(path, [path, text] { return files::replaceFile(path, text); });
    tell(isWritten.value_or(false) ? sharingWords::shared(name) : sharingWords::notWritten(name));
}

void PracticeSharing::open(const QString &path)
{
    const QString name = QFileInfo(path).fileName();
    SharedPractice shared;
    shared.problem = SharedPractice::Problem::Unreadable;
    if (auto read = files::askPatiently<SharedPractice>(path, [path] { return loadShared(path); }))
        shared = std::move(*read);
    if (shared.problem != SharedPractice::Problem::None) {
        tell(sharingWords::problem(shared.problem, name));
        return;
    }
    m_opened = Opened{.file = name, .shared = std::move(shared)};
    m_waits = true;
    workOn();
}

/// Goes on when the song that plays is recognised. Another song, or a closed pane, cancels the
/// search in the song; then it begins again.
void PracticeSharing::workOn()
{
    PracticeStore &store = m_practice->store();
    if (!m_waits || !m_opened)
        return;
    const PracticeSong &song = m_opened->shared.record.song;
    if (store.hasSong() && !song.audio.isEmpty() && store.startIdentifying())
        return; // stateChanged() follows
    if (store.hasSong() && !song.audio.isEmpty() && song.audio == store.audio()) {
        placeOpened(0);
    } else if (store.hasSong() && !song.anchors.empty() && m_peaks->frames() > 0) {
        m_copies->find(song.anchors, [this](std::optional<std::int64_t> offset) {
            if (m_waits && m_opened)
                placeOpened(offset);
        });
    } else {
        placeOpened(std::nullopt);
    }
}

/// The file fits to the song that plays, with an offset, or it does not.
void PracticeSharing::placeOpened(std::optional<std::int64_t> offset)
{
    m_waits = false;
    const PracticeStore &store = m_practice->store();
    if (offset) {
        takeOver(std::exchange(m_opened, std::nullopt)->shared, *offset);
    } else if (addToOtherSong()) {
        return;
    } else if (!store.hasSong()) {
        tell(sharingWords::noSong(m_opened->file));
    } else {
        setNotice(
            {.text = sharingWords::question(m_opened->shared.record.song.title, store.songName()),
             .accept = tr("Use Them"),
             .decline = tr("Cancel")},
            Asks::AboutFile);
    }
}

/// Adds what was opened to the practice file of a song that does not play. False if there is none.
bool PracticeSharing::addToOtherSong()
{
    const QString folder = m_practice->store().folder();
    const QString audio = m_opened->shared.record.song.audio;
    const QString name =
        folder.isEmpty() || audio.isEmpty() ? QString() : practiceFileOf(audio, folder, {});
    if (name.isEmpty())
        return false;
    const PracticeFile file = loadPractice(QDir(folder).filePath(name));
    if (!file.reading || file.reading->isNewer || !file.reading->isWhole)
        return false;
    PracticeRecord record = file.reading->record;
    const PracticeMerge merge = mergeOf(record, movedPractice(m_opened->shared.record, 0));
    const bool isMerged = applyEdits(record, merge.edits).has_value();
    const PracticeWrite write{
        .folder = folder, .name = name, .text = practiceText(record), .expected = file.stamp};
    if (!isMerged || (!merge.edits.empty() && !writePractice(write).isWritten))
        tell(sharingWords::notTaken());
    else
        tell(sharingWords::takenFor(record.song.title, merge));
    return true;
}

void PracticeSharing::takeOver(const SharedPractice &shared, std::int64_t offset)
{
    PracticeStore &store = m_practice->store();
    const PracticeRecord moved = movedPractice(shared.record, offset);
    const PracticeMerge merge = mergeOf(store.record(), moved);
    if (store.apply(merge.edits))
        tell(sharingWords::taken(merge, offset, shared.isWhole));
    else
        tell(sharingWords::notTaken());
}

} // namespace lyrabox
