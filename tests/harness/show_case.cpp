// SPDX-License-Identifier: MIT
#include "harness/show_case.h"

#include "model/show_formats.h"

#include <climits>
#include <sstream>

namespace harness {
namespace {

ptrdiff_t any_plane_pitch(const model::PlaneShape& shape, Random& random)
{
    static constexpr Pitch kKinds[] = {Pitch::kTight,    Pitch::kTight, Pitch::kPadded,      Pitch::kLines64,
                                       Pitch::kNegative, Pitch::kOdd,   Pitch::kNegativeOdd, Pitch::kAbove};
    static constexpr ptrdiff_t kUnused[] = {0, 1, -1, PTRDIFF_MAX, PTRDIFF_MIN};
    if (shape.lines == 1 && random.one_in(2)) return random.pick(kUnused);
    const int line = static_cast<int>(shape.line);
    return pitch_for(line, line, random.pick(kKinds), random);
}

template <class Planes> void draw_pitches(Planes& planes, Random& random)
{
    for (int i = 0; i < model::planes_of(planes.format); ++i) {
        planes.pitch[i] = any_plane_pitch(model::plane_shape(planes.format, i, planes.width, planes.height), random);
    }
}

template <class Planes> void draw_encoding(Planes& planes, Random& random)
{
    planes.matrix = random.pick({VSURF_BT601, VSURF_BT709, VSURF_BT2020});
    planes.range = random.one_in(2) ? VSURF_FULL : VSURF_LIMITED;
}

int any_margin(Random& random, bool allowed) { return allowed && random.one_in(2) ? random.between(0, 9) : 0; }

float any_member(Random& random)
{
    static constexpr float kMembers[] = {0, 0, 0, 1, -1, 0.5f, -0.5f, 0.01f, -0.01f};
    if (random.one_in(3)) return static_cast<float>(random.between(-1000, 1000)) / 1000;
    return random.pick(kMembers);
}

// Where an overlay of `length` begins so that some of it, most often, lies within `whole` from `start` on.
int any_overlay_start(int start, int length, int whole, Random& random)
{
    if (random.one_in(60)) return random.pick({INT_MIN, INT_MAX, -1000000, 1000000});
    return start + random.between(-length, whole);
}

vsurf_overlay any_overlay(const ShowCase& c, int width, int height, Random& random)
{
    static constexpr vsurf_overlay_kind kKinds[] = {VSURF_STRAIGHT_RGBA, VSURF_STRAIGHT_BGRA, VSURF_PREMULTIPLIED_RGBA,
                                                    VSURF_PREMULTIPLIED_BGRA, VSURF_COVERAGE};
    static constexpr uint32_t kAlphas[] = {0xff000000, 0xff000000, 0x80000000, 0x01000000, 0};
    vsurf_overlay overlay = {};
    overlay.kind = random.pick(kKinds);
    overlay.width = random.one_in(20) ? 0 : random.between(1, width + 20);
    overlay.height = random.one_in(20) ? 0 : random.between(1, height + 6);
    overlay.x = any_overlay_start(c.job.x, overlay.width, width, random);
    overlay.y = any_overlay_start(c.job.y, overlay.height, height, random);
    const int pixel = overlay.kind == VSURF_COVERAGE ? 1 : 4;
    overlay.pitch = any_plane_pitch({overlay.width * pixel, overlay.height}, random);
    overlay.colour = (static_cast<uint32_t>(random.next()) & 0xffffff) | random.pick(kAlphas);
    return overlay;
}

void draw_overlays(ShowCase& c, int width, int height, Random& random)
{
    static constexpr Content kContents[] = {Content::kSprites, Content::kSprites, Content::kMask, Content::kNoise,
                                            Content::kExtremes};
    const int count = random.one_in(2) ? 0 : random.between(1, static_cast<int>(kMostOverlays));
    for (int i = 0; i < count; ++i) c.overlays.push_back(any_overlay(c, width, height, random));
    c.overlay_content = random.pick(kContents);
}

void draw_geometry(ShowCase& c, int width, int height, bool margins, Random& random)
{
    auto draw = [&](int& first, int length, int& whole) {
        first = any_margin(random, margins);
        whole = first + length + any_margin(random, margins);
    };
    draw(c.job.crop_x, width, c.picture.width);
    draw(c.job.crop_y, height, c.picture.height);
    draw(c.job.x, width, c.surface.width);
    draw(c.job.y, height, c.surface.height);
    const bool to_right_edge = c.picture.width == c.job.crop_x + width;
    const bool to_lower_edge = c.picture.height == c.job.crop_y + height;
    c.job.crop_width = to_right_edge && random.one_in(2) ? 0 : width;
    c.job.crop_height = to_lower_edge && random.one_in(2) ? 0 : height;
}

template <class Planes> void describe_planes(std::ostringstream& out, const char* name, const Planes& planes)
{
    out << name << " {" << name_of_format(planes.format) << ' ' << planes.width << 'x' << planes.height << ", pitches";
    for (const ptrdiff_t pitch : planes.pitch) out << ' ' << pitch;
    out << ", matrix " << planes.matrix << ", range " << planes.range << '}';
}

void describe_overlay(std::ostringstream& out, const vsurf_overlay& overlay)
{
    out << "\n  overlay {kind " << overlay.kind << ", " << overlay.width << 'x' << overlay.height << " at " << overlay.x
        << ',' << overlay.y << ", pitch " << overlay.pitch << ", colour " << std::hex << overlay.colour << std::dec
        << '}';
}

} // namespace

const std::vector<vsurf_format>& picture_formats()
{
    static const std::vector<vsurf_format> all = {VSURF_I420, VSURF_NV12, VSURF_NV21, VSURF_YUY2, VSURF_UYVY};
    return all;
}

const std::vector<vsurf_format>& surface_formats()
{
    static const std::vector<vsurf_format> all = {VSURF_I420,  VSURF_NV12,   VSURF_NV21,    VSURF_YUY2,   VSURF_UYVY,
                                                  VSURF_BGRX,  VSURF_RGBX,   VSURF_BGRA,    VSURF_RGBA,   VSURF_BGR24,
                                                  VSURF_RGB24, VSURF_RGB565, VSURF_RGB555X, VSURF_RGB664, VSURF_RGB655};
    return all;
}

const char* name_of_format(int format)
{
    static constexpr const char* kNames[] = {"unknown", "I420",    "NV12",   "NV21",  "YUY2",  "UYVY",
                                             "BGRX",    "RGBX",    "BGRA",   "RGBA",  "BGR24", "RGB24",
                                             "RGB565",  "RGB555X", "RGB664", "RGB655"};
    return model::is_known(format) ? kNames[format] : kNames[0];
}

std::string describe(const ShowCase& c)
{
    std::ostringstream out;
    const vsurf_job& job = c.job;
    describe_planes(out, "picture", c.picture);
    describe_planes(out, "\n  surface", c.surface);
    out << "\n  crop " << job.crop_width << 'x' << job.crop_height << " from " << job.crop_x << ',' << job.crop_y
        << " to " << job.x << ',' << job.y << ", look " << job.look.brightness << ' ' << job.look.contrast << ' '
        << job.look.saturation << ' ' << job.look.hue;
    for (const vsurf_overlay& overlay : c.overlays) describe_overlay(out, overlay);
    out << "\n  bands " << c.bands << ", only " << c.band << ", content " << name(c.content) << ", of overlays "
        << name(c.overlay_content) << ", seed " << c.seed;
    return out.str();
}

ShowCase show_case(vsurf_format picture, vsurf_format surface, int width, int height, Random& random,
                   const ShowVariety& variety)
{
    ShowCase c;
    c.picture.format = picture;
    c.surface.format = surface;
    draw_geometry(c, width, height, variety.margins, random);
    draw_pitches(c.picture, random);
    draw_pitches(c.surface, random);
    draw_encoding(c.picture, random);
    draw_encoding(c.surface, random);
    if (random.one_in(2)) {
        c.surface.matrix = c.picture.matrix;
        c.surface.range = c.picture.range;
    }
    if (variety.looks && random.one_in(2)) {
        c.job.look = {any_member(random), any_member(random), any_member(random), any_member(random)};
    }
    if (variety.overlays) draw_overlays(c, width, height, random);
    if (variety.bands && random.one_in(4)) c.bands = random.between(2, 7);
    if (c.bands > 1 && random.one_in(2)) c.band = random.between(0, c.bands - 1);
    c.content = random.one_in(3) ? Content::kExtremes : Content::kNoise;
    c.seed = random.next();
    return c;
}

} // namespace harness
