#include "WholeProgram.h"
#include "app/shell/BuildSettings.h"

#include <QNetworkProxyFactory>
#include <QTest>
#include <QUrl>

#include <mutex>

using namespace Qt::Literals::StringLiterals;
using lyrabox::test::WholeProgram;

namespace {

/// Records every address that the program wants to reach, and blocks all of them.
class BlockedNetwork : public QNetworkProxyFactory {
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
        BlockedNetwork::forget();
        QNetworkProxyFactory::setApplicationProxyFactory(new BlockedNetwork); // takes ownership
    }
    ~UpdateCheck() override { QNetworkProxyFactory::setApplicationProxyFactory(nullptr); }
};

TEST_F(UpdateCheck, TheFeedIsRequestedAfterTheFirstPicture)
{
    const WholeProgram program;
    EXPECT_EQ(BlockedNetwork::count(), 0);
    program.composition->launch();
    EXPECT_EQ(BlockedNetwork::count(), 0) << "no request before the windows are shown";
    EXPECT_TRUE(QTest::qWaitFor(
        [] { return BlockedNetwork::wasAskedFor(QUrl(lyrabox::updateFeedAddress())); }, 20'000));
}

} // namespace
