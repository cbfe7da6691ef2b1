// SPDX-License-Identifier: MIT
#include "harness/case.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <sstream>

namespace harness {
namespace {

// No chroma plane of an upward picture can be reached through a logical shift of its pitch, nor one whose advance
// between passes is negative.
int unsigned_pitch(int width, int pitch)
{
    pitch = std::abs(pitch);
    return 2 * pitch < width ? width : pitch;
}

int any_gain(Random& random)
{
    static constexpr int kGains[] = {0,  1,   63,    64,     65,  128,   255,   256,    257, 258,
                                     -1, -64, 32767, -32768, 192, 65535, 65600, -65472, 100, 50};
    return random.one_in(3) ? static_cast<int>(static_cast<uint32_t>(random.next())) : random.pick(kGains);
}

int any_offset(Random& random)
{
    static constexpr int kOffsets[] = {0, 0, 0, 1, -1, 10, -20, 255, -255, -1023, 30000, -30000, 32767, -32768, 65536};
    return random.one_in(4) ? static_cast<int>(static_cast<uint32_t>(random.next())) : random.pick(kOffsets);
}

Content any_content(const Export& tested, Random& random)
{
    static constexpr Content kForEdges[] = {Content::kNoise, Content::kExtremes, Content::kNear, Content::kLevels,
                                            Content::kStripes};
    if (tested.family == Family::kBand) return random.pick(kForEdges);
    return random.one_in(3) ? Content::kExtremes : Content::kNoise;
}

void any_geometry(Case& c, Random& random)
{
    const int top = random.between(0, 4);
    c.info.surface_height = c.height + top + random.between(0, 4);
    c.info.lines_to_bottom = c.info.surface_height - top;
    if (random.one_in(4)) c.info.lines_to_bottom = random.between(-5, 25);
    if (random.one_in(4)) c.info.surface_height = random.between(-5, 25);
    if (c.dst_pitch % 4 == 0 && random.one_in(4)) c.info.surface_height |= 1 << 30; // the products wrap
    if (c.dst_pitch % 4 == 0 && random.one_in(4)) c.info.lines_to_bottom ^= 1 << 30;
}

// A plane's lines are made in blocks of 8; a loader's may end anywhere.
int whole_width(const Export& tested, int width)
{
    return tested.family == Family::kLoader ? width : (width + 7) / 8 * 8;
}

} // namespace

int rounded(int width) { return width == 0 ? 16 : (width + 15) / 16 * 16; }

int line_bytes(const Export& tested, int width) { return width * tested.block_bytes / 16; }

std::vector<int> widths(const Export& tested, int widest)
{
    std::vector<int> all;
    for (int width = tested.sizes.least_width; width <= widest; width += tested.sizes.width_step) all.push_back(width);
    return all;
}

std::vector<int> heights(const Export& tested, int highest)
{
    const Sizes& sizes = tested.sizes;
    std::vector<int> all;
    for (int height = -2; sizes.guarded && height < sizes.least_height; ++height) all.push_back(height);
    for (int height = sizes.least_height; height <= highest; height += sizes.height_step) all.push_back(height);
    return all;
}

int legal_width(const Export& tested, int width)
{
    const int step = tested.sizes.width_step;
    return std::max(tested.sizes.least_width, (width + step - 1) / step * step);
}

int legal_height(const Export& tested, int height)
{
    const int step = tested.sizes.height_step;
    return std::max(tested.sizes.least_height, (height + step - 1) / step * step);
}

int pitch_for(int tight, int whole, Pitch pitch, Random& random)
{
    switch (pitch) {
    case Pitch::kTight: return tight;
    case Pitch::kRounded: return whole;
    case Pitch::kPadded: return whole + 16 * random.between(1, 6);
    case Pitch::kLines64: return (whole + 63) / 64 * 64;
    case Pitch::kOdd: return (whole + random.between(0, 40)) | 1;
    case Pitch::kNegative: return -whole - 16 * random.between(0, 3);
    case Pitch::kNegativeOdd: return -((whole + random.between(0, 40)) | 1);
    case Pitch::kCrowded: return random.between(0, tight);
    case Pitch::kAbove: return whole + random.between(1, 63);
    case Pitch::kNegativeAbove: return -whole - random.between(1, 63);
    case Pitch::kAny: return random.between(-whole - 80, whole + 80);
    default: return 0;
    }
}

int source_pitch(const Export& tested, int width, Pitch pitch, Random& random)
{
    const int bytes = pitch_for(width, rounded(width), pitch, random);
    switch (tested.family) {
    case Family::kLoader: return tested.signed_pitches ? bytes : unsigned_pitch(width, bytes);
    case Family::kEnlarger: return bytes & ~1;
    case Family::kBand: return width;
    case Family::kPackedPicture: return 0;
    default: return bytes;
    }
}

int surface_pitch(const Export& tested, int width, Pitch pitch, Random& random)
{
    const int line = std::max(tested.sizes.least_line, line_bytes(tested, whole_width(tested, width)));
    const int bytes = pitch_for(line, line_bytes(tested, rounded(width)), pitch, random);
    if (tested.family == Family::kLoader) return tested.signed_pitches ? bytes : unsigned_pitch(width, bytes);
    if (tested.family == Family::kPlane) return bytes;
    return std::abs(bytes) >= line ? bytes : bytes < 0 ? -line : line;
}

ajust_contrast_info unity_adjustment()
{
    ajust_contrast_info record = {};
    record.y_gain = record.uv_gain = 64;
    return record;
}

ajust_contrast_info any_adjustment(Random& random)
{
    if (random.one_in(8)) return unity_adjustment();
    ajust_contrast_info record = {};
    if (random.one_in(4)) {
        record.y_gain = random.between(40, 100);
        record.uv_gain = random.between(40, 100);
        record.y_offset_a = random.between(-40, 40);
        record.u_offset_a = random.between(-40, 40);
        record.v_offset_a = random.between(-40, 40);
        return record;
    }
    record.y_gain = any_gain(random);
    record.uv_gain = any_gain(random);
    for (int32_t* field : {&record.y_offset_a, &record.u_offset_a, &record.v_offset_a, &record.y_offset_b,
                           &record.u_offset_b, &record.v_offset_b}) {
        *field = any_offset(random);
    }
    return record;
}

ajust_contrast_info any_record(Random& random)
{
    ajust_contrast_info record = any_adjustment(random);
    record.reserved = static_cast<int32_t>(static_cast<uint32_t>(random.next()));
    record.rgb16_layout = random.between(0, 3);
    static constexpr int kRefused[] = {-1, 4, 5, 6, 7, INT32_MAX, INT32_MIN};
    if (random.one_in(16)) record.rgb16_layout = random.pick(kRefused);
    return record;
}

void complete(Case& c, Random& random)
{
    c.adjustment = any_adjustment(random);
    c.content = any_content(*c.tested, random);
    c.seed = random.next();
    c.plane = random.between(1, 3);
    c.start = random.between(0, 3);
    c.field_mode = random.pick({1, 1, 0, 2, -1});
    c.info = any_record(random);
    any_geometry(c, random);
}

Pitch any_pitch(Random& random)
{
    static constexpr Pitch kPitches[] = {Pitch::kTight,   Pitch::kRounded,  Pitch::kPadded,  Pitch::kLines64,
                                         Pitch::kOdd,     Pitch::kNegative, Pitch::kTight,   Pitch::kNegativeOdd,
                                         Pitch::kCrowded, Pitch::kAny,      Pitch::kRounded, Pitch::kZero};
    return random.pick(kPitches);
}

Case case_of(const Export& tested, int width, int height, Pitch source, Pitch surface, Random& random)
{
    Case c;
    c.tested = &tested;
    c.width = width;
    c.height = height;
    c.y_pitch = source_pitch(tested, width, source, random);
    c.dst_pitch = surface_pitch(tested, width, surface, random);
    complete(c, random);
    return c;
}

Case any_case(const Export& tested, int width, int height, uint64_t seed)
{
    Random random(seed);
    const Pitch source = any_pitch(random);
    return case_of(tested, width, height, source, any_pitch(random), random);
}

std::string describe(const Case& c)
{
    std::ostringstream out;
    const ajust_contrast_info& a = c.adjustment;
    out << (c.tested != nullptr ? c.tested->name : "?") << " width " << c.width << " height " << c.height << " y_pitch "
        << c.y_pitch << " dst_pitch " << c.dst_pitch << " layout " << c.info.rgb16_layout << " plane " << c.plane
        << " start " << c.start << " field_mode " << c.field_mode << " surface_height " << c.info.surface_height
        << " lines_to_bottom " << c.info.lines_to_bottom << " gains " << a.y_gain << "," << a.uv_gain << " offsets "
        << a.y_offset_a << "+" << a.y_offset_b << "," << a.u_offset_a << "+" << a.u_offset_b << "," << a.v_offset_a
        << "+" << a.v_offset_b << " content " << name(c.content) << " seed " << c.seed;
    return out.str();
}

} // namespace harness
