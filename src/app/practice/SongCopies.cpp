#include "app/practice/SongCopies.h"

#include "app/practice/SongPractice.h"
#include "practice/SharedPractice.h"

#include <QDir>

#include <new>
#include <set>
#include <utility>

namespace lyrabox {

SongCopies::SongCopies(SongPractice *practice, SongPeaks *peaks, QObject *parent)
    : QObject(parent),
      m_practice(practice),
      m_peaks(peaks),
      m_known(std::make_shared<KnownAnchors>())
{
    connect(peaks, &SongPeaks::songChanged, this, &SongCopies::forgetSong);
    connect(peaks, &SongPeaks::grown, this, &SongCopies::workOn);
    connect(peaks, &SongPeaks::wantedChanged, this, [this] {
        if (m_peaks->isWanted())
            workOn();
        else
            stop();
    });
    connect(practice, &SongPractice::problemChanged, this, &SongCopies::workOn);
    connect(&practice->store(), &PracticeStore::recordChanged, this, [this] {
        withdraw();
        noteAnchors();
        workOn();
    });
}

SongCopies::~SongCopies()
{
    stop();
}

void SongCopies::forgetSong()
{
    stop();
    m_anchors.reset();
    if (std::exchange(m_offer, std::nullopt))
        Q_EMIT offerChanged();
}

void SongCopies::stop()
{
    for (auto *job : {&m_job, &m_search}) {
        if (const auto running = std::exchange(*job, std::nullopt))
            m_peaks->runner().cancel(*running);
    }
    Q_EMIT stateChanged();
}

bool SongCopies::isListening() const
{
    return m_peaks->frames() > 0 && !m_anchors;
}

void SongCopies::workOn()
{
    const PracticeStore &store = m_practice->store();
    if (!m_job && !m_anchors && m_peaks->frames() > 0 && m_peaks->isComplete() &&
        m_peaks->isWanted() && store.hasSong() && !store.isIdentifying())
        listen();
}

void SongCopies::listen()
{
    const PracticeStore &store = m_practice->store();
    const bool isLookedFor = !store.hasFile() && !store.folder().isEmpty();
    const auto isWanted = [refused = store.refusedCopies()](const QString &name) {
        return !refused.contains(name);
    };
    const bool hasAnchors = !store.record().song.anchors.empty();
    if (hasAnchors && !isLookedFor) {
        m_anchors = store.record().song.anchors;
        Q_EMIT stateChanged();
        return;
    }
    m_job = m_peaks->runner().run(
        [song = m_peaks->song(), known = m_known, isWanted, isLookedFor,
         folder = store.folder()](const std::stop_token &stop) {
            Heard heard;
            try {
                SongPrint print(samplesOf(song.get()), stop);
                heard.anchors = songAnchors(print, stop);
                if (isLookedFor)
                    heard.copy = known->find(folder, print, isWanted, stop);
            } catch (const std::bad_alloc &) {
                // The song is known by its hash only.
            }
            return heard;
        },
        [this](Heard heard) { takeHeard(std::move(heard)); });
    Q_EMIT stateChanged();
}

void SongCopies::takeHeard(Heard heard)
{
    m_job.reset();
    m_anchors = std::move(heard.anchors);
    noteAnchors();
    const PracticeStore &store = m_practice->store();
    if (heard.copy && !store.hasFile() && !store.isReadOnly()) {
        const PracticeFile file = loadPractice(QDir(store.folder()).filePath(heard.copy->file));
        if (file.reading && !file.reading->isNewer) {
            m_offer = Offer{.record = movedPractice(file.reading->record, heard.copy->offset),
                            .name = heard.copy->name,
                            .offset = heard.copy->offset};
            m_offeredFor = store.songPath();
            Q_EMIT offerChanged();
        }
    }
    Q_EMIT stateChanged();
}

/// The record gets the anchors, also one that is read later.
void SongCopies::noteAnchors()
{
    PracticeStore &store = m_practice->store();
    if (m_anchors && !m_anchors->empty() && store.hasSong() && store.record().song.anchors.empty())
        store.setAnchors(*m_anchors);
}

/// There is no offer for a song that has a file of its own, or that is not open any more.
void SongCopies::withdraw()
{
    const PracticeStore &store = m_practice->store();
    if (m_offer && (store.hasFile() || store.songPath() != m_offeredFor)) {
        m_offer.reset();
        Q_EMIT offerChanged();
    }
}

bool SongCopies::use()
{
    const auto offer = std::exchange(m_offer, std::nullopt);
    if (!offer)
        return false;
    PracticeStore &store = m_practice->store();
    const bool isUsed = store.apply(editsThatMerge(store.record(), offer->record));
    Q_EMIT offerChanged();
    return isUsed;
}

void SongCopies::refuse()
{
    if (const auto offer = std::exchange(m_offer, std::nullopt)) {
        m_practice->store().refuse(offer->name);
        Q_EMIT offerChanged();
    }
}

void SongCopies::find(const SongAnchors &anchors,
                      std::function<void(std::optional<std::int64_t>)> told)
{
    if (const auto running = std::exchange(m_search, std::nullopt))
        m_peaks->runner().cancel(*running);
    using Offset = std::optional<std::int64_t>;
    m_search = m_peaks->runner().run(
        [song = m_peaks->song(), anchors](const std::stop_token &stop) -> Offset {
            try {
                AnchorSearch search;
                search.add(anchors);
                SongPrint print(samplesOf(song.get()), stop);
                const auto found = search.find(print, stop);
                return found.empty() ? Offset() : Offset(found.front().offset);
            } catch (const std::bad_alloc &) {
                return std::nullopt;
            }
        },
        [this, told = std::move(told)](Offset offset) {
            m_search.reset();
            told(offset);
        });
}

SongAnchors SongCopies::anchorsNow()
{
    if (!m_anchors && m_peaks->frames() > 0) {
        try {
            m_anchors = songAnchors(SongPrint(m_peaks->samples()));
        } catch (const std::bad_alloc &) {
            return {};
        }
        noteAnchors();
    }
    return m_anchors.value_or(SongAnchors());
}

} // namespace lyrabox
