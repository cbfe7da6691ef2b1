// SPDX-License-Identifier: MIT
#include "model/show.h"

#include "model/show_formats.h"
#include "model/show_overlay.h"

#include <algorithm>
#include <vector>

namespace model {
namespace {

template <class Planes> Encoding encoding_of(const Planes& planes)
{
    return {number(planes.matrix), number(planes.range)};
}

// The samples of one plane of the rectangle, or its pixels.
template <class T> class Grid {
public:
    Grid(int width, int height) : width_(static_cast<size_t>(width)), items_(width_ * static_cast<size_t>(height)) {}
    T& at(int x, int y) { return items_[static_cast<size_t>(y) * width_ + static_cast<size_t>(x)]; }

private:
    size_t width_;
    std::vector<T> items_;
};

// The picture's rectangle, each pixel with the chroma that it has, adjusted.
class Source {
public:
    explicit Source(const vsurf_job& job) : job_(job), picture_(*job.picture), look_(job.look) {}

    Yuv at(int i, int j) const
    {
        const int format = number(picture_.format);
        const int column = job_.crop_x / 2 + i / 2;
        const int line = is_planar(format) ? job_.crop_y / 2 + j / 2 : job_.crop_y + j;
        return look_({model::at(picture_, luma_place(format, job_.crop_x + i, job_.crop_y + j)),
                      model::at(picture_, chroma_place(format, kU, column, line)),
                      model::at(picture_, chroma_place(format, kV, column, line))});
    }

private:
    const vsurf_job& job_;
    const vsurf_picture& picture_;
    Look look_;
};

template <class Work> void for_each_overlay(const vsurf_job& job, const Work& work)
{
    for (int i = 0; i < job.overlay_count; ++i) work(job.overlays[i]);
}

template <class Work> void for_each_place(int width, int height, const Work& work)
{
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) work(x, y);
    }
}

void draw(const vsurf_job& job, const vsurf_overlay& overlay, Grid<Rgb>& pixels)
{
    const bool premultiplied = is_premultiplied(overlay);
    for_each_place(shown_size(job).width, shown_size(job).height, [&](int i, int j) {
        const auto over = overlay_pixel(overlay, int64_t{job.x} + i, int64_t{job.y} + j);
        if (!over) return;
        Rgb& below = pixels.at(i, j);
        below = {blended(premultiplied, over->r, over->a, below.r), blended(premultiplied, over->g, over->a, below.g),
                 blended(premultiplied, over->b, over->a, below.b)};
    });
}

void store(const vsurf_surface& surface, int x, int y, const Rgb& pixel)
{
    const int format = number(surface.format);
    uint8_t* const to = &at(surface, {0, y, int64_t{x} * pixel_bytes(format)});
    if (pixel_bytes(format) == 2) {
        const uint16_t word = rgb16(pixel, static_cast<uint32_t>(format - VSURF_RGB565));
        to[0] = static_cast<uint8_t>(word & 255);
        to[1] = static_cast<uint8_t>(word >> 8);
        return;
    }
    const bool red_first = format == VSURF_RGBX || format == VSURF_RGBA || format == VSURF_RGB24;
    to[0] = red_first ? pixel.r : pixel.b;
    to[1] = pixel.g;
    to[2] = red_first ? pixel.b : pixel.r;
    if (format == VSURF_BGRX || format == VSURF_RGBX) to[3] = 0;
    if (format == VSURF_BGRA || format == VSURF_RGBA) to[3] = 255;
}

void show_rgb(const vsurf_job& job, const Lines& lines)
{
    const auto [width, height] = shown_size(job);
    const Source source(job);
    const ToRgb to_rgb(encoding_of(*job.picture));
    Grid<Rgb> pixels(width, height);
    for_each_place(width, height, [&](int i, int j) { pixels.at(i, j) = to_rgb(source.at(i, j)); });
    for_each_overlay(job, [&](const vsurf_overlay& overlay) { draw(job, overlay, pixels); });
    for (int j = lines.first; j < lines.end; ++j) {
        for (int i = 0; i < width; ++i) store(*job.surface, job.x + i, job.y + j, pixels.at(i, j));
    }
}

// The rectangle on a surface with chroma: how many lines share a line of chroma is the surface's business.
class YuvCanvas {
public:
    explicit YuvCanvas(const vsurf_job& job)
        : job_(job), width_(shown_size(job).width), height_(shown_size(job).height),
          group_(is_planar(number(job.surface->format)) ? 2 : 1), luma_(width_, height_),
          u_((width_ + 1) / 2, chroma_lines()), v_((width_ + 1) / 2, chroma_lines())
    {
        convert();
    }

