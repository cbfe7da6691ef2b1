// SPDX-License-Identifier: MIT
// What is really to be seen on a screen, and what the keys do.
#include "tests/player/clip.h"
#include "tests/player/screen.h"
#include "tests/player/subtitled.h"
#include "tools/surface.h"
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace player_test {
namespace {

template <class Condition> bool eventually(Condition&& holds)
{
    for (int i = 0; i < 400; i++) {
        if (holds()) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(25));
    }
    return false;
}

class OnScreen : public testing::Test {
protected:
    void SetUp() override
    {
        if (!Screen::available()) GTEST_SKIP() << "Xvfb is missing (Debian: xvfb)";
        screen_.emplace();
    }

    std::string still(const Yuv& picture, const std::string& tags = "C420mpeg2")
    {
        const auto file = scratch_ / "still.y4m";
        write_y4m(file, picture, 1, tags);
        return file.string();
    }

    Process start(const Arguments& options) { return start_player(options, {screen_->variable()}); }

    int difference(const Image& from)
    {
        const auto photo = screen_->photograph();
        if (!photo) return 256;
        const auto most = largest_difference(*photo, from);
        return *std::max_element(most.begin(), most.end());
    }

    const ScratchDirectory scratch_;
    std::optional<Screen> screen_;
};

class Shows : public OnScreen, public testing::WithParamInterface<const char*> {
protected:
    // RGB reaches the screen as it is. YUV goes through the screen's own conversion, which interpolates chroma.
    void expect_what_it_dumps(Arguments options, bool yuv, int width, int height, int window_width = 0)
    {
        const auto directory = scratch_ / "pictures", png = directory / "picture-000001.png";
        options.insert(options.end(), {"--surface", GetParam(), "--window", "--dump", directory.string(),
                                       still(yuv ? gradient(421, 199) : noise(421, 199))});
        Process player = start(options);
        ASSERT_TRUE(eventually([&] { return std::filesystem::exists(png); })) << player.wait().err;
        const Image dumped = read_png(png);
        ASSERT_EQ(dumped.width, width);
        ASSERT_EQ(dumped.height, height);
        const int tolerance = window_width ? 8 : yuv ? 5 : 1;
        Image seen(window_width ? window_width : width, height);
        for (int y = 0; y < seen.height; y++)
            for (int x = 0; x < seen.width; x++) seen.at(x, y) = dumped.at(x * width / seen.width, y);
        EXPECT_TRUE(eventually([&] { return difference(seen) <= tolerance; })) << "differs by " << difference(seen);
        EXPECT_TRUE(player.running());
        player.send(SIGTERM);
        EXPECT_EQ(player.wait().err, "");
    }

    bool yuv() const { return GetParam() == std::string("yuy2") || GetParam() == std::string("yv12"); }
};

TEST_P(Shows, the_pixels_that_it_dumps) { expect_what_it_dumps({}, yuv(), 421, 199); }

// The window is as wide again: the picture keeps its shape.
TEST_P(Shows, twice_the_height) { expect_what_it_dumps({"--zoom", "1x2"}, true, 421, 398, 842); }

TEST_P(Shows, half_the_width_in_its_shape) { expect_what_it_dumps({"--half"}, true, 211, 199, 421); }

TEST_P(Shows, twice_the_width_and_height) { expect_what_it_dumps({"--zoom", "2x2"}, true, 842, 398); }

TEST_P(Shows, a_field) { expect_what_it_dumps({"--field"}, true, 421, 199); }

std::vector<const char*> format_names()
{
    std::vector<const char*> names;
    names.reserve(player::kFormatTraits.size());
    for (const auto& each : player::kFormatTraits) names.push_back(each.name);
    return names;
}

std::string case_name(const testing::TestParamInfo<const char*>& info)
{
    std::string name = info.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Surfaces, Shows, testing::ValuesIn(format_names()), case_name);

TEST_F(OnScreen, window_has_the_aspect_of_the_picture)
{
    Process player = start({still(gradient(160, 120), "C420mpeg2 A2:1")});
    ASSERT_TRUE(eventually([&] { return screen_->photograph().has_value(); }));
    EXPECT_EQ(screen_->photograph()->width, 320);
    EXPECT_EQ(screen_->photograph()->height, 120);
}

class Keys : public OnScreen {
protected:
    void SetUp() override
    {
        OnScreen::SetUp();
        if (IsSkipped()) return;
        if (!Screen::has_keyboard()) GTEST_SKIP() << "xdotool is missing (Debian: xdotool)";
    }

    // Presses until the title says so: the window may not have been ready for the first.
    bool press_until(const std::string& key, const std::string& words)
    {
        screen_->press(key);
        return eventually([&] { return title_says(words); });
    }

    // What a key did, and the bar that comes with the mouse, are over the picture for two seconds.
    static void wait_for_the_words_to_go() { std::this_thread::sleep_for(std::chrono::milliseconds(2500)); }

    bool title_says(const std::string& words) { return screen_->title().find(words) != std::string::npos; }
};

TEST_F(Keys, control_the_picture)
{
    Process player = start({"--size", "320x240", "--loop"});
    ASSERT_TRUE(eventually([&] { return title_says("rgb32 320x240"); })) << screen_->title();
    std::this_thread::sleep_for(std::chrono::milliseconds(300));

    EXPECT_TRUE(press_until("space", "paused"));
    wait_for_the_words_to_go();
    const auto before = screen_->photograph();
    ASSERT_TRUE(before);
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_EQ(difference(*before), 0) << "a paused picture moves";

    EXPECT_TRUE(press_until("2 2 2", "brightness +12"));
    EXPECT_TRUE(eventually([&] { return mean(*screen_->photograph()) > mean(*before) + 5; }));
    EXPECT_TRUE(press_until("4", "contrast 1.06"));
    EXPECT_TRUE(press_until("5", "saturation 0.94"));
    EXPECT_TRUE(press_until("0", "brightness +0, contrast 1.00, saturation 1.00"));
    EXPECT_TRUE(eventually([&] { return difference(*before) == 0; })) << "reset differs by " << difference(*before);

    EXPECT_TRUE(press_until("s", "rgb24 320x240"));
    EXPECT_TRUE(eventually([&] { return difference(*before) == 0; })) << "RGB24 differs by " << difference(*before);
    EXPECT_TRUE(press_until("w", "yuy2 160x240 half width"));
    EXPECT_TRUE(press_until("z", "rgb24 320x480 zoom 1x2"));
    EXPECT_TRUE(press_until("z", "yuy2 640x480 zoom 2x2"));
    EXPECT_TRUE(press_until("d", "yuy2 320x240 field"));
    EXPECT_TRUE(press_until("z", "rgb24 320x480 zoom 1x2"));
    EXPECT_TRUE(press_until("w", "yuy2 160x240 half width"));
    EXPECT_TRUE(press_until("w", "rgb24 320x240,"));
    EXPECT_TRUE(eventually([&] { return difference(*before) == 0; })) << "words stay";
    for (const char* list : {"h", "i"}) {
        screen_->press(list);
        wait_for_the_words_to_go();
        EXPECT_GT(difference(*before), 100) << "no words for " << list;
        screen_->press(list);
        EXPECT_TRUE(eventually([&] { return difference(*before) == 0; })) << "words stay after " << list;
    }

    screen_->press("space");
    EXPECT_TRUE(eventually([&] { return !title_says("paused"); }));
    EXPECT_TRUE(eventually([&] { return difference(*before) > 50; })) << "the picture does not move again";

    screen_->press("q");
    const Result result = player.wait();
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.err, "");
}

