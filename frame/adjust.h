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

    OP SampleAdjust of(int16_t gain, int16_t offset)
    {
        int bounded = offset < -1023 ? -1023 : offset > 255 ? 255 : offset;
        return {gain, static_cast<int16_t>(bounded + kLift)};
    }
    template <int N> OP half<N> offset(half<N> scaled, half<N> lifted)
    {
        return sub_sat_unsigned(add_sat(scaled, lifted), half<N>::splat(kLift));
    }
    template <int N> MEMBER half<N> offset(half<N> scaled) const
    {
        return offset(scaled, half<N>::splat(lifted_offset));
    }
    // The same without the cuts, for sums that `narrow` cuts.
    template <int N> MEMBER half<N> offset_uncut(half<N> scaled) const
    {
        return add(scaled, half<N>::splat(lifted_offset - kLift));
    }
    // The product keeps its low 16 bits and is shifted right by 6.
    template <int N> MEMBER half<N> scale(half<N> sample) const { return shr<6>(mullo(sample, half<N>::splat(gain))); }
    template <int N> MEMBER half<N> operator()(half<N> sample) const { return offset(scale(sample)); }
};

struct Adjustments {
    SampleAdjust luma, u, v;
};

OP Adjustments adjustments_now()
{
    auto s = current_adjustment();
    return {SampleAdjust::of(s.luma_gain, s.luma_offset), SampleAdjust::of(s.chroma_gain, s.u_offset),
            SampleAdjust::of(s.chroma_gain, s.v_offset)};
}

// How samples are scaled: by any gain, which is exact, not fast: no picture looks right with gains that wrap, so the
// code is built for one width alone,
struct AnyGain {
    static constexpr int kWidest = 16;
    template <int N, int W> OP half<N> load_words(const uint8_t* p) { return load_chroma<N, W>(p); }
    template <int N> OP i16<N> split(u8<N> x) { return VSURF_ISA::split(x); }
    template <int N> OP wide<N> widen(u8<N> x) { return VSURF_ISA::widen(x); }
    template <int N> OP half<N> scale(SampleAdjust by, half<N> x) { return by.scale(x); }
};

// or by one whose products never wrap: from samples in the high bytes, 256 x * 4 gain >> 16, in one instruction.
struct CommonGain {
    static constexpr int kWidest = kLanes, kHighest = 65535 / 255;
    OP bool suits(SampleAdjust by) { return by.gain >= 0 && by.gain <= kHighest; }
    OP bool suits(const Adjustments& by) { return suits(by.luma) && suits(by.u); }
    template <int N, int W> OP half<N> load_words(const uint8_t* p) { return load_chroma_high<N, W>(p); }
    template <int N> OP i16<N> split(u8<N> x) { return split_high(x); }
    template <int N> OP wide<N> widen(u8<N> x) { return widen_high(x); }
    template <int N> OP half<N> scale(SampleAdjust by, half<N> x)
    {
        return mulhi_unsigned(x, half<N>::splat(by.gain * 4));
    }
};

template <class Gain, int N> OP u8<N> adjusted(SampleAdjust by, u8<N> samples)
{
    auto x = Gain::widen(samples);
    return narrow(wide<N>{by.offset_uncut(Gain::scale(by, x.low)), by.offset_uncut(Gain::scale(by, x.high))});
}

// The samples of a picture on their way from memory: as they are,
struct Plain {
    template <int N, int W> MEMBER half<N> u(const uint8_t* p) const { return load_chroma<N, W>(p); }
    template <int N, int W> MEMBER half<N> v(const uint8_t* p) const { return load_chroma<N, W>(p); }
    template <int N> MEMBER i16<N> u_and_v(u8<N> uv) const { return split(uv); } // from u0 v0 u1 v1 ...
    template <int N> MEMBER u8<N> luma(u8<N> y) const { return y; }
    template <int N> MEMBER i16<N> luma_times4(u8<N> y) const { return split_times4(y); }
};

// or adjusted.
template <class Gain> struct Adjusted {
    Adjustments by;

    template <int N> OP half<N> apply(SampleAdjust by, half<N> x) { return by.offset(Gain::scale(by, x)); }
    template <int N, int W> MEMBER half<N> u(const uint8_t* p) const
    {
        return apply(by.u, Gain::template load_words<N, W>(p));
    }
    template <int N, int W> MEMBER half<N> v(const uint8_t* p) const
    {
        return apply(by.v, Gain::template load_words<N, W>(p));
    }
    template <int N> MEMBER i16<N> u_and_v(u8<N> uv) const
    {
        auto words = Gain::split(uv);
        return {apply(by.u, words.even), apply(by.v, words.odd)};
    }
    template <int N> MEMBER u8<N> luma(u8<N> y) const { return adjusted<Gain>(by.luma, y); }
    template <int N> MEMBER i16<N> luma_times4(u8<N> y) const
    {
        auto words = Gain::split(y);
        return shl<2>(i16<N>{apply(by.luma, words.even), apply(by.luma, words.odd)});
    }
};

// Calls `work` with the kind of gain that serves luma and chroma.
template <class Work> OP void with_gain(const Adjustments& by, const Work& work)
{
    if (CommonGain::suits(by)) work(CommonGain{});
    else work(AnyGain{});
}

} // namespace vsurf::VSURF_ISA
#endif
