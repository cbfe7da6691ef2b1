// SPDX-License-Identifier: MIT
// Packed YUY2 pictures into packed surfaces. The planes for U and V mean nothing to a packed picture.
#include "frame/dispatch.h"
#include "frame/packed_bytes.h"
#include "frame/picture.h"

namespace vsurf::VSURF_ISA {

// Onto YUY2 nothing has to be unpacked: lines are handled in blocks of 16 bytes.
ALWAYS_INLINE Walk walk_bytes(const Picture& p) { return walk_packed(p, wrapping_mul(2, p.width), 1); }

void LoadYUY2_YUY2(Picture p)
{
    write_picture(walk_bytes(p), [](Position at) VSURF_INLINED { return PackedLine<PlainBytes>{at.y, at.u, {}}; });
}

void LoadYUY2_YUY2_adjust(Picture p)
{
    write_adjusted(walk_bytes(p), [](Adjustments by) VSURF_INLINED {
        return [=](Position at) VSURF_INLINED { return PackedLine<AdjustedBytes<FastGain>>{at.y, at.u, {by}}; };
    });
}

template <class Format> ALWAYS_INLINE void load_packed(const Picture& p, Format format)
{
    write_picture(walk_packed(p, p.width, Format::kBytes), [=](Position at) VSURF_INLINED {
        return PixelLine<Format, PackedLuma, PackedChroma>{{at.y}, {at.u}, format};
    });
}
template <class Format> ALWAYS_INLINE void load_packed_adjusted(const Picture& p, Format format)
{
    write_adjusted(walk_packed(p, p.width, Format::kBytes), [=](Adjustments by) VSURF_INLINED {
        return [=](Position at) VSURF_INLINED {
            return PixelLine<Format, Adjust<FastGain, PackedLuma>, AdjustedPackedChroma<FastGain>>{
                {by.luma, {at.y}}, {by.u, by.v, at.u}, format};
        };
    });
}

void LoadYUY2_RGB32(Picture p) { load_packed(p, Rgb32{}); }
void LoadYUY2_RGB24(Picture p) { load_packed(p, Rgb24{}); }
void LoadYUY2_RGB16(Picture p)
{
    with_rgb16_sink(p.info->rgb16_layout, [&](Rgb16 format) VSURF_INLINED { load_packed(p, format); });
}
void LoadYUY2_RGB32_adjust(Picture p) { load_packed_adjusted(p, Rgb32{}); }
void LoadYUY2_RGB24_adjust(Picture p) { load_packed_adjusted(p, Rgb24{}); }
void LoadYUY2_RGB16_adjust(Picture p)
{
    with_rgb16_sink(p.info->rgb16_layout, [&](Rgb16 format) VSURF_INLINED { load_packed_adjusted(p, format); });
}

} // namespace vsurf::VSURF_ISA
