// SPDX-License-Identifier: MIT
// Streams that are damaged, that change on the way, or that hold another pixel format.
#include "tests/player/stream.h"

namespace player_test {
namespace {

constexpr Encoding kFilm{"mpeg4", "yuv420p", 320, 240, 75};

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

// Matroska's demuxer takes a cut for the end; only the announced length shows it.
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
