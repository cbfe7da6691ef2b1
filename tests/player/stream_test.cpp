// SPDX-License-Identifier: MIT
// Streams that are damaged, that change on the way, or that hold another pixel format.
#include "tests/player/clip.h"
#include "tests/player/process.h"
#include "tests/player/subtitled.h"
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>

namespace player_test {
namespace {

constexpr Encoding kFilm{"mpeg4", "yuv420p", 320, 240, 75};

class Stream : public testing::Test {
protected:
    Result dump(const std::filesystem::path& file, Arguments options = {})
    {
        options.insert(options.end(), {"--dump", directory().string(), file.string()});
        return play(options);
    }

    std::filesystem::path directory() const { return scratch_ / "pictures"; }

    Image picture(int number) const
    {
        char name[32];
        std::snprintf(name, sizeof name, "picture-%06d.png", number);
        return read_png(directory() / name);
    }

    long complete_pictures() const
    {
        long count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(directory())) {
            EXPECT_EQ(entry.path().extension(), ".png");
            EXPECT_GT(read_png(entry.path()).width, 0) << entry.path();
            count++;
        }
        return count;
    }

    void expect_one_line(const Result& result, const char* hint) const
    {
        EXPECT_EQ(result.status, 2) << result.err;
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
        EXPECT_NE(result.err.find(hint), std::string::npos) << result.err;
    }

    const ScratchDirectory scratch_;
};

TEST_F(Stream, whole_film_has_every_picture)
{
    encode(scratch_ / "film.mp4", kFilm);
    const Result result = dump(scratch_ / "film.mp4");
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(complete_pictures(), kFilm.count);
}

TEST_F(Stream, truncated_film_plays_what_is_there_and_says_what_is_not)
{
    encode(scratch_ / "film.mp4", kFilm);
    const std::string bytes = contents(scratch_ / "film.mp4");
    write_file(scratch_ / "part.mp4", bytes.substr(0, bytes.size() / 2));
    expect_one_line(dump(scratch_ / "part.mp4"), "of 3.00 s");
    EXPECT_GT(complete_pictures(), 20);
    EXPECT_LT(complete_pictures(), 60);
}

// Matroska's demuxer takes a cut for the end; only the announced length tells.
TEST_F(Stream, silently_missing_end_is_noticed)
{
    encode(scratch_ / "film.mkv", {"ffv1", "yuv420p", 64, 48, 50});
    const std::string bytes = contents(scratch_ / "film.mkv");
    write_file(scratch_ / "part.mkv", bytes.substr(0, bytes.size() / 2));
    expect_one_line(dump(scratch_ / "part.mkv"), "of 2.00 s");
    EXPECT_GT(complete_pictures(), 10);
}

TEST_F(Stream, film_without_its_index_is_refused)
{
    encode(scratch_ / "film.mp4", kFilm);
    write_file(scratch_ / "part.mp4", contents(scratch_ / "film.mp4").substr(0, 200));
    expect_one_line(dump(scratch_ / "part.mp4"), "part.mp4");
    EXPECT_FALSE(std::filesystem::exists(directory()));
}

TEST_F(Stream, damage_in_the_middle_is_counted_and_the_rest_is_played)
{
    encode(scratch_ / "film.mp4", kFilm);
    std::string bytes = contents(scratch_ / "film.mp4");
    std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(bytes.size() / 2), bytes.size() / 20, '\xff');
    write_file(scratch_ / "damaged.mp4", bytes);
    const Result result = dump(scratch_ / "damaged.mp4");
    expect_one_line(result, "skipped ");
    expect_one_line(result, " damaged\n");
    EXPECT_GT(complete_pictures(), kFilm.count * 3 / 4);
}

TEST_F(Stream, a_packet_that_is_cut_counts_once)
{
    write_file(scratch_ / "clip.yuy2", std::string(16 * 16 * 2 + 100, 'x'));
    const Result result =
        dump(scratch_ / "clip.yuy2", {"--format", "rawvideo", "--pixel-format", "yuyv422", "--video-size", "16x16"});
    expect_one_line(result, "skipped 1 damaged packet");
    EXPECT_EQ(result.err.find("packets"), std::string::npos) << result.err;
    EXPECT_EQ(complete_pictures(), 1);
}

