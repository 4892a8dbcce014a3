#include "app/shell/UpdateDialog.h"

#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

const QString markup = u"<a href=\"http://example.com\">click</a> & <b>more</b>"_s;

template <typename Widget>
Widget *shownDialog(QWidget &parent)
{
    return parent.findChild<Widget *>();
}

TEST(UpdateDialog, ServerMessagesArePlainText)
{
    QWidget parent;
    updateDialogs(&parent, {}).showMessage(u"<i>no</i>"_s, markup);
    auto *const box = shownDialog<QMessageBox>(parent);
    ASSERT_TRUE(box);
    EXPECT_EQ(box->informativeText(), markup);
    int texts = 0;
    for (const QLabel *label : box->findChildren<QLabel *>()) {
        if (label->text().isEmpty())
            continue;
        EXPECT_EQ(label->textFormat(), Qt::PlainText) << qPrintable(label->text());
        ++texts;
    }
    EXPECT_EQ(texts, 2);
}

TEST(UpdateDialog, FeedTextsArePlainText)
{
    QWidget parent;
    AppcastItem item;
    item.version = u"2<b>0</b>"_s;
    item.notes = markup;
    updateDialogs(&parent, {}).showUpdate(item);
    auto *const dialog = shownDialog<QDialog>(parent);
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->findChild<QPlainTextEdit *>()->toPlainText(), markup);
    EXPECT_EQ(dialog->findChild<QLabel *>()->textFormat(), Qt::PlainText);
}

} // namespace