TEST_F(Keys, hide_subtitles_and_show_nothing_else)
{
    const Yuv picture = gradient(320, 240);
    write_file(scratch_ / "box.ass", script(320, 240, {{40, 40, 200, 120, {220, 20, 30}, 0}}));
    Process player = start({"--subtitles", (scratch_ / "box.ass").string(), still(picture)});
    auto holds = [&](int x, int y, const Pixel& expected) {
        return eventually([&] {
            const auto photo = screen_->photograph();
            if (!photo || photo->width != 320) return false;
            for (std::size_t c = 0; c < 3; c++)
                if (std::abs(photo->at(x, y)[c] - expected[c]) > 3) return false;
            return true;
        });
    };
    const Pixel box{220, 20, 30}, key{255, 0, 255}, below = render(picture).at(100, 80),
                                                    beside = render(picture).at(250, 200);
    EXPECT_TRUE(holds(100, 80, box) && holds(250, 200, beside));
    EXPECT_TRUE(press_until("v", "subtitles hidden"));
    EXPECT_TRUE(holds(100, 80, below) && holds(250, 200, beside));
    EXPECT_TRUE(press_until("a", "subtitles hidden, subpicture alone"));
    EXPECT_TRUE(holds(100, 80, key) && holds(250, 200, key));
    EXPECT_TRUE(press_until("v", "1.00, subpicture alone"));
    EXPECT_TRUE(holds(100, 80, box) && holds(250, 200, key));
    EXPECT_TRUE(press_until("o", "subpicture alone, overlay"));
    EXPECT_TRUE(holds(100, 80, box) && holds(250, 200, beside) && holds(319, 5, {}));
    EXPECT_TRUE(press_until("a", "1.00, overlay"));
    // The script begins at 0, and the picture is there: a little later it does not.
    screen_->press("c");
    EXPECT_TRUE(holds(100, 80, below)) << "the subtitle is not delayed";
    screen_->press("x");
    EXPECT_TRUE(press_until("d", "rgb32 320x240 field"));
    EXPECT_TRUE(holds(100, 80, box) && holds(250, 200, beside) && holds(319, 5, {}));
    screen_->press("q");
    EXPECT_EQ(player.wait().status, 0);
}

