#include "platform/audio/TimePitch.h"
#include "support/SoundSource.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <thread>
#include <vector>

namespace {

// Counts the rendering thread's allocations and releases during rendering. The library uses the C
// functions, and the C++ operators call them, too.
thread_local bool countsAllocations = false;
thread_local int allocations = 0;

} // namespace

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || !defined(__GLIBC__)
constexpr bool seesAllocations = false; // the sanitizer has its own allocator
#else
constexpr bool seesAllocations = true;

extern "C" {
void *__libc_malloc(std::size_t);
void *__libc_calloc(std::size_t, std::size_t);
void *__libc_realloc(void *, std::size_t);
void *__libc_memalign(std::size_t, std::size_t);
void __libc_free(void *);

void *malloc(std::size_t size)
{
    allocations += countsAllocations ? 1 : 0;
    return __libc_malloc(size);
}

void *calloc(std::size_t count, std::size_t size)
{
    allocations += countsAllocations ? 1 : 0;
    return __libc_calloc(count, size);
}

void *realloc(void *memory, std::size_t size)
{
    allocations += countsAllocations ? 1 : 0;
    return __libc_realloc(memory, size);
}

int posix_memalign(void **memory, std::size_t alignment, std::size_t size)
{
    allocations += countsAllocations ? 1 : 0;
    *memory = __libc_memalign(alignment, size);
    return *memory == nullptr ? ENOMEM : 0;
}

void *aligned_alloc(std::size_t alignment, std::size_t size)
{
    allocations += countsAllocations ? 1 : 0;
    return __libc_memalign(alignment, size);
}

void free(void *memory)
{
    allocations += countsAllocations && memory != nullptr ? 1 : 0;
    __libc_free(memory);
}
}
#endif

namespace lyrabox {
namespace {

/// A song whose samples all differ, so that a sample shows its place.
float songLeft(std::int64_t frame)
{
    return static_cast<float>(0.4 * std::sin(0.05 * static_cast<double>(frame)) +
                              0.1 * std::sin(0.31 * static_cast<double>(frame)));
}
float songRight(std::int64_t frame)
{
    return static_cast<float>(0.5 * std::sin(0.021 * static_cast<double>(frame) + 1.0));
}

class Song final : public test::SoundSource {
public:
    void render(std::uint32_t frames, AudioBufferList &ioData) noexcept override
    {
        onlySlices = onlySlices && frames == TimePitchUnit::sliceFrames &&
                     ioData.mNumberBuffers == 2 && ioData.mBuffers[0].mDataByteSize == frames * 4;
        if (silent)
            return;
        for (std::uint32_t i = 0; i < frames; ++i, ++position) {
            static_cast<float *>(ioData.mBuffers[0].mData)[i] = songLeft(position);
            static_cast<float *>(ioData.mBuffers[1].mData)[i] = songRight(position);
        }
    }

    std::int64_t position = 0;
    bool onlySlices = true;
    bool silent = false;
};

class TimePitchTest : public testing::Test {
protected:
    TimePitchTest()
    {
        EXPECT_EQ(stage.initialize(), status::noError);
        EXPECT_EQ(stage.connect(&song), status::noError);
    }

    void set(float rate, float cents)
    {
        EXPECT_EQ(stage.setParameter(parameter::rate, rate), status::noError);
        EXPECT_EQ(stage.setParameter(parameter::pitch, cents), status::noError);
    }

    void pull(std::uint32_t frames)
    {
        left.assign(frames + 1, marker);
        right.assign(frames + 1, marker);
        AudioBufferList list;
        list.mNumberBuffers = 2;
        list.mBuffers[0] = {1, frames * 4, left.data()};
        list.mBuffers[1] = {1, frames * 4, right.data()};
        countsAllocations = true;
        stage.render(frames, list);
        countsAllocations = false;
    }

    void expectSongFrom(std::int64_t frame)
    {
        for (std::size_t i = 0; i + 1 < left.size(); ++i) {
            ASSERT_EQ(left[i], songLeft(frame + static_cast<std::int64_t>(i))) << "frame " << i;
            ASSERT_EQ(right[i], songRight(frame + static_cast<std::int64_t>(i))) << "frame " << i;
        }
    }

    double heardPosition() const
    {
        return static_cast<double>(song.position) - stage.latencyFrames();
    }

