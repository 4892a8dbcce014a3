#include "app/controls/LB_PopoverViewController.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

/// As the interface compiler makes them.
struct FullInterface {
    void setupUi(QWidget *view) const
    {
        view->resize(200, 80);
        (new QLineEdit(view))->setObjectName(u"inputField"_s);
        (new QLabel(view))->setObjectName(u"messageField"_s);
        (new QPushButton(view))->setObjectName(u"okButton"_s);
    }
};
struct EmptyInterface {
    void setupUi(QWidget *) const {}
};

TEST(LB_PopoverViewController, OutletsAreTheWidgetsOfTheirNames)
{
    const std::unique_ptr<LB_PopoverViewController> controller(
        LB_PopoverViewController::load<FullInterface>());
    const std::unique_ptr<QWidget> view(controller->view());
    ASSERT_NE(controller->inputField(), nullptr);
    ASSERT_NE(controller->messageField(), nullptr);
    ASSERT_NE(controller->okButton(), nullptr);
    EXPECT_EQ(controller->okButton()->parentWidget(), view.get());
    EXPECT_EQ(view->size(), QSize(200, 80));
}

TEST(LB_PopoverViewController, OutletsThatTheInterfaceLacksAreNull)
{
    const std::unique_ptr<LB_PopoverViewController> controller(
        LB_PopoverViewController::load<EmptyInterface>());
    const std::unique_ptr<QWidget> view(controller->view());
    EXPECT_EQ(controller->inputField(), nullptr);
    EXPECT_EQ(controller->messageField(), nullptr);
    EXPECT_EQ(controller->okButton(), nullptr);
}

TEST(LB_PopoverViewController, EachLoadBuildsAFreshView)
{
    const std::unique_ptr<LB_PopoverViewController> first(
        LB_PopoverViewController::load<FullInterface>());
    const std::unique_ptr<LB_PopoverViewController> second(
        LB_PopoverViewController::load<FullInterface>());
    const std::unique_ptr<QWidget> firstView(first->view());
    const std::unique_ptr<QWidget> secondView(second->view());
    EXPECT_NE(firstView, secondView);
}

TEST(LB_PopoverViewController, MessageIsPlainText)
{
    const std::unique_ptr<LB_PopoverViewController> controller(
        LB_PopoverViewController::load<FullInterface>());
    const std::unique_ptr<QWidget> view(controller->view());
    EXPECT_EQ(controller->messageField()->textFormat(), Qt::PlainText);
}

TEST(LB_PopoverViewController, OutlivesItsView)
{
    const std::unique_ptr<LB_PopoverViewController> controller(
        LB_PopoverViewController::load<FullInterface>());
    delete controller->view();
    EXPECT_EQ(controller->view(), nullptr);
    EXPECT_EQ(controller->okButton(), nullptr);
}

} // namespace
