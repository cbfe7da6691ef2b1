// SPDX-License-Identifier: MIT
// The roof's inner loops, compiled once per instruction set.
#include <stddef.h>

#include "bench/roof_band.h"
#include "bench/roof_registers.h"

// A cursor must stay in registers: bytes are stored, which may be those of anything in memory.
#define IN_REGISTERS [[gnu::always_inline]]

namespace bench::ROOF_ISA {
namespace {

constexpr int narrower(int a, int b) { return a < b ? a : b; }
constexpr int common_divisor(int a, int b) { return b == 0 ? a : common_divisor(b, a % b); }

template <int bytes> void read(const uint8_t* from)
{
    using R = Register<narrower(bytes, kWidest)>;
    for (int i = 0; i < bytes; i += narrower(bytes, kWidest)) R::keep(R::load(from + i));
}

// Reads `in` bytes and writes `out` bytes, which repeat or drop what was read.
template <int in, int out, Stores stores> void move(const uint8_t* from, uint8_t* to)
{
    constexpr int kStep = narrower(common_divisor(in, out), kWidest), kLoads = in / kStep;
    using R = Register<kStep>;
    typename R::Value seen[kLoads] = {};
    for (int i = 0; i < kLoads; i++) R::keep(seen[i] = R::load(from + i * kStep));
    for (int i = 0; i < out / kStep; i++) {
        uint8_t* at = to + i * kStep;
        if (stores == Stores::streaming) {
            R::stream(at, seen[i % kLoads]);
        } else {
            R::store(at, seen[i % kLoads]);
        }
    }
}

// 16 luma bytes, 32 surface bytes of which the first 8 are not written.
inline void move_with_gap(const uint8_t* from, uint8_t* to)
{
    constexpr int kStep = narrower(16, kWidest);
    const auto low = Register<8>::load(from);
    Register<8>::store(to + 8, low);
    for (int i = 0; i < 16; i += kStep) Register<kStep>::store(to + 16 + i, Register<kStep>::load(from + i));
}

// Reads some and steps over it.
template <int bytes> IN_REGISTERS inline void pass(const uint8_t*& from)
{
    read<bytes>(from);
    from += bytes;
}

// A line under way, of `times` source bytes for each that counts as luma. Besides them are read `whole` streams of as
// many bytes as of luma and then `half` ones of half as many.
template <int whole, int half, int times> struct Cursor {
    const uint8_t *luma, *u, *v;
    uint8_t* to;
    int left;
    bool fresh; // false: the line is made from what was read before; the source's first bytes take its place
    bool chroma;
    const uint8_t *also0, *also1, *also2, *also3;

    template <int unit> IN_REGISTERS void pass_others()
    {
        for (int i = 1; i < times; i++) read<unit>(luma + i * unit);
        if (chroma) {
            pass<unit / 2>(u);
            pass<unit / 2>(v);
        }
        if constexpr (whole + half > 0) pass<(whole > 0 ? unit : unit / 2)>(also0);
        if constexpr (whole + half > 1) pass<(whole > 1 ? unit : unit / 2)>(also1);
        if constexpr (whole + half > 2) pass<(whole > 2 ? unit : unit / 2)>(also2);
        if constexpr (whole + half > 3) pass<(whole > 3 ? unit : unit / 2)>(also3);
    }

    // Steps over the line in units of `unit` luma bytes, as long as whole units are left.
    template <int unit, int written_for_two, Stores stores, bool gaps> IN_REGISTERS void run()
    {
        constexpr int kOut = unit * written_for_two / 2;
        const int advance = fresh ? times * unit : 0;
        for (; left >= unit; left -= unit) {
            pass_others<unit>();
            if constexpr (gaps) {
                for (int i = 0; i < unit; i += 16) move_with_gap(luma + i, to + 2 * i);
            } else {
                move<unit, kOut, stores>(luma, to);
            }
            luma += advance;
            to += kOut;
        }
    }

    // What is left of a line, in ever smaller pieces.
    template <int written_for_two, Stores stores, bool gaps> IN_REGISTERS void rest()
    {
        run<16, written_for_two, stores, gaps>();
        if constexpr (!gaps) run<8, written_for_two, stores, false>();
        if constexpr (written_for_two == 2) {
            run<4, 2, stores, false>();
            run<2, 2, stores, false>();
        }
        if constexpr (written_for_two <= 2) single_bytes(left, written_for_two == 1 ? 2 : 1);
    }

    IN_REGISTERS void single_bytes(int count, int step)
    {
        for (; count > 0; count -= step, left -= step, luma += fresh ? times * step : 0) *to++ = *luma;
    }

    template <int unit> IN_REGISTERS void skip()
    {
        for (; left >= unit; left -= unit, luma += fresh ? times * unit : 0) {
            pass_others<unit>();
            read<unit>(luma);
        }
    }
};

// Ordinary stores of `count` bytes of any content.
template <int step = kWidest> void put(const uint8_t* from, uint8_t* to, ptrdiff_t count)
{
    const auto seen = Register<step>::load(from);
    for (; count >= step; count -= step, to += step) Register<step>::store(to, seen);
    if constexpr (step > 1) put<step / 2>(from, to, count);
}

constexpr int unit_of(int written_for_two) { return written_for_two % 2 == 1 ? 128 : 64; }

// Non-temporal stores of the whole cache lines, ordinary ones before and after, wherever the line begins and ends.
template <int written_for_two, class Line> void stream_line(Line cursor)
{
    constexpr int kUnit = unit_of(written_for_two), kOut = kUnit * written_for_two / 2;
    uint8_t* const end = cursor.to + ptrdiff_t{cursor.left} * written_for_two / 2;
    const ptrdiff_t head = -reinterpret_cast<intptr_t>(cursor.to) & 63;
    if (end - cursor.to < head + kOut) return cursor.template rest<written_for_two, Stores::ordinary, false>();
    put(cursor.luma, cursor.to, head);
    cursor.to += head;
    const int streamed = static_cast<int>((end - cursor.to) / kOut) * kUnit, behind = cursor.left - streamed;
    cursor.left = streamed;
    cursor.template run<kUnit, written_for_two, Stores::streaming, false>();
    cursor.left = behind;
    const uint8_t* const last = cursor.luma;
    cursor.template skip<16>();
    cursor.template skip<2>();
    for (; end - cursor.to >= 64; cursor.to += 64) move<64, 64, Stores::streaming>(last, cursor.to);
    put(last, cursor.to, end - cursor.to);
}

template <int written_for_two, Stores stores, bool gaps, class Line> void copy_line(Line cursor)
{
    if constexpr (stores == Stores::streaming && !gaps) {
        stream_line<written_for_two>(cursor);
    } else {
        constexpr int kUnit = unit_of(written_for_two);
        cursor.template run<kUnit, written_for_two, stores, gaps>();
        if constexpr (!gaps && kUnit > 64) cursor.template run<64, written_for_two, stores, false>();
        if constexpr (!gaps) cursor.template run<32, written_for_two, stores, false>();
        cursor.template rest<written_for_two, stores, gaps>();
    }
}

template <int written_for_two, Stores stores, bool gaps, int whole, int half, int times = 1>
void copy_lines(const Band& band)
{
    Cursor<whole, half, times> cursor{band.luma, band.u, band.v, band.to, band.luma_bytes, true, false, {}, {}, {}, {}};
    const auto begins = [](int line, int every) { return every != 0 && line % every == 0; };
    for (int line = 0; line < band.lines; line++) {
        const auto also = [&](const Stream& stream) { return stream.from + line * intptr_t{stream.pitch}; };
        cursor.also0 = also(band.also[0]);
        cursor.also1 = also(band.also[1]);
        cursor.also2 = also(band.also[2]);
        cursor.also3 = also(band.also[3]);
        cursor.fresh = begins(line, band.luma_every);
        cursor.chroma = band.chroma_bytes != 0 && begins(line, band.chroma_every);
        if (line % 2 == 0) {
            copy_line<written_for_two, stores, false>(cursor);
        } else {
            copy_line<written_for_two, stores, gaps>(cursor);
        }
        if (begins(line + 1, band.luma_every)) cursor.luma += band.luma_pitch;
        if (band.chroma_bytes != 0 && begins(line + 1, band.chroma_every)) {
            cursor.u += band.chroma_pitch;
            cursor.v += band.chroma_pitch;
        }
        cursor.to += band.to_pitch;
    }
}

void read_lines(const Stream& stream, int lines)
{
    for (int line = 0; line < lines; line++) {
        const uint8_t *from = stream.from + line * intptr_t{stream.pitch}, *end = from + stream.bytes;
        while (end - from >= 64) pass<64>(from);
        while (end - from >= 8) pass<8>(from);
    }
}

template <int written_for_two, Stores stores, bool gaps> void copy(const Band& band)
{
    if (band.luma_bytes == 0) return read_lines(band.also[0], band.lines);
    if constexpr (gaps) return copy_lines<written_for_two, stores, true, 0, 0>(band);
    if constexpr (written_for_two == 2) {
        if (band.luma_times == 2) return copy_lines<2, stores, false, 0, 0, 2>(band);
        if (band.luma_times == 3) return copy_lines<2, stores, false, 0, 0, 3>(band);
        if (band.luma_times == 4) return copy_lines<2, stores, false, 0, 0, 4>(band);
    }
    if (band.also[2].bytes != 0) return copy_lines<written_for_two, stores, false, 2, 2>(band);
    if (band.also[1].bytes != 0) return copy_lines<written_for_two, stores, false, 2, 0>(band);
    if (band.also[0].bytes != 0) return copy_lines<written_for_two, stores, false, 1, 0>(band);
    copy_lines<written_for_two, stores, false, 0, 0>(band);
}

template <Stores stores> void copy_as(const Band& band)
{
    switch (band.written_for_two) {
    case 1: return copy<1, stores, false>(band);
    case 2: return copy<2, stores, false>(band);
    case 3: return copy<3, stores, false>(band);
    case 4: return band.gaps ? copy<4, stores, true>(band) : copy<4, stores, false>(band);
    case 6: return copy<6, stores, false>(band);
    case 8: return copy<8, stores, false>(band);
    default: __builtin_unreachable();
    }
}

} // namespace

void copy_band(const Band& band, Stores stores);
void finish(Stores stores);

void copy_band(const Band& band, Stores stores)
{
    switch (stores) {
    case Stores::ordinary: return copy_as<Stores::ordinary>(band);
    case Stores::streaming: return copy_as<Stores::streaming>(band);
    }
}

void finish(Stores stores)
{
#if defined __SSE2__
    if (stores == Stores::streaming) _mm_sfence();
#else
    static_cast<void>(stores);
#endif
}

} // namespace bench::ROOF_ISA
