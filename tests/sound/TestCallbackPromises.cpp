// The audio callback thread does not allocate, lock or make system calls. The whole chain plays
// while all settings change.

#include "engine/ClicksAndLeadIns.h"
#include "engine/SongChannels.h"
#include "platform/audio/ClickTable.h"
#include "sound/Player.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <random>
#include <vector>

#if defined(__linux__)
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || !defined(__GLIBC__)
#define LYRABOX_WATCHES_CALLS 0 // a sanitizer has its own allocator and locks
#else
#define LYRABOX_WATCHES_CALLS 1
#endif

namespace {

thread_local constinit bool inCallback = false;
thread_local constinit int allocations = 0;
thread_local constinit int locks = 0;

} // namespace

#if LYRABOX_WATCHES_CALLS

#include <dlfcn.h>
#include <pthread.h>
#include <semaphore.h>

namespace {

void noteAllocation() noexcept
{
    allocations += inCallback ? 1 : 0;
}

void noteLock() noexcept
{
    locks += inCallback ? 1 : 0;
}

/// The C library's function of that name.
template <typename Function>
Function *next(const char *name) noexcept
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

} // namespace

// These replace the C library's functions in this program and in every library that it loads.
extern "C" {
void *__libc_malloc(std::size_t);
void *__libc_calloc(std::size_t, std::size_t);
void *__libc_realloc(void *, std::size_t);
void *__libc_memalign(std::size_t, std::size_t);
void __libc_free(void *);

void *malloc(std::size_t size)
{
    noteAllocation();
    return __libc_malloc(size);
}

void *calloc(std::size_t count, std::size_t size)
{
    noteAllocation();
    return __libc_calloc(count, size);
}

void *realloc(void *memory, std::size_t size)
{
    noteAllocation();
    return __libc_realloc(memory, size);
}

int posix_memalign(void **memory, std::size_t alignment, std::size_t size)
{
    noteAllocation();
    *memory = __libc_memalign(alignment, size);
    return *memory == nullptr ? ENOMEM : 0;
}

void *aligned_alloc(std::size_t alignment, std::size_t size)
{
    noteAllocation();
    return __libc_memalign(alignment, size);
}

void free(void *memory)
{
    noteAllocation();
    __libc_free(memory);
}

int pthread_mutex_lock(pthread_mutex_t *mutex)
{
    static auto *const real = next<int(pthread_mutex_t *)>("pthread_mutex_lock");
    noteLock();
    return real(mutex);
}

int pthread_mutex_trylock(pthread_mutex_t *mutex)
{
    static auto *const real = next<int(pthread_mutex_t *)>("pthread_mutex_trylock");
    noteLock();
    return real(mutex);
}

int pthread_rwlock_rdlock(pthread_rwlock_t *lock)
{
    static auto *const real = next<int(pthread_rwlock_t *)>("pthread_rwlock_rdlock");
    noteLock();
    return real(lock);
}

int pthread_rwlock_wrlock(pthread_rwlock_t *lock)
{
    static auto *const real = next<int(pthread_rwlock_t *)>("pthread_rwlock_wrlock");
    noteLock();
    return real(lock);
}

int sem_wait(sem_t *semaphore)
{
    static auto *const real = next<int(sem_t *)>("sem_wait");
    noteLock();
    return real(semaphore);
}
}

#endif

using namespace lyrabox;
using namespace lyrabox::test;

namespace {

/// An impatient listener: seeks, loops, stops, starts, moves every control, and plays to the end.
class RandomListener {
public:
    static constexpr std::uint64_t songFrames = 400'000;

    explicit RandomListener(unsigned seed) : m_random(seed)
    {
        std::vector<SongBeat> beats;
        for (std::uint64_t frame = 0; frame < songFrames; frame += 3000)
            beats.push_back(
                {.frame = frame, .beat = static_cast<std::uint8_t>(1 + beats.size() % 4)});
        m_clicks = clickTable(beats, {.subdivision = 2, .barsOn = 2, .barsOff = 1});
    }

