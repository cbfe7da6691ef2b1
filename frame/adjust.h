// SPDX-License-Identifier: MIT
// The picture adjustment: the process-wide state and, for the kernels, what it does to a sample.
#pragma once
#include <stdint.h>

namespace vsurf {

struct Adjustment {
    int16_t luma_gain, chroma_gain, luma_offset, u_offset, v_offset; // gains in 1/64, offsets in sample units
};

extern Adjustment adjustment_state;

// Relaxed atomic loads: a concurrent `get_contrast_data` is the caller's mistake and may give a mixture of old and
// new values, yet it stays defined behaviour. Each load is a plain move.
static inline __attribute__((always_inline)) Adjustment current_adjustment()
{
    const Adjustment& s = adjustment_state;
    auto read = [](const int16_t& x) __attribute__((always_inline)) { return __atomic_load_n(&x, __ATOMIC_RELAXED); };
    return {read(s.luma_gain), read(s.chroma_gain), read(s.luma_offset), read(s.u_offset), read(s.v_offset)};
}

} // namespace vsurf

#ifdef VSURF_ISA
#include "simd/simd.h"

namespace vsurf::VSURF_ISA {

// One gain and one offset. A scaled sample lies in 0..1023, so an offset beyond -1023..255 acts like that bound.
// Lifting the sum by 32767 - 255 lets one signed saturation cut it at 255, and one unsigned saturation cut it at 0 on
// the way back.
struct SampleAdjust {
    int16_t gain, lifted_offset;
    static constexpr int kLift = 32767 - 255;

