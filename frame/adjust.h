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
    template <int N> MEMBER half<N> offset(half<N> scaled) const
    {
        return sub_sat_unsigned(add_sat(scaled, half<N>::splat(lifted_offset)), half<N>::splat(kLift));
    }
    // The product keeps its low 16 bits and is shifted right by 6.
    template <int N> MEMBER half<N> operator()(half<N> sample) const
    {
        return offset(shr<6>(mullo(sample, half<N>::splat(gain))));
    }
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

// How samples are scaled: by any gain,
struct AnyGain {
    template <int N, int W> OP half<N> chroma(const uint8_t* p) { return load_chroma<N, W>(p); }
    template <int N> OP i16<N> luma(u8<N> y) { return split(y); }
    template <int N> OP half<N> apply(SampleAdjust by, half<N> x) { return by(x); }
};

// or by one whose products never wrap: from samples in the high bytes, 256 x * 4 gain >> 16, in one instruction.
struct CommonGain {
    static constexpr int kHighest = 65535 / 255;
    OP bool suits(SampleAdjust by) { return by.gain >= 0 && by.gain <= kHighest; }
    template <int N, int W> OP half<N> chroma(const uint8_t* p) { return load_chroma_high<N, W>(p); }
    template <int N> OP i16<N> luma(u8<N> y) { return split_high(y); }
    template <int N> OP half<N> apply(SampleAdjust by, half<N> x)
    {
        return by.offset(mulhi_unsigned(x, half<N>::splat(by.gain * 4)));
    }
};

// The samples of a picture on their way from memory: as they are,
struct Plain {
    template <int N, int W> MEMBER half<N> u(const uint8_t* p) const { return load_chroma<N, W>(p); }
    template <int N, int W> MEMBER half<N> v(const uint8_t* p) const { return load_chroma<N, W>(p); }
    template <int N> MEMBER u8<N> luma(u8<N> y) const { return y; }
    template <int N> MEMBER i16<N> luma_times4(u8<N> y) const { return split_times4(y); }
};

// or adjusted.
template <class Gain> struct Adjusted {
    Adjustments by;

    template <int N, int W> MEMBER half<N> u(const uint8_t* p) const
    {
        return Gain::apply(by.u, Gain::template chroma<N, W>(p));
    }
    template <int N, int W> MEMBER half<N> v(const uint8_t* p) const
    {
        return Gain::apply(by.v, Gain::template chroma<N, W>(p));
    }
    template <int N> MEMBER i16<N> words(u8<N> y) const
    {
        auto samples = Gain::luma(y);
        return {Gain::apply(by.luma, samples.even), Gain::apply(by.luma, samples.odd)};
    }
    template <int N> MEMBER u8<N> luma(u8<N> y) const { return join(words(y)); }
    template <int N> MEMBER i16<N> luma_times4(u8<N> y) const { return shl<2>(words(y)); }
};

} // namespace vsurf::VSURF_ISA
#endif
