// SPDX-License-Identifier: MIT
#include "show/overlay.h"
#include "show/blend.h"

namespace vsurf::VSURF_ISA {

struct Pixels {
    alignas(64) uint8_t bytes[4 * kPadded];
};

static bool is_coverage(const vsurf_overlay& overlay) { return overlay.kind == VSURF_COVERAGE; }
static bool is_premultiplied(const vsurf_overlay& overlay)
{
    return overlay.kind == VSURF_PREMULTIPLIED_RGBA || overlay.kind == VSURF_PREMULTIPLIED_BGRA;
}
static bool blue_first(const vsurf_overlay& overlay)
{
    return overlay.kind == VSURF_STRAIGHT_BGRA || overlay.kind == VSURF_PREMULTIPLIED_BGRA;
}

// The part of `size` from `at` on that lies inside `from` to `end`.
static Columns clipped(int64_t at, int64_t size, ptrdiff_t from, ptrdiff_t end)
{
    const int64_t first = at < from ? from : at, last = at + size > end ? end : at + size;
    return first < last ? Columns{static_cast<ptrdiff_t>(first), static_cast<ptrdiff_t>(last)} : Columns{from, from};
}
static Columns columns_of(const Plan& plan, const vsurf_overlay& overlay, ptrdiff_t from, ptrdiff_t end)
{
    return clipped(int64_t{overlay.x} - plan.x, overlay.width, from, end);
}
static Columns lines_of(const Plan& plan, const vsurf_overlay& overlay, ptrdiff_t from, ptrdiff_t end)
{
    return clipped(int64_t{overlay.y} - plan.y, overlay.height, from, end);
}

Columns touched_columns(const Plan& plan, ptrdiff_t line)
{
    Columns all{plan.width, 0};
    for (int i = 0; i < plan.overlay_count; i++) {
        const vsurf_overlay& overlay = plan.overlays[i];
        const Columns lines = lines_of(plan, overlay, line, line + 2);
        const Columns columns = columns_of(plan, overlay, 0, plan.width);
        if (lines.from == lines.end || columns.from == columns.end) continue;
        if (columns.from < all.from) all.from = columns.from;
        if (columns.end > all.end) all.end = columns.end;
    }
    if (all.from >= all.end) return {0, 0};
    all.from &= -kGrid;
    if (plan.width - all.from < kGrid && all.from > 0) all.from -= kGrid;
    all.end = (all.end + kGrid - 1) & -kGrid;
    if (plan.width - all.end < kGrid) all.end = plan.width;
    return all;
}

// In whole registers, and with a partner of the last pixel.
ALWAYS_INLINE ptrdiff_t padded(ptrdiff_t pixels) { return (chroma_columns(pixels) * 2 + kGrid - 1) & -kGrid; }

// Takes the overlay's pixels of a line from one column to another, with zeros where it has none. A last pixel without a
// partner is its own one. False: they are all zeros.
static bool fetch(const Plan& plan, const vsurf_overlay& overlay, ptrdiff_t line, ptrdiff_t from, ptrdiff_t end,
                  Pixels& to)
{
    const Columns lines = lines_of(plan, overlay, line, line + 1), columns = columns_of(plan, overlay, from, end);
    if (lines.from == lines.end) return false;
    const int size = is_coverage(overlay) ? 1 : 4;
    const ptrdiff_t before = (columns.from - from) * size, count = (columns.end - columns.from) * size;
    const int64_t row = line + int64_t{plan.y} - overlay.y, column = columns.from + int64_t{plan.x} - overlay.x;
    const uint8_t* pixels = overlay.pixels + static_cast<ptrdiff_t>(column) * size;
    if (row != 0) pixels += static_cast<ptrdiff_t>(row) * overlay.pitch;
    const ptrdiff_t all = padded(end - from) * size;
    __builtin_memset(to.bytes, 0, static_cast<size_t>(before));
    copy_bytes(to.bytes + before, pixels, count);
    __builtin_memset(to.bytes + before + count, 0, static_cast<size_t>(all - before - count));
    if (end == plan.width && (end - from) % 2 != 0)
        copy_bytes(to.bytes + before + count, to.bytes + before + count - size, size);
    auto any_set = Bytes<kRegister>::splat(0);
    for (ptrdiff_t i = 0; i < all; i += kRegister) any_set = bit_or(any_set, load<kRegister>(to.bytes + i));
    return !all_zero(any_set);
}

static void fill(uint8_t* to, int value, ptrdiff_t count) { __builtin_memset(to, value, static_cast<size_t>(count)); }

static int colour_byte(const vsurf_overlay& overlay, int i) { return static_cast<int>(overlay.colour >> 8 * i & 255); }

static void take_coverage(const vsurf_overlay& overlay, const Pixels& pixels, OverlayLine& to, ptrdiff_t count)
{
    auto alpha = Words<kRegister>::splat(colour_byte(overlay, 3));
    for (ptrdiff_t x = 0; x < count; x += kRegister) {
        auto coverage = widen(load<kRegister>(pixels.bytes + x));
        put(to.alpha + x,
            narrow(LowHighWords<kRegister>{by_255(mullo(coverage.low, alpha)), by_255(mullo(coverage.high, alpha))}));
    }
}

static void take_bgr(const vsurf_overlay& overlay, const Pixels& pixels, OverlayLine& to, ptrdiff_t count)
{
    if (is_coverage(overlay)) {
        take_coverage(overlay, pixels, to, count);
        for (int i = 0; i < 3; i++) fill(to.of[i], colour_byte(overlay, i), count);
        return;
    }
    alignas(64) uint8_t outer[2 * kPadded], inner[2 * kPadded];
    const int first = blue_first(overlay) ? 0 : 2;
    deinterleave(pixels.bytes, outer, inner, 2 * count);
    deinterleave(outer, to.of[first], to.of[2 - first], count);
    deinterleave(inner, to.of[1], to.alpha, count);
}

// One of Y, U and V of pixels, whose parts are those of their first three bytes. Parts have up to 17 bits: they are
// added in halves. What is added to a premultiplied pixel is multiplied by its alpha, too.
static NEVER_INLINE void take_component(const uint8_t* pixels, const int* parts, int added, bool premultiplied,
                                        uint8_t* to, ptrdiff_t count)
{
    constexpr int N = kRegister < 32 ? kRegister : 32;
    auto half = [=](int i, int j) VSURF_INLINED { return Words<N>::alternate(parts[i] / 2, j < 3 ? parts[j] / 2 : 0); };
    auto rest = [=](int i, int j) VSURF_INLINED {
        return Words<N>::alternate(parts[i] - parts[i] / 2, j < 3 ? parts[j] - parts[j] / 2 : 0);
    };
    auto outer_half = half(0, 2), outer_rest = rest(0, 2), inner_half = half(1, 3), inner_rest = rest(1, 3);
    auto one_half = pair_dots(Words<N>::splat(128), Words<N>::splat(128)); // of 65536
    auto to_65536 = Words<N>::alternate(0, 16384);
    auto sum = [=](const uint8_t* p) VSURF_INLINED {
        auto words = split(load<N>(p));
        auto addend = Words<N>::splat(added);
        if (premultiplied) addend = by_255(mullo(words.odd, addend));
        auto outer = add(pair_dots(words.even, outer_half), pair_dots(words.even, outer_rest));
        auto inner = add(pair_dots(words.odd, inner_half), pair_dots(words.odd, inner_rest));
        auto constant = add(pair_dots(shl<2>(addend), to_65536), one_half);
        return shr_signed<16>(add(add(outer, inner), constant));
    };
    for (ptrdiff_t x = 0; x < count; x += N) {
        const uint8_t* p = pixels + 4 * x;
        auto any_set = bit_or(bit_or(load<N>(p), load<N>(p + N)), bit_or(load<N>(p + 2 * N), load<N>(p + 3 * N)));
        if (all_zero(any_set)) put(to + x, any_set);
        else put(to + x, pack_in_order(sum(p), sum(p + N), sum(p + 2 * N), sum(p + 3 * N)));
    }
}

static void take_yuv(const Plan& plan, const vsurf_overlay& overlay, const Pixels& pixels, OverlayLine& to,
                     ptrdiff_t count)
{
    const OverlayEncoding& encoding = plan.overlay_encoding;
    const bool coverage = is_coverage(overlay);
    Pixels colour;
    if (coverage) {
        take_coverage(overlay, pixels, to, count);
        for (int i = 0; i < 4 * 32; i++) colour.bytes[i] = static_cast<uint8_t>(colour_byte(overlay, i % 4));
    } else {
        alignas(64) uint8_t outer[2 * kPadded], inner[2 * kPadded];
        deinterleave(pixels.bytes, outer, inner, 2 * count);
        deinterleave(inner, outer, to.alpha, count);
    }
    const bool reversed = coverage || blue_first(overlay);
    for (int i = 0; i < 3; i++) {
        const int* p = encoding.parts[i];
        const int parts[3] = {p[reversed ? 2 : 0], p[1], p[reversed ? 0 : 2]};
        take_component(coverage ? colour.bytes : pixels.bytes, parts, encoding.added[i], is_premultiplied(overlay),
                       to.of[i], coverage ? 1 : count);
        if (coverage) fill(to.of[i], to.of[i][0], count);
    }
}

void blend_bgr(const Plan& plan, ptrdiff_t line, ptrdiff_t x, ptrdiff_t pixels, uint8_t* b, uint8_t* g, uint8_t* r)
{
    Pixels fetched;
    OverlayLine over;
    uint8_t* const below[] = {b, g, r};
    for (int i = 0; i < plan.overlay_count; i++) {
        const vsurf_overlay& overlay = plan.overlays[i];
        const Columns columns = columns_of(plan, overlay, x, x + pixels);
        for (ptrdiff_t from = columns.from; from < columns.end; from += kPiece) {
            const ptrdiff_t end = columns.end - from < kPiece ? columns.end : from + kPiece;
            if (!fetch(plan, overlay, line, from, end, fetched)) continue;
            take_bgr(overlay, fetched, over, padded(end - from));
            blend_rows<3>(below, from - x, over, end - from, is_premultiplied(overlay));
        }
    }
}

static void blend_piece(const Plan& plan, const vsurf_overlay& overlay, ptrdiff_t line, Columns at, ptrdiff_t x,
                        Strips& strips, bool two, bool own_chroma)
{
    const bool premultiplied = is_premultiplied(overlay);
    const ptrdiff_t count = at.end - at.from, all = padded(count);
    OverlayLine lines[2];
    Pixels fetched;
    for (int i = 0; i <= two; i++) {
        OverlayLine& over = lines[i];
        over.shown = fetch(plan, overlay, line + i, at.from, at.end, fetched);
        if (over.shown) {
            take_yuv(plan, overlay, fetched, over, all);
            uint8_t* const luma = strips.y[i];
            blend_rows<1>(&luma, at.from - x, over, count, premultiplied);
        } else {
            fill(over.of[1], 0, all);
            fill(over.of[2], 0, all);
            fill(over.alpha, 0, all);
        }
    }
    const OverlayLine& lower = lines[two];
    uint8_t* uv[] = {strips.uv[0] + (at.from - x), strips.uv[1] + (at.from - x)};
    if (!own_chroma && (lines[0].shown || lower.shown)) blend_chroma(uv[0], lines[0], lower, count, premultiplied);
    for (int i = 0; own_chroma && i <= two; i++)
        if (lines[i].shown) blend_chroma(uv[i], lines[i], lines[i], count, premultiplied);
}

void blend_yuv(const Plan& plan, ptrdiff_t line, ptrdiff_t x, ptrdiff_t pixels, Strips& strips, bool two,
               bool own_chroma)
{
    for (int i = 0; i < plan.overlay_count; i++) {
        const vsurf_overlay& overlay = plan.overlays[i];
        const Columns columns = columns_of(plan, overlay, x, x + pixels);
        const Columns lines = lines_of(plan, overlay, line, line + 1 + two);
        if (lines.from == lines.end) continue;
        for (ptrdiff_t from = columns.from & ~1; from < columns.end; from += kPiece) {
            const ptrdiff_t end = columns.end - from < kPiece ? columns.end : from + kPiece;
            blend_piece(plan, overlay, line, {from, end}, x, strips, two, own_chroma);
        }
    }
}

} // namespace vsurf::VSURF_ISA