// Twice the width is more than many renderers' textures take.
TEST_F(Keys, do_not_end_the_player_by_what_cannot_be_shown)
{
    Process player = start({still(gradient(8200, 32))});
    ASSERT_TRUE(eventually([&] { return title_says("rgb32 8200x32"); })) << player.wait().err;
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_TRUE(press_until("z", "rgb32 8200x64 zoom 1x2"));
    screen_->press("z");
    EXPECT_TRUE(eventually([&] { return title_says("refused: ") || title_says("yuy2 16400x64"); })) << screen_->title();
    EXPECT_TRUE(press_until("d", "field"));
    screen_->press("q");
    EXPECT_EQ(player.wait().status, 0);

    Process enlarged = start({"--zoom=2x2", still(gradient(8200, 32))});
    EXPECT_TRUE(eventually([&] { return title_says("refused: ") || title_says("yuy2 16400x64"); })) << screen_->title();
    screen_->press("q");
    EXPECT_EQ(enlarged.wait().err, "");
}

TEST_F(Keys, end_a_film_whose_input_is_silent)
{
    const auto fifo = scratch_ / "fifo";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    write_y4m(scratch_ / "clip.y4m", gradient(64, 48), 3);
    for (const bool by_key : {true, false}) {
        const int writer = open(fifo.c_str(), O_RDWR);
        Process player = start({fifo.string()});
        const std::string film = contents(scratch_ / "clip.y4m");
        ASSERT_EQ(write(writer, film.data(), film.size()), static_cast<ssize_t>(film.size()));
        EXPECT_TRUE(eventually([&] { return title_says("rgb32"); }));
        std::this_thread::sleep_for(std::chrono::milliseconds(500));
        if (by_key) screen_->press("q");
        else screen_->close_window();
        const auto told = std::chrono::steady_clock::now();
        EXPECT_TRUE(eventually([&] { return !player.running(); }));
        EXPECT_LT(std::chrono::steady_clock::now() - told, std::chrono::milliseconds(250)) << by_key;
        EXPECT_EQ(player.wait().status, 0);
        close(writer);
    }
}

TEST_F(Keys, seek_and_step)
{
    const auto film = scratch_ / "film.mp4", directory = scratch_ / "pictures";
    encode(film, {"mpeg4", "yuv420p", 320, 240, 400});
    ASSERT_EQ(play({"--dump", directory.string(), film.string()}).status, 0);
    auto shows = [&](int number) {
        char name[32];
        std::snprintf(name, sizeof name, "picture-%06d.png", number);
        return difference(read_png(directory / name)) <= 1;
    };
    Process player = start({film.string()});
    ASSERT_TRUE(eventually([&] { return title_says("rgb32"); }));
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    ASSERT_TRUE(press_until("space", "paused"));
    wait_for_the_words_to_go();
    int number = 1;
    while (number <= 400 && !shows(number)) number++;
    ASSERT_LE(number, 250);
    screen_->press("period");
    EXPECT_TRUE(eventually([&] { return shows(number + 1); }));
    screen_->press("Right");
    EXPECT_TRUE(eventually([&] { return shows(number + 126); }));
    screen_->press("Left");
    EXPECT_TRUE(eventually([&] { return shows(number + 1); }));
    screen_->press("comma");
    EXPECT_TRUE(eventually([&] { return shows(number); }));
    screen_->press("Escape");
    EXPECT_EQ(player.wait().status, 0);
}

} // namespace
} // namespace player_test
