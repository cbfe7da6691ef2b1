// SPDX-License-Identifier: MIT
// Lines of planes under lines of a subpicture, in blocks down to 8 samples.
#pragma once
#include "frame/sink.h"
#include "subpicture/blend.h"

namespace vsurf::VSURF_ISA {

// What is done to blended samples: nothing. `sixteenths` takes them as the scale of alphas leaves them.
struct Unadjusted {
    static constexpr bool kFast = true;
    static ALWAYS_INLINE bool suits() { return true; }
    template <int N> ALWAYS_INLINE Bytes<N> operator()(Bytes<N> samples) const { return samples; }
    template <int N> ALWAYS_INLINE Bytes<N> sixteenths(LowHighWords<N> x) const
    {
        return narrow(LowHighWords<N>{shr<kAlphaBits>(x.low), shr<kAlphaBits>(x.high)});
    }
};

// Blended samples are adjusted. With the fast gain (16 x * 64 gain) >> 16 is (x * gain) >> 6, for `sixteenths`.
template <class Gain> struct Adjusted {
    static constexpr bool kFast = SameAs<Gain, FastGain>;
    static_assert(FastGain::kHighest * 64 <= 65535);
    SampleAdjust by;

    ALWAYS_INLINE Adjusted<WrappingGain> exact() const { return {by}; }
    ALWAYS_INLINE bool suits() const { return Gain::suits(by); }
    template <int N> ALWAYS_INLINE Bytes<N> operator()(Bytes<N> samples) const { return adjusted<Gain>(by, samples); }
    template <int N> ALWAYS_INLINE Words<N> sixteenths(Words<N> x) const
    {
        auto whole = as_words(bit_and(as_bytes(x), as_bytes(Words<N>::splat(-1 << kAlphaBits))));
        return by.offset_uncut(mulhi_unsigned(whole, Words<N>::splat(by.gain * 64)));
    }
    template <int N> ALWAYS_INLINE Bytes<N> sixteenths(LowHighWords<N> x) const
    {
        return narrow(LowHighWords<N>{sixteenths(x.low), sixteenths(x.high)});
    }
};

// N alphas in the form that Blend::bytes takes, by what is known of them.
struct Transparent {};
template <Alphas known, class Alpha, int N> ALWAYS_INLINE auto load_alphas(const uint8_t* p)
{
    if constexpr (known == Alphas::transparent) return Transparent{};
    else if constexpr (known == Alphas::on_scale) return Alpha::template weights<N>(p);
    else return Alpha::template words<N>(p);
}

template <Source Picture, class After> struct Blend {
    Picture picture;
    const uint8_t* subpicture;
    After after;

    ALWAYS_INLINE Blend<Picture, ExactOf<After>> exact() const
    {
        return {picture, subpicture, VSURF_ISA::exact(after)};
    }
    template <int N> ALWAYS_INLINE Bytes<N> bytes(ptrdiff_t x, Transparent) const
    {
        return after(picture.template bytes<N, 1>(x));
    }
    template <int N> ALWAYS_INLINE Bytes<N> bytes(ptrdiff_t x, const Weights<N>& weights) const
    {
        return after.sixteenths(weights.blend(picture.template bytes<N, 1>(x), load<N>(subpicture + x)));
    }
    template <int N> ALWAYS_INLINE Bytes<N> bytes(ptrdiff_t x, LowHighWords<N> alphas) const
    {
        return after(blended(picture.template bytes<N, 1>(x), load<N>(subpicture + x), alphas));
    }
    ALWAYS_INLINE void store_eight(uint8_t* to, ptrdiff_t x, Words<16> alphas) const
    {
        auto eight = blended(picture.template words<16, 1>(x), load_chroma<16>(subpicture + x), alphas);
        put_first8(to, after(pack_in_order(eight, eight)));
    }
};

// A line of one plane; x counts samples. Only the widest steps look at what kind of alphas they have.
template <class Alpha, Source Picture, class After> struct BlendedLine {
    static constexpr int kBytes = 1, kGrain = 1, kWidest = After::kFast ? kUnit / Alpha::kPixels : kBlock;
    static constexpr bool kComplete = true, kEights = true;
    Blend<Picture, After> blend;
    const uint8_t* alpha;

    ALWAYS_INLINE BlendedLine<Alpha, Picture, ExactOf<After>> exact() const { return {blend.exact(), alpha}; }
    struct Registers {
        Bytes<kRegister> of[kUnit / Alpha::kPixels / kRegister];
    };
    template <int> ALWAYS_INLINE Nothing shared(ptrdiff_t) const { return {}; }
    template <int N> ALWAYS_INLINE auto own(ptrdiff_t x) const
    {
        if constexpr (After::kFast && N == kWidest) {
            return with_alphas(alpha + x * Alpha::kPixels, [=, this]<Alphas known>() VSURF_INLINED {
                Registers registers;
                for (int i = 0; i < N; i += kRegister)
                    registers.of[i / kRegister] = this->template bytes<known, kRegister>(x + i);
                return registers;
            });
        } else {
            return bytes<Alphas::any, N>(x);
        }
    }
    template <class To, int N> static ALWAYS_INLINE void store(To to, Bytes<N> samples, Nothing) { put(to, samples); }
    template <class To> static ALWAYS_INLINE void store(To to, const Registers& registers, Nothing)
    {
        for (int i = 0; i < kWidest; i += kRegister) put(to + i, registers.of[i / kRegister]);
    }
    ALWAYS_INLINE void store_eight(uint8_t* to, ptrdiff_t x) const
    {
        blend.store_eight(to, x, Alpha::eight(alpha + x * Alpha::kPixels));
    }

private:
    template <Alphas known, int N> ALWAYS_INLINE Bytes<N> bytes(ptrdiff_t x) const
    {
        return blend.template bytes<N>(x, load_alphas<known, Alpha, N>(alpha + x * Alpha::kPixels));
    }
};
static_assert(Line<BlendedLine<PixelAlpha, Row, Unadjusted>> &&
              Line<BlendedLine<OddAlpha, Average<Row>, Adjusted<WrappingGain>>>);

} // namespace vsurf::VSURF_ISA
