#include "sources/BrowserPopover.h"
#include "sources/LB_BrowserButton.h"
#include "sources/LB_DirectoryItem.h"

#include <QAbstractItemModelTester>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <gmock/gmock.h>

namespace lyrabox {
namespace {

struct Browser : testing::Test {
    void wake(const std::vector<Volume> &volumes)
    {
        controller.setBrowserOutlineView(&view);
        controller.setMountedVolumes([volumes] { return volumes; });
        controller.awakeFromNib();
    }
    QStringList roots() const
    {
        QStringList names;
        for (const SourceItemRef &root : controller.model()->roots())
            names.append(root->text());
        return names;
    }
    QString homeName() const { return QDir(QDir::homePath()).dirName(); }

    SourceTreeView view;
    LB_BrowserController controller;
};

TEST_F(Browser, ShowsOnlyTheHomeFolderWithoutWritableVolumes)
{
    wake({});
    EXPECT_EQ(roots(), QStringList({homeName()}));
    EXPECT_FALSE(std::static_pointer_cast<LB_DirectoryItem>(controller.model()->roots().front())
                     ->isVolume());
}

TEST_F(Browser, LeavesOutReadOnlyVolumes)
{
    wake({{QStringLiteral("/media/disc"), QStringLiteral("Disc"), true},
          {QStringLiteral("/media/stick"), QStringLiteral("Stick"), false}});
    EXPECT_EQ(roots(), QStringList({homeName(), QStringLiteral("Stick")}));
}

TEST_F(Browser, ShowsAVolumeByItsNameAndNotByItsMountPath)
{
    wake({{QStringLiteral("/media/sdb1"), QStringLiteral("My Songs"), false}});
    EXPECT_EQ(roots().last(), QStringLiteral("My Songs"));
    const auto volume =
        std::static_pointer_cast<LB_DirectoryItem>(controller.model()->roots().back());
    EXPECT_TRUE(volume->isVolume());
    EXPECT_EQ(folderPath(volume->url()), QStringLiteral("/media/sdb1"));
}

TEST_F(Browser, WakingTwiceBuildsTheRootsOnce)
{
    wake({});
    const SourceItemRef home = controller.model()->roots().front();
    controller.awakeFromNib();
    EXPECT_EQ(controller.model()->roots().front(), home);
}

TEST_F(Browser, ArrowKeyStartsAtTheFirstRow)
{
    wake({});
    view.setCurrentIndex({});
    view.selectionModel()->setCurrentIndex(view.model()->index(0, 0),
                                           QItemSelectionModel::NoUpdate);
    ASSERT_FALSE(controller.hasSelection());
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(view.selectedRow(), view.model()->index(0, 0));
}

TEST_F(Browser, SelectingARowSetsHasSelection)
{
    wake({});
    EXPECT_FALSE(controller.hasSelection());
    view.selectRow(view.model()->index(0, 0));
    EXPECT_TRUE(controller.hasSelection());
    view.clearSelection();
    EXPECT_FALSE(controller.hasSelection());
}

TEST(BrowserPopover, OkIsEnabledWhileARowIsSelected)
{
    const BrowserPopoverContent content = makeBrowserPopover();
    const std::unique_ptr<QWidget> owner(content.view);
    EXPECT_FALSE(content.okButton->isEnabled());
    SourceTreeView *outline = content.okButton->browserOutlineView();
    outline->selectRow(outline->model()->index(0, 0));
    EXPECT_TRUE(content.okButton->isEnabled());
    outline->clearSelection();
    EXPECT_FALSE(content.okButton->isEnabled());
}

TEST(DirectoryItem, ListsItsFolderOnceInItsLifetime)
{
    const QTemporaryDir disk;
    ASSERT_TRUE(QDir(disk.path()).mkpath(QStringLiteral("a")));
    const auto item = std::make_shared<LB_DirectoryItem>(folderURL(disk.path()), nullptr);
    EXPECT_EQ(item->numberOfChildren(), 1);
    ASSERT_TRUE(QDir(disk.path()).mkpath(QStringLiteral("b")));
    EXPECT_EQ(item->numberOfChildren(), 1);
    item->resetChildren();
}

TEST(SourceTreeModel, KeepsTheRulesOfItemModels)
{
    const QTemporaryDir disk;
    ASSERT_TRUE(QDir(disk.path()).mkpath(QStringLiteral("a/b")));
    ASSERT_TRUE(QDir(disk.path()).mkpath(QStringLiteral("c")));
    SourceTreeModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    const auto root = std::make_shared<LB_DirectoryItem>(folderURL(disk.path()), nullptr);
    model.appendRoot(root);
    model.appendRoot(
        std::make_shared<LB_DirectoryItem>(folderURL(disk.filePath(QStringLiteral("a"))), nullptr));
    const QModelIndex first = model.index(0, 0);
    EXPECT_EQ(model.rowCount(first), 2);
    EXPECT_EQ(model.parent(model.index(0, 0, first)), first);
    EXPECT_EQ(model.itemAt(first), root);
    model.discardListings();
    model.removeRoot(root);
    EXPECT_EQ(model.rowCount(), 1);
}

TEST(SourceTreeModel, IconAndStyleOfARowAreReadOnceAndOnlyWhenDrawn)
{
    struct Asked : SourceItem {
        using SourceItem::SourceItem;
        const std::vector<SourceItemRef> &children() override { return none; }
        bool isListed() const override { return true; }
        void resetChildren() override {}
        QString text() const override { return QStringLiteral("name"); }
        QIcon icon() const override
        {
            ++icons;
            return {};
        }
        TextStyle textStyle() const override
        {
            ++styles;
            return {};
        }
        std::vector<SourceItemRef> none;
        mutable int icons = 0;
        mutable int styles = 0;
    };
    const auto asked = std::make_shared<Asked>(nullptr);
    SourceTreeModel model;
    model.appendRoot(asked);
    const QModelIndex row = model.index(0, 0);
    EXPECT_EQ(row.data(Qt::DisplayRole).toString(), QStringLiteral("name"));
    EXPECT_FALSE(row.data(Qt::ToolTipRole).isValid());
    EXPECT_EQ(asked->icons + asked->styles, 0);
    for (int i = 0; i < 2; ++i) {
        for (const int role : {Qt::DecorationRole, Qt::FontRole, Qt::ForegroundRole})
            static_cast<void>(row.data(role));
    }
    EXPECT_EQ(asked->icons, 1);
    EXPECT_EQ(asked->styles, 1);
    model.forgetLooks(row);
    static_cast<void>(row.data(Qt::DecorationRole));
    EXPECT_EQ(asked->icons, 2);
    EXPECT_EQ(asked->styles, 1);
}

TEST(SourceTreeModel, FolderCountsAsExpandableUntilItIsListed)
{
    const QTemporaryDir disk;
    SourceTreeModel model;
    model.appendRoot(std::make_shared<LB_DirectoryItem>(folderURL(disk.path()), nullptr));
    const QModelIndex root = model.index(0, 0);
    EXPECT_TRUE(model.hasChildren(root));
    EXPECT_FALSE(model.isExpandable(root));
    EXPECT_FALSE(model.hasChildren(root));
    EXPECT_TRUE(model.isExpandable({})) << "the top level must always be expandable";
    model.discardListings();
    EXPECT_FALSE(model.roots().front()->isListed());
}

} // namespace
} // namespace lyrabox
