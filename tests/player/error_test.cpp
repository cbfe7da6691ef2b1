// SPDX-License-Identifier: MIT
// Wrong usage and wrong input: one line on stderr, exit status 2, nothing left behind.
#include "tests/player/process.h"
#include <algorithm>
#include <gtest/gtest.h>
#include <ostream>

namespace player_test {
namespace {

void expect_refused(const Result& result, const std::string& hint)
{
    EXPECT_EQ(result.status, 2) << "signal " << result.signal;
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
    EXPECT_TRUE(result.err.starts_with("vsurf-play: ")) << result.err;
    EXPECT_TRUE(result.err.ends_with('\n')) << result.err;
    EXPECT_NE(result.err.find(hint), std::string::npos) << result.err << "does not say: " << hint;
}

struct Usage {
    Arguments arguments;
    const char* hint;
};

void PrintTo(const Usage& usage, std::ostream* out)
{
    for (const std::string& each : usage.arguments) *out << each << ' ';
}

class WrongUsage : public testing::TestWithParam<Usage> {};

TEST_P(WrongUsage, is_refused) { expect_refused(play(GetParam().arguments), GetParam().hint); }

INSTANTIATE_TEST_SUITE_P(
    Options, WrongUsage,
    testing::Values(
        Usage{{"--colour"}, "--colour"}, Usage{{"-x"}, "-x"}, Usage{{"--surface", "rgb8"}, "rgb16-565"},
        Usage{{"--surface"}, "1 required FORMAT missing"}, Usage{{"--half=1"}, "takes no value"},
        Usage{{"--frames", "0"}, "from 1"}, Usage{{"--frames", "5x"}, "5x"},
        Usage{{"--help=3"}, "--help: takes no value"}, Usage{{"--su", "yuy2"}, "not expected: --su"},
        Usage{{"--frames", "99999999999999999999"}, "not a number"}, Usage{{"--brightness", "256"}, "255"},
        Usage{{"--contrast", "nan"}, "3.98"}, Usage{{"--contrast", "-1"}, "-1"},
        Usage{{"--saturation", ""}, "not a number"}, Usage{{"--size", "640"}, "WIDTHxHEIGHT"},
        Usage{{"--size", "0x480"}, "from 1x1"}, Usage{{"--size", "16001x1"}, "16000"}, Usage{{"--seconds", "-2"}, "-2"},
        Usage{{"--isa", "mmx"}, "sse2"}, Usage{{"--dump", ""}, "directory"},
        Usage{{"--size", "64x64", "film.mp4"}, "test pattern"},
        Usage{{"--dump", "pictures", "a.mp4", "b.mp4"}, "one file"}, Usage{{""}, "empty"},
        Usage{{"--loop", "-"}, "standard input"}, Usage{{"--loop", "--dump", "pictures"}, "--frames"},
        Usage{{"--zoom", "2X2"}, "1x2"}, Usage{{"--half", "--zoom", "1x2"}, "--half excludes --zoom"},
        Usage{{"--zoom", "2x2", "--field"}, "excludes"}, Usage{{"--field", "--half"}, "excludes"},
        Usage{{"--format", "rawvideo"}, "a file"}, Usage{{"--video-size", "32x32"}, "a file"},
        Usage{{"--video-size", "32", "f.yuv"}, "WIDTHxHEIGHT"},
        Usage{{"--format", "rawvideo", "f.yuv"}, "--video-size"}, Usage{{"--format", "film", "f.yuv"}, "--format film"},
        Usage{{"--pixel-format", "yuy3", "f.yuv"}, "--pixel-format yuy3"}, Usage{{"--subtitles", ""}, "names no file"},
        Usage{{"--subtitle-track", "0"}, "from 1"}, Usage{{"--subtitle-track", "first"}, "not a number"},
        Usage{{"--subpicture-alone"}, "needs --subtitles"}, Usage{{"--subtitles", "-", "-"}, "standard input"}));

TEST(WrongInput, missing_file) { expect_refused(play({"/no/such/film.mp4"}), "No such file"); }

TEST(WrongInput, directory) { expect_refused(play({"/"}), "is a directory"); }

TEST(WrongInput, file_name_with_line_breaks_keeps_to_one_line)
{
    expect_refused(play({"/no\nsuch\nfilm.mp4"}), "film.mp4");
}

struct FileCase {
    const char* name;
    std::string bytes;
    const char* hint;
};

void PrintTo(const FileCase& file, std::ostream* out) { *out << file.name; }

std::string silent_wave()
{
    std::string wave("RIFF\x24\x20\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x40\x1f\0\0\x80\x3e\0\0\2\0\x10\0data\0\x20\0\0", 44);
    return wave + std::string(0x2000, '\0');
}

class WrongFile : public testing::TestWithParam<FileCase> {};

TEST_P(WrongFile, is_refused_before_anything_is_written)
{
    const ScratchDirectory scratch;
    const auto file = scratch / GetParam().name;
    write_file(file, GetParam().bytes);
    expect_refused(play({"--dump", (scratch / "pictures").string(), file.string()}), GetParam().hint);
    EXPECT_FALSE(std::filesystem::exists(scratch / "pictures"));
}

INSTANTIATE_TEST_SUITE_P(Files, WrongFile,
                         testing::Values(FileCase{"notes.txt", "Bring milk.\nCall home.\n", "notes.txt"},
                                         FileCase{"notes.mp4", "Bring milk.\nCall home.\n", "not a video"},
                                         FileCase{"ansi.nfo", std::string(4000, '#') + "\n", "text"},
                                         FileCase{"empty.mkv", "", "not a video"},
                                         FileCase{"sound.wav", silent_wave(), "no video"},
                                         FileCase{"header.y4m", "YUV4MPEG2 W64 H48 F25:1 C420mpeg2\n", "header.y4m"}));

TEST(WrongInput, description_that_a_file_with_a_header_does_not_need)
{
    const ScratchDirectory scratch;
    write_file(scratch / "clip.y4m", "YUV4MPEG2 W2 H2 F25:1 C420mpeg2\nFRAME\n......");
    const std::string file = (scratch / "clip.y4m").string(), directory = (scratch / "pictures").string();
    expect_refused(play({"--dump", directory, "--pixel-format", "yuyv422", file}), "--pixel-format: does not go with");
    expect_refused(play({"--dump", directory, "--video-size", "2x2", file}), "--video-size: does not go with");
    EXPECT_FALSE(std::filesystem::exists(directory));
}

TEST(WrongInput, raw_file_without_a_description)
{
    const ScratchDirectory scratch;
    write_file(scratch / "raw.yuv", std::string(1000, 'x'));
    for (const char* hint : {"--format", "--video-size", "--pixel-format"})
        expect_refused(play({(scratch / "raw.yuv").string()}), hint);
}

TEST(WrongInput, raw_file_that_ends_within_its_first_picture)
{
    const ScratchDirectory scratch;
    write_file(scratch / "clip.yuy2", std::string(100, 'x'));
    expect_refused(play({"--dump", (scratch / "pictures").string(), "--format", "rawvideo", "--pixel-format", "yuyv422",
                         "--video-size", "16x16", (scratch / "clip.yuy2").string()}),
                   "clip.yuy2");
    EXPECT_FALSE(std::filesystem::exists(scratch / "pictures"));
}

TEST(WrongOutput, dump_directory_that_is_a_file)
{
    const ScratchDirectory scratch;
    write_file(scratch / "taken", "");
    expect_refused(play({"--size", "32x32", "--frames", "1", "--dump", (scratch / "taken").string()}), "taken");
}

TEST(WrongOutput, full_disk)
{
    const Result help = Process({"sh", "-c", std::string(VSURF_PLAY) + " --help >/dev/full"}).wait();
    EXPECT_EQ(help.status, 2);
    EXPECT_NE(help.err.find("standard output: No space left on device"), std::string::npos) << help.err;
    const ScratchDirectory scratch;
    std::filesystem::create_directory(scratch / "pictures");
    std::filesystem::create_symlink("/dev/full", scratch / "pictures" / ".picture-000001.png.part");
    expect_refused(play({"--size", "64x64", "--frames", "1", "--dump", (scratch / "pictures").string()}),
                   "No space left on device");
}

TEST(WrongOutput, no_display) { expect_refused(play({"--size", "32x32", "--frames", "1"}), "--dump"); }

TEST(Texts, help_names_every_surface_and_goes_to_stdout)
{
    const Result result = play({"--help"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    for (const char* word :
         {"rgb32",          "rgb24",       "rgb16-565",        "rgb16-555",   "rgb16-664",        "rgb16-655",
          "yuy2",           "yv12",        "--dump",           "space",       "--zoom",           "--field",
          "--pixel-format", "half width",  "surface becomes",  "--subtitles", "--subtitle-track", "--subpicture-alone",
          "--overlay",      "--subtitles", "subpicture alone", "full screen"})
        EXPECT_NE(result.out.find(word), std::string::npos) << word;
}

TEST(Texts, version)
{
    const Result result = play({"--version"});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.out.starts_with("vsurf-play ")) << result.out;
}

} // namespace
} // namespace player_test
