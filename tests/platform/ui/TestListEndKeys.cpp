#include "platform/ui/ListEndKeys.h"

#include <QStandardItemModel>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

using namespace lyrabox;

namespace {

struct ListOfRows {
    ListOfRows()
    {
        view.setModel(&model);
        view.setSelectionBehavior(QAbstractItemView::SelectRows);
        view.setSelectionMode(QAbstractItemView::SingleSelection);
        new ListEndKeys(&view);
    }

    int selectedRow() const
    {
        const QModelIndexList rows = view.selectionModel()->selectedRows();
        return rows.isEmpty() ? -1 : rows.front().row();
    }

    QStandardItemModel model{5, 3};
    QTableView view;
};

TEST(ListEndKeys, HomeAndEndSelectTheFirstAndTheLastRow)
{
    ListOfRows list;
    list.view.setCurrentIndex(list.model.index(2, 1));
    QTest::keyClick(&list.view, Qt::Key_End);
    EXPECT_EQ(list.selectedRow(), 4);
    QTest::keyClick(&list.view, Qt::Key_Home);
    EXPECT_EQ(list.selectedRow(), 0);
    EXPECT_EQ(list.view.currentIndex().column(), 1) << "the list must not scroll sideways";
}

TEST(ListEndKeys, AListWithoutACurrentRowGoesToItsEnds)
{
    ListOfRows list;
    QTest::keyClick(&list.view, Qt::Key_End);
    EXPECT_EQ(list.selectedRow(), 4);
}

TEST(ListEndKeys, AnEmptyListStaysAsItIs)
{
    ListOfRows list;
    list.model.removeRows(0, 5);
    QTest::keyClick(&list.view, Qt::Key_Home);
    EXPECT_EQ(list.selectedRow(), -1);
}

TEST(ListEndKeys, KeysWithModifiersAreLeftToTheToolkit)
{
    ListOfRows list;
    list.view.setCurrentIndex(list.model.index(2, 1));
    QTest::keyClick(&list.view, Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(list.view.currentIndex(), list.model.index(4, 2));
}

} // namespace
