// SPDX-License-Identifier: MIT
// The tool that cuts details out of pictures.
#include "tests/player/image.h"
#include "tests/player/process.h"
#include <gtest/gtest.h>

namespace player_test {
namespace {

class Detail : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_EQ(play({"--size", "320x240", "--frames", "1", "--dump", (scratch_ / "d").string()}).status, 0);
        picture_ = read_png(file());
        ASSERT_EQ(picture_.width, 320);
    }

    std::string file() const { return (scratch_ / "d" / "picture-000001.png").string(); }

    Result cut(Arguments words) const
    {
        words.insert(words.begin(), VSURF_DETAIL);
        words.push_back((scratch_ / "detail.png").string());
        return Process(words).wait();
    }

    // Every pixel as 4x4; `line` says which line of the picture a line of the detail shows.
    template <class Line> void expect_detail(int width, int height, int left, Line&& line)
    {
        const Image detail = read_png(scratch_ / "detail.png");
        ASSERT_EQ(detail.width, 4 * width);
        ASSERT_EQ(detail.height, 4 * height);
        for (int y = 0; y < detail.height; y++)
            for (int x = 0; x < detail.width; x++)
                ASSERT_EQ(detail.at(x, y), picture_.at(left + x / 4, line(y / 4))) << x << "," << y;
    }

    const ScratchDirectory scratch_;
    Image picture_;
};

TEST_F(Detail, has_squares_for_pixels)
{
    EXPECT_EQ(cut({file(), "40x30+90+151"}).status, 0);
    expect_detail(40, 30, 90, [](int line) { return 151 + line; });
    EXPECT_EQ(cut({file(), "320x240+0+0"}).status, 0);
    expect_detail(320, 240, 0, [](int line) { return line; });
}

TEST_F(Detail, repeats_even_lines)
{
    EXPECT_EQ(cut({"--repeat-lines", file(), "9x8+100+151"}).status, 0);
    expect_detail(9, 8, 100, [](int line) { return (151 + line) / 2 * 2; });
}

TEST_F(Detail, refuses_what_is_not_there)
{
    for (const Arguments& words :
         {Arguments{file(), "40x30"}, Arguments{file(), "40x30+0+0x"}, Arguments{file(), "0x30+0+0"},
          Arguments{file(), "40x30+281+0"}, Arguments{file(), "40x30+0+211"}, Arguments{"/no/such.png", "4x4+0+0"},
          Arguments{"--repeat", file(), "4x4+0+0"}, Arguments{file()}}) {
        const Result result = cut(words);
        EXPECT_EQ(result.status, 2);
        EXPECT_TRUE(result.err.starts_with("vsurf-detail: ")) << result.err;
        EXPECT_EQ(result.err.find('\n'), result.err.size() - 1) << result.err;
        EXPECT_FALSE(std::filesystem::exists(scratch_ / "detail.png"));
    }
}

} // namespace
} // namespace player_test
