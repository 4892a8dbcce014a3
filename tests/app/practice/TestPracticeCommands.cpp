#include "app/practice/PracticeCommands.h"

#include <gtest/gtest.h>

#include <QSet>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

TEST(PracticeCommands, StandInTheHelpInShortLines)
{
    QStringList lines;
    for (const PracticeKeyLine &line : practiceKeyLines())
        lines.append(line.keys + u": "_s + line.what);
    for (const QString &line :
         {u"K: Keep Loop"_s, u"1 … 9: Play Loop"_s, u"N, P: Next Loop, Previous Loop"_s,
          u"A, S: Move Start by 10 ms (with Alt 1 ms, with Shift a beat)"_s,
          u"U, Shift+U: Second Half, Twice as Long"_s, u"T: Tap Beat"_s,
          u"Ctrl+Z, Ctrl+Shift+Z: Undo, Redo"_s})
        EXPECT_TRUE(lines.contains(line)) << line.toStdString();
    EXPECT_LE(lines.size(), 25) << "the list of keys must fit on a screen";
}

TEST(PracticeCommands, OfASubmenuStandTogether)
{
    QStringList submenus;
    for (const PracticeCommandEntry &entry : practiceCommands()) {
        if (submenus.isEmpty() || submenus.last() != entry.submenu)
            submenus.append(entry.submenu);
    }
    submenus.removeAll(QString());
    EXPECT_EQ(submenus.removeDuplicates(), 0);
    EXPECT_GE(submenus.size(), 7);
}

TEST(PracticeCommands, AreToldApartByTheirArguments)
{
    QSet<std::pair<int, int>> found;
    for (const PracticeCommandEntry &entry : practiceCommands()) {
        const std::pair<int, int> key{static_cast<int>(entry.command), entry.argument};
        EXPECT_FALSE(found.contains(key)) << entry.text.toStdString();
        found.insert(key);
    }
}

TEST(PracticeCommands, WithKeysOfListsWorkOnlyInThePane)
{
    for (const PracticeCommandEntry &entry : practiceCommands()) {
        const bool isOfLists = entry.keys.contains(QKeySequence(Qt::Key_Return)) ||
                               entry.keys.contains(QKeySequence(Qt::Key_Delete));
        EXPECT_EQ(entry.reach == PracticeCommandEntry::Reach::Pane, isOfLists)
            << entry.text.toStdString();
    }
}

} // namespace
