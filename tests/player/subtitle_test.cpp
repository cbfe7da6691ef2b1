// SPDX-License-Identifier: MIT
// Subtitles of every kind, from files of their own and from tracks: when they are seen, and whose they are.
#include "tests/player/process.h"
#include "tests/player/subtitled.h"
#include "tests/player/tracks.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <ostream>

namespace player_test {
namespace {

constexpr int kWidth = 320, kHeight = 240;
constexpr Box kRed{40, 30, 100, 60, {220, 20, 30}, 0}, kGreen{40, 30, 100, 60, {20, 200, 40}, 0};

// Pictures 40 ms apart; subtitles are for the second and the third of five.
class Subtitles : public testing::Test {
protected:
    void SetUp() override { write_y4m(video(), gradient(kWidth, kHeight), 5); }

    std::string video() const { return (scratch_ / "clip.y4m").string(); }
    std::string write(const std::string& name, const std::string& bytes) const
    {
        write_file(scratch_ / name, bytes);
        return (scratch_ / name).string();
    }

    std::vector<Image> dump(Arguments options, int count = 5) const
    {
        const auto directory = scratch_ / "pictures";
        std::filesystem::remove_all(directory);
        options.insert(options.end(), {"--frames", std::to_string(count), "--dump", directory.string()});
        const Result result = play(options);
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(result.err, "");
        std::vector<Image> images;
        for (int i = 1; i <= count; i++)
            images.push_back(read_png(directory / ("picture-00000" + std::to_string(i) + ".png")));
        return images;
    }

    // The tolerance of 8-bit Y, U and V, rounded down.
    static testing::AssertionResult shows(const Image& image, const Box& box)
    {
        const Pixel& pixel = image.at(70, 45);
        for (std::size_t c = 0; c < 3; c++)
            if (std::abs(pixel[c] - box.colour[c]) > 3)
                return testing::AssertionFailure() << testing::PrintToString(pixel);
        return testing::AssertionSuccess();
    }

    const ScratchDirectory scratch_;
};

struct Text {
    const char* name;
    std::string bytes;
};

void PrintTo(const Text& text, std::ostream* out) { *out << text.name; }

class TextSubtitles : public Subtitles, public testing::WithParamInterface<Text> {};

// Letters are light on a dark rim, in the lower half; the rest of the picture is as it was.
TEST_P(TextSubtitles, are_seen_in_their_time)
{
    const Image plain = dump({video()}, 1)[0];
    const auto pictures = dump({"--subtitles", write(GetParam().name, GetParam().bytes), video()});
    for (int i : {0, 3, 4}) EXPECT_EQ(largest_difference(pictures[static_cast<std::size_t>(i)], plain)[0], 0) << i;
    for (int i : {1, 2}) {
        const Image& picture = pictures[static_cast<std::size_t>(i)];
        int light = 0, dark = 0;
        for (int y = 0; y < kHeight; y++) {
            for (int x = 0; x < kWidth; x++) {
                const Pixel& pixel = picture.at(x, y);
                ASSERT_TRUE(y >= kHeight / 2 || pixel == plain.at(x, y)) << x << "," << y;
                light += std::min({pixel[0], pixel[1], pixel[2]}) > 225;
                dark += std::max({pixel[0], pixel[1], pixel[2]}) < 30;
            }
        }
        EXPECT_GT(light, 20);
        EXPECT_GT(dark, 20);
    }
}

std::string utf16(const std::string& ascii)
{
    std::string wide = "\xff\xfe";
    for (char each : ascii) wide += {each, '\0'};
    return wide;
}

const std::string kSubRip = "1\n00:00:00,040 --> 00:00:00,120\nHello\n<b>Dolly</b>\n\n"
                            "2\n00:00:09,000 --> 00:00:10,000\nLater\n";

INSTANTIATE_TEST_SUITE_P(
    Kinds, TextSubtitles,
    testing::Values(Text{"a.srt", kSubRip}, Text{"a.wide.srt", utf16(kSubRip)},
                    Text{"a.vtt", "WEBVTT\n\n00:00.040 --> 00:00.120\nHello Dolly\n"},
                    Text{"a.ass", "[Script Info]\nScriptType: v4.00+\nPlayResX: 320\nPlayResY: 240\n[V4+ Styles]\n"
                                  "Format: Name, Fontname, Fontsize, PrimaryColour, OutlineColour, Outline, Alignment\n"
                                  "Style: Default,Sans,20,&H00FFFFFF,&H00000000,2,2\n[Events]\n"
                                  "Format: Layer, Start, End, Style, Text\n"
                                  "Dialogue: 0,0:00:00.04,0:00:00.12,Default,Hello Dolly\n"}),
    [](const testing::TestParamInfo<Text>& text) {
        std::string name = text.param.name;
        std::replace(name.begin(), name.end(), '.', '_');
        return name;
    });

const std::string kPgsEnd("\x80\0\0", 3); // of a set of bitmaps: one without any

class Tracks : public Subtitles {
protected:
    static Track boxes(const Box& box, int start = 40)
    {
        return {Track::Kind::script, script_header(kWidth, kHeight), {{start, 80, script_line(box)}}};
    }

