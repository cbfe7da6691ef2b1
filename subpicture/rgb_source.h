// SPDX-License-Identifier: MIT
// RGB drawings as a source: N pixels in four registers, of b g r and a fourth byte each. That is 0, or the fourth byte
// of RGB32.
#pragma once
#include "simd/simd.h"

namespace vsurf::VSURF_ISA {

constexpr int kPixelsAtATime = kRegister > 32 ? 32 : kRegister;

template <int N> struct Pixels {
    Bytes<N> of[4];
};

struct FromRgb32 {
    static constexpr int kBytes = 4;
    template <int N> static ALWAYS_INLINE Pixels<N> pixels(const uint8_t* p)
    {
        return {{load<N>(p), load<N>(p + N), load<N>(p + 2 * N), load<N>(p + 3 * N)}};
    }
};

struct FromRgb24 {
    static constexpr int kBytes = 3;
    // N/4 pixels from the i-th part on. Registers are loaded so that they end with an even number of pixels: none
    // reaches beyond the last one.
    template <int N> static ALWAYS_INLINE Bytes<N> part(const uint8_t* p, int i)
    {
        if constexpr (N == 16) {
            auto bytes = load<16>(p + i * 12 - (i % 2 ? 4 : 0));
            return pixels_of_triples(i % 2 ? drop_first<4>(bytes) : bytes);
        } else {
            return combine(part<N / 2>(p, 2 * i), part<N / 2>(p, 2 * i + 1));
        }
    }
    template <int N> static ALWAYS_INLINE Pixels<N> pixels(const uint8_t* p)
    {
        return {{part<N>(p, 0), part<N>(p, 1), part<N>(p, 2), part<N>(p, 3)}};
    }
};

// Components are moved up to eight bits, and their low bits are 0.
struct FromRgb565 {
    static constexpr int kBytes = 2;
    template <int N> static ALWAYS_INLINE Pixels<N> pixels(const uint8_t* p)
    {
        auto wide_pixels = [p](int from) VSURF_INLINED {
            auto w = as_words(load<N, 2>(p + from));
            auto blue_green = add(shr<8>(shl<11>(w)), shl<10>(shr<5>(w))), red = shl<3>(shr<11>(w));
            return LowHighWords<N>{as_words(zip_lo16(as_bytes(blue_green), as_bytes(red))),
                                   as_words(zip_hi16(as_bytes(blue_green), as_bytes(red)))};
        };
        auto first = wide_pixels(0), second = wide_pixels(N);
        return {{as_bytes(first.low), as_bytes(first.high), as_bytes(second.low), as_bytes(second.high)}};
    }
};

} // namespace vsurf::VSURF_ISA
