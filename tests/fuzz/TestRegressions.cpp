#include "fuzz/targets/FuzzTargets.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <string>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::fuzz {

void require(bool holds, const char *what)
{
    EXPECT_TRUE(holds) << what;
}

void noteBehaviour(std::size_t) {}

namespace {

QByteArray content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

Bytes bytesOf(const QByteArray &data)
{
    return {reinterpret_cast<const std::uint8_t *>(data.constData()),
            static_cast<std::size_t>(data.size())};
}

class Regressions : public testing::TestWithParam<Target> {};

TEST_P(Regressions, AcceptsEveryInputThatOnceFailed)
{
    const QDir folder(QStringLiteral(LYRABOX_SOURCE_DIR "/tests/data/fuzz/") +
                      QLatin1StringView(GetParam().name));
    const QStringList inputs = folder.entryList(QDir::Files, QDir::Name);
    for (const QString &input : inputs) {
        SCOPED_TRACE(qPrintable(input));
        const QByteArray data = content(folder.filePath(input));
        EXPECT_FALSE(data.isEmpty());
        GetParam().run(bytesOf(data));
    }
}

TEST_P(Regressions, AcceptsEmptyInput)
{
    GetParam().run({});
}

TEST_P(Regressions, AcceptsNoise)
{
    QByteArray noise;
    std::uint32_t state = 1;
    for (int i = 0; i < 5000; ++i) {
        state = state * 1664525U + 1013904223U;
        noise.append(static_cast<char>(state >> 24U));
    }
    for (const qsizetype length : {1, 2, 15, 16, 17, 255, 4096, 5000})
        GetParam().run(bytesOf(noise.left(length)));
}

INSTANTIATE_TEST_SUITE_P(OfEveryReader, Regressions, testing::ValuesIn(targets()),
                         [](const auto &given) { return std::string(given.param.name); });

} // namespace
} // namespace lyrabox::fuzz
