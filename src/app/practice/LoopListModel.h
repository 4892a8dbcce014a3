#pragma once

#include "practice/PracticeRecord.h"

#include <QAbstractTableModel>

#include <functional>
#include <optional>
#include <variant>
#include <vector>

namespace lyrabox {

class PracticeStore;

/// The loops and markers of a store as rows, in the order of their places. A change of the record
/// touches only the rows that it concerns, so that selections survive. Main thread.
class LoopListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Number, Name, Place, Speed, Best };
    static constexpr int columns = 5;
    /// The best speed of a loop in percent.
    using BestSpeed = std::function<std::optional<double>(const PracticeLoop &)>;

    /// `store` must outlive the model.
    explicit LoopListModel(PracticeStore *store, QObject *parent = nullptr);

    /// The loop that is called up.
    void setCalledUp(std::optional<PracticeId> id);
    std::optional<PracticeId> calledUp() const { return m_calledUp; }
    /// Who knows the best speeds. Call showBestSpeeds() when they change.
    void setBestSpeed(BestSpeed best);
    void showBestSpeeds();
    /// Whether a loop has a best speed.
    bool hasBestSpeeds() const { return m_hasBestSpeeds; }
    /// Whether some loop keeps a speed.
    bool hasSpeeds() const;
    /// The length of the song. Loops beyond it are gray. 0 if it is unknown.
    void setSongFrames(std::uint64_t frames);

    /// The loop or the marker of a row; null if the row is the other one, or there is no such row.
    const PracticeLoop *loop(int row) const;
    const PracticeMarker *marker(int row) const;
    /// The identifier of a row; 0 if there is no such row.
    PracticeId id(int row) const;
    /// -1 if there is none.
    int rowOf(PracticeId id) const;
    bool isBeyondSong(int row) const;
    /// The last place of all rows, in frames.
    std::uint64_t lastPlace() const { return m_lastPlace; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// Renames in the store. False if the store refuses it.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

Q_SIGNALS:
    /// hasBestSpeeds() has another value.
    void hasBestSpeedsChanged();

private:
    struct Row {
        std::variant<PracticeLoop, PracticeMarker> entry;
        int number = 0; ///< of a loop; 0 for a marker

        PracticeId id() const;
        bool operator==(const Row &) const = default;
    };
    using Rows = std::vector<Row>;

    static Rows rowsOf(const PracticeRecord &record);
    const Row *row(int row) const;
    void showRecord();
    void removeMissing(const Rows &wanted);
    void reorder(const Rows &wanted);
    void insertNew(const Rows &wanted);
    void update(Rows wanted);
    void showChanged(int first, int last);

    QString shownName(int row) const;
    QString barPlaces(int row) const;
    QString placeText(int row) const;
    QString accessibleText(int row, int column) const;
    QString remarks(int row) const;
    QString toolTip(int row) const;
    QString bestText(int row) const;
    QVariant color(int row, int column) const;

    PracticeStore *m_store;
    Rows m_rows;
    std::optional<PracticeId> m_calledUp;
    std::uint64_t m_songFrames = 0;
    std::uint64_t m_lastPlace = 0;
    BestSpeed m_best;
    bool m_hasBestSpeeds = false;
    BeatGrid m_grid; ///< that the places are written for
};

} // namespace lyrabox
