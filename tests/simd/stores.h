// SPDX-License-Identifier: MIT
// Stores, to any address and past the caches: what they write, in the order of memory, and nothing around it.
#pragma once
#include "simd/trial.h"

namespace vsurf::VSURF_ISA {
namespace {

template <int N, int W> Bytes<N> woven_bytes(const Trial& t, int which) { return load<N, W>(t.operand(which)); }
template <int N, int W> Bytes<N> packed_bytes(const Trial& t, int which)
{
    return pack(split(woven_bytes<N, W>(t, which)));
}

// y0 u0 y1 v0 ... of words of samples: luma of both halves, then the chroma.
template <int N> int yuyv_byte(const Trial& t, int i)
{
    const int pixel = i / 2;
    if (i % 2 == 0) return t.sample(pixel / (N / 2), pixel % (N / 2));
    return t.byte(pixel % 2 == 0 ? 2 : 3, pixel / 2);
}

// Of own pixels y0 u0 y1 v0 and what goes between their samples: y0 u0 ya v0 and y1 ub yb vb.
constexpr bool kFromOwn[8] = {true, true, false, true, true, false, false, false};
constexpr int kDoubledPlace[8] = {0, 1, 0, 3, 2, 1, 2, 3};

inline int doubled_byte(const Trial& t, int i)
{
    return t.byte(kFromOwn[i % 8] ? 0 : 1, i / 8 * 4 + kDoubledPlace[i % 8]);
}

template <int fourth, int N, class To> void bgr_and(Trial& t)
{
    t.stores<To>(
        4 * N,
        [&](To to) {
            store_bgr_and<fourth>(to, packed_bytes<N, 4>(t, 0), packed_bytes<N, 4>(t, 1), packed_bytes<N, 4>(t, 2));
        },
        [&](int i) { return i % 4 == 3 ? fourth : t.byte(i % 4, i / 4); });
}

template <class To> constexpr const char* kDestination = __is_same(To, uint8_t*) ? "" : "uncached";

template <int N, class To>
constexpr Operation kStores[] = {
    OPERATION_OF(kDestination<To>, "put",
                 t.stores<To>(
                     N, [&](To to) { put(to, t.bytes<N>(0)); }, [&](int i) { return t.byte(0, i); })),
    OPERATION_OF(kDestination<To>, "store_pairs",
                 t.stores<To>(
                     2 * N, [&](To to) { store_pairs(to, woven_bytes<N, 2>(t, 0), woven_bytes<N, 2>(t, 1)); },
                     [&](int i) { return t.byte(i % 2, i / 2); })),
    OPERATION_OF(kDestination<To>, "store_packed_pairs",
                 t.stores<To>(
                     2 * N, [&](To to) { store_packed_pairs(to, packed_bytes<N, 2>(t, 0), packed_bytes<N, 2>(t, 1)); },
                     [&](int i) { return t.byte(i % 2, i / 2); })),
    OPERATION_OF(kDestination<To>, "store_quads",
                 t.stores<To>(
                     4 * N,
                     [&](To to) {
                         store_quads(to, woven_bytes<N, 4>(t, 0), woven_bytes<N, 4>(t, 1), woven_bytes<N, 4>(t, 2),
                                     woven_bytes<N, 4>(t, 3));
                     },
                     [&](int i) { return t.byte(i % 4, i / 4); })),
    OPERATION_OF(kDestination<To>, "store_bgr_and_0", bgr_and<0, N, To>(t)),
    OPERATION_OF(kDestination<To>, "store_bgr_and_255", bgr_and<255, N, To>(t)),
    OPERATION_OF(
        kDestination<To>, "store_bgr",
        t.stores<To>(
            3 * N,
            [&](To to) { store_bgr(to, packed_bytes<N, 1>(t, 0), packed_bytes<N, 1>(t, 1), packed_bytes<N, 1>(t, 2)); },
            [&](int i) { return t.byte(i % 3, i / 3); })),
    OPERATION_OF(kDestination<To>, "store_yuyv",
                 t.stores<To>(
                     2 * N,
                     [&](To to) {
                         store_yuyv(to, t.sample_words<N>(0), t.sample_words<N>(1), load_chroma<N, 2>(t.operand(2)),
                                    load_chroma<N, 2>(t.operand(3)));
                     },
                     [&](int i) { return yuyv_byte<N>(t, i); })),
    OPERATION_OF(kDestination<To>, "store_doubled_yuyv",
                 t.stores<To>(
                     2 * N,
                     [&](To to) {
                         constexpr int weave = kDoubledWeave<N>;
                         store_doubled_yuyv(to, woven_bytes<N, weave>(t, 0), woven_bytes<N, weave>(t, 1));
                     },
                     [&](int i) { return doubled_byte(t, i); })),
};

// Two halves, apart from each other.
template <int N> void puts_halves(Trial& t)
{
    constexpr int apart = 2 * N + 5;
    t.stores<uint8_t*>(
        apart + N / 2, [&](uint8_t* to) { put_halves(to, to + apart, t.bytes<N>(0)); },
        [&](int i) {
            if (i >= N / 2 && i < apart) return -1;
            return t.byte(0, i < apart ? i : i - apart + N / 2);
        });
}

template <int N> void stores_pairs_but_first_eight(Trial& t)
{
    t.stores<uint8_t*>(
        2 * N, [&](uint8_t* to) { store_pairs_but_first_eight(to, woven_bytes<N, 2>(t, 0), woven_bytes<N, 2>(t, 1)); },
        [&](int i) { return i % 32 < 8 ? -1 : t.byte(i % 2, i / 2); });
}

template <int N>
constexpr Operation kCachedStores[] = {
    OPERATION("put_halves", puts_halves<N>(t)),
    OPERATION("store_pairs_but_first_eight", stores_pairs_but_first_eight<N>(t)),
};

// The parts of the ends of lines.
template <int N> void stores_first8_yuyv(Trial& t)
{
    t.stores<uint8_t*>(
        16,
        [&](uint8_t* to) {
            store_first8_yuyv(to, t.sample_words<N>(0), load_chroma<N>(t.operand(2)), load_chroma<N>(t.operand(3)));
        },
        [&](int i) { return yuyv_byte<N>(t, i); });
}

template <int N>
constexpr Operation kEighths[] = {
    OPERATION("put_first8",
              t.stores<uint8_t*>(
                  8, [&](uint8_t* to) { put_first8(to, t.bytes<N>(0)); }, [&](int i) { return t.byte(0, i); })),
    OPERATION("store_first8_yuyv", stores_first8_yuyv<N>(t)),
#if VSURF_TEST_LANES
    OPERATION("stream_few",
              t.stores<Uncached>(
                  12, [&](Uncached to) { stream_few(to.p, t.source(0), 12); }, [&](int i) { return t.source(0)[i]; })),
#endif
    OPERATION("load_first8", t.yields(load_first8(t.source(0)), [&](int i) { return i < 8 ? t.source(0)[i] : 0; })),
    OPERATION("pixels_of_triples", t.yields(pixels_of_triples(t.bytes<N>(0)),
                                            [&](int i) { return i % 4 == 3 ? 0 : t.byte(0, i / 4 * 3 + i % 4); })),
};

} // namespace
} // namespace vsurf::VSURF_ISA
