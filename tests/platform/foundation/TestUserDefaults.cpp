#include "platform/foundation/UserDefaults.h"

#include <QDir>
#include <QFile>

#include <gmock/gmock.h>

#include <bit>
#include <limits>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

QString defaultsPath()
{
    return QDir(qEnvironmentVariable("XDG_CONFIG_HOME")).filePath(u"Lyrabox/Lyrabox.conf"_s);
}

void writeDefaults(const QByteArray &text)
{
    QDir().mkpath(QFileInfo(defaultsPath()).path());
    userDefaults().clear();
    reopenUserDefaults();
    QFile file(defaultsPath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
    file.close();
    reopenUserDefaults();
}

QByteArray writtenDefaults()
{
    userDefaults().sync();
    QFile file(defaultsPath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class UserDefaults : public testing::Test {
protected:
    UserDefaults() { userDefaults().clear(); }
    ~UserDefaults() override { userDefaults().clear(); }
};

} // namespace

TEST_F(UserDefaults, KeysAreStoredUnchangedInTheGeneralGroup)
{
    userDefaults().setValue(defaultsKey::shuffle, true);
    userDefaults().setValue(defaultsKey::eqPreset, 7);
    setUserDefault(defaultsKey::outputVolume, 0.7F);
    const QByteArray text = writtenDefaults();
    EXPECT_TRUE(text.startsWith("[General]\n"));
    EXPECT_TRUE(text.contains("shuffle=true\n"));
    EXPECT_TRUE(text.contains("eqPreset=7\n"));
    EXPECT_TRUE(text.contains("outputVolume=0.7\n"));
}

TEST_F(UserDefaults, ValuesSurviveReopening)
{
    userDefaults().setValue(defaultsKey::folderPath, u"/music/Ä = \"b\"; %1, c"_s);
    userDefaults().setValue(defaultsKey::lastTab, 1);
    reopenUserDefaults();
    EXPECT_EQ(userDefaults().value(defaultsKey::folderPath).toString(),
              u"/music/Ä = \"b\"; %1, c"_s);
    EXPECT_EQ(userDefaults().value(defaultsKey::lastTab).toInt(), 1);
    userDefaults().remove(defaultsKey::folderPath);
    reopenUserDefaults();
    EXPECT_FALSE(userDefaults().contains(defaultsKey::folderPath));
}

TEST_F(UserDefaults, AFloatReadsBackAsTheSameFloat)
{
    for (const float value : {0.0F, 1.0F, 0.1F, 0.7F, 1e-45F, 3.4028235e38F, -0.333333343F}) {
        setUserDefault(defaultsKey::outputVolume, value);
        reopenUserDefaults();
        EXPECT_EQ(
            std::bit_cast<std::uint32_t>(userDefaults().value(defaultsKey::outputVolume).toFloat()),
            std::bit_cast<std::uint32_t>(value));
    }
}

TEST_F(UserDefaults, AMalformedFileCountsAsEmptyAndIsReplaced)
{
    writeDefaults("\0\xFF[[]\nnonsense\n=\n[General\nshuffle"_ba);
    EXPECT_FALSE(userDefaults().value(defaultsKey::shuffle).toBool());
    userDefaults().setValue(defaultsKey::shuffle, true);
    reopenUserDefaults();
    EXPECT_TRUE(userDefaults().value(defaultsKey::shuffle).toBool());
}

TEST_F(UserDefaults, ReopeningFollowsTheEnvironment)
{
    const QByteArray config = qgetenv("XDG_CONFIG_HOME");
    userDefaults().setValue(defaultsKey::shuffle, true);
    qputenv("XDG_CONFIG_HOME", config + "/other");
    EXPECT_TRUE(userDefaults().value(defaultsKey::shuffle).toBool())
        << "the old file must stay open";
    reopenUserDefaults();
    EXPECT_FALSE(userDefaults().contains(defaultsKey::shuffle));
    qputenv("XDG_CONFIG_HOME", config);
    reopenUserDefaults();
    EXPECT_TRUE(userDefaults().value(defaultsKey::shuffle).toBool());
}
