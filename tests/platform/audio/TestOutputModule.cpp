#include "platform/audio/OutputModule.h"
#include "platform/foundation/Files.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

TEST(OutputModule, TheProgramsModuleMakesOutputAndWatcher)
{
    EXPECT_EQ(outputModule().failure(), QString());
    EXPECT_NE(outputModule().makeOutput(), nullptr);
    EXPECT_NE(outputModule().makeDefaultOutputWatcher(), nullptr);
}

TEST(OutputModule, NamesAMissingFileAndMakesNothing)
{
    const OutputModule module(u"/nowhere/lyrabox-output.so"_s);
    EXPECT_TRUE(module.failure().contains(u"/nowhere/lyrabox-output.so"_s));
    EXPECT_EQ(module.makeOutput(), nullptr);
    EXPECT_EQ(module.makeDefaultOutputWatcher(), nullptr);
}

TEST(OutputModule, RefusesAnotherKindOfModule)
{
    const OutputModule module(QDir(files::moduleDirectory()).filePath(u"lyrabox-decoding.so"_s));
    EXPECT_TRUE(module.failure().contains(QLatin1String(outputVersionName)));
    EXPECT_EQ(module.makeOutput(), nullptr);
    EXPECT_EQ(module.makeDefaultOutputWatcher(), nullptr);
}

} // namespace lyrabox
