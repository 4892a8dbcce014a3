#pragma once

#include <cstdint>

#if defined(__SSE2__) || defined(_M_X64)
#include <immintrin.h>
#endif

namespace lyrabox {

/// While one lives, the calling thread treats subnormal numbers as zero, as operand and as result;
/// the setting it found comes back when it goes. The tail of a recursive filter falling into
/// silence otherwise spends seconds in subnormal numbers, at a hundred times the cost of ordinary
/// ones. Any thread; costs a few dozen cycles. On a processor without such a switch it does
/// nothing: the sound is the same, only dearer.
class DenormalGuard {
public:
#if defined(__SSE2__) || defined(_M_X64)
    DenormalGuard() noexcept : saved(_mm_getcsr())
    {
        _mm_setcsr(saved | flushToZero | zeroOperands);
    }
    ~DenormalGuard()
    {
        _mm_setcsr(saved);
    }
    static constexpr bool isEffective = true;
#elif defined(__aarch64__) && defined(__GNUC__)
    DenormalGuard() noexcept
    {
        asm volatile("mrs %0, fpcr" : "=r"(saved));
        asm volatile("msr fpcr, %0" : : "r"(saved | flushToZero));
    }
    ~DenormalGuard()
    {
        asm volatile("msr fpcr, %0" : : "r"(saved));
    }
    static constexpr bool isEffective = true;
#else
    DenormalGuard() noexcept {}
    ~DenormalGuard() {}
    static constexpr bool isEffective = false;
#endif
    DenormalGuard(const DenormalGuard &) = delete;
    DenormalGuard &operator=(const DenormalGuard &) = delete;

private:
#if defined(__SSE2__) || defined(_M_X64)
    static constexpr std::uint32_t flushToZero = 0x8000;
    static constexpr std::uint32_t zeroOperands = 0x0040;
    std::uint32_t saved;
#elif defined(__aarch64__) && defined(__GNUC__)
    static constexpr std::uint64_t flushToZero = std::uint64_t{1} << 24;
    std::uint64_t saved;
#endif
};

} // namespace lyrabox