TEST_F(Stream, film_of_a_telephone_stands_upright)
{
    encode(scratch_ / "lying.mp4", {"mpeg4", "yuv420p", 64, 48, 2});
    ASSERT_EQ(dump(scratch_ / "lying.mp4").status, 0);
    const Image lying = picture(1);
    encode(scratch_ / "film.mp4", {"mpeg4", "yuv420p", 64, 48, 2, 90});
    ASSERT_EQ(dump(scratch_ / "film.mp4").status, 0);
    const Image upright = picture(1);
    ASSERT_EQ(upright.width, 48);
    ASSERT_EQ(upright.height, 64);
    for (int y = 0; y < 64; y++)
        for (int x = 0; x < 48; x++) ASSERT_EQ(upright.at(x, y), lying.at(y, 47 - x)) << x << "," << y;
}

// Where a film can be searched, and where it cannot.
TEST_F(Stream, plays_from_the_start_to_the_end_that_are_wanted)
{
    encode(scratch_ / "film.mp4", kFilm);
    ASSERT_EQ(dump(scratch_ / "film.mp4").status, 0);
    const Image expected = picture(26);
    for (const Arguments& limits : {Arguments{"--start", "1", "--end", "1.4"}, {"--start", "1", "--frames", "10"}}) {
        const std::string pipe = (scratch_ / "film.mp4").string();
        std::filesystem::remove_all(directory());
        Arguments command{VSURF_PLAY, "--dump", directory().string(), pipe};
        command.insert(command.end(), limits.begin(), limits.end());
        const Result result = Process(command).wait();
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(complete_pictures(), 10);
        EXPECT_EQ(picture(1).pixels, expected.pixels);
    }
    const Result result = play({"--start", "9", "--size", "64x48", "--dump", directory().string()});
    EXPECT_EQ(result.status, 0) << result.err;
}

TEST_F(Stream, bands_on_several_threads_give_the_same_pictures)
{
    write_y4m(scratch_ / "clip.y4m", noise(333, 217), 1, "C420mpeg2 XCOLORRANGE=FULL");
    ASSERT_EQ(dump(scratch_ / "clip.y4m").status, 0);
    const Image expected = picture(1);
    const Result result = dump(scratch_ / "clip.y4m", {"--threads", "3", "--stats"});
    EXPECT_NE(result.out.find("vsurf_show_band: 1 picture"), std::string::npos) << result.out;
    EXPECT_EQ(picture(1).pixels, expected.pixels);
}

TEST_F(Stream, subtitles_of_the_same_name_are_drawn)
{
    write_y4m(scratch_ / "film.y4m", gradient(320, 240), 1);
    ASSERT_EQ(dump(scratch_ / "film.y4m").status, 0);
    const Pixel before = picture(1).at(100, 80);
    write_file(scratch_ / "film.ass", script(320, 240, {{40, 40, 200, 120, {220, 20, 30}, 0}}));
    ASSERT_EQ(dump(scratch_ / "film.y4m").status, 0);
    const Pixel box = picture(1).at(100, 80);
    EXPECT_GT(before[1], 60);
    EXPECT_NEAR(box[0], 220, 4);
    EXPECT_NEAR(box[1], 20, 4);
    write_file(scratch_ / "film.ass", "no subtitles at all");
    const Result result = dump(scratch_ / "film.y4m");
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(picture(1).at(100, 80), before);
}

TEST_F(Stream, several_files_play_one_after_the_other)
{
    write_y4m(scratch_ / "a.y4m", gradient(32, 32), 3);
    write_y4m(scratch_ / "b.y4m", gradient(48, 32), 5);
    const std::string a = (scratch_ / "a.y4m").string(), b = (scratch_ / "b.y4m").string();
    const Result both = play({"--stats", a, b}, {"SDL_VIDEODRIVER=dummy"});
    EXPECT_EQ(both.status, 0) << both.err;
    EXPECT_NE(both.out.find("32x32"), std::string::npos) << both.out;
    EXPECT_NE(both.out.find("48x32"), std::string::npos) << both.out;
    const Result missing = play({"--stats", "/no/such/film", b}, {"SDL_VIDEODRIVER=dummy"});
    expect_one_line(missing, "No such file");
    EXPECT_NE(missing.out.find("48x32"), std::string::npos) << missing.out;
}

