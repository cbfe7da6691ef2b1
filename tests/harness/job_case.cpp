// SPDX-License-Identifier: MIT
#include "harness/job_case.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <sstream>

namespace harness {
namespace {

int noise(Random& random) { return static_cast<int>(static_cast<uint32_t>(random.next())); }

bool mixes(JobKind kind) { return kind == JobKind::kMixer || kind == JobKind::kPlanarMixer; }

// What a function does not read is noise.
int legal_picture_pitch(const JobExport& tested, int width, Pitch pitch, Random& random)
{
    const int bytes = pitch_for(width, rounded(width), pitch, random);
    switch (tested.kind) {
    case JobKind::kDrawer: return width;
    case JobKind::kMixer:
    case JobKind::kPlanarMixer: return tested.sizes.signed_picture ? bytes : std::abs(bytes);
    case JobKind::kRestore:
    case JobKind::kAlphaDrawer: return bytes;
    default: return noise(random);
    }
}

int legal_subpicture_pitch(const JobExport& tested, int width, Pitch pitch, Random& random)
{
    const int bytes = pitch_for(width, rounded(width), pitch, random);
    if (tested.kind == JobKind::kConversion) return std::max(width, std::abs(bytes));
    return mixes(tested.kind) ? bytes : noise(random);
}

Content any_alpha(Random& random)
{
    return random.pick({Content::kSubtitle, Content::kSubtitle, Content::kSubtitle, Content::kWeights,
                        Content::kWeights, Content::kStray, Content::kTransparent, Content::kDots, Content::kOpaque,
                        Content::kHalfScale, Content::kNoise, Content::kBeyond});
}

Content any_samples(Random& random) { return random.one_in(3) ? Content::kExtremes : Content::kNoise; }

// A 24-bit key whose top byte is not 0 matches nothing.
uint32_t any_key(const JobExport& tested, Random& random)
{
    static constexpr uint32_t kKeys[] = {0x00ff00ff, 0, 0xffffffff, 0x00ffffff, 0x00010203, 0x80808080};
    const uint32_t key = random.one_in(2) ? random.pick(kKeys) : static_cast<uint32_t>(random.next());
    const bool three_bytes = tested.kind == JobKind::kConversion && tested.pixel_bytes == 3;
    return three_bytes && !random.one_in(4) ? key & 0xffffff : key;
}

// Samples that a mask's contents hold, and others; only the low byte counts.
uint32_t any_match(Random& random)
{
    static constexpr uint8_t kLikely[] = {0, 0, 96, 128, 160, 16};
    const auto bits = static_cast<uint32_t>(random.next());
    return random.one_in(4) ? bits : (bits & ~uint32_t{255}) | random.pick(kLikely);
}

} // namespace

std::vector<int> widths(const JobExport& tested, int widest)
{
    std::vector<int> all(static_cast<size_t>(widest - tested.sizes.least_width + 1));
    std::iota(all.begin(), all.end(), tested.sizes.least_width);
    return all;
}

std::vector<int> heights(const JobExport& tested, int highest)
{
    std::vector<int> all(static_cast<size_t>(highest - tested.sizes.least_height + 1));
    std::iota(all.begin(), all.end(), tested.sizes.least_height);
    return all;
}

JobPitches any_pitches(Random& random)
{
    const Pitch picture = any_pitch(random), surface = any_pitch(random);
    return {picture, random.one_in(2) ? picture : any_pitch(random), surface};
}

JobCase job_of(const JobExport& tested, int width, int height, const JobPitches& pitches, Random& random)
{
    JobCase c;
    c.tested = &tested;
    c.picture_pitch = legal_picture_pitch(tested, width, pitches.picture, random);
    c.subpicture_pitch = legal_subpicture_pitch(tested, width, pitches.subpicture, random);
    c.surface_pitch =
        pitch_for(width * tested.pixel_bytes, rounded(width) * tested.pixel_bytes, pitches.surface, random);
    c.width = tested.kind == JobKind::kDrawer ? noise(random) : width;
    c.height = height;
    c.color_key = any_key(tested, random);
    c.match = any_match(random);
    c.reserved1 = noise(random);
    c.reserved2 = noise(random);
    c.info = any_record(random);
    c.adjustment = any_adjustment(random);
    c.picture = any_samples(random);
    if (tested.kind == JobKind::kMask) c.picture = random.pick({Content::kLevels, Content::kSubtitle, Content::kNoise});
    c.subpicture = any_samples(random);
    c.alpha = any_alpha(random);
    c.seed = random.next();
    return c;
}

JobCase any_job(const JobExport& tested, int width, int height, uint64_t seed)
{
    Random random(seed);
    return job_of(tested, width, height, any_pitches(random), random);
}

std::string describe(const JobCase& c)
{
    std::ostringstream out;
    const ajust_contrast_info& a = c.adjustment;
    out << c.tested->name << " width " << c.width << " height " << c.height << " picture_pitch " << c.picture_pitch
        << " subpicture_pitch " << c.subpicture_pitch << " surface_pitch " << c.surface_pitch << " color_key "
        << c.color_key << " match " << c.match << (c.in_place ? " in place" : "") << " layout " << c.info.rgb16_layout
        << " gains " << a.y_gain << "," << a.uv_gain << " offsets " << a.y_offset_a << "+" << a.y_offset_b << ","
        << a.u_offset_a << "+" << a.u_offset_b << "," << a.v_offset_a << "+" << a.v_offset_b << " picture "
        << name(c.picture) << " subpicture " << name(c.subpicture) << " alpha " << name(c.alpha) << " seed " << c.seed;
    return out.str();
}

} // namespace harness