    static constexpr float marker = 7.0F;
    Song song;
    TimePitch stage;
    std::vector<float> left;
    std::vector<float> right;
};

TEST_F(TimePitchTest, StartsAtNormalSpeedAndPitch)
{
    EXPECT_EQ(stage.parameter(parameter::rate), 1.0F);
    EXPECT_EQ(stage.parameter(parameter::pitch), 0.0F);
}

TEST_F(TimePitchTest, ReadsParametersBackAsSet)
{
    set(0.5F, 150.7F);
    EXPECT_EQ(stage.parameter(parameter::rate), 0.5F);
    EXPECT_EQ(stage.parameter(parameter::pitch), 150.7F);
    set(3.0F, -9000.0F);
    EXPECT_EQ(stage.parameter(parameter::rate), 3.0F);
    EXPECT_EQ(stage.parameter(parameter::pitch), -9000.0F);
}

TEST_F(TimePitchTest, RefusesUnknownParametersAndValuesThatAreNotFinite)
{
    EXPECT_EQ(stage.parameter(2), 0.0F);
    EXPECT_EQ(stage.setParameter(2, 1.0F), status::invalidParameter);
    EXPECT_EQ(stage.setParameter(parameter::rate, std::numeric_limits<float>::quiet_NaN()),
              status::invalidParameter);
    EXPECT_EQ(stage.setParameter(parameter::pitch, std::numeric_limits<float>::infinity()),
              status::invalidParameter);
    EXPECT_EQ(stage.parameter(parameter::rate), 1.0F);
    EXPECT_EQ(stage.parameter(parameter::pitch), 0.0F);
}

TEST_F(TimePitchTest, RefusesANullSource)
{
    EXPECT_EQ(stage.connect(nullptr), status::noConnection);
}

TEST(TimePitch, IsSilentBeforeItIsInitializedAndConnected)
{
    TimePitch stage;
    std::vector<float> left(64, 1.0F);
    std::vector<float> right(64, 1.0F);
    AudioBufferList list;
    list.mNumberBuffers = 2;
    list.mBuffers[0] = {1, 256, left.data()};
    list.mBuffers[1] = {1, 256, right.data()};
    stage.render(64, list);
    EXPECT_EQ(left, std::vector<float>(64, 0.0F));
    EXPECT_EQ(right, std::vector<float>(64, 0.0F));
}

TEST_F(TimePitchTest, PassesTheSourceBitForBitInRequestsOfAnySize)
{
    std::int64_t frame = 0;
    for (const std::uint32_t frames : {1U, 127U, 128U, 129U, 1024U, 513U, 8192U, 20000U}) {
        pull(frames);
        expectSongFrom(frame);
        frame += frames;
    }
    EXPECT_TRUE(song.onlySlices);
    EXPECT_LT(song.position - frame, 128);
}

TEST_F(TimePitchTest, DeliversTheRequestedFramesAtEverySetting)
{
    for (const float rate : {0.1F, 0.75F, 2.0F}) {
        for (const float cents : {-2400.0F, 0.0F, 2400.0F}) {
            set(rate, cents);
            stage.reset();
            for (const std::uint32_t frames : {0U, 1U, 500U, 1024U, 3000U}) {
                pull(frames);
                EXPECT_EQ(left.back(), marker);
                EXPECT_EQ(right.back(), marker);
                EXPECT_EQ(std::count(left.begin(), left.end() - 1, marker), 0);
                EXPECT_TRUE(std::all_of(left.begin(), left.end(),
                                        [](float sample) { return std::isfinite(sample); }));
            }
        }
    }
    EXPECT_TRUE(song.onlySlices);
}

TEST_F(TimePitchTest, ClampsTheSoundToItsRanges)
{
    set(50.0F, 0.0F);
    pull(8192);
    pull(8192);
    const double before = heardPosition();
    pull(44100);
    EXPECT_NEAR(heardPosition() - before, 2.0 * 44100, 1024.0);

    set(-1.0F, 0.0F);
    pull(8192);
    const double beforeSlow = heardPosition();
    pull(44100);
    EXPECT_NEAR(heardPosition() - beforeSlow, 4410.0, 256.0);
}

TEST_F(TimePitchTest, HasNoLatencyWhenNothingIsChanged)
{
    pull(1024);
    EXPECT_EQ(stage.latencyFrames(), 0.0);
}

TEST_F(TimePitchTest, KnowsTheHeardFrameRightAfterAReset)
{
    for (const float rate : {0.5F, 0.75F, 1.25F, 2.0F}) {
        for (const float cents : {0.0F, 300.0F, -300.0F}) {
            set(rate, cents);
            song.position = 100000;
            stage.reset();
            EXPECT_EQ(stage.latencyFrames(), 0.0);
            pull(1024);
            EXPECT_NEAR(heardPosition(), 100000.0 + 1024.0 * static_cast<double>(rate), 80.0)
                << rate << " " << cents;
        }
    }
}

TEST_F(TimePitchTest, PlaysTheNewPositionInTheFirstBufferAfterAReset)
{
    for (const float rate : {0.5F, 1.0F, 1.25F, 2.0F}) {
        set(rate, 0.0F);
        pull(4096);
        song.position = 300000;
        stage.reset();
        pull(1024);
        double energy = 0.0;
        for (std::size_t i = 512; i < 1024; ++i)
            energy += static_cast<double>(left[i]) * static_cast<double>(left[i]);
        // Half the sum of the squared amplitudes, 0.4 and 0.1.
        EXPECT_NEAR(energy / 512.0, 0.085, 0.04) << rate;
    }
}

TEST_F(TimePitchTest, StartsWithoutDelayAfterAResetAtNormalSpeed)
{
    set(0.5F, 0.0F);
    pull(5000);
    set(1.0F, 0.0F);
    song.position = 5;
    stage.reset();
    pull(1000);
    expectSongFrom(5);
}

TEST_F(TimePitchTest, KeepsItsParametersThroughAReset)
{
    set(0.5F, 100.0F);
    stage.reset();
    pull(128);
    EXPECT_EQ(stage.parameter(parameter::rate), 0.5F);
    EXPECT_EQ(stage.parameter(parameter::pitch), 100.0F);
}

TEST_F(TimePitchTest, ReturnsToTheSourceBitForBitAtTheStretchersPosition)
{
    pull(1000);
    set(0.75F, 200.0F);
    pull(44100);
    const double before = heardPosition();
    set(1.0F, 0.0F);
    pull(44100);
    const double after = heardPosition();
    // After the change has passed through the stretcher, the output consists of the song's frames.
    EXPECT_NEAR(after - before, 44100.0, 3000.0);
    EXPECT_EQ(after, std::floor(after));
    pull(44100);
    expectSongFrom(static_cast<std::int64_t>(after));
    EXPECT_EQ(heardPosition(), after + 44100.0);
    pull(44100);
    EXPECT_LT(stage.latencyFrames(), 128.0);
}

TEST_F(TimePitchTest, PlaysSilenceForAnEmptySource)
{
    song.silent = true;
    pull(1024);
    EXPECT_EQ(*std::max_element(left.begin(), left.end() - 1), 0.0F);
}

TEST_F(TimePitchTest, AnotherThreadMaySetParametersAndResetDuringRendering)
{
    std::atomic<bool> done{false};
    std::thread control([this, &done] {
        for (int i = 0; i < 200; ++i) {
            stage.setParameter(parameter::rate, 0.5F + 0.01F * static_cast<float>(i % 100));
            stage.setParameter(parameter::pitch, static_cast<float>(i - 100));
            if (i % 20 == 0)
                stage.reset();
            EXPECT_TRUE(std::isfinite(stage.latencyFrames()));
            std::this_thread::yield();
        }
        done.store(true);
    });
    while (!done.load()) {
        pull(256);
        ASSERT_TRUE(std::all_of(left.begin(), left.end(),
                                [](float sample) { return std::isfinite(sample); }));
    }
    control.join();
    EXPECT_EQ(stage.parameter(parameter::pitch), 99.0F);
}

TEST_F(TimePitchTest, AllocatesNothingWhileItRenders)
{
    if (!seesAllocations)
        GTEST_SKIP() << "the sanitizer has its own allocator";
    const auto probe = [] {
        countsAllocations = true;
        void *volatile memory = std::malloc(16); // volatile, or the compiler removes the pair
        std::free(memory);
        countsAllocations = false;
    };
    allocations = 0;
    probe();
    ASSERT_GT(allocations, 0) << "allocations are not counted";

    allocations = 0;
    std::uint32_t state = 1;
    const auto random = [&state](int count) {
        state = state * 1664525U + 1013904223U;
        return static_cast<int>((state >> 8U) % static_cast<std::uint32_t>(count));
    };
    for (int i = 0; i < 500; ++i) {
        const bool unchanged = random(6) == 0;
        set(unchanged ? 1.0F : 0.1F + 0.01F * static_cast<float>(random(191)),
            unchanged ? 0.0F : static_cast<float>(random(4801) - 2400));
        if (random(4) == 0)
            stage.reset();
        pull(static_cast<std::uint32_t>(1 + random(700)));
        ASSERT_EQ(allocations, 0) << "step " << i << ", rate " << stage.parameter(parameter::rate)
                                  << ", cents " << stage.parameter(parameter::pitch);
    }
}

} // namespace
} // namespace lyrabox
