// SPDX-License-Identifier: MIT
// Rectangles of a colour key, and bytes replaced by a key where a mask says so.
#include "model/colorkey.h"
#include "model/pixels.h"

#include <vector>

namespace model {
namespace {

using Words = std::vector<uint64_t>; // of eight bytes each, over and over in a block of sixteen pixels

void store_block(Pointer to, const Words& words, int pixel_bytes)
{
    for (int i = 0; i < 16 * pixel_bytes; i += 8) {
        store_number(to, words[static_cast<size_t>(i / 8) % words.size()], 8);
        to.advance(8);
    }
}

void fill_with(Plane& surface, const Fill& fill, int pixel_bytes, const Words& words)
{
    if (fill.height == 0) return;
    Pointer at(surface);
    Counter lines(fill.height);
    do {
        Counter columns(fill.width);
        do {
            store_block(at, words, pixel_bytes);
            store_block(at.plus(fill.pitch), words, pixel_bytes);
            at.advance(16 * pixel_bytes);
        } while (columns.more_after(16));
        at.advance(wrap(2 * int64_t{fill.pitch} - int64_t{pixel_bytes} * fill.width));
    } while (lines.more_after(2));
}

} // namespace

void LoadColorKeyRgb32(Plane& surface, const Fill& fill)
{
    const uint64_t pixel = fill.colour;
    fill_with(surface, fill, 4, {pixel << 32 | pixel});
}

void LoadColorKeyRgb24(Plane& surface, const Fill& fill)
{
    const uint64_t c = fill.colour;
    // Irregular: the bytes do not go on every three from one word to the next.
    fill_with(surface, fill, 3,
              {c << 40 | c << 16 | c >> 8, c << 56 | c << 32 | c << 8 | c >> 16, c << 48 | c | c << 24});
}

void LoadColorKeyRgb16(Plane& surface, const Fill& fill)
{
    const uint64_t pixel = fill.colour & 0xFFFF;
    fill_with(surface, fill, 2, {pixel << 48 | pixel << 32 | pixel << 16 | pixel});
}

void RelaceMaskWithColorKey(Plane& dst, Plane& mask, const Replacement& replacement)
{
    const uint8_t match = replacement.match & 0xFF, key = replacement.key & 0xFF;
    Pointer to(dst), from(mask);
    Counter lines(replacement.height);
    do {
        Counter columns(replacement.width);
        do {
            for (int i = 0; i < 16; ++i) {
                const uint8_t kept = to[i]; // read and written back even where nothing changes
                to.store(i, from[i] == match ? key : kept);
            }
            to.advance(16);
            from.advance(16);
        } while (columns.more_after(16));
        const int32_t step = wrap(int64_t{replacement.pitch} - replacement.width);
        to.advance(step);
        from.advance(step);
    } while (lines.more_after(1));
}

} // namespace model
