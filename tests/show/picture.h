// SPDX-License-Identifier: MIT
// Pictures and surfaces of their own memory, for tests that state their expectations by hand.
#pragma once
#include "harness/content.h"
#include "model/show_formats.h"

#include <array>
#include <vector>

namespace show_test {

using Bytes = std::vector<uint8_t>;

// Planes of a format; `Record` is vsurf_picture or vsurf_surface. Pitches are those of tight lines.
template <class Record> class Planes {
public:
    Planes(vsurf_format format, int width, int height, Bytes (*filled)(size_t))
    {
        record_.format = format;
        record_.width = width;
        record_.height = height;
        for (int i = 0; i < model::planes_of(format); ++i) {
            const model::PlaneShape shape = model::plane_shape(format, i, width, height);
            Bytes& bytes = bytes_[static_cast<size_t>(i)];
            bytes = filled(static_cast<size_t>(shape.line * shape.lines));
            record_.plane[i] = bytes.data();
            record_.pitch[i] = static_cast<ptrdiff_t>(shape.line);
        }
    }
    Planes(const Planes&) = delete;
    Planes& operator=(const Planes&) = delete;

    Record& operator*() { return record_; }
    Record* operator->() { return &record_; }
    Bytes& bytes(size_t plane = 0) { return bytes_[plane]; }
    const std::array<Bytes, 3>& all_bytes() const { return bytes_; }

private:
    Record record_ = {};
    std::array<Bytes, 3> bytes_;
};

struct Picture : Planes<vsurf_picture> {
    Picture(vsurf_format format, int width, int height) : Planes(format, width, height, noise) {}
    static Bytes noise(size_t size) { return harness::bytes_of(harness::Content::kNoise, size); }
};

struct Surface : Planes<vsurf_surface> {
    Surface(vsurf_format format, int width, int height) : Planes(format, width, height, untouched) {}
    static Bytes untouched(size_t size) { return Bytes(size, 0xAA); }
};

inline vsurf_job job_of(Picture& picture, Surface& surface)
{
    vsurf_job job = {};
    job.picture = &*picture;
    job.surface = &*surface;
    return job;
}

} // namespace show_test
