// SPDX-License-Identifier: MIT
// Loaders that may be cut into bands write the bytes of one call, and the enlargers of pictures those of three planes.
#include "bands/bands.h"
#include "bands/names.h"
#include "harness/case.h"
#include "harness/fixture.h"

#include <map>

namespace {

using bands::Plane;
using harness::Arguments;
using harness::Case;
using harness::Export;
using harness::Random;
using harness::Variant;

// Moves the arguments of the whole picture to where the band that begins with `line` does.
using Start = void (*)(const Case& c, int line, Arguments& a);

int drift(const Case& c) { return harness::rounded(c.width) - c.width; }
int pixel_bytes(const Case& c) { return c.tested->block_bytes / 16; }

void at_pass(const Case& c, int line, Arguments& a)
{
    const int pass = line / 2, r = drift(c), chroma = pass * ((c.y_pitch + r) >> 1);
    a.y += pass * (2 * c.y_pitch + r);
    a.u += chroma;
    a.v += chroma;
    a.dst += pass * (2 * c.dst_pitch + pixel_bytes(c) * r);
}

void at_line(const Case& c, int line, Arguments& a)
{
    const int r = drift(c), half = c.width >> 1;
    const int chroma = line / 2 * (harness::rounded(c.width) - half + ((c.y_pitch - c.width) >> 1));
    a.y += line * (c.y_pitch + r);
    a.u += chroma;
    a.v += chroma;
    a.dst += line * (c.dst_pitch + pixel_bytes(c) * r);
}

// Packed source rows; the record gives each band its place in the surface.
void at_rest_of_surface(const Case& c, int line, Arguments& a)
{
    a.y += line * c.width;
    a.u += line / 2 * (c.width / 2);
    a.v += line / 2 * (c.width / 2);
    a.dst += line * c.dst_pitch;
    a.info->lines_to_bottom -= line;
}

void at_packed_line(const Case& c, int line, Arguments& a)
{
    a.y += line * 2 * c.y_pitch;
    a.dst += line * c.dst_pitch;
}

struct Cut {
    Start start;
    int least = 1; // lines of a band
    bool whole_blocks = false;
};

const std::map<std::string, Cut>& cut_loads()
{
    static const std::map<std::string, Cut> all = {
        {"loadimage_yuy2", {at_pass}},
        {"loadimage_rgb32", {at_pass}},
        {"loadimage_rgb24", {at_pass}},
        {"loadimage_rgb16", {at_pass}},
        {"loadimage_rgb32_ajust", {at_pass}},
        {"loadimage_rgb24_ajust", {at_pass}},
        {"loadimage_rgb16_ajust", {at_pass}},
        {"loadimage_yuy2_ajust", {at_line, 10}},
        {"loadimage_yuy2_mono_ajust", {at_line}},
        {"loadimage_half_yuy2_ajust", {at_line}},
        {"loadimage_yv12_ajust", {at_rest_of_surface, 1, true}},
        {"LoadYUY2_YUY2", {at_packed_line}},
        {"LoadYUY2_YUY2_adjust", {at_packed_line}},
        {"LoadYUY2_RGB32", {at_packed_line}},
        {"LoadYUY2_RGB24", {at_packed_line}},
        {"LoadYUY2_RGB16", {at_packed_line}},
        {"LoadYUY2_RGB32_adjust", {at_packed_line}},
        {"LoadYUY2_RGB24_adjust", {at_packed_line}},
        {"LoadYUY2_RGB16_adjust", {at_packed_line}},
    };
    return all;
}

// The planes of a picture, and one call or several on them.
struct Planes {
    Plane y, u{harness::Content::kExtremes}, v{harness::Content::kLevels}, dst{harness::Content::kStripes};

