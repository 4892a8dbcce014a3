#include "WholeProgram.h"
#include "app/shell/BuildSettings.h"

#include <QNetworkProxyFactory>
#include <QTest>
#include <QUrl>

#include <mutex>

using namespace Qt::Literals::StringLiterals;
using lyrabox::test::WholeProgram;

namespace {

/// Notes every address that the program wants to reach, and lets it reach none.
class NoWayOut : public QNetworkProxyFactory {
public:
    static bool wasAskedFor(const QUrl &url)
    {
        const std::scoped_lock lock(mutex);
        return asked.contains(url);
    }
    static qsizetype count()
    {
        const std::scoped_lock lock(mutex);
        return asked.size();
    }
    static void forget()
    {
        const std::scoped_lock lock(mutex);
        asked.clear();
    }

    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery &query) override
    {
        const std::scoped_lock lock(mutex);
        asked.append(query.url());
        return {QNetworkProxy(QNetworkProxy::HttpProxy, u"127.0.0.1"_s, 9)};
    }

private:
    static inline std::mutex mutex;
    static inline QList<QUrl> asked;
};

class UpdateCheck : public testing::Test {
protected:
    UpdateCheck()
    {
        NoWayOut::forget();
        QNetworkProxyFactory::setApplicationProxyFactory(new NoWayOut); // takes it over
    }
    ~UpdateCheck() override { QNetworkProxyFactory::setApplicationProxyFactory(nullptr); }
};

TEST_F(UpdateCheck, TheFeedIsAskedAfterTheFirstPictureWithoutAnybodysAsking)
{
    const WholeProgram program;
    EXPECT_EQ(NoWayOut::count(), 0);
    program.composition->launch();
    EXPECT_EQ(NoWayOut::count(), 0) << "the windows come first";
    EXPECT_TRUE(QTest::qWaitFor(
        [] { return NoWayOut::wasAskedFor(QUrl(lyrabox::updateFeedAddress())); }, 20'000));
}

} // namespace
