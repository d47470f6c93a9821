#pragma once
// The loop every genome comparison runs: equal bytes counted 64 at a time with the
// widest vector instructions the processor has, asking between blocks whether the
// answer is already certain.
#include <bit>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif
#if defined(__GNUC__) && defined(__x86_64__)
#include <immintrin.h>
#define AQ_AVX2_COUNT 1
#endif

namespace aq::detail {

// Equal bytes among 8, without a population-count instruction.
inline int equalBytes8(const std::uint8_t* a, const std::uint8_t* b) {
    std::uint64_t x, y;
    std::memcpy(&x, a, 8);
    std::memcpy(&y, b, 8);
    std::uint64_t d = x ^ y;
    constexpr std::uint64_t low7 = 0x7F7F7F7F7F7F7F7Full;
    // High bit of each byte set exactly where the byte differs.
    std::uint64_t differs = (((d & low7) + low7) | d) & ~low7;
    return 8 - std::popcount(differs);
}

// Counts equal bytes in blocks of 64 and asks `stop(matches, seen)` between blocks
// whether the answer is already certain; the count it returns is exact for the
// positions it looked at.
template <class Stop>
int countEqualSse2(const std::uint8_t* a, const std::uint8_t* b, int n, Stop stop) {
    int i = 0;
    int matches = 0;
#if defined(__SSE2__)
    const __m128i zero = _mm_setzero_si128();
    while (i + 64 <= n) {
        auto eq = [&](int k) {
            return _mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(a + i + k)),
                                  _mm_loadu_si128(reinterpret_cast<const __m128i*>(b + i + k)));
        };
        // Each equal byte is -1: subtracting counts it, at most 4 per lane.
        __m128i acc = _mm_sub_epi8(_mm_sub_epi8(zero, eq(0)), eq(16));
        acc = _mm_sub_epi8(_mm_sub_epi8(acc, eq(32)), eq(48));
        __m128i sums = _mm_sad_epu8(acc, zero);
        matches += _mm_cvtsi128_si32(sums) + _mm_extract_epi16(sums, 4);
        i += 64;
        if (stop(matches, i)) return matches;
    }
    while (i + 16 <= n) {
        __m128i e = _mm_cmpeq_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(a + i)),
                                   _mm_loadu_si128(reinterpret_cast<const __m128i*>(b + i)));
        matches += std::popcount(static_cast<unsigned>(_mm_movemask_epi8(e)));
        i += 16;
    }
#else
    while (i + 64 <= n) {
        for (int k = 0; k < 64; k += 8) matches += equalBytes8(a + i + k, b + i + k);
        i += 64;
        if (stop(matches, i)) return matches;
    }
#endif
    while (i + 8 <= n) {
        matches += equalBytes8(a + i, b + i);
        i += 8;
    }
    for (; i < n; ++i) matches += a[i] == b[i];
    return matches;
}

#if defined(AQ_AVX2_COUNT)
// The same with 32-byte compares, for processors that have them; the tail below a
// whole block goes the narrower way.
__attribute__((target("avx2,popcnt"))) inline int equal32(const std::uint8_t* a, const std::uint8_t* b) {
    const __m256i e = _mm256_cmpeq_epi8(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(a)),
                                        _mm256_loadu_si256(reinterpret_cast<const __m256i*>(b)));
    return std::popcount(static_cast<unsigned>(_mm256_movemask_epi8(e)));
}

template <class Stop>
__attribute__((target("avx2,popcnt"))) int countEqualAvx2(const std::uint8_t* a, const std::uint8_t* b, int n,
                                                          Stop stop) {
    int i = 0;
    int matches = 0;
    while (i + 64 <= n) {
        matches += equal32(a + i, b + i) + equal32(a + i + 32, b + i + 32);
        i += 64;
        if (stop(matches, i)) return matches;
    }
    if (i + 32 <= n) {
        matches += equal32(a + i, b + i);
        i += 32;
    }
    return matches + countEqualSse2(a + i, b + i, n - i, [](int, int) { return false; });
}

// And with whole 64-byte compares.
template <class Stop>
__attribute__((target("avx512bw,popcnt"))) int countEqualAvx512(const std::uint8_t* a, const std::uint8_t* b, int n,
                                                                Stop stop) {
    int i = 0;
    int matches = 0;
    while (i + 64 <= n) {
        const __mmask64 e = _mm512_cmpeq_epi8_mask(_mm512_loadu_si512(a + i), _mm512_loadu_si512(b + i));
        matches += std::popcount(static_cast<unsigned long long>(e));
        i += 64;
        if (stop(matches, i)) return matches;
    }
    return matches + countEqualAvx2(a + i, b + i, n - i, [](int, int) { return false; });
}

// 2 with 64-byte compares, 1 with 32-byte ones, else 0.
inline int vectorLevel() {
    static const int level = [] {
        __builtin_cpu_init();
        if (!__builtin_cpu_supports("avx2") || !__builtin_cpu_supports("popcnt")) return 0;
        return __builtin_cpu_supports("avx512bw") ? 2 : 1;
    }();
    return level;
}
#endif

template <class Stop>
int countEqual(const std::uint8_t* a, const std::uint8_t* b, int n, Stop stop) {
#if defined(AQ_AVX2_COUNT)
    switch (vectorLevel()) {
        case 2:
            return countEqualAvx512(a, b, n, stop);
        case 1:
            return countEqualAvx2(a, b, n, stop);
        default:
            break;
    }
#endif
    return countEqualSse2(a, b, n, stop);
}

}  // namespace aq::detail
