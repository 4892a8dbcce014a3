#pragma once

#include "practice/PracticeStore.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>

namespace lyrabox::test {

/// Takes the first line of a file for its tags and the rest for its sound.
class LineReader : public SongReader {
public:
    struct Control {
        std::atomic<int> hashed = 0;
        std::atomic<bool> isHeld = false; ///< hashing waits until it is released or stopped
        std::atomic<int> stopped = 0;
        std::mutex mutex;
        std::condition_variable_any changed;

        void release()
        {
            const std::lock_guard lock(mutex);
            isHeld = false;
            changed.notify_all();
        }
    };

    explicit LineReader(Control &control) : m_control(control) {}
    Status open(const QString &, Depth) override { return status::unspecified; }
    Status fileDataFormat(AudioStreamBasicDescription &) const override
    {
        return status::unspecified;
    }
    Status setClientDataFormat(const AudioStreamBasicDescription &) override
    {
        return status::unspecified;
    }
    Status read(std::uint32_t &frames, AudioBufferList &) override
    {
        frames = 0;
        return status::unspecified;
    }
    std::optional<std::uint64_t> estimatedFrames() const override { return std::nullopt; }
    QByteArray albumArtwork() const override { return {}; }
    std::optional<QByteArray> payloadHash(const QString &path,
                                          const std::stop_token &stop) const override
    {
        ++m_control.hashed;
        std::unique_lock lock(m_control.mutex);
        if (!m_control.changed.wait(lock, stop, [this] { return !m_control.isHeld; })) {
            ++m_control.stopped;
            return std::nullopt;
        }
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return std::nullopt;
        file.readLine();
        const QByteArray sound = file.readAll();
        return QCryptographicHash::hash(sound, QCryptographicHash::Blake2b_160).toHex();
    }

private:
    Control &m_control;
};

/// A folder of songs, one of practice files, and stores that know them.
class PracticeFixture : public testing::Test {
protected:
    QString song(const QString &name, const QByteArray &tags = "tags",
                 const QByteArray &sound = "la la la") const
    {
        return written(m_folder.filePath(name), tags + '\n' + sound);
    }

    static QString written(const QString &path, const QByteArray &content)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size())
            << qPrintable(path);
        return path;
    }

    static QByteArray content(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QString practice() const { return m_folder.filePath(QStringLiteral("data/Practice")); }
    QString inPractice(const QString &name) const { return practice() + u'/' + name; }

    /// The names of the practice files and of those that were kept, without the index.
    QStringList names() const
    {
        QStringList found = QDir(practice()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
        found.removeAll(practiceIndexName);
        return found;
    }

    std::unique_ptr<PracticeStore>
    makeStore(std::chrono::milliseconds delay = std::chrono::hours(1))
    {
        return std::make_unique<PracticeStore>(
            practice(), [this] { return std::make_unique<LineReader>(m_control); }, m_runner,
            delay);
    }

    static PracticeStore::Song of(const QString &path)
    {
        return {.path = path,
                .title = QStringLiteral("Corner Shop Blues"),
                .artist = QStringLiteral("The Demo Band"),
                .frames = 441000};
    }

    /// Waits for events until the condition holds.
    static bool eventually(const std::function<bool()> &holds)
    {
        return QTest::qWaitFor(holds, 60000);
    }

    static PutLoop newLoop(const QString &name, std::uint64_t from = 1000)
    {
        return {{.name = name, .from = from, .to = from + 5000}};
    }

    static QStringList loopNames(const PracticeRecord &record)
    {
        QStringList found;
        for (const PracticeLoop &loop : record.loops)
            found.append(loop.name);
        return found;
    }

    /// Opens the song, adds a loop and saves, once the song is identified.
    void keepLoop(const QString &path, const QString &name)
    {
        const auto store = makeStore();
        store->openSong(of(path));
        ASSERT_TRUE(store->apply({newLoop(name)}));
        ASSERT_TRUE(eventually([&] { return !store->isIdentifying(); }));
        store->save();
        ASSERT_EQ(store->problem(), PracticeStore::Problem::None);
    }

    QTemporaryDir m_folder;
    LineReader::Control m_control;
    BackgroundRunner m_runner;
};

} // namespace lyrabox::test
