// SPDX-License-Identifier: MIT
#include "fuzz/drawn_job.h"

#include "model/show.h"
#include "model/show_formats.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <limits>
#include <random>

namespace fuzz {
namespace {

constexpr int64_t kMostBytes = 1 << 18;

bool one_in(FuzzedDataProvider& input, int n) { return input.ConsumeIntegralInRange(1, n) == n; }

// Most often from low to high.
int any_int(FuzzedDataProvider& input, int low, int high)
{
    static constexpr int kWild[] = {INT_MIN, INT_MIN + 1, -65536, -1, 0, 1, 65535, 1 << 30, INT_MAX - 15, INT_MAX};
    if (!one_in(input, 64)) return input.ConsumeIntegralInRange(low, high);
    return input.ConsumeBool() ? input.PickValueInArray(kWild) : input.ConsumeIntegral<int>();
}

ptrdiff_t any_pitch(FuzzedDataProvider& input, const model::PlaneShape& shape)
{
    static constexpr ptrdiff_t kWild[] = {PTRDIFF_MIN, PTRDIFF_MIN + 1, PTRDIFF_MIN / 2, -1,         0,
                                          1,           PTRDIFF_MAX / 2, PTRDIFF_MAX - 1, PTRDIFF_MAX};
    if (one_in(input, 64)) return input.PickValueInArray(kWild);
    if (one_in(input, 64)) return input.ConsumeIntegral<ptrdiff_t>();
    const auto line = static_cast<ptrdiff_t>(shape.line);
    const ptrdiff_t pitch = line + input.ConsumeIntegralInRange(one_in(input, 64) ? -1 : 0, 40);
    return input.ConsumeBool() ? -pitch : pitch;
}

// Not null, or nothing; never to be touched.
template <class Byte> void draw_nowhere(FuzzedDataProvider& input, Byte*& pointer)
{
    static constexpr uintptr_t kWild[] = {0, 1, UINTPTR_MAX, UINTPTR_MAX / 2};
    const uintptr_t address = one_in(input, 128) ? input.PickValueInArray(kWild) : uintptr_t{1} << 20;
    pointer = reinterpret_cast<Byte*>(address);
}

template <class Enumeration> void draw_number(FuzzedDataProvider& input, Enumeration& member, int low, int high)
{
    const int value = any_int(input, low, high);
    std::memcpy(&member, &value, sizeof value);
}

float any_member(FuzzedDataProvider& input)
{
    static constexpr float kMembers[] = {
        1,      -1,    0.5f, 1.00001f, std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
        -3e38f, 1e-40f};
    if (one_in(input, 2)) return 0;
    return one_in(input, 32) ? input.PickValueInArray(kMembers) : input.ConsumeFloatingPointInRange(-1.0f, 1.0f);
}

template <class Record> void draw_record(FuzzedDataProvider& input, Record& record, int formats)
{
    draw_number(input, record.format, VSURF_I420, formats);
    draw_number(input, record.matrix, VSURF_BT601, VSURF_BT2020);
    draw_number(input, record.range, VSURF_LIMITED, VSURF_FULL);
    for (size_t i = 0; i < 3; ++i) {
        draw_nowhere(input, record.plane[i]);
        const int format = model::number(record.format);
        const bool has = static_cast<int>(i) < model::planes_of(format);
        record.pitch[i] =
            any_pitch(input, has ? model::plane_shape(format, static_cast<int>(i), record.width, record.height)
                                 : model::PlaneShape{0, 0});
    }
}

// A stretch of `length` within a whole that is at times larger.
void draw_stretch(FuzzedDataProvider& input, int length, int& first, int& whole)
{
    first = input.ConsumeBool() ? 0 : any_int(input, 0, 12);
    const int64_t wanted = int64_t{first} + length + (input.ConsumeBool() ? 0 : any_int(input, 0, 12));
    whole = static_cast<int>(std::clamp<int64_t>(wanted, INT_MIN, INT_MAX));
}

model::PlaneShape shape_of(const vsurf_overlay& overlay)
{
    return {int64_t{overlay.width} * (model::number(overlay.kind) == VSURF_COVERAGE ? 1 : 4), overlay.height};
}

// Noise, and at times nothing but extremes.
void fill(Block& block, uint32_t seed)
{
    std::minstd_rand random(seed + 1);
    const bool extremes = seed % 4 == 0;
    for (uint8_t& byte : block) {
        const auto number = static_cast<uint8_t>(random() >> 8);
        byte = extremes ? static_cast<uint8_t>(number % 2 * 255) : number;
    }
}

} // namespace

DrawnJob::DrawnJob(FuzzedDataProvider& input)
{
    has_job_ = !one_in(input, 1000);
    draw_planes(input);
    draw_overlays(input);
    if (input.ConsumeBool()) job_.look = {any_member(input), any_member(input), any_member(input), any_member(input)};
    job_.picture = one_in(input, 1000) ? nullptr : &picture_;
    job_.surface = one_in(input, 1000) ? nullptr : &surface_;
    if (input.ConsumeBool()) {
        bands_ = any_int(input, 1, 9);
        band_ = any_int(input, 0, std::clamp(bands_, 1, 9) - 1);
    }
}

void DrawnJob::draw_planes(FuzzedDataProvider& input)
{
    const bool wide = one_in(input, 16);
    const int width = any_int(input, 1, wide ? 2300 : 150), height = any_int(input, 1, wide ? 3 : 20);
    draw_stretch(input, width, job_.crop_x, picture_.width);
    draw_stretch(input, height, job_.crop_y, picture_.height);
    draw_stretch(input, width, job_.x, surface_.width);
    draw_stretch(input, height, job_.y, surface_.height);
    job_.crop_width = picture_.width == int64_t{job_.crop_x} + width && input.ConsumeBool() ? 0 : width;
    job_.crop_height = picture_.height == int64_t{job_.crop_y} + height && input.ConsumeBool() ? 0 : height;
    draw_record(input, picture_, VSURF_UYVY);
    draw_record(input, surface_, VSURF_RGB655);
    if (input.ConsumeBool()) { // copied as bytes: they may be no values of their enumerations
        std::memcpy(&surface_.matrix, &picture_.matrix, sizeof surface_.matrix);
        std::memcpy(&surface_.range, &picture_.range, sizeof surface_.range);
    }
}

void DrawnJob::draw_overlays(FuzzedDataProvider& input)
{
    overlays_.resize(input.ConsumeBool() ? 0 : input.ConsumeIntegralInRange<size_t>(1, 3));
    for (vsurf_overlay& overlay : overlays_) {
        draw_number(input, overlay.kind, VSURF_STRAIGHT_RGBA, VSURF_COVERAGE);
        overlay.x = any_int(input, -40, 160);
        overlay.y = any_int(input, -12, 30);
        overlay.width = any_int(input, 0, 120);
        overlay.height = any_int(input, 0, 20);
        draw_nowhere(input, overlay.pixels);
        overlay.pitch = any_pitch(input, shape_of(overlay));
        overlay.colour = input.ConsumeIntegral<uint32_t>();
    }
    job_.overlays = overlays_.empty() || one_in(input, 128) ? nullptr : overlays_.data();
    job_.overlay_count = static_cast<int>(overlays_.size());
    if (one_in(input, 128)) job_.overlay_count = input.ConsumeBool() ? -1 : INT_MIN;
}

std::vector<DrawnJob::Extent> DrawnJob::extents() const
{
    std::vector<Extent> all;
    auto add = [&all](size_t plane, const model::PlaneShape& shape, ptrdiff_t pitch) {
        const int64_t way = shape.lines == 1 ? 0 : (shape.lines - 1) * int64_t{pitch};
        all.push_back({plane, std::min<int64_t>(way, 0), std::max<int64_t>(way, 0) + shape.line});
    };
    auto add_planes = [&add](size_t first, const auto& record) {
        const int format = model::number(record.format);
        for (int i = 0; i < model::planes_of(format); ++i) {
            const model::PlaneShape shape = model::plane_shape(format, i, record.width, record.height);
            add(first + static_cast<size_t>(i), shape, record.pitch[i]);
        }
    };
    add_planes(kPicture, picture_);
    add_planes(kSurface, surface_);
    for (size_t i = 0; i < overlays_.size(); ++i) {
        const vsurf_overlay& overlay = overlays_[i];
        if (overlay.width > 0 && overlay.height > 0) add(kOverlays + i, shape_of(overlay), overlay.pitch);
    }
    return all;
}

bool DrawnJob::allocate(FuzzedDataProvider& input)
{
    const std::vector<Extent> all = extents();
    int64_t sum = 0;
    for (const Extent& extent : all) sum += std::min(extent.size(), kMostBytes); // no sum of them is too large
    if (sum >= kMostBytes) return false;
    const auto seed = input.ConsumeIntegral<uint32_t>();
    const bool shared = one_in(input, 8);
    if (shared) fill(blocks_.emplace_back(static_cast<size_t>(sum)), seed);
    for (const Extent& extent : all) {
        const auto size = static_cast<size_t>(extent.size());
        if (!shared) fill(blocks_.emplace_back(size), seed + static_cast<uint32_t>(extent.plane));
        const size_t room = blocks_.back().size() - size;
        put(extent, {blocks_.size() - 1, input.ConsumeIntegralInRange<size_t>(0, room)});
    }
    return true;
}

// `spot` is the extent's first byte.
void DrawnJob::put(const Extent& extent, const Spot& spot)
{
    const size_t at = spot.at + static_cast<size_t>(-extent.low), plane = extent.plane;
    uint8_t* const pointer = blocks_[spot.block].data() + at;
    if (plane >= kOverlays) {
        overlays_[plane - kOverlays].pixels = pointer;
    } else if (plane >= kSurface) {
        surface_.plane[plane - kSurface] = pointer;
        surface_spots_[plane - kSurface] = {spot.block, at};
    } else {
        picture_.plane[plane] = pointer;
    }
}

std::vector<Block> DrawnJob::memory_after_the_model() const
{
    std::vector<Block> after = blocks_;
    vsurf_surface surface = surface_;
    for (int i = 0; i < model::planes_of(model::number(surface.format)); ++i) {
        surface.plane[i] = after[surface_spots_[i].block].data() + surface_spots_[i].at;
    }
    vsurf_job job = job_;
    job.surface = &surface;
    model::show(job, band_, bands_);
    return after;
}

} // namespace fuzz
