// Searching and sorting a list of 100,000 songs, beside what the toolkit offers for the same work.

#include "library/TrackSorting.h"
#include "library/TrackTableModel.h"

#include <QApplication>
#include <QHeaderView>
#include <QLocale>
#include <QSortFilterProxyModel>
#include <QTableView>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

void startApplication()
{
    if (QCoreApplication::instance() != nullptr)
        return;
    static int argc = 1;
    static char name[] = "bench";
    static char *argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    new QApplication(argc, argv); // lives until the process ends
}

/// Songs with titles of one to five words, one accented in twenty; ten to an album.
TrackRecordList songs(std::size_t count)
{
    std::mt19937 random(3);
    const QStringList words{u"Love"_s,    u"Night"_s,  u"Blue"_s,  u"Étude"_s, u"Train"_s,
                            u"Morning"_s, u"River"_s,  u"the"_s,   u"of"_s,    u"in"_s,
                            u"Dance"_s,   u"Song"_s,   u"Heart"_s, u"Stone"_s, u"Winter"_s,
                            u"Road"_s,    u"Golden"_s, u"You"_s,   u"Never"_s, u"Café"_s};
    const auto text = [&](unsigned most) {
        QStringList made;
        for (unsigned n = 1 + random() % most; n > 0; --n)
            made.append(
                words.at(static_cast<qsizetype>(random() % static_cast<unsigned>(words.size()))));
        return made.join(u' ');
    };
    TrackRecordList list;
    list.reserve(count);
    QString artist;
    QString album;
    for (std::size_t i = 0; i < count; ++i) {
        if (i % 10 == 0) {
            artist = text(2) + u' ' + QString::number(random() % 900);
            album = text(3);
        }
        auto record = std::make_shared<TrackRecord>();
        record->title =
            text(5) + (i % 3 == 0 ? u" No. "_s + QString::number(random() % 500) : QString());
        record->artist = artist;
        record->album = album;
        record->durationSeconds = 60.0F + static_cast<float>(random() % 60000) / 100.0F;
        record->inode = QString::number(1000000 + i);
        record->order = static_cast<int>(i) + 1;
        list.push_back(std::move(record));
    }
    return list;
}

class ThreeColumns : public QAbstractTableModel {
public:
    explicit ThreeColumns(TrackRecordList records) : m_records(std::move(records)) {}
    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_records.size());
    }
    int columnCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : 3;
    }
    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        const TrackRecord &record = *m_records[static_cast<std::size_t>(index.row())];
        return index.column() == 0   ? *record.title
               : index.column() == 1 ? record.artist
                                     : record.album;
    }

private:
    TrackRecordList m_records;
};

void showIn(QTableView &view, QAbstractItemModel &model)
{
    view.setModel(&model);
    view.verticalHeader()->hide();
    view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view.resize(900, 600);
    view.show();
    QApplication::processEvents();
}

void paint(QTableView &view)
{
    view.doItemsLayout();
    view.viewport()->repaint();
}

// One more letter typed: "n" becomes "ni".
void searchOurs(benchmark::State &state)
{
    startApplication();
    TrackTableModel model;
    model.setContent(songs(static_cast<std::size_t>(state.range(0))));
    QTableView view;
    showIn(view, model);
    for (auto _ : state) {
        state.PauseTiming();
        model.setSearchText(u"n"_s);
        paint(view);
        state.ResumeTiming();
        model.setSearchText(u"ni"_s);
        model.updateIsPlaying(u"1000007"_s);
        paint(view);
    }
    state.counters["rows"] = model.rowCount();
}

void searchFirstLetterOurs(benchmark::State &state)
{
    startApplication();
    TrackTableModel model;
    const TrackRecordList list = songs(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        model.setSearchText({});
        model.setContent(list);
        state.ResumeTiming();
        model.setSearchText(u"n"_s);
    }
}

void searchProxyModel(benchmark::State &state)
{
    startApplication();
    ThreeColumns source(songs(static_cast<std::size_t>(state.range(0))));
    QSortFilterProxyModel model;
    model.setSourceModel(&source);
    model.setFilterKeyColumn(-1);
    model.setFilterCaseSensitivity(Qt::CaseInsensitive);
    QTableView view;
    showIn(view, model);
    for (auto _ : state) {
        state.PauseTiming();
        model.setFilterFixedString(u"n"_s);
        paint(view);
        state.ResumeTiming();
        model.setFilterFixedString(u"ni"_s);
        paint(view);
    }
    state.counters["rows"] = model.rowCount();
}

// By title and then by length, of a list just shown.
void sortOurs(benchmark::State &state)
{
    startApplication();
    const TrackRecordList list = songs(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        TrackTableModel model;
        model.setContent(list);
        state.ResumeTiming();
        model.sortContent({{u"title"_s, true}});
        model.sortContent({{u"durationSeconds"_s, true}});
    }
}

void sortStableSort(benchmark::State &state)
{
    startApplication();
    const TrackRecordList list = songs(static_cast<std::size_t>(state.range(0)));
    const QCollator collator = trackCollator();
    for (auto _ : state) {
        state.PauseTiming();
        TrackRecordList sorted = list;
        state.ResumeTiming();
        std::stable_sort(sorted.begin(), sorted.end(),
                         [&](const TrackRecordRef &a, const TrackRecordRef &b) {
                             return collator.compare(*a->title, *b->title) < 0;
                         });
        std::stable_sort(sorted.begin(), sorted.end(),
                         [](const TrackRecordRef &a, const TrackRecordRef &b) {
                             return a->durationValue() < b->durationValue();
                         });
        benchmark::DoNotOptimize(sorted.data());
    }
}

constexpr int rows = 100000;

BENCHMARK(searchOurs)
    ->Name("Library/search")
    ->Arg(rows / 16)
    ->Arg(rows / 4)
    ->Arg(rows)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(searchFirstLetterOurs)
    ->Name("Library/searchFirstLetter")
    ->Arg(rows)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(searchProxyModel)
    ->Name("Library/searchPeer")
    ->Arg(rows)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(sortOurs)
    ->Name("Library/sort")
    ->Arg(rows / 16)
    ->Arg(rows / 4)
    ->Arg(rows)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(sortStableSort)
    ->Name("Library/sortPeer")
    ->Arg(rows)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

} // namespace
