// SPDX-License-Identifier: MIT
// The arithmetic of overlays, exact for 8 bits of alpha.
#pragma once
#include "show/strips.h"

namespace vsurf::VSURF_ISA {

constexpr ptrdiff_t kPiece = 256;             // pixels of an overlay that are handled together
constexpr ptrdiff_t kPadded = kPiece + kGrid; // zeros follow, of which whole registers are read

// Pixels of an overlay on one line, in the surface's own colours: B, G, R or Y, U, V.
struct OverlayLine {
    alignas(64) uint8_t of[3][kPadded];
    alignas(64) uint8_t alpha[kPadded];
    bool shown; // false: nothing but zeros
};

// v / 255, rounded, of unsigned words that are at most 255 * 255.
template <int N> ALWAYS_INLINE Words<N> by_255(Words<N> v)
{
    return mulhi_unsigned(add(v, Words<N>::splat(128)), Words<N>::splat(257));
}

template <int rows> ALWAYS_INLINE bool rows_are_set(const OverlayLine& over, ptrdiff_t x)
{
    auto set = load<kRegister>(over.of[0] + x);
    for (int i = 1; i < rows; i++) set = bit_or(set, load<kRegister>(over.of[i] + x));
    return !all_zero(set);
}

// Onto as many of the line's three colours as there are rows, from `at` on.
template <int rows>
inline NEVER_INLINE void blend_rows(uint8_t* const* below, ptrdiff_t at, const OverlayLine& over, ptrdiff_t count,
                                    bool premultiplied)
{
    constexpr int N = kRegister;
    for (ptrdiff_t x = 0; x < count; x += N) {
        auto alpha = load<N>(over.alpha + x);
        if (all_zero(alpha) && !(premultiplied && rows_are_set<rows>(over, x))) continue;
        auto by = widen(alpha);
        auto blend = [premultiplied](Words<N> colour, Words<N> under, Words<N> a) VSURF_INLINED {
            auto left = mullo(under, sub(Words<N>::splat(255), a));
            return premultiplied ? add(by_255(left), colour) : by_255(add(left, mullo(colour, a)));
        };
        for (int i = 0; i < rows; i++) {
            uint8_t* to = below[i] + at + x;
            auto colour = widen(load<N>(over.of[i] + x)), under = widen(load<N>(to));
            put(to,
                narrow(LowHighWords<N>{blend(colour.low, under.low, by.low), blend(colour.high, under.high, by.high)}));
        }
    }
}

// Four pixels share their chroma, or two that count twice. Of n pixels
//
//   (sum of colour * alpha + below * (255 n - sum of alphas) + 255 n / 2) / (255 n)
//
// is the same for n and for 2 n with every pixel twice. t / 255 is (t + 1 + ((t + 1) >> 8)) >> 8 up to 65534, and at
// least 255 from there on.
template <int N> ALWAYS_INLINE Dwords<N> divided_by_1020(Dwords<N> sum_and_4)
{
    auto t = shr_signed<2>(sum_and_4);
    return shr_signed<8>(add(t, shr_signed<8>(t)));
}
inline NEVER_INLINE void blend_chroma(uint8_t* uv, const OverlayLine& upper, const OverlayLine& lower, ptrdiff_t count,
                                      bool premultiplied)
{
    constexpr int N = 16;
    constexpr int half_and_4 = 510 + 4;
    for (ptrdiff_t x = 0; x < count; x += N) {
        auto a0 = load<N>(upper.alpha + x), a1 = load<N>(lower.alpha + x);
        if (!premultiplied && all_zero(bit_or(a0, a1))) continue;
        auto below = split(load<N>(uv + x));
        auto rest = as_bytes(sub(Words<N>::splat(1020), add(pair_sums<1>(a0), pair_sums<1>(a1))));
        auto one = as_bytes(Words<N>::splat(1)), constant = as_bytes(Words<N>::splat(half_and_4));
        auto rest_low = as_words(zip_lo16(rest, one)), rest_high = as_words(zip_hi16(rest, one));
        auto by0 = widen(premultiplied ? Bytes<N>::splat(255) : a0),
             by1 = widen(premultiplied ? Bytes<N>::splat(255) : a1);
        auto blend = [&](int i, Words<N> c) VSURF_INLINED {
            auto o0 = widen(load<N>(upper.of[i] + x)), o1 = widen(load<N>(lower.of[i] + x));
            auto low = pair_dots(as_words(zip_lo16(as_bytes(c), constant)), rest_low),
                 high = pair_dots(as_words(zip_hi16(as_bytes(c), constant)), rest_high);
            low = add(low, add(pair_dots(o0.low, by0.low), pair_dots(o1.low, by1.low)));
            high = add(high, add(pair_dots(o0.high, by0.high), pair_dots(o1.high, by1.high)));
            return pack_in_order(divided_by_1020(low), divided_by_1020(high), divided_by_1020(low),
                                 divided_by_1020(high));
        };
        put(uv + x, join(EvenOddWords<N>{widen(blend(1, below.even)).low, widen(blend(2, below.odd)).low}));
    }
}

} // namespace vsurf::VSURF_ISA