    void call(const Case& c, const Variant& table, int line, int lines, Start start)
    {
        Case band = c;
        band.height = lines;
        ajust_contrast_info info = c.info;
        Arguments a{y.origin(), u.origin(), v.origin(), dst.origin(), &info, nullptr};
        start(c, line, a);
        table.apply();
        c.tested->call(*table.kernels, band, a);
    }
    bool operator==(const Planes&) const = default;
};

Case case_of(const Export& tested, int width, int padding, Random& random)
{
    Case c;
    c.tested = &tested;
    c.width = width;
    c.height = bands::kHeight;
    c.y_pitch = harness::rounded(width) + 2 * padding;
    c.dst_pitch = harness::line_bytes(tested, harness::rounded(width)) + 4 * padding;
    if (padding % 3 == 1) c.dst_pitch = -(c.dst_pitch + pixel_bytes(c) * drift(c)); // lines that drift towards the next
    c.adjustment = harness::any_adjustment(random);
    c.info.rgb16_layout = random.between(0, 3);
    c.info.surface_height = c.height + 6;
    c.info.lines_to_bottom = c.height + 2;
    return c;
}

const Planes& untouched()
{
    static const Planes planes;
    return planes;
}

class BandsOfLoads : public testing::TestWithParam<Variant> {
protected:
    void check(Case c, const Cut& cut)
    {
        get_contrast_data(&c.adjustment);
        whole_ = untouched();
        whole_.call(c, GetParam(), 0, c.height, cut.start);
        ASSERT_FALSE(whole_ == untouched()) << harness::describe(c) << " writes nothing";
        for (const std::vector<int>& cuts : bands::kCuts) {
            if (!bands::falls_on(cuts, 2, cut.least)) continue;
            for (const bool upwards : {false, true}) {
                parts_ = untouched();
                bands::for_each_band(cuts, upwards,
                                     [&](int line, int lines) { parts_.call(c, GetParam(), line, lines, cut.start); });
                ASSERT_TRUE(parts_ == whole_) << harness::describe(c) << " in " << cuts.size() - 1 << " bands";
            }
        }
    }

    Planes whole_, parts_;
};

TEST_P(BandsOfLoads, write_the_bytes_of_one_call)
{
    Random random(51);
    for (const auto& [name, cut] : cut_loads()) {
        const Export& tested = harness::export_named(name);
        for (const int width : {16, 64, 100, 208}) {
            if (cut.whole_blocks && width % 16 != 0) continue;
            for (const int padding : bands::paddings()) check(case_of(tested, width, padding, random), cut);
        }
    }
}

// The enlargers of whole pictures work on each plane by itself: three threads can share one.
TEST_P(BandsOfLoads, an_enlarged_picture_is_three_enlarged_planes)
{
    Random random(52);
    for (const char* size : {"1X2", "2X2"}) {
        const std::string zoom(size);
        const int across = zoom == "2X2" ? 2 : 1;
        Case c = case_of(harness::export_named("strech_picture_" + zoom + "_yv12_ajust"), 64, 0, random);
        c.dst_pitch = across * c.width;
        get_contrast_data(&c.adjustment);
        whole_ = parts_ = untouched();
        whole_.call(c, GetParam(), 0, c.height, [](const Case&, int, Arguments&) {});

        const int luma_bytes = 2 * c.height * c.dst_pitch;
        const Export& plane_enlarger = harness::export_named("strech_pic_" + zoom + "_adjust");
        auto enlarge = [&](uint8_t* from, uint8_t* to, int shift, int plane) {
            Case one = c;
            one.width >>= shift;
            one.height >>= shift;
            one.y_pitch >>= shift;
            one.dst_pitch >>= shift;
            one.plane = plane;
            plane_enlarger.call(*GetParam().kernels, one, {from, nullptr, nullptr, to, nullptr, nullptr});
        };
        uint8_t* const dst = parts_.dst.origin();
        enlarge(parts_.u.origin(), dst + luma_bytes + luma_bytes / 4, 1, 3);
        enlarge(parts_.v.origin(), dst + luma_bytes, 1, 2);
        enlarge(parts_.y.origin(), dst, 0, 1);
        ASSERT_TRUE(parts_ == whole_) << harness::describe(c);
    }
}

VSURF_ON_EVERY_TABLE(BandsOfLoads);

} // namespace

std::vector<std::string> bands::loads()
{
    std::vector<std::string> names;
    for (const auto& [name, cut] : cut_loads()) names.push_back(name);
    return names;
}
