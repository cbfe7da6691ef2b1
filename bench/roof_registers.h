// SPDX-License-Identifier: MIT
// The registers that the roof's inner loops move bytes through, for the instruction set that they are compiled for.
#pragma once
#include <stdint.h>
#if defined __SSE2__
#include <immintrin.h>
#elif defined __aarch64__
#include <arm_neon.h>
#endif

namespace bench::ROOF_ISA {
namespace {

// A register of `bytes` bytes: load, ordinary store, streaming store. `keep` makes the compiler load what nobody uses.
template <int bytes> struct Register {
    using Value = uint64_t;
    static Value load(const uint8_t* from)
    {
        Value value = 0;
        __builtin_memcpy(&value, from, bytes);
        return value;
    }
    static void store(uint8_t* to, Value value) { __builtin_memcpy(to, &value, bytes); }
    static void stream(uint8_t* to, Value value) { store(to, value); }
    static void keep(Value value) { asm volatile("" ::"r"(value)); }
};

#if defined __SSE2__
constexpr int kWidest = sizeof(
#if defined __AVX512F__
    __m512i
#elif defined __AVX2__
    __m256i
#else
    __m128i
#endif
);

template <> struct Register<16> {
    struct Value {
        __m128i bits;
    };
    static Value load(const uint8_t* from) { return {_mm_loadu_si128(reinterpret_cast<const __m128i*>(from))}; }
    static void store(uint8_t* to, Value value) { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), value.bits); }
    static void stream(uint8_t* to, Value value) { _mm_stream_si128(reinterpret_cast<__m128i*>(to), value.bits); }
    static void keep(Value value) { asm volatile("" ::"x"(value.bits)); }
};
#if defined __AVX2__ || defined __AVX512F__
template <> struct Register<32> {
    struct Value {
        __m256i bits;
    };
    static Value load(const uint8_t* from) { return {_mm256_loadu_si256(reinterpret_cast<const __m256i*>(from))}; }
    static void store(uint8_t* to, Value value) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), value.bits); }
    static void stream(uint8_t* to, Value value) { _mm256_stream_si256(reinterpret_cast<__m256i*>(to), value.bits); }
    static void keep(Value value) { asm volatile("" ::"x"(value.bits)); }
};
#endif
#if defined __AVX512F__
template <> struct Register<64> {
    struct Value {
        __m512i bits;
    };
    static Value load(const uint8_t* from) { return {_mm512_loadu_si512(from)}; }
    static void store(uint8_t* to, Value value) { _mm512_storeu_si512(to, value.bits); }
    static void stream(uint8_t* to, Value value) { _mm512_stream_si512(reinterpret_cast<__m512i*>(to), value.bits); }
    static void keep(Value value) { asm volatile("" ::"v"(value.bits)); }
};
#endif
#elif defined __aarch64__
constexpr int kWidest = 16;
template <> struct Register<16> {
    struct Value {
        uint8x16_t bits;
    };
    static Value load(const uint8_t* from) { return {vld1q_u8(from)}; }
    static void store(uint8_t* to, Value value) { vst1q_u8(to, value.bits); }
    static void stream(uint8_t* to, Value value)
    {
        asm volatile("stnp %d0, %d1, [%2]" ::"w"(vget_low_u8(value.bits)), "w"(vget_high_u8(value.bits)), "r"(to)
                     : "memory");
    }
    static void keep(Value value) { asm volatile("" ::"w"(value.bits)); }
};
#else
constexpr int kWidest = 8;
#endif

} // namespace
} // namespace bench::ROOF_ISA