// A green last line, once.
TEST_F(Stream, packed_pictures_of_odd_height_are_right_to_the_last_line)
{
    const Yuv source = gradient(333, 217);
    Yuv picture(333, 217, 1);
    picture.y = source.y;
    for (int y = 0; y < picture.height; y++) {
        for (int x = 0; x < picture.chroma_width(); x++) {
            const auto [u, v] = source.chroma(x, y / 2);
            const auto at = static_cast<std::size_t>(y * picture.chroma_width() + x);
            picture.u[at] = static_cast<uint8_t>(u);
            picture.v[at] = static_cast<uint8_t>(v);
        }
    }
    const std::string yuy2 = packed_bytes(picture);
    std::string uyvy = yuy2;
    for (std::size_t i = 0; i + 1 < uyvy.size(); i += 2) std::swap(uyvy[i], uyvy[i + 1]);
    for (const auto& [name, bytes] : {std::pair{"yuyv422", yuy2}, std::pair{"uyvy422", uyvy}}) {
        write_file(scratch_ / "clip", bytes);
        for (const char* surface : {"--surface=rgb32", "--surface=yv12", "--surface=yuy2"}) {
            const Result result = dump(scratch_ / "clip", {surface, "--format=rawvideo", "--video-size=333x217",
                                                           std::string("--pixel-format=") + name});
            ASSERT_EQ(result.status, 0) << result.err;
            for (int difference : largest_difference(this->picture(1), render(source)))
                EXPECT_LE(difference, 6) << name << " " << surface;
        }
        const Result result = dump(scratch_ / "clip", {"--zoom=1x2", "--format=rawvideo", "--video-size=333x217",
                                                       std::string("--pixel-format=") + name});
        ASSERT_EQ(result.status, 0) << result.err;
        const Image enlarged = this->picture(1), expected = render(source);
        ASSERT_EQ(enlarged.height, 2 * 217);
        for (int x = 0; x < 333; x++)
            for (std::size_t c = 0; c < 3; c++)
                ASSERT_NEAR(enlarged.at(x, 433)[c], expected.at(x, 216)[c], 8) << name << " " << x;
    }
}

TEST_F(Stream, size_may_change_between_pictures)
{
    encode(scratch_ / "a.mjpg", {"mjpeg", "yuvj420p", 64, 48, 3});
    encode(scratch_ / "b.mjpg", {"mjpeg", "yuvj420p", 33, 17, 2});
    write_file(scratch_ / "both.mjpg", contents(scratch_ / "a.mjpg") + contents(scratch_ / "b.mjpg"));
    for (const char* surface : {"rgb24", "yv12"}) {
        const Result result = dump(scratch_ / "both.mjpg", {"--surface", surface});
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(picture(3).width, 64);
        EXPECT_EQ(picture(3).height, 48);
        EXPECT_EQ(picture(4).width, 33);
        EXPECT_EQ(picture(4).height, 17);
    }
}

// Gradients, so that the filters which move chroma between resolutions change next to nothing.
class PixelFormat : public Stream {
protected:
    void expect_shown(const std::string& picture, const std::string& tags, const Image& expected)
    {
        write_y4m(scratch_ / "clip.y4m", kWidth, kHeight, picture, 1, tags);
        const Result result = dump(scratch_ / "clip.y4m");
        EXPECT_EQ(result.status, 0) << result.err;
        for (int difference : largest_difference(this->picture(1), expected)) EXPECT_LE(difference, 6) << tags;
    }

    static constexpr int kWidth = 211, kHeight = 97;
    const Yuv gradient_ = gradient(kWidth, kHeight);
};

TEST_F(PixelFormat, full_resolution_chroma)
{
    std::string planes[2];
    for (int line = 0; line < kHeight; line++)
        for (int x = 0; x < kWidth; x++)
            for (std::size_t plane = 0; plane < 2; plane++)
                planes[plane] += static_cast<char>(gradient_.chroma(x / 2, line / 2)[plane]);
    const std::string luma(gradient_.y.begin(), gradient_.y.end());
    expect_shown(luma + planes[0] + planes[1], "C444", render(gradient_));
}

TEST_F(PixelFormat, ten_bits)
{
    std::string words;
    for (const char each : bytes(gradient_)) {
        const int word = static_cast<uint8_t>(each) << 2;
        words += {static_cast<char>(word & 255), static_cast<char>(word >> 8)};
    }
    expect_shown(words, "C420p10 XYSCSS=420P10", render(gradient_));
}

TEST_F(PixelFormat, luma_alone)
{
    Yuv grey = gradient_;
    std::fill(grey.u.begin(), grey.u.end(), uint8_t{128});
    grey.v = grey.u;
    expect_shown(std::string(grey.y.begin(), grey.y.end()), "Cmono", render(grey));
}

// Bars as they should be, and as the matrix and the range of a stream make them.
struct Bar {
    std::array<double, 3> rgb;
};

constexpr Bar kBars[] = {{{191, 191, 191}}, {{191, 191, 0}}, {{0, 191, 191}}, {{0, 191, 0}},
                         {{191, 0, 191}},   {{191, 0, 0}},   {{0, 0, 191}},   {{16, 16, 16}}};