    // Pictures, words, a red box, a green one that is the default.
    std::string film() const
    {
        encode(scratch_ / "video.mkv", {"mpeg4", "yuv420p", kWidth, kHeight, 5});
        Track green = boxes(kGreen);
        green.is_default = true;
        add_tracks(scratch_ / "video.mkv", scratch_ / "film.mkv",
                   {{Track::Kind::pictures, "", {{40, 80, kPgsEnd}}},
                    {Track::Kind::plain, "", {{40, 80, "Hello"}}},
                    boxes(kRed),
                    green});
        return (scratch_ / "film.mkv").string();
    }
};

TEST_F(Tracks, are_chosen_by_number_or_as_the_default)
{
    const std::string film = this->film();
    auto expect_box = [&](const char* track, const Box& box) {
        const auto pictures = dump({"--subtitle-track", track, film});
        EXPECT_FALSE(shows(pictures[0], box)) << track;
        EXPECT_TRUE(shows(pictures[1], box)) << track;
        EXPECT_TRUE(shows(pictures[2], box)) << track;
        EXPECT_FALSE(shows(pictures[3], box)) << track;
    };
    expect_box("3", kRed);
    expect_box("4", kGreen);
    expect_box("default", kGreen);
    const auto words = dump({"--subtitle-track", "2", film}), plain = dump({film});
    EXPECT_EQ(largest_difference(words[0], plain[0])[0], 0);
    EXPECT_GT(largest_difference(words[1], plain[1])[0], 50);
    EXPECT_EQ(largest_difference(words[3], plain[3])[0], 0);
}

TEST_F(Tracks, of_another_film_may_be_drawn)
{
    const std::string film = this->film();
    EXPECT_TRUE(shows(dump({"--subtitles", film, video()})[1], kGreen));
    EXPECT_TRUE(shows(dump({"--subtitles", film, "--subtitle-track", "3", video()})[1], kRed));
}

TEST_F(Tracks, without_a_default_the_first_one_of_text_is)
{
    encode(scratch_ / "video.mkv", {"mpeg4", "yuv420p", kWidth, kHeight, 5});
    add_tracks(scratch_ / "video.mkv", scratch_ / "film.mkv",
               {{Track::Kind::pictures, "", {{40, 80, kPgsEnd}}, true}, boxes(kRed), boxes(kGreen)});
    EXPECT_TRUE(shows(dump({"--subtitle-track", "default", (scratch_ / "film.mkv").string()})[1], kRed));
}

TEST_F(Tracks, follow_the_clock_of_a_film_that_does_not_begin_at_0)
{
    encode(scratch_ / "video.mkv", {"mpeg4", "yuv420p", kWidth, kHeight, 5});
    add_tracks(scratch_ / "video.mkv", scratch_ / "late.mkv", {boxes(kRed)}, 7000);
    const auto pictures = dump({"--subtitle-track", "1", (scratch_ / "late.mkv").string()});
    for (std::size_t i = 0; i < 5; i++) EXPECT_EQ(bool{shows(pictures[i], kRed)}, i == 1 || i == 2) << i;
}

// When it appears and when it goes, once beforehand; pictures without it are loaded as ever.
TEST_F(Tracks, are_drawn_anew_only_where_they_change)
{
    encode(scratch_ / "video.mkv", {"mpeg4", "yuv420p", kWidth, kHeight, 5});
    add_tracks(scratch_ / "video.mkv", scratch_ / "film.mkv", {boxes(kRed)});
    const Result result = play({"--subtitle-track", "1", "--stats", "--dump", (scratch_ / "pictures").string(),
                                (scratch_ / "film.mkv").string()});
    for (const char* line : {"Convert_RGB32_To_AYUY2: 3 pictures", "Restore_RGB32_To_Alpha: 3 pictures",
                             "mix_ayuy2_rgb32_p_ajust: 2 pictures", "loadimage_rgb32: 3 pictures"})
        EXPECT_NE(result.out.find(line), std::string::npos) << line << " is not in:\n" << result.out;
}

// Half transparent, a subtitle that was drawn twice would show.
TEST_F(Tracks, count_once_however_often_a_film_is_played)
{
    Box box = kRed;
    box.transparency = 128;
    encode(scratch_ / "video.mkv", {"mpeg4", "yuv420p", kWidth, kHeight, 3});
    add_tracks(scratch_ / "video.mkv", scratch_ / "film.mkv", {boxes(box)});
    const auto pictures = dump({"--loop", "--subtitle-track", "1", (scratch_ / "film.mkv").string()}, 8);
    EXPECT_GT(largest_difference(pictures[0], pictures[1])[0], 20);
    for (const std::size_t i : {std::size_t{1}, std::size_t{2}})
        EXPECT_EQ(largest_difference(pictures[i], pictures[i + 3])[0], 0) << i;
    EXPECT_EQ(largest_difference(pictures[1], pictures[7])[0], 0);
}

class WrongSubtitles : public Tracks {
protected:
    void expect_refused(Arguments options, const std::string& hint) const
    {
        const auto directory = scratch_ / "pictures";
        options.insert(options.end(), {"--dump", directory.string()});
        const Result result = play(options);
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
        EXPECT_NE(result.err.find(hint), std::string::npos) << result.err << "does not say: " << hint;
        EXPECT_FALSE(std::filesystem::exists(directory)) << hint;
    }
};

TEST_F(WrongSubtitles, are_refused_before_anything_is_written)
{
    const std::string film = this->film();
    expect_refused({"--subtitles", "/no/such.srt", video()}, "No such file");
    expect_refused({"--subtitles", "/", video()}, "is a directory");
    expect_refused({"--subtitles", write("a.srt", "Bring milk.\n"), video()}, "not subtitles");
    expect_refused({"--subtitles", write("b.srt", ""), video()}, "not subtitles");
    expect_refused({"--subtitles", write("a.ass", "[Script Info]\n"), video()}, "has no subtitles");
    expect_refused({"--subtitles", write("c.srt", "1\n00:00:00,000 --> 00:00:02,000\nCaf\xe9\n"), video()},
                   "damaged subtitle");
    expect_refused({"--subtitles", video(), video()}, "has no subtitles");
    expect_refused({"--subtitle-track", "1", video()}, "has no subtitles");
    expect_refused({"--subtitle-track", "1", film}, "track 1 holds pictures");
    expect_refused({"--subtitle-track", "5", film}, "no subtitle track 5, only 4");
    expect_refused({"--subtitle-track", "default"}, "test pattern: has no subtitles");
}

TEST_F(WrongSubtitles, damage_is_told_at_the_end)
{
    const std::string file = write("a.srt", "1\n00:00:00,000 --> 00:00:02,000\nCaf\xe9\n\n" + kSubRip);
    const Result result = play({"--subtitles", file, "--dump", (scratch_ / "pictures").string(), video()});
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.err.find("a.srt: skipped 1 damaged subtitle\n"), std::string::npos) << result.err;
    EXPECT_TRUE(std::filesystem::exists(scratch_ / "pictures" / "picture-000005.png"));
}

} // namespace
} // namespace player_test