    void draw(const vsurf_overlay& overlay)
    {
        const OverlayToYuv to_yuv(encoding_of(*job_.surface));
        const bool premultiplied = is_premultiplied(overlay);
        Grid<Yuv> over(width_, height_);
        Grid<int> alpha(width_, height_);
        for_each_place(width_, height_, [&](int i, int j) {
            const auto pixel = overlay_pixel(overlay, int64_t{job_.x} + i, int64_t{job_.y} + j);
            if (!pixel) return;
            over.at(i, j) = to_yuv(*pixel, premultiplied);
            alpha.at(i, j) = pixel->a;
            luma_.at(i, j) = blended(premultiplied, over.at(i, j).y, pixel->a, luma_.at(i, j));
        });
        for_each_place((width_ + 1) / 2, chroma_lines(), [&](int k, int m) {
            std::vector<ChromaPart> us, vs;
            for_each_of_group(k, m, [&](int i, int j) {
                us.push_back({over.at(i, j).u, alpha.at(i, j)});
                vs.push_back({over.at(i, j).v, alpha.at(i, j)});
            });
            u_.at(k, m) = blended_chroma(premultiplied, us, u_.at(k, m));
            v_.at(k, m) = blended_chroma(premultiplied, vs, v_.at(k, m));
        });
    }

    void store(const Lines& lines)
    {
        const vsurf_surface& surface = *job_.surface;
        const int format = number(surface.format);
        for (int j = lines.first; j < lines.end; ++j) {
            for (int i = 0; i < width_; ++i) at(surface, luma_place(format, job_.x + i, job_.y + j)) = luma_.at(i, j);
            if (j % group_ != 0) continue;
            const int line = job_.y / group_ + j / group_;
            for (int k = 0; k < (width_ + 1) / 2; ++k) {
                at(surface, chroma_place(format, kU, job_.x / 2 + k, line)) = u_.at(k, j / group_);
                at(surface, chroma_place(format, kV, job_.x / 2 + k, line)) = v_.at(k, j / group_);
            }
        }
    }

private:
    int chroma_lines() const { return (height_ + group_ - 1) / group_; }

    void convert()
    {
        const Source source(job_);
        const Conversion conversion(encoding_of(*job_.picture), encoding_of(*job_.surface));
        auto converted = [&](int i, int j) { return conversion(source.at(i, j)); };
        for_each_place(width_, height_, [&](int i, int j) { luma_.at(i, j) = converted(i, j).y; });
        for_each_place((width_ + 1) / 2, chroma_lines(), [&](int k, int m) {
            const int first = m * group_, last = std::min(first + group_, height_) - 1;
            const Yuv a = converted(2 * k, first), b = converted(2 * k, last);
            u_.at(k, m) = static_cast<uint8_t>((a.u + b.u + 1) >> 1);
            v_.at(k, m) = static_cast<uint8_t>((a.v + b.v + 1) >> 1);
        });
    }

    // The pixels that share chroma (k, m); some do not exist at the right and lower edges.
    template <class Work> void for_each_of_group(int k, int m, const Work& work) const
    {
        for (int j = m * group_; j < std::min((m + 1) * group_, height_); ++j) {
            for (int i = 2 * k; i < std::min(2 * k + 2, width_); ++i) work(i, j);
        }
    }

    const vsurf_job& job_;
    int width_, height_, group_;
    Grid<uint8_t> luma_, u_, v_;
};

} // namespace

ShownSize shown_size(const vsurf_job& job)
{
    return {job.crop_width == 0 ? job.picture->width - job.crop_x : job.crop_width,
            job.crop_height == 0 ? job.picture->height - job.crop_y : job.crop_height};
}

Lines band_lines(const vsurf_job& job, int band, int bands)
{
    const int height = shown_size(job).height;
    const int64_t pairs = (int64_t{height} + 1) / 2;
    auto line = [&](int64_t number) {
        return static_cast<int>(std::min<int64_t>(2 * (pairs * number / bands), height));
    };
    return {line(band), line(int64_t{band} + 1)};
}

void show(const vsurf_job& job, int band, int bands)
{
    const Lines lines = band_lines(job, band, bands);
    if (!is_yuv(number(job.surface->format))) return show_rgb(job, lines);
    YuvCanvas canvas(job);
    for_each_overlay(job, [&](const vsurf_overlay& overlay) { canvas.draw(overlay); });
    canvas.store(lines);
}

} // namespace model
