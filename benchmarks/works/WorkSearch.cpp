// From another letter typed into the search field ("n" becomes "ni") to the drawn table. The peer
// is the toolkit's own filter over the same three columns.

#include "Work.h"
#include "WorkSongs.h"

#include "library/TrackTableModel.h"

#include <QApplication>
#include <QHeaderView>
#include <QSortFilterProxyModel>
#include <QTableView>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

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

void searchOurs(std::size_t rows)
{
    TrackTableModel model;
    model.setContent(work::inventedSongs(rows));
    QTableView view;
    showIn(view, model);
    const auto search = [&](const QString &text) {
        model.setSearchText(text);
        model.updateIsPlaying(u"1000007"_s);
        paint(view);
    };
    const work::Cost cost =
        work::measureRepeated([&] { search(u"n"_s); }, [&] { search(u"ni"_s); });
    work::report(cost, model.rowCount());
}

void searchPeer(std::size_t rows)
{
    ThreeColumns source(work::inventedSongs(rows));
    QSortFilterProxyModel model;
    model.setSourceModel(&source);
    model.setFilterKeyColumn(-1);
    model.setFilterCaseSensitivity(Qt::CaseInsensitive);
    QTableView view;
    showIn(view, model);
    const auto search = [&](const QString &text) {
        model.setFilterFixedString(text);
        paint(view);
    };
    const work::Cost cost =
        work::measureRepeated([&] { search(u"n"_s); }, [&] { search(u"ni"_s); });
    work::report(cost, model.rowCount());
}

} // namespace

int main(int argc, char **argv)
{
    const work::Arguments arguments = work::arguments(argc, argv);
    work::startApplication();
    (arguments.ours ? searchOurs : searchPeer)(std::stoul(arguments.argument));
    return EXIT_SUCCESS;
}
