// SPDX-License-Identifier: MIT
// Included before everything else in the AVX-512 kernels: their 512-bit intrinsics become SIMDe's, which compute the
// same values with AVX2, so that the kernels run where the processor has no AVX-512.
#pragma once
#pragma GCC system_header
#include <immintrin.h>

#define SIMDE_ENABLE_NATIVE_ALIASES
#include <simde/x86/avx512.h>

#include <stdint.h>
#include <string.h>

// What SIMDe lacks. Streaming and aligned accesses fault on a misaligned address, as the instructions do.
static inline __attribute__((always_inline)) void vsurf_require_aligned(const void* p)
{
    if (reinterpret_cast<uintptr_t>(p) % 64 != 0) __builtin_trap();
}

static inline __attribute__((always_inline)) void vsurf_mm512_stream_si512(void* p, __m512i a)
{
    vsurf_require_aligned(p);
    memcpy(p, &a, sizeof a);
}

static inline __attribute__((always_inline)) __m512i vsurf_mm512_load_si512(const void* p)
{
    vsurf_require_aligned(p);
    return simde_mm512_loadu_si512(p);
}

static inline __attribute__((always_inline)) __m512i vsurf_mm512_cvtepu8_epi16(__m256i a)
{
    simde__m256i_private from = simde__m256i_to_private(a);
    simde__m512i_private to;
    for (int i = 0; i < 32; ++i) to.u16[i] = from.u8[i];
    return simde__m512i_from_private(to);
}

static inline __attribute__((always_inline)) __m512i vsurf_mm512_mulhi_epu16(__m512i a, __m512i b)
{
    simde__m512i_private left = simde__m512i_to_private(a), right = simde__m512i_to_private(b);
    for (int i = 0; i < 2; ++i) left.m256i[i] = simde_mm256_mulhi_epu16(left.m256i[i], right.m256i[i]);
    return simde__m512i_from_private(left);
}

static inline __attribute__((always_inline)) __m512i vsurf_mm512_madd_epi16(__m512i a, __m512i b)
{
    simde__m512i_private left = simde__m512i_to_private(a), right = simde__m512i_to_private(b);
    for (int i = 0; i < 2; ++i) left.m256i[i] = simde_mm256_madd_epi16(left.m256i[i], right.m256i[i]);
    return simde__m512i_from_private(left);
}

static inline __attribute__((always_inline)) __m512i vsurf_mm512_shuffle_i64x2(__m512i a, __m512i b, int lanes)
{
    simde__m512i_private low = simde__m512i_to_private(a), high = simde__m512i_to_private(b), to;
    for (int i = 0; i < 4; ++i) to.m128i[i] = (i < 2 ? low : high).m128i[lanes >> 2 * i & 3];
    return simde__m512i_from_private(to);
}

static inline __attribute__((always_inline)) __m512i vsurf_mm512_alignr_epi64(__m512i a, __m512i b, int words)
{
    simde__m512i_private high = simde__m512i_to_private(a), low = simde__m512i_to_private(b), to;
    for (int i = 0; i < 8; ++i) to.u64[i] = i + words < 8 ? low.u64[i + words] : high.u64[i + words - 8];
    return simde__m512i_from_private(to);
}

static inline __attribute__((always_inline)) void vsurf_mm512_mask_storeu_epi64(void* p, __mmask8 mask, __m512i a)
{
    long long words[8];
    memcpy(words, &a, sizeof words);
    for (int i = 0; i < 8; ++i) {
        if ((mask >> i & 1) != 0) memcpy(static_cast<char*>(p) + 8 * i, &words[i], 8);
    }
}

#undef _mm512_stream_si512
#undef _mm512_mulhi_epu16
#undef _mm512_madd_epi16
#undef _mm512_shuffle_i64x2
#undef _mm512_alignr_epi64
#undef _mm512_load_si512
#undef _mm512_cvtepu8_epi16
#undef _mm512_mask_storeu_epi64
#define _mm512_stream_si512(p, a) vsurf_mm512_stream_si512(p, a)
#define _mm512_mulhi_epu16(a, b) vsurf_mm512_mulhi_epu16(a, b)
#define _mm512_madd_epi16(a, b) vsurf_mm512_madd_epi16(a, b)
#define _mm512_shuffle_i64x2(a, b, lanes) vsurf_mm512_shuffle_i64x2(a, b, lanes)
#define _mm512_alignr_epi64(a, b, words) vsurf_mm512_alignr_epi64(a, b, words)
#define _mm512_load_si512(p) vsurf_mm512_load_si512(p)
#define _mm512_cvtepu8_epi16(a) vsurf_mm512_cvtepu8_epi16(a)
#define _mm512_mask_storeu_epi64(p, mask, a) vsurf_mm512_mask_storeu_epi64(p, mask, a)

#define __AVX512F__ 1
#define __AVX512BW__ 1
#define __AVX512VL__ 1
#define __AVX512VBMI__ 1
