// SPDX-License-Identifier: MIT
// For tests of the mixers onto RGB surfaces: the three formats, and lines of pixels.
#pragma once
#include "edges/mix.h"
#include "edges/pixels.h"

namespace harness {

class OnEveryRgbMix : public OnEveryMix {
protected:
    struct Format {
        JobEntry progressive, field;
        LoaderFunction vsurf::Kernels::*loader;
        size_t bytes; // a pixel
    };
    static constexpr Format kFormats[] = {
        {&vsurf::Kernels::mix_ayuy2_rgb32_p_ajust, &vsurf::Kernels::mix_ayuy2_rgb32_i_ajust,
         &vsurf::Kernels::loadimage_rgb32_ajust, 4},
        {&vsurf::Kernels::mix_ayuy2_rgb24_p_ajust, &vsurf::Kernels::mix_ayuy2_rgb24_i_ajust,
         &vsurf::Kernels::loadimage_rgb24_ajust, 3},
        {&vsurf::Kernels::mix_ayuy2_rgb16_p_ajust, &vsurf::Kernels::mix_ayuy2_rgb16_i_ajust,
         &vsurf::Kernels::loadimage_rgb16_ajust, 2},
    };

    // Only 16-bit pixels have a layout; the others may not look for it.
    MIX_INFO rgb_record(const Format& format, const Region& region)
    {
        MIX_INFO job = record(region);
        if (format.bytes == 2) job.contrast_info = &contrast;
        return job;
    }

    ajust_contrast_info contrast = {};
};

// Pixels whose luma and chroma lie in these planes from there on.
inline Bytes rgb_from(const Bytes& luma, const Bytes& cb, const Bytes& cr, LineAt at, size_t pixels, size_t bytes)
{
    Bytes line;
    for (size_t x = 0; x < pixels; ++x) {
        const auto terms = model::chroma_terms(cb[at.chroma + x / 2], cr[at.chroma + x / 2]);
        const Bytes pixel = packed_pixel(model::to_rgb(luma[at.luma + x], terms), bytes);
        line.insert(line.end(), pixel.begin(), pixel.end());
    }
    return line;
}

// So many of the same pixel.
inline Bytes flat_rgb(size_t pixels, const model::Rgb& pixel, size_t bytes)
{
    Bytes line;
    for (size_t x = 0; x < pixels; ++x) {
        const Bytes one = packed_pixel(pixel, bytes);
        line.insert(line.end(), one.begin(), one.end());
    }
    return line;
}

} // namespace harness
