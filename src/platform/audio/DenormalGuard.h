#pragma once

#include <cstdint>

#if defined(__SSE2__) || defined(_M_X64)
#include <immintrin.h>
#endif

namespace lyrabox {

/// Makes the calling thread treat subnormal numbers as zero for as long as the guard lives, both as
/// operands and as results. The destructor restores the former setting. Without it, the tail of a
/// recursive filter spends seconds in subnormal numbers when the signal stops, and each of them
/// costs a hundred times as much as an ordinary number.
///
/// Any thread. Costs a few dozen cycles. On a processor without such a switch the guard does
/// nothing; the sound is the same.
class DenormalGuard {
public:
#if defined(__SSE2__) || defined(_M_X64)
    DenormalGuard() noexcept : m_saved(_mm_getcsr())
    {
        _mm_setcsr(m_saved | flushToZero | zeroOperands);
    }
    ~DenormalGuard()
    {
        _mm_setcsr(m_saved);
    }
    static constexpr bool isEffective = true;
#elif defined(__aarch64__) && defined(__GNUC__)
    DenormalGuard() noexcept
    {
        asm volatile("mrs %0, fpcr" : "=r"(m_saved));
        asm volatile("msr fpcr, %0" : : "r"(m_saved | flushToZero));
    }
    ~DenormalGuard()
    {
        asm volatile("msr fpcr, %0" : : "r"(m_saved));
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
    std::uint32_t m_saved;
#elif defined(__aarch64__) && defined(__GNUC__)
    static constexpr std::uint64_t flushToZero = std::uint64_t{1} << 24;
    std::uint64_t m_saved;
#endif
};

} // namespace lyrabox
