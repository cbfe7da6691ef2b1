// SPDX-License-Identifier: MIT
// The picture adjustment: the state of the process, and what it does to a sample.
#pragma once
#include <stdint.h>

namespace vsurf {

struct Adjustment {
    int16_t luma_gain, chroma_gain, luma_offset, u_offset, v_offset; // gains in 1/64, offsets in sample units
};

extern Adjustment adjustment_state;

} // namespace vsurf

#ifdef VSURF_ISA
#include "frame/blocks.h"

namespace vsurf::VSURF_ISA {

// A gain and an offset. A scaled sample lies in 0..1023, so an offset beyond -1023..255 acts like that bound. The
// offset is lifted by 32767 - 255: then one signed saturation cuts the sum at 255, and one unsigned saturation cuts it
// at 0 on the way back.
struct SampleAdjust {
    int16_t gain, lifted_offset;
    static constexpr int kLift = 32767 - 255;

    static ALWAYS_INLINE SampleAdjust with(int16_t gain, int16_t offset)
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
};

struct Adjustments {
    SampleAdjust luma, u, v;
};

// A concurrent `get_contrast_data` is the caller's mistake and may give a mixture of old and new values. Relaxed atomic
// loads keep that defined, and each is a plain move.
ALWAYS_INLINE Adjustment current_adjustment()
{
    const Adjustment& s = adjustment_state;
    auto read = [](const int16_t& x) VSURF_INLINED { return __atomic_load_n(&x, __ATOMIC_RELAXED); };
    return {read(s.luma_gain), read(s.chroma_gain), read(s.luma_offset), read(s.u_offset), read(s.v_offset)};
}

ALWAYS_INLINE Adjustments adjustments_now()
{
    auto s = current_adjustment();
    return {SampleAdjust::with(s.luma_gain, s.luma_offset), SampleAdjust::with(s.chroma_gain, s.u_offset),
            SampleAdjust::with(s.chroma_gain, s.v_offset)};
}

// Any gain: the product of gain and sample keeps its low 16 bits and is shifted right by 6. No picture looks right with
// gains that wrap, so it is built for the narrowest registers only. It is also used where the order of stores matters.
struct WrappingGain {
    static constexpr int kWidest = kBlock;
    template <int N, int W, class Source> static ALWAYS_INLINE Words<N> words(const Source& of, ptrdiff_t x)
    {
        return of.template words<N, W>(x);
    }
    template <int N> static ALWAYS_INLINE Words<N> of_words(Words<N> samples) { return samples; }
    template <int N> static ALWAYS_INLINE EvenOddWords<N> split(Bytes<N> x) { return VSURF_ISA::split(x); }
    template <int N> static ALWAYS_INLINE LowHighWords<N> widen(Bytes<N> x) { return VSURF_ISA::widen(x); }
    template <int N> static ALWAYS_INLINE Words<N> scale(SampleAdjust by, Words<N> x)
    {
        return shr<6>(mullo(x, Words<N>::splat(by.gain)));
    }
};

// A gain whose products never wrap. With the sample in the high byte of its word one multiplication also shifts:
// (256 x * 4 gain) >> 16 is (x * gain) >> 6.
struct FastGain {
    static constexpr int kWidest = kRegister, kHighest = 65535 / 255;
    static ALWAYS_INLINE bool suits(SampleAdjust by) { return by.gain >= 0 && by.gain <= kHighest; }
    static ALWAYS_INLINE bool suits(const Adjustments& by) { return suits(by.luma) && suits(by.u); }
    template <int N, int W, class Source> static ALWAYS_INLINE Words<N> words(const Source& of, ptrdiff_t x)
    {
        if constexpr (requires { of.template high_words<N, W>(x); }) return of.template high_words<N, W>(x);
        else return of_words(of.template words<N, W>(x));
    }
    template <int N> static ALWAYS_INLINE Words<N> of_words(Words<N> samples) { return shl<8>(samples); }
    template <int N> static ALWAYS_INLINE EvenOddWords<N> split(Bytes<N> x) { return split_high(x); }
    template <int N> static ALWAYS_INLINE LowHighWords<N> widen(Bytes<N> x) { return widen_high(x); }
    template <int N> static ALWAYS_INLINE Words<N> scale(SampleAdjust by, Words<N> x)
    {
        return mulhi_unsigned(x, Words<N>::splat(by.gain * 4));
    }
};

// Adjusted samples, of bytes and of the words that the gain takes.
template <class Gain, int N> ALWAYS_INLINE Words<N> adjusted(SampleAdjust by, Words<N> x)
{
    return by.offset(Gain::scale(by, x));
}
template <class Gain, int N> ALWAYS_INLINE Bytes<N> adjusted(SampleAdjust by, Bytes<N> samples)
{
    auto x = Gain::widen(samples);
    return narrow(LowHighWords<N>{by.offset_uncut(Gain::scale(by, x.low)), by.offset_uncut(Gain::scale(by, x.high))});
}

} // namespace vsurf::VSURF_ISA
#endif
