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

// One gain and one offset. The product keeps its low 16 bits, so x * gain >> 6 lies in 0..1023 and an offset beyond
// -1023..255 acts like that bound. Lifting the sum by 32767 - 255 lets one signed saturation cut it at 255 and one
// unsigned saturation cut it at 0 on the way back.
struct SampleAdjust {
    int16_t gain, lifted_offset;
    static constexpr int kLift = 32767 - 255;

    OP SampleAdjust of(int16_t gain, int16_t offset)
    {
        int bounded = offset < -1023 ? -1023 : offset > 255 ? 255 : offset;
        return {gain, static_cast<int16_t>(bounded + kLift)};
    }
    template <int N> MEMBER half<N> operator()(half<N> x) const
    {
        x = shr<6>(mullo(x, half<N>::splat(gain)));
        return sub_sat_unsigned(add_sat(x, half<N>::splat(lifted_offset)), half<N>::splat(kLift));
    }
    template <int N> MEMBER i16<N> operator()(i16<N> x) const { return {(*this)(x.even), (*this)(x.odd)}; }
};

// The samples of a picture on their way from memory: as they are, or adjusted.
struct Plain {
    template <int N> MEMBER half<N> u(half<N> x) const { return x; }
    template <int N> MEMBER half<N> v(half<N> x) const { return x; }
    template <int N> MEMBER u8<N> luma(u8<N> y) const { return y; }
    template <int N> MEMBER i16<N> luma_times4(u8<N> y) const { return split_times4(y); }
};

struct Adjusted {
    SampleAdjust of_luma, of_u, of_v;

    OP Adjusted now()
    {
        auto s = current_adjustment();
        return {SampleAdjust::of(s.luma_gain, s.luma_offset), SampleAdjust::of(s.chroma_gain, s.u_offset),
                SampleAdjust::of(s.chroma_gain, s.v_offset)};
    }
    template <int N> MEMBER half<N> u(half<N> x) const { return of_u(x); }
    template <int N> MEMBER half<N> v(half<N> x) const { return of_v(x); }
    template <int N> MEMBER u8<N> luma(u8<N> y) const { return join(of_luma(split(y))); }
    template <int N> MEMBER i16<N> luma_times4(u8<N> y) const { return shl<2>(of_luma(split(y))); }
};

} // namespace vsurf::VSURF_ISA
#endif
