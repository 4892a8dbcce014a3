#pragma once

#include "EngineFixture.h"
#include "engine/ReadySongs.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <memory>
#include <semaphore>

namespace lyrabox::test {

/// Stops the decoding of one file at a frame until the test lets it go on.
class Gate {
public:
    Gate(FakeSong &song, QString path, std::uint64_t frame = 0)
    {
        song.onAccess = [state = m_state, path = std::move(path), frame](const QString &accessed,
                                                                         std::uint64_t at) {
            if (accessed != path || at < frame || state->othersPass)
                return;
            state->arrived.release();
            state->opened.acquire();
            state->opened.release();
        };
    }

    /// Waits until the decoding has arrived.
    void awaitArrival() { m_state->arrived.acquire(); }
    void open() { m_state->opened.release(); }
    /// Decodings that have not arrived yet are not stopped any more.
    void letOthersPass() { m_state->othersPass = true; }

private:
    /// Shared, because a thread that was abandoned at the gate may outlive the test's own object.
    struct State {
        std::counting_semaphore<> arrived{0};
        std::counting_semaphore<> opened{0};
        std::atomic<bool> othersPass{false};
    };
    std::shared_ptr<State> m_state = std::make_shared<State>();
};

/// The engine on a fake chain, with songs that are decoded in advance. Files exist, but what they
/// "decode" to is the fake song.
class ReadySongsFixture : public EngineFixture {
protected:
    using Work = engine::ReadySongs::Work;

    ReadySongsFixture()
    {
        EXPECT_EQ(engine::buildAudioSystem(), 0);
        engine::setAvailableMemoryProbe([this] { return available.load(); });
        song->frames = 20000;
        ready = std::make_unique<engine::ReadySongs>();
    }

    ~ReadySongsFixture() override
    {
        ready.reset();
        awaitReaders();
    }

    QString path(const QString &name) const { return folder.filePath(name); }

    /// A file of that name. Its content says nothing.
    QUrl file(const QString &name, const QByteArray &content = "content") const
    {
        QFile made(path(name));
        EXPECT_TRUE(made.open(QIODevice::WriteOnly));
        made.write(content);
        return QUrl::fromLocalFile(path(name));
    }

    /// Asks for these songs and waits until the decoding of the last one has ended.
    void want(const QList<QUrl> &songs)
    {
        QSignalSpy ended(ready.get(), &engine::ReadySongs::ended);
        ready->setWanted(songs, Work::Begin);
        while (ended.isEmpty() || ended.last().front().toUrl() != songs.last())
            ASSERT_TRUE(ended.wait(30'000));
    }

    std::vector<std::string> calls()
    {
        const std::lock_guard lock(song->mutex);
        return song->calls;
    }

    void clearCalls()
    {
        const std::lock_guard lock(song->mutex);
        song->calls.clear();
    }

    /// Waits until every reader is gone, also those of threads that were abandoned.
    void awaitReaders()
    {
        EXPECT_TRUE(QTest::qWaitFor(
            [this] {
                const std::lock_guard lock(song->mutex);
                return song->readersAlive == 0;
            },
            30'000));
    }

    QTemporaryDir folder;
    std::atomic<std::uint64_t> available{std::uint64_t{1} << 40};
    std::unique_ptr<engine::ReadySongs> ready;
};

} // namespace lyrabox::test
