// SPDX-License-Identifier: MIT
// Samples that become words and words that become samples, in every order that the layer knows.
#pragma once
#include "simd/trial.h"

namespace vsurf::VSURF_ISA {
namespace {

// Alphas on their scale.
template <int N> Bytes<N> alphas(const Trial& t, int which)
{
    uint8_t made[N];
    for (int i = 0; i < N; i++) made[i] = static_cast<uint8_t>(t.byte(which, i) % 17);
    Bytes<N> registered;
    __builtin_memcpy(&registered, made, N);
    return registered;
}

template <int N, class Weight> void blends(Trial& t, Weight weight)
{
    t.yields(weight(alphas<N>(t, 0)).blend(t.bytes<N>(1), t.bytes<N>(2)), [&](int i) {
        const int alpha = t.byte(0, i) % 17;
        return (16 - alpha) * t.byte(1, i) + alpha * t.byte(2, i);
    });
}

template <int N, int K> void sums_widened(Trial& t)
{
    t.yields(widened_sums<K>(t.bytes<N>(0), t.bytes<N>(1)), [&](int i) { return K * (t.byte(0, i) + t.byte(1, i)); });
}

template <int N>
constexpr Operation kOrders[] = {
    OPERATION("split", t.yields(split(t.bytes<N>(0)), [&](int i) { return t.byte(0, i); })),
    OPERATION("split_times4", t.yields(split_times4(t.bytes<N>(0)), [&](int i) { return 4 * t.byte(0, i); })),
    OPERATION("split_high", t.yields(split_high(t.bytes<N>(0)), [&](int i) { return t.byte(0, i) << 8; })),
    OPERATION("join", t.yields(join(EvenOddWords<N>{t.sample_words<N>(0), t.sample_words<N>(1)}),
                               [&](int i) { return t.sample(i % 2, i / 2); })),
    OPERATION("low_bytes", t.yields(low_bytes(t.even_odd<N>(0)), [&](int i) { return t.even_odd_word(0, i) & 255; })),
    OPERATION("pack",
              t.yields(pack(t.even_odd<N>(0)), [&](int i) { return sample_of(t.even_odd_word(0, packed(i))); })),
    OPERATION("pack_in_order_words", t.yields(pack_in_order(t.words<N>(0), t.words<N>(1)),
                                              [&](int i) { return sample_of(t.word(i / (N / 2), i % (N / 2))); })),
    OPERATION("widen", t.yields(widen(t.bytes<N>(0)), [&](int i) { return t.byte(0, i); })),
    OPERATION("widen_high", t.yields(widen_high(t.bytes<N>(0)), [&](int i) { return t.byte(0, i) << 8; })),
    OPERATION("narrow", t.yields(narrow(t.low_high<N>(0)), [&](int i) { return sample_of(t.low_high_word(0, i)); })),
    OPERATION_OF("1", "widened_sums", sums_widened<N, 1>(t)),
    OPERATION_OF("5", "widened_sums", sums_widened<N, 5>(t)),
    OPERATION("weights_of_bytes", blends<N>(t, [](Bytes<N> alpha) { return Weights<N>::of(alpha); })),
    OPERATION("weights_of_words", blends<N>(t, [](Bytes<N> alpha) { return Weights<N>::of(widen(alpha)); })),
};

// Loads from any address: the trial's number says which.
template <int N> void loads_halves(Trial& t)
{
    t.yields(load_halves<N>(t.source(0), t.source(1)), [&](int i) { return t.source(i / (N / 2))[i % (N / 2)]; });
}

// Every two bytes are a sample or its neighbour.
template <int N, int W> void loads_two(Trial& t)
{
    const auto two = load_two<N, W>(t.source(0));
    t.yields(narrow(LowHighWords<N>{shr<8>(shl<8>(two.low)), shr<8>(shl<8>(two.high))}),
             [&](int i) { return t.source(0)[2 * woven<N, W>(i)]; });
    t.yields(narrow(LowHighWords<N>{shr<8>(two.low), shr<8>(two.high)}),
             [&](int i) { return t.source(0)[2 * woven<N, W>(i) + 1]; });
}

template <int N, int W> void loads_yuyv(Trial& t)
{
    const auto pixels = load_yuyv<N, W>(t.source(0));
    t.yields(pixels.y, [&](int i) { return t.source(0)[2 * woven<N, W>(i)]; });
    t.yields(pixels.uv, [&](int i) { return t.source(0)[2 * woven<N, W>(i) + 1]; });
}

template <int N>
constexpr Operation kPlainLoads[] = {
    OPERATION("load_halves", loads_halves<N>(t)),
};

template <int N, int W>
constexpr Operation kWovenLoads[] = {
    OPERATION_OF(kNumbers[W], "load",
                 t.yields(load<N, W>(t.source(0)), [&](int i) { return t.source(0)[woven<N, W>(i)]; })),
    OPERATION_OF(kNumbers[W], "load_chroma",
                 t.yields(load_chroma<N, W>(t.source(0)), [&](int i) { return t.source(0)[woven<N, W>(i, 8)]; })),
    OPERATION_OF(
        kNumbers[W], "load_chroma_high",
        t.yields(load_chroma_high<N, W>(t.source(0)), [&](int i) { return t.source(0)[woven<N, W>(i, 8)] << 8; })),
    OPERATION_OF(kNumbers[W], "load_two", loads_two<N, W>(t)),
    OPERATION_OF(kNumbers[W], "load_yuyv", loads_yuyv<N, W>(t)),
};

} // namespace
} // namespace vsurf::VSURF_ISA