    static ALWAYS_INLINE SampleAdjust of(int16_t gain, int16_t offset)
    {
        int bounded = offset < -1023 ? -1023 : offset > 255 ? 255 : offset;
        return {gain, static_cast<int16_t>(bounded + kLift)};
    }
    template <int N> static ALWAYS_INLINE Words<N> offset(Words<N> scaled, Words<N> lifted)
    {
        return sub_sat_unsigned(add_sat(scaled, lifted), Words<N>::splat(kLift));
    }
    template <int N> ALWAYS_INLINE Words<N> offset(Words<N> scaled) const
    {
        return offset(scaled, Words<N>::splat(lifted_offset));
    }
    // The same without the cuts, for sums that `narrow` cuts.
    template <int N> ALWAYS_INLINE Words<N> offset_uncut(Words<N> scaled) const
    {
        return add(scaled, Words<N>::splat(lifted_offset - kLift));
    }
    // The product keeps its low 16 bits and is shifted right by 6.
    template <int N> ALWAYS_INLINE Words<N> scale(Words<N> sample) const
    {
        return shr<6>(mullo(sample, Words<N>::splat(gain)));
    }
    template <int N> ALWAYS_INLINE Words<N> operator()(Words<N> sample) const { return offset(scale(sample)); }
};

struct Adjustments {
    SampleAdjust luma, u, v;
};

ALWAYS_INLINE Adjustments adjustments_now()
{
    auto s = current_adjustment();
    return {SampleAdjust::of(s.luma_gain, s.luma_offset), SampleAdjust::of(s.chroma_gain, s.u_offset),
            SampleAdjust::of(s.chroma_gain, s.v_offset)};
}

// How samples are scaled: by any gain, which is exact, not fast: no picture looks right with gains that wrap, so the
// code is built for one width alone,
struct AnyGain {
    static constexpr int kWidest = 16;
    template <int N, int W> static ALWAYS_INLINE Words<N> load_words(const uint8_t* p) { return load_chroma<N, W>(p); }
    template <int N> static ALWAYS_INLINE EvenOddWords<N> split(Bytes<N> x) { return VSURF_ISA::split(x); }
    template <int N> static ALWAYS_INLINE LowHighWords<N> widen(Bytes<N> x) { return VSURF_ISA::widen(x); }
    template <int N> static ALWAYS_INLINE Words<N> scale(SampleAdjust by, Words<N> x) { return by.scale(x); }
};

// or by one whose products never wrap: from samples in the high bytes, 256 x * 4 gain >> 16, in one instruction.
struct CommonGain {
    static constexpr int kWidest = kRegister, kHighest = 65535 / 255;
    static ALWAYS_INLINE bool suits(SampleAdjust by) { return by.gain >= 0 && by.gain <= kHighest; }
    static ALWAYS_INLINE bool suits(const Adjustments& by) { return suits(by.luma) && suits(by.u); }
    template <int N, int W> static ALWAYS_INLINE Words<N> load_words(const uint8_t* p)
    {
        return load_chroma_high<N, W>(p);
    }
    template <int N> static ALWAYS_INLINE EvenOddWords<N> split(Bytes<N> x) { return split_high(x); }
    template <int N> static ALWAYS_INLINE LowHighWords<N> widen(Bytes<N> x) { return widen_high(x); }
    template <int N> static ALWAYS_INLINE Words<N> scale(SampleAdjust by, Words<N> x)
    {
        return mulhi_unsigned(x, Words<N>::splat(by.gain * 4));
    }
};

template <class Gain, int N> ALWAYS_INLINE Bytes<N> adjusted(SampleAdjust by, Bytes<N> samples)
{
    auto x = Gain::widen(samples);
    return narrow(LowHighWords<N>{by.offset_uncut(Gain::scale(by, x.low)), by.offset_uncut(Gain::scale(by, x.high))});
}

// The samples of a picture on their way from memory: as they are,
struct Plain {
    template <int N, int W> ALWAYS_INLINE Words<N> u(const uint8_t* p) const { return load_chroma<N, W>(p); }
    template <int N, int W> ALWAYS_INLINE Words<N> v(const uint8_t* p) const { return load_chroma<N, W>(p); }
    template <int N> ALWAYS_INLINE EvenOddWords<N> u_and_v(Bytes<N> uv) const
    {
        return split(uv);
    } // from u0 v0 u1 v1 ...
    template <int N> ALWAYS_INLINE Bytes<N> luma(Bytes<N> y) const { return y; }
    template <int N> ALWAYS_INLINE EvenOddWords<N> luma_times4(Bytes<N> y) const { return split_times4(y); }
};

// or adjusted.
template <class Gain> struct Adjusted {
    Adjustments by;

    template <int N> static ALWAYS_INLINE Words<N> apply(SampleAdjust by, Words<N> x)
    {
        return by.offset(Gain::scale(by, x));
    }
    template <int N, int W> ALWAYS_INLINE Words<N> u(const uint8_t* p) const
    {
        return apply(by.u, Gain::template load_words<N, W>(p));
    }
    template <int N, int W> ALWAYS_INLINE Words<N> v(const uint8_t* p) const
    {
        return apply(by.v, Gain::template load_words<N, W>(p));
    }
    template <int N> ALWAYS_INLINE EvenOddWords<N> u_and_v(Bytes<N> uv) const
    {
        auto words = Gain::split(uv);
        return {apply(by.u, words.even), apply(by.v, words.odd)};
    }
    template <int N> ALWAYS_INLINE Bytes<N> luma(Bytes<N> y) const { return adjusted<Gain>(by.luma, y); }
    template <int N> ALWAYS_INLINE EvenOddWords<N> luma_times4(Bytes<N> y) const
    {
        auto words = Gain::split(y);
        return shl<2>(EvenOddWords<N>{apply(by.luma, words.even), apply(by.luma, words.odd)});
    }
};

// Calls `work` with the kind of gain that serves luma and chroma.
template <class Work> ALWAYS_INLINE void with_gain(const Adjustments& by, const Work& work)
{
    if (CommonGain::suits(by)) work(CommonGain{});
    else work(AnyGain{});
}

} // namespace vsurf::VSURF_ISA
#endif