Yuv bars(int width, int height, double kr, double kb, bool full)
{
    Yuv picture(width, height);
    auto store = [&](auto& plane, int plane_width, std::size_t component) {
        for (std::size_t i = 0; i < plane.size(); i++) {
            const auto& rgb = kBars[static_cast<int>(i) % plane_width * 8 / plane_width].rgb;
            const double y = kr * rgb[0] + (1 - kr - kb) * rgb[1] + kb * rgb[2];
            const double values[] = {y, (rgb[2] - y) / (2 * (1 - kb)), (rgb[0] - y) / (2 * (1 - kr))};
            const double scale = full ? 1 : component ? 224 / 255.0 : 219 / 255.0;
            const double black = component ? 128 : full ? 0 : 16;
            plane[i] = static_cast<uint8_t>(std::lround(values[component] * scale + black));
        }
    };
    store(picture.y, picture.width, 0);
    store(picture.u, picture.chroma_width(), 1);
    store(picture.v, picture.chroma_width(), 2);
    return picture;
}

class Colour : public Stream {
protected:
    // In the middle of each bar, for every kind of surface and way to it. Other surfaces, and exports for BT.601, take
    // another step of rounding.
    void expect_bars(const Yuv& picture, const std::string& tags, const char* assumed)
    {
        write_y4m(scratch_ / "bars.y4m", picture, 1, tags);
        for (const Arguments& options : {Arguments{},
                                         {"--surface=yuy2"},
                                         {"--surface=yv12"},
                                         {"--surface=rgb24"},
                                         {"--zoom=2x2"},
                                         {"--contrast=1.01"},
                                         {"--half", "--surface=yv12"}}) {
            Arguments all = options;
            all.push_back("--stats");
            const Result result = dump(scratch_ / "bars.y4m", all);
            ASSERT_EQ(result.status, 0) << result.err;
            EXPECT_NE(result.out.find(assumed), std::string::npos) << result.out;
            const Image seen = this->picture(1);
            for (int bar = 0; bar < 8; bar++) {
                const Pixel got = seen.at((2 * bar + 1) * seen.width / 16, seen.height / 2);
                for (std::size_t c = 0; c < 3; c++)
                    EXPECT_NEAR(got[c], kBars[bar].rgb[c], options.empty() ? 2 : 7)
                        << tags << " bar " << bar << " " << (options.empty() ? "" : options[0]);
            }
        }
    }
};

TEST_F(Colour, of_untagged_pictures_depends_on_their_height)
{
    expect_bars(bars(640, 480, .299, .114, false), "C420mpeg2", "BT.601 (assumed), limited range (assumed)");
    expect_bars(bars(768, 576, .299, .114, false), "C420mpeg2", "BT.601 (assumed)");
    expect_bars(bars(1280, 720, .2126, .0722, false), "C420mpeg2", "BT.709 (assumed), limited range (assumed)");
    expect_bars(bars(1023, 577, .2126, .0722, false), "C420mpeg2", "BT.709 (assumed)");
}

TEST_F(Colour, follows_the_range_of_the_stream)
{
    expect_bars(bars(640, 480, .299, .114, true), "C420mpeg2 XCOLORRANGE=FULL", "BT.601 (assumed), full range\n");
    expect_bars(bars(1279, 719, .2126, .0722, true), "C420mpeg2 XCOLORRANGE=FULL", "BT.709 (assumed), full range\n");
}

TEST_F(Colour, of_a_grey_image_has_full_range)
{
    encode(scratch_ / "grey.nut", {"png", "gray", 64, 48, 1});
    const Result result = dump(scratch_ / "grey.nut", {"--stats"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_NE(result.out.find("full range\n"), std::string::npos) << result.out;
    const Image seen = picture(1);
    for (int y = 0; y < 48; y++)
        for (int x = 0; x < 64; x++) ASSERT_EQ(seen.at(x, y)[1], 64 + ((x * 3) ^ (y * 2)) % 128) << x << "," << y;
}

TEST_F(PixelFormat, full_range)
{
    Yuv studio = gradient_;
    for (auto& each : studio.y) each = static_cast<uint8_t>(16 + (each * 219 + 127) / 255);
    for (auto* plane : {&studio.u, &studio.v})
        for (auto& each : *plane) each = static_cast<uint8_t>(128 + (each - 128) * 224 / 255);
    expect_shown(bytes(gradient_), "C420mpeg2 XCOLORRANGE=FULL", render(studio));
}

} // namespace
} // namespace player_test
