// SPDX-License-Identifier: MIT
// What is read, written and shown of a picture.
#include "tools/geometry.h"
#include <gtest/gtest.h>

namespace player_test {
namespace {

using player::Geometry;
using player::Rectangle;
using player::Scaling;
using player::SurfaceFormat;

TEST(Geometry, is_whole_blocks_and_pairs_of_lines)
{
    const Geometry g = player::plan(853, 479, SurfaceFormat::rgb24, Scaling::none, false);
    EXPECT_EQ(g.picture_width, 864);
    EXPECT_EQ(g.picture_height, 480);
    EXPECT_EQ(g.surface_width, 864);
    EXPECT_EQ(g.shown_width, 853);
    EXPECT_EQ(g.shown_height, 479);
    EXPECT_FALSE(g.tight_picture);
}

TEST(Geometry, half_width_takes_yuv_surfaces_alone)
{
    EXPECT_EQ(player::plan(100, 100, SurfaceFormat::rgb16_664, Scaling::half_width, false).surface,
              SurfaceFormat::yuy2);
    EXPECT_EQ(player::plan(100, 100, SurfaceFormat::yv12, Scaling::half_width, false).surface, SurfaceFormat::yv12);
    EXPECT_EQ(player::plan(17, 100, SurfaceFormat::yv12, Scaling::half_width, false).picture_width, 32);
    EXPECT_EQ(player::plan(17, 100, SurfaceFormat::yv12, Scaling::half_width, false).shown_width, 9);
}

TEST(Geometry, has_more_lines_than_the_yuy2_loader_refuses)
{
    EXPECT_EQ(player::plan(16, 1, SurfaceFormat::yuy2, Scaling::none, false).surface_height, 10);
    EXPECT_EQ(player::plan(16, 11, SurfaceFormat::yuy2, Scaling::none, false).surface_height, 12);
}

TEST(Geometry, enlarges_no_less_than_the_enlargers_take)
{
    const Geometry rgb = player::plan(17, 3, SurfaceFormat::rgb24, Scaling::zoom_1x2, true);
    EXPECT_EQ(rgb.surface, SurfaceFormat::rgb24);
    EXPECT_FALSE(rgb.packed);
    EXPECT_EQ(rgb.picture_width, 32);
    EXPECT_EQ(rgb.picture_height, 12);
    EXPECT_EQ(rgb.surface_width, 32);
    EXPECT_EQ(rgb.surface_height, 24);
    EXPECT_EQ(rgb.shown_width, 17);
    EXPECT_EQ(rgb.shown_height, 6);

    const Geometry yuy2 = player::plan(1, 1, SurfaceFormat::rgb24, Scaling::zoom_2x2, true);
    EXPECT_EQ(yuy2.surface, SurfaceFormat::yuy2);
    EXPECT_TRUE(yuy2.packed && yuy2.tight_picture);
    EXPECT_EQ(yuy2.picture_width, 32);
    EXPECT_EQ(yuy2.picture_height, 16);
    EXPECT_EQ(yuy2.surface_width, 64);
    EXPECT_EQ(yuy2.shown_width, 2);
}

// One more sample and line of every plane than is shown.
TEST(Geometry, gives_plane_enlargers_room_and_no_gaps)
{
    for (const Scaling scaling : {Scaling::zoom_1x2, Scaling::zoom_2x2}) {
        const Geometry g = player::plan(31, 30, SurfaceFormat::yv12, scaling, true);
        EXPECT_FALSE(g.packed);
        EXPECT_TRUE(g.tight_picture && g.tight_surface);
        EXPECT_EQ(g.picture_width, 64);
        EXPECT_EQ(g.picture_height, 32);
        EXPECT_EQ(g.surface_height, 64);
    }
}

TEST(Geometry, field_has_pairs_of_its_own_lines)
{
    const Geometry g = player::plan(720, 486, SurfaceFormat::rgb32, Scaling::field, true);
    EXPECT_EQ(g.surface, SurfaceFormat::yuy2);
    EXPECT_TRUE(g.field && g.tight_picture);
    EXPECT_EQ(g.picture_height, 488);
    EXPECT_EQ(g.surface_height, 488);
    EXPECT_EQ(g.shown_height, 486);
    EXPECT_EQ(player::plan(1, 1, SurfaceFormat::yuy2, Scaling::field, false).picture_width, 48);
}

TEST(Geometry, below_subtitles_a_field_keeps_its_surface)
{
    const auto field = [](SurfaceFormat surface, player::Layer layer) {
        return player::plan(720, 486, surface, Scaling::field, true, layer);
    };
    const Geometry empty = field(SurfaceFormat::rgb24, player::Layer::empty);
    EXPECT_EQ(empty.surface, SurfaceFormat::rgb24);
    EXPECT_TRUE(empty.mixed) << "no loader takes a field to RGB";
    EXPECT_FALSE(field(SurfaceFormat::yuy2, player::Layer::empty).mixed);
    EXPECT_TRUE(field(SurfaceFormat::yuy2, player::Layer::drawn).mixed);
    const Geometry planes = field(SurfaceFormat::yv12, player::Layer::drawn);
    EXPECT_EQ(planes.picture_height, 488) << "a pair of lines below those that are shown";
    EXPECT_EQ(player::plan(720, 488, SurfaceFormat::yv12, Scaling::field, true, player::Layer::drawn).picture_height,
              492);
}

TEST(Geometry, mixes_planes_onto_the_same_surface_that_is_loaded)
{
    for (const Scaling scaling : {Scaling::none, Scaling::half_width, Scaling::zoom_1x2, Scaling::zoom_2x2}) {
        for (const SurfaceFormat surface : {SurfaceFormat::rgb24, SurfaceFormat::yuy2, SurfaceFormat::yv12}) {
            const Geometry drawn = player::plan(101, 37, surface, scaling, true, player::Layer::drawn);
            const Geometry empty = player::plan(101, 37, surface, scaling, true, player::Layer::empty);
            EXPECT_TRUE(drawn.mixed && !drawn.packed);
            EXPECT_FALSE(empty.mixed);
            EXPECT_EQ(drawn.surface, empty.surface);
            EXPECT_EQ(drawn.surface_width, empty.surface_width);
            EXPECT_EQ(drawn.surface_height, empty.surface_height);
            EXPECT_EQ(drawn.tight_surface, empty.tight_surface);
            EXPECT_TRUE(drawn.tight_picture || scaling != Scaling::half_width) << "has not the subpicture's pitch";
        }
    }
}

TEST(Geometry, zooms_come_round)
{
    EXPECT_EQ(player::next_zoom(Scaling::none), Scaling::zoom_1x2);
    EXPECT_EQ(player::next_zoom(Scaling::zoom_1x2), Scaling::zoom_2x2);
    EXPECT_EQ(player::next_zoom(Scaling::zoom_2x2), Scaling::none);
    EXPECT_EQ(player::next_zoom(Scaling::field), Scaling::zoom_1x2);
}

TEST(Geometry, fits_into_the_middle)
{
    EXPECT_EQ(player::fit(2.0, 400, 400), (Rectangle{0, 100, 400, 200}));
    EXPECT_EQ(player::fit(0.5, 400, 400), (Rectangle{100, 0, 200, 400}));
    EXPECT_EQ(player::fit(4.0 / 3, 640, 480), (Rectangle{0, 0, 640, 480}));
    EXPECT_EQ(player::fit(1000, 20, 20), (Rectangle{0, 9, 20, 1}));
}

TEST(Surface, has_aligned_lines_and_planes)
{
    for (std::size_t i = 0; i < player::kFormatTraits.size(); i++) {
        player::Surface surface;
        surface.shape(static_cast<SurfaceFormat>(i), 48, 10, 40, 9);
        EXPECT_EQ(surface.pitch() % 64, 0);
        EXPECT_GE(surface.pitch(), 48 * player::kFormatTraits[i].bytes_per_pixel);
        EXPECT_EQ(reinterpret_cast<uintptr_t>(surface.bytes()) % 64, 0U);
        if (surface.format() != SurfaceFormat::yv12) continue;
        EXPECT_EQ(reinterpret_cast<uintptr_t>(surface.v_plane()) % 64, 0U);
        EXPECT_EQ(surface.v_plane() - surface.bytes(), 10 * surface.pitch());
        EXPECT_EQ(surface.u_plane() - surface.v_plane(), 5 * surface.chroma_pitch());
        EXPECT_EQ(surface.chroma_pitch() % 64, 0);
    }
}

TEST(Surface, closes_its_gaps_where_it_must)
{
    player::Surface surface;
    surface.shape(SurfaceFormat::yv12, 96, 10, 90, 9, true);
    EXPECT_EQ(surface.pitch(), 96);
    EXPECT_EQ(surface.u_plane() - surface.v_plane(), 5 * 48);
    surface.shape(SurfaceFormat::yv12, 96, 10, 90, 9, false);
    EXPECT_EQ(surface.pitch(), 128);
}

TEST(Surface, formats_have_names_and_come_round)
{
    SurfaceFormat format = SurfaceFormat::rgb32;
    for (const auto& each : player::kFormatTraits) {
        EXPECT_EQ(player::format_named(each.name), format);
        format = player::next_format(format);
    }
    EXPECT_EQ(format, SurfaceFormat::rgb32);
    EXPECT_FALSE(player::format_named("RGB32"));
}

} // namespace
} // namespace player_test
