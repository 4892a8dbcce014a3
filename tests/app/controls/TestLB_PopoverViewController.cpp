#include "app/controls/LB_PopoverViewController.h"

#include "ui_RemovePopover.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Like the classes that the interface compiler generates.
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

TEST(LB_PopoverViewController, ALongNameIsShortenedAndTheToolTipHasTheWholeName)
{
    const QString question = u"Remove preset '%1'?"_s;
    for (const QString &name : {QString(180, u'W'), u"Long words "_s.repeated(16), u"Jazz"_s}) {
        const std::unique_ptr<LB_PopoverViewController> controller(
            LB_PopoverViewController::load<Ui::RemovePopover>());
        const std::unique_ptr<QWidget> view(controller->view());
        const QSize size = view->size();
        controller->askAbout(question, name);
        view->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(view.get()));
        const QLabel *message = controller->messageField();
        const QRect text = message->fontMetrics().boundingRect(
            QRect(0, 0, message->width(), 10'000), Qt::TextWordWrap, message->text());
        EXPECT_LE(text.width(), message->width()) << message->text().toStdString();
        EXPECT_LE(text.height(), message->height()) << message->text().toStdString();
        EXPECT_EQ(view->width(), size.width());
        EXPECT_EQ(message->accessibleName(), question.arg(name));
        const bool shortened = message->text() != question.arg(name);
        EXPECT_EQ(shortened, name.size() > 20);
        EXPECT_EQ(message->toolTip().contains(name), shortened);
    }
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
