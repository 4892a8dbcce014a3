#include "WholeProgram.h"
#include "navigation/LB_NavigationView.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::Literals::StringLiterals;
using namespace lyrabox;
using test::WholeProgram;

namespace {

/// Records which widgets are painted.
struct PaintWatch : QObject {
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && watched->isWidgetType())
            painted << watched->objectName() + u'/' +
                           QLatin1String(watched->metaObject()->className());
        return false;
    }
    QStringList painted;
};

TEST(IdleProgram, PaintsNothingAfterItsFirstPicture)
{
    WholeProgram program;
    program.composition->launch();
    QMainWindow *window = WholeProgram::window(u"MainWindow"_s);
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    QCoreApplication::processEvents();
    PaintWatch watch;
    qApp->installEventFilter(&watch);
    // The navigation bar polls the player four times a second.
    QSignalSpy ticks(window->findChild<LB_NavigationView *>()->refreshTimer(), &QTimer::timeout);
    while (ticks.count() < 4)
        ASSERT_TRUE(ticks.wait());
    qApp->removeEventFilter(&watch);
    EXPECT_EQ(watch.painted.join(u' ').toStdString(), "");
}

} // namespace
