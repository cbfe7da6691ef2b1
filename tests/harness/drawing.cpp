// SPDX-License-Identifier: MIT
#include "harness/drawing.h"

#include <algorithm>

namespace harness {
namespace {

class Pencil {
public:
    Pencil(model::Plane& surface, const JobCase& c)
        : surface_(&surface), random_(c.seed), bytes_(c.tested->pixel_bytes), key_(c.color_key),
          // The fourth byte of a pixel is meant to be 0.
          colours_(random_.one_in(2) ? 0xffffff : 0xffffffff)
    {
    }

    void draw_line(int64_t at, int pixels)
    {
        at_ = at;
        switch (random_.between(0, 4)) {
        case 0: return draw_key(0, pixels);
        case 1: return draw_all_but_one(pixels);
        case 2: return draw_colours(0, pixels);
        default: return draw_runs(pixels);
        }
    }

private:
    void put(int x, uint32_t pixel)
    {
        for (int i = 0; i < bytes_; ++i) surface_->write(at_ + x * bytes_ + i, static_cast<uint8_t>(pixel >> 8 * i));
    }

    void draw_key(int from, int end)
    {
        for (int x = from; x < end; ++x) put(x, key_);
    }

    void draw_colours(int from, int end)
    {
        for (int x = from; x < end; ++x) put(x, static_cast<uint32_t>(random_.next()) & colours_);
    }

    void draw_all_but_one(int pixels)
    {
        draw_key(0, pixels);
        put(random_.between(0, pixels - 1), key_ ^ uint32_t{1} << random_.between(0, 8 * bytes_ - 1));
    }

    void draw_runs(int pixels)
    {
        bool key = random_.one_in(2);
        for (int x = 0; x < pixels; key = !key) {
            const int end = std::min(pixels, x + random_.between(1, random_.between(1, key ? 60 : 30)));
            if (key) draw_key(x, end);
            else draw_colours(x, end);
            x = end;
        }
    }

    model::Plane* surface_;
    Random random_;
    int bytes_;
    uint32_t key_, colours_;
    int64_t at_ = 0;
};

} // namespace

void draw(model::Plane& surface, const JobCase& c)
{
    Pencil pencil(surface, c);
    const int whole = c.width / 8 * 8; // what is left over is not read, but the next line starts earlier for it
    const int64_t step = int64_t{c.surface_pitch} + c.tested->pixel_bytes * (whole - c.width);
    for (int line = 0; line < std::max(1, c.height); ++line) pencil.draw_line(line * step, whole);
}

} // namespace harness