    void act()
    {
        switch (upTo(11)) {
        case 0:
            engine::seekToFrame(upTo(songFrames));
            break;
        case 1:
            engine::setPlaybackRate(upTo(3) == 0 ? 1.0F
                                                 : 0.1F + 0.1F * static_cast<float>(upTo(19)));
            break;
        case 2:
            engine::setPitchCents(upTo(3) == 0 ? 0.0F : static_cast<float>(upTo(4800)) - 2400.0F);
            break;
        case 3:
            engine::setEqLevel(static_cast<std::uint32_t>(2 + 3 * upTo(9)),
                               static_cast<float>(upTo(24)) - 12.0F);
            break;
        case 4:
            engine::setOutputVolume(static_cast<float>(upTo(100)) / 100.0F);
            break;
        case 5: {
            const std::uint64_t start = upTo(songFrames);
            engine::setLoopStartFrame(start);
            engine::setLoopEndFrame(start + 2205 + upTo(20'000));
            engine::setIsLooping(upTo(2) != 0);
            break;
        }
        case 6:
            engine::setOutputRunning(false);
            break;
        case 7:
            changeClicks();
            break;
        case 8:
            engine::seekToFrame(songFrames - upTo(20'000)); // plays to the end
            engine::setIsLooping(false);
            break;
        case 9:
            changeChannels();
            break;
        default:
            engine::setOutputRunning(true);
            break;
        }
        if (upTo(2) == 0)
            engine::setOutputRunning(true);
    }

    std::uint32_t callbackFrames() { return static_cast<std::uint32_t>(64 + upTo(960)); }

private:
    void changeClicks()
    {
        engine::setClicks(upTo(3) == 0 ? nullptr : m_clicks);
        engine::setClickSound({.loudness = 0.1F, .timbre = static_cast<ClickTimbre>(upTo(2))});
        LeadIn leadIn{.frames = static_cast<std::uint32_t>(upTo(5000)), .clickCount = 1};
        leadIn.clicks[0] = {.frame = leadIn.frames / 2, .kind = ClickKind::Accent};
        engine::setLeadInAtWrap(upTo(1) == 0 ? LeadIn{} : leadIn);
        engine::setLeadInAtStart(upTo(1) == 0 ? LeadIn{} : leadIn);
    }

    void changeChannels()
    {
        engine::setChannelTools({.mode = static_cast<ChannelMode>(upTo(4)),
                                 .balance = static_cast<int>(upTo(200)) - 100,
                                 .centre = upTo(3) == 0 ? 0 : static_cast<int>(upTo(200)) - 100,
                                 .centreFrom = static_cast<int>(upTo(400))});
    }

    std::uint64_t upTo(std::uint64_t most)
    {
        return std::uniform_int_distribution<std::uint64_t>(0, most)(m_random);
    }

    std::mt19937 m_random;
    std::shared_ptr<const ClickTable> m_clicks;
};

float song(std::uint32_t channel, std::uint64_t frame)
{
    return noiseAt(static_cast<std::int64_t>(frame), channel, 0.3F);
}

constexpr std::size_t largestCallback = 1024;
constexpr std::uint64_t playedFrames = 12 * 44100;

TEST(CallbackPromises, NeverAllocatesOrLocks)
{
    if (!LYRABOX_WATCHES_CALLS)
        GTEST_SKIP() << "the sanitizer watches these calls itself";
    // First make sure that the counters work.
    inCallback = true;
    void *volatile memory = std::malloc(16); // volatile, or the compiler removes the pair
    std::free(memory);
    delete new volatile int(1);
    engine::setOutputRunning(false); // takes the engine's mutex
    inCallback = false;
    EXPECT_GE(allocations, 4);
    EXPECT_GE(locks, 1);

    Player player(song, RandomListener::songFrames);
    RandomListener listener(7);
    std::array<float, 2 * largestCallback> interleaved{};
    allocations = 0;
    locks = 0;
    int endings = 0;
    engine::setOutputRunning(true);
    for (std::uint64_t played = 0; played < playedFrames;) {
        listener.act();
        engine::setTrackHasEnded(false);
        const std::uint32_t frames = listener.callbackFrames();
        inCallback = true;
        player.output().pull(interleaved.data(), frames);
        inCallback = false;
        endings += engine::trackHasEnded() ? 1 : 0;
        played += frames;
        for (const float sample : interleaved)
            ASSERT_TRUE(std::isfinite(sample));
    }
    EXPECT_EQ(allocations, 0);
    EXPECT_EQ(locks, 0);
    EXPECT_GT(endings, 0) << "the song never ended";
}

#if defined(__linux__)

/// Runs in a child process, which the kernel kills at its first system call other than exit, read
/// and write. Returns the status of waitpid().
template <typename Work>
int statusOfWorkWithoutSystemCalls(Work work)
{
    const pid_t child = fork();
    if (child == 0) {
        if (prctl(PR_SET_SECCOMP, SECCOMP_MODE_STRICT) != 0)
            _exit(77);
        work();
        syscall(SYS_exit, 0); // _exit() would call exit_group, which is not allowed
    }
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

TEST(CallbackPromises, MakesNoSystemCall)
{
    if (!LYRABOX_WATCHES_CALLS)
        GTEST_SKIP() << "a sanitizer makes system calls of its own";
    const int status = statusOfWorkWithoutSystemCalls([] { syscall(SYS_getppid); });
    if (WIFEXITED(status) && WEXITSTATUS(status) == 77)
        GTEST_SKIP() << "this kernel has no such mode";
    ASSERT_TRUE(WIFSIGNALED(status)) << "a system call was not noticed";

    Player player(song, RandomListener::songFrames);
    engine::setChannelTools({.centre = 1}); // its first use allocates
    std::array<float, 2 * largestCallback> interleaved{};
    for (const unsigned seed : {1U, 2U, 3U}) {
        // The listener's calls are watched as well. They need no system call, either.
        RandomListener listener(seed);
        engine::setOutputRunning(true);
        const int result = statusOfWorkWithoutSystemCalls([&] {
            for (std::uint64_t played = 0; played < 2 * 44100;) {
                listener.act();
                const std::uint32_t frames = listener.callbackFrames();
                player.output().pull(interleaved.data(), frames);
                played += frames;
            }
        });
        EXPECT_TRUE(WIFEXITED(result) && WEXITSTATUS(result) == 0)
            << "seed " << seed << ", status " << result;
    }
}

#endif

} // namespace
