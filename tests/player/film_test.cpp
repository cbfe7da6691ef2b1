// SPDX-License-Identifier: MIT
// What of a film is played, and what goes with it.
#include "tests/player/stream.h"
#include "tests/player/subtitled.h"

namespace player_test {
namespace {

constexpr Encoding kFilm{"mpeg4", "yuv420p", 320, 240, 75};

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

} // namespace
} // namespace player_test
