// SPDX-License-Identifier: MIT
// A job of vsurf_show whose members come from a fuzzer's bytes: most of them plausible, some wild.
#pragma once
#include "show/vsurf_show.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>
#include <vector>

namespace fuzz {

using Block = std::vector<uint8_t>;

class DrawnJob {
public:
    // Its planes point nowhere, and must not be touched, until there is memory for them.
    explicit DrawnJob(FuzzedDataProvider& input);
    DrawnJob(const DrawnJob&) = delete;
    DrawnJob& operator=(const DrawnJob&) = delete;

    const vsurf_job* get() const { return has_job_ ? &job_ : nullptr; }
    int band() const { return band_; }
    int bands() const { return bands_; }

    // For a job without a mistake: memory of exactly the planes' sizes, for each plane of its own or for all of them in
    // one. False where that would be large.
    bool allocate(FuzzedDataProvider& input);

    const std::vector<Block>& memory() const { return blocks_; }
    std::vector<Block> memory_after_the_model() const;

private:
    struct Extent { // of a plane, in bytes from its pointer
        size_t plane;
        int64_t low, high;
        int64_t size() const { return high - low; }
    };
    struct Spot {
        size_t block, at;
    };
    enum : size_t { kPicture = 0, kSurface = 3, kOverlays = 6 };

    void draw_planes(FuzzedDataProvider& input);
    void draw_overlays(FuzzedDataProvider& input);
    std::vector<Extent> extents() const;
    void put(const Extent& extent, const Spot& spot);

    bool has_job_ = true;
    vsurf_job job_ = {};
    vsurf_picture picture_ = {};
    vsurf_surface surface_ = {};
    std::vector<vsurf_overlay> overlays_;
    int band_ = 0, bands_ = 1;
    std::vector<Block> blocks_;
    Spot surface_spots_[3] = {};
};

} // namespace fuzz
