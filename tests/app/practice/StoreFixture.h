#pragma once

#include "practice/PracticeStore.h"
#include "practice/SongTime.h"
#include "support/FakeSong.h"

#include <QString>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>

namespace lyrabox::test {

/// A store with an open song and without files.
struct StoreFixture {
    StoreFixture()
    {
        store.openSong({.path = QStringLiteral("/songs/A.wav"), .title = {}, .artist = {}});
    }

    static std::uint64_t frames(double seconds)
    {
        return static_cast<std::uint64_t>(std::llround(seconds * practiceRate));
    }

    PracticeId addLoop(const QString &name, double from, double to)
    {
        PracticeLoop loop{.name = name, .from = frames(from), .to = frames(to)};
        EXPECT_TRUE(store.apply({PutLoop{loop}}));
        return loop.id;
    }

    PracticeId addMarker(const QString &name, double at)
    {
        PracticeMarker marker{.at = frames(at), .name = name};
        EXPECT_TRUE(store.apply({PutMarker{marker}}));
        return marker.id;
    }

    void change(PracticeId id, const std::function<void(PracticeLoop &)> &change)
    {
        PracticeLoop loop = *store.record().loop(id);
        change(loop);
        EXPECT_TRUE(store.apply({PutLoop{loop}}));
    }

    BackgroundRunner runner;
    PracticeStore store{QString(), fakeSongReaderFactory(std::make_shared<FakeSong>()), runner};
};

} // namespace lyrabox::test
