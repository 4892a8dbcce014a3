#include "app/controls/LB_TableRowView.h"

#include "app/controls/LB_InvertibleImageCellView.h"
#include "platform/ui/ApplicationStyle.h"

#include <QApplication>
#include <QDialog>
#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>
#include <QTreeView>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

const QColor accentBlue(0x34, 0x98, 0xDB);
const QColor lineGray(0xBD, 0xC3, 0xC7);

QColor filled(bool emphasized, LB_TableRowView::SelectionHighlightStyle style, qreal ratio)
{
    QImage image((QSizeF(20, 10) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    QPainter painter(&image);
    LB_TableRowView::drawSelectionInRect(painter, QRect(0, 0, 10, 10), emphasized, style);
    EXPECT_EQ(image.pixelColor(static_cast<int>(15 * ratio), 5), QColor(Qt::white))
        << "outside the rectangle";
    return image.pixelColor(static_cast<int>(10 * ratio) - 1, static_cast<int>(10 * ratio) - 1);
}

TEST(LB_TableRowView, ScrollBarsLookLikeAllOthersAlsoInAWindowWithAStyleSheet)
{
    const QString before = QApplication::style()->name();
    QApplication::setStyle(new lyrabox::ApplicationStyle);
    {
        QDialog dialog; // the style gives it a style sheet
        auto *view = new QTreeView(&dialog);
        LB_TableRowView::install(view);
        dialog.ensurePolished();
        ASSERT_FALSE(dialog.styleSheet().isEmpty());
        const auto extent = [](const QScrollBar *bar) {
            return bar->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, bar);
        };
        const QScrollBar other;
        EXPECT_EQ(extent(view->verticalScrollBar()), extent(&other));
        EXPECT_EQ(extent(view->horizontalScrollBar()), extent(&other));
    }
    QApplication::setStyle(before);
}

TEST(LB_TableRowView, SelectionIsAccentBlueWhenEmphasizedAndLineGrayWhenNot)
{
    for (const qreal ratio : {1.0, 2.0}) {
        EXPECT_EQ(filled(true, LB_TableRowView::SelectionHighlightStyleRegular, ratio), accentBlue);
        EXPECT_EQ(filled(false, LB_TableRowView::SelectionHighlightStyleRegular, ratio), lineGray);
    }
}

TEST(LB_TableRowView, NothingIsDrawnForTheHighlightStyleNone)
{
    EXPECT_EQ(filled(true, LB_TableRowView::SelectionHighlightStyleNone, 1.0), QColor(Qt::white));
    EXPECT_EQ(filled(false, LB_TableRowView::SelectionHighlightStyleNone, 1.0), QColor(Qt::white));
}

/// A window with a table, a tree and a field that can take the keyboard focus.
class RowsInAWindow : public testing::Test {
protected:
    RowsInAWindow()
    {
        auto *layout = new QVBoxLayout(&window);
        for (QWidget *widget : std::initializer_list<QWidget *>{&table, &tree, &field})
            layout->addWidget(widget);
        model.setData(model.index(1, 0), u"IsPlaying"_s, LB_InvertibleImageCellView::imageNameRole);
        model.setData(model.index(1, 1), u"<b>Rain</b>\nBow"_s);
        table.setModel(&model);
        LB_TableRowView::install(&table, LB_TableRowView::Separators::Hairline);
        table.setItemDelegateForColumn(
            0, new LB_InvertibleImageCellView(&table, LB_TableRowView::Separators::Hairline));
        table.selectRow(1);

        auto *root = new QStandardItem(u"Music"_s);
        root->appendRow(new QStandardItem(u"Live"_s));
        folders.appendRow(root);
        tree.setModel(&folders);
        rows = LB_TableRowView::install(&tree);
        tree.expandAll();
        tree.setCurrentIndex(root->child(0)->index());
        window.resize(500, 400);
        window.show();
        window.activateWindow();
    }
    ~RowsInAWindow() override
    {
        table.setParent(nullptr);
        tree.setParent(nullptr);
        field.setParent(nullptr);
    }

    bool giveKeyboardTo(QWidget &widget)
    {
        if (!QTest::qWaitForWindowActive(&window))
            return false;
        widget.setFocus();
        return widget.hasFocus();
    }

    static QColor colourIn(QAbstractItemView &view, QPoint point)
    {
        return view.viewport()->grab().toImage().pixelColor(point);
    }
    QPoint selectedCorner()
    {
        return table.visualRect(model.index(1, 1)).topRight() + QPoint(-2, 2);
    }

    QStandardItemModel model{3, 2};
    QStandardItemModel folders;
    QWidget window;
    QTableView table;
    QTreeView tree;
    QLineEdit field;
    LB_TableRowView *rows = nullptr;
};

TEST_F(RowsInAWindow, SelectedRowIsEmphasizedWhileItsTableHasTheKeyboard)
{
    ASSERT_TRUE(giveKeyboardTo(table));
    EXPECT_EQ(colourIn(table, selectedCorner()), accentBlue);
    ASSERT_TRUE(giveKeyboardTo(field));
    EXPECT_EQ(colourIn(table, selectedCorner()), lineGray);
}

TEST_F(RowsInAWindow, TreeSelectionCoversTheIndentation)
{
    ASSERT_TRUE(giveKeyboardTo(tree));
    const QRect row = tree.visualRect(tree.currentIndex());
    ASSERT_GT(row.left(), 10);
    EXPECT_EQ(colourIn(tree, QPoint(1, row.top() + 1)), accentBlue);
    EXPECT_EQ(colourIn(tree, QPoint(tree.viewport()->width() - 2, row.top() + 1)), accentBlue);
    ASSERT_TRUE(giveKeyboardTo(field));
    EXPECT_EQ(colourIn(tree, QPoint(1, row.top() + 1)), lineGray);
}

TEST_F(RowsInAWindow, TreeWithHighlightStyleNoneShowsNoSelection)
{
    rows->setSelectionHighlightStyle(LB_TableRowView::SelectionHighlightStyleNone);
    ASSERT_TRUE(giveKeyboardTo(tree));
    const QRect row = tree.visualRect(tree.currentIndex());
    const QColor plain = tree.palette().color(QPalette::Base);
    EXPECT_EQ(colourIn(tree, QPoint(1, row.top() + 1)), plain);
    EXPECT_EQ(colourIn(tree, QPoint(row.right() - 2, row.top() + 1)), plain);
}

/// Whether the given part of the view has a pixel of this colour.
bool shows(QAbstractItemView &view, const QRect &rect, const QColor &colour)
{
    const QImage image = view.viewport()->grab(rect).toImage();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == colour)
                return true;
        }
    }
    return false;
}

