// SPDX-License-Identifier: MIT
// Colour keys: the rectangle in which an overlay shows the video, and bytes replaced where a mask says so.
#include "frame/dispatch.h"
#include "frame/picture.h"

namespace vsurf::VSURF_ISA {

// Bytes that repeat after kPeriod. A step reads its bytes from a pattern that is long enough for a step that begins
// anywhere in the period. Pixels of every size are filled as bytes.
struct FilledLine {
    static constexpr int kBytes = 1, kGrain = 1, kWidest = 2 * kRegister, kPeriod = 24;
    static constexpr bool kComplete = true, kEights = false;
    const uint8_t* pattern;

    template <int N> struct Registers {
        static constexpr int kSize = N < kRegister ? N : kRegister;
        Bytes<kSize> of[N / kSize];
    };
    template <int> ALWAYS_INLINE Nothing shared(ptrdiff_t) const { return {}; }
    template <int N> ALWAYS_INLINE Registers<N> own(ptrdiff_t x) const
    {
        constexpr int size = Registers<N>::kSize;
        const uint8_t* from = pattern + static_cast<size_t>(x) % kPeriod;
        Registers<N> registers;
        for (int i = 0; i < N; i += size) registers.of[i / size] = load<size>(from + i % kPeriod);
        return registers;
    }
    template <class To, int N> static ALWAYS_INLINE void store(To to, const Registers<N>& registers, Nothing)
    {
        constexpr int size = Registers<N>::kSize;
        for (int i = 0; i < N; i += size) put(to + i, registers.of[i / size]);
    }
};
static_assert(Line<FilledLine>);

// Fills a rectangle with pixels of `bytes` bytes. The three words are the bytes that repeat.
[[maybe_unused]] static NEVER_INLINE void fill(const Fill& f, int bytes, uint64_t first, uint64_t second,
                                               uint64_t third)
{
    if (f.height == 0) return;
    const uint64_t words[] = {first, second, third};
    uint8_t pattern[2 * FilledLine::kPeriod + kRegister];
    for (size_t i = 0; i < sizeof pattern; i++) pattern[i] = static_cast<uint8_t>(words[i / 8 % 3] >> i % 8 * 8);

    const Walk walk =
        walk_by_pass({nullptr, nullptr, nullptr, f.surface, f.width, f.height, 0, f.pitch, nullptr}, bytes);
    const bool in_order = walk.store_order_matters();
    const ptrdiff_t part = kBlock * bytes;
    Writer writer(walk.target());
    const FilledLine line{pattern};
    walk.each([&](Position upper, Position lower) VSURF_INLINED {
        if (!in_order) return writer.pair(line, line, upper.dst, lower.dst, {0, walk.line_bytes});
        for (ptrdiff_t x = 0; x < walk.line_bytes; x += part) {
            Writer::store_line(line, upper.dst, {x, x + part});
            Writer::store_line(line, lower.dst, {x, x + part});
        }
    });
}

void LoadColorKeyRgb32(Fill f)
{
    const uint64_t two = f.colour * 0x100000001u;
    fill(f, 4, two, two, two);
}
void LoadColorKeyRgb16(Fill f)
{
    const uint64_t four = (f.colour & 0xffff) * 0x1000100010001u;
    fill(f, 2, four, four, four);
}

// Irregular: the three words do not continue one another as triples of bytes, and the colour's top byte shows.
void LoadColorKeyRgb24(Fill f)
{
    const uint64_t c = f.colour;
    fill(f, 3, c << 40 | c << 16 | c >> 8, c << 56 | c << 32 | c << 8 | c >> 16, c << 48 | c << 24 | c);
}

// Irregular: what the mask does not select is written back as it was.
void RelaceMaskWithColorKey(MaskReplacement m)
{
    const ptrdiff_t bytes = whole_steps(m.width, 16), step = m.pitch + (bytes - m.width);
    const ptrdiff_t lines = step_count(m.height, 1);
    for (ptrdiff_t i = 0; i < lines; i++, m.dst += step, m.mask += step)
        along<kRegister, 16>(0, bytes, [=]<int N>(ptrdiff_t x) VSURF_INLINED {
            auto selected = equal(load<N>(m.mask + x), Bytes<N>::splat(static_cast<int>(m.match)));
            put(m.dst + x, choose(selected, Bytes<N>::splat(static_cast<int>(m.key)), load<N>(m.dst + x)));
        });
}

} // namespace vsurf::VSURF_ISA
