// SPDX-License-Identifier: MIT
// Operands as registers and as plain numbers, and results of both kinds.
#pragma once
#include "simd/operation.h"
#include "simd/simd.h"

#if !defined VSURF_SCALAR && !defined __aarch64__
#define VSURF_TEST_LANES 1 // registers of 128-bit lanes, in the terms of x86
#else
#define VSURF_TEST_LANES 0
#endif

namespace vsurf::VSURF_ISA {
namespace {

using simd_test::Buffers;
using simd_test::Operation;

constexpr int clamped(int x, int low, int high) { return x < low ? low : x > high ? high : x; }
constexpr int signed_word(int x) { return static_cast<int16_t>(static_cast<uint32_t>(x) & 0xffff); }
constexpr int unsigned_word(int x) { return x & 0xffff; }
constexpr int sample_of(int x) { return clamped(x, 0, 255); }

// Which sample a register of `places` elements a lane holds at place i, woven by W.
template <int N, int W> constexpr int woven(int i, int places = 16)
{
    const int lanes = N / 16, lane = i / places, part = places / W, of_lane = i % places;
    return (of_lane / part * lanes + lane) * part + of_lane % part;
}

// In packed order each lane holds its even samples and then its odd ones; without lanes it is the samples' own order.
constexpr int packed(int i)
{
    if constexpr (!VSURF_TEST_LANES) return i;
    const int of_lane = i % 16;
    return i / 16 * 16 + of_lane % 8 * 2 + of_lane / 8;
}

class Trial {
public:
    explicit Trial(const Buffers& buffers) : buffers_(&buffers) {}

    const uint8_t* operand(int which) const { return buffers_->in + which * simd_test::kOperandBytes; }
    // The same from any address on; it goes on into the next operand.
    const uint8_t* source(int which) const { return operand(which) + number() % 64; }
    int number() const { return buffers_->number; }
    int byte(int which, int i) const { return operand(which)[i]; }
    int word(int which, int i) const { return element<int16_t>(which, i); }
    int dword(int which, int i) const { return element<int32_t>(which, i); }

    template <int N> Bytes<N> bytes(int which) const { return loaded<Bytes<N>>(which); }
    template <int N> Words<N> words(int which) const { return loaded<Words<N>>(which); }
    template <int N> Dwords<N> dwords(int which) const { return loaded<Dwords<N>>(which); }
    template <int N> EvenOddWords<N> even_odd(int which) const { return {words<N>(which), words<N>(which + 1)}; }
    template <int N> LowHighWords<N> low_high(int which) const { return {words<N>(which), words<N>(which + 1)}; }

    // The word that holds sample i.
    int even_odd_word(int which, int i) const { return word(which + i % 2, i / 2); }
    int low_high_word(int which, int i) const { return word(which + i / 8 % 2, i / 16 * 8 + i % 8); }

    // Words of samples: the low bytes of an operand's words.
    template <int N> Words<N> sample_words(int which) const
    {
        int16_t words[N / 2];
        for (int i = 0; i < N / 2; i++) words[i] = static_cast<int16_t>(sample(which, i));
        Words<N> made;
        __builtin_memcpy(&made, words, N);
        return made;
    }
    int sample(int which, int i) const { return word(which, i) & 255; }

    // Compares a result with `of(i)`, its element i or what it holds of sample i.
    template <int N, class Of> void yields(Bytes<N> result, Of of) { put_result<uint8_t, N>(result, of); }
    template <int N, class Of> void yields(Words<N> result, Of of) { put_result<int16_t, N / 2>(result, of); }
    template <int N, class Of> void yields(Dwords<N> result, Of of) { put_result<int32_t, N / 4>(result, of); }
    template <int N, class Of> void yields(EvenOddWords<N> result, Of of)
    {
        yields(result.even, [&](int i) { return of(2 * i); });
        yields(result.odd, [&](int i) { return of(2 * i + 1); });
    }
    template <int N, class Of> void yields(LowHighWords<N> result, Of of)
    {
        yields(result.low, [&](int i) { return of(i / 8 * 16 + i % 8); });
        yields(result.high, [&](int i) { return of(i / 8 * 16 + 8 + i % 8); });
    }
    void yields(bool result, bool expected)
    {
        buffers_->is[end_] = result;
        buffers_->expected[end_++] = expected;
    }

    // Compares the bytes that `store` writes at any address, or at that of a register for a store past the caches,
    // and what lies around them; where `of` yields -1 nothing is written.
    template <class To, class Store, class Of> void stores(int bytes, Store store, Of of)
    {
        To to;
        int first = simd_test::kMargin;
        if constexpr (__is_same(To, uint8_t*)) first += number() % 64;
        place(to, buffers_->is + first);
        store(to);
        fence_streaming();
        for (int i = 0; i < bytes; i++) {
            if (const int value = of(i); value >= 0) buffers_->expected[first + i] = static_cast<uint8_t>(value);
        }
    }

private:
    static void place(uint8_t*& to, uint8_t* at) { to = at; }
    static void place(Uncached& to, uint8_t* at) { to.p = at; }

    template <class Element> int element(int which, int i) const
    {
        Element value;
        __builtin_memcpy(&value, operand(which) + i * static_cast<int>(sizeof value), sizeof value);
        return value;
    }

    template <class Register> Register loaded(int which) const
    {
        Register made;
        __builtin_memcpy(&made, operand(which), sizeof made);
        return made;
    }

    template <class Element, int count, class Register, class Of> void put_result(Register result, Of of)
    {
        static_assert(sizeof result == count * sizeof(Element));
        __builtin_memcpy(buffers_->is + end_, &result, sizeof result);
        for (int i = 0; i < count; i++, end_ += static_cast<int>(sizeof(Element))) {
            const auto value = static_cast<Element>(of(i));
            __builtin_memcpy(buffers_->expected + end_, &value, sizeof value);
        }
    }

    const Buffers* buffers_;
    int end_ = 0; // of the results so far
};

constexpr const char* kNumbers[] = {"", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11"};

#define OPERATION(name, ...) OPERATION_OF("", name, __VA_ARGS__)
#define OPERATION_OF(variant, name, ...)               \
    {                                                  \
        name, variant, N, [](const Buffers& buffers) { \
            Trial t(buffers);                          \
            __VA_ARGS__;                               \
        }                                              \
    }

} // namespace
} // namespace vsurf::VSURF_ISA