TEST_F(RowsInAWindow, SelectedRowShowsTheLightImageAndThePlainOneWhenDeselected)
{
    const QRect cell = table.visualRect(model.index(1, 0));
    ASSERT_TRUE(giveKeyboardTo(table));
    EXPECT_TRUE(shows(table, cell, Qt::white)) << "the light image on the emphasized row";
    table.clearSelection();
    EXPECT_TRUE(shows(table, cell, accentBlue)) << "the plain image on the plain row";
}

TEST_F(RowsInAWindow, EmphasizedRowHasWhiteTextAndOthersDarkText)
{
    const QRect cell = table.visualRect(model.index(1, 1));
    ASSERT_TRUE(giveKeyboardTo(table));
    EXPECT_TRUE(shows(table, cell, Qt::white));
    ASSERT_TRUE(giveKeyboardTo(field));
    EXPECT_FALSE(shows(table, cell, Qt::white));
}

TEST_F(RowsInAWindow, RowsHaveOneColourAndEndWithAHairline)
{
    EXPECT_EQ(table.rowHeight(0), 26);
    EXPECT_EQ(tree.visualRect(tree.currentIndex()).height(), 24);
    const QRect first = table.visualRect(model.index(0, 1));
    EXPECT_EQ(colourIn(table, first.bottomLeft() + QPoint(20, 0)), QColor(0xE4, 0xE8, 0xEA));
    EXPECT_EQ(colourIn(table, first.bottomLeft() + QPoint(20, -1)),
              table.palette().color(QPalette::Base));
}

/// A picture of a list row that shows `text`.
QImage rowOf(const QString &text)
{
    QStandardItemModel model(1, 1);
    model.setItem(0, 0, new QStandardItem(text));
    QTableView table;
    LB_TableRowView::install(&table);
    table.setModel(&model);
    table.resize(300, 100);
    QImage image(table.viewport()->size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    table.viewport()->render(&image);
    return image;
}

TEST(LB_TableRowView, EveryTextIsOnePlainLine)
{
    EXPECT_EQ(rowOf(u"one\ntwo"_s), rowOf(u"one two"_s));
    EXPECT_EQ(rowOf(u"one\u2028two\tthree"_s), rowOf(u"one two three"_s));
    EXPECT_NE(rowOf(u"one two"_s), rowOf(u"one"_s)) << "the text after a line break is shown";
    EXPECT_NE(rowOf(u"<b>one</b>"_s), rowOf(u"one"_s)) << "markup is shown as text";
    EXPECT_NE(rowOf(u"<b>one</b>"_s), rowOf(QString()));
    EXPECT_NE(rowOf(u"this & that"_s), rowOf(u"this that"_s));
    EXPECT_NE(rowOf(u"this &that"_s), rowOf(u"this that"_s)) << "an ampersand is shown";
}

TEST(LB_TableRowView, TextsInAnyScriptAndOfAnyLengthAreShown)
{
    const QImage nothing = rowOf(QString());
    const QString thousand = QString(u"م"_s).repeated(10000);
    for (const QString &text : {u"שלום עולם"_s, u"a\u202Egnp.3pm"_s, u"e\u0301\u0301\u0301"_s,
                                u"z"_s + QString(200, QChar(0x0301)), thousand,
                                QString(10000, u'W'), QString(QChar(0xd800)), u"\U0001F3B5"_s})
        EXPECT_NE(rowOf(text), nothing) << qPrintable(text.left(20));
}

} // namespace
