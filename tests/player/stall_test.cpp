// SPDX-License-Identifier: MIT
// Inputs that say nothing: the player ends when it is told to, at once.
#include "tests/player/clip.h"
#include "tests/player/process.h"
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace player_test {
namespace {

using namespace std::chrono_literals;

constexpr double kAtOnce = 0.2; // seconds

class Stalled : public testing::TestWithParam<int> {
protected:
    std::string make_fifo()
    {
        std::string name = (scratch_ / "fifo").string();
        EXPECT_EQ(mkfifo(name.c_str(), 0600), 0);
        return name;
    }

    // Opened for both, it has a writer that is silent.
    int hold_open(const std::string& fifo)
    {
        writer_ = open(fifo.c_str(), O_RDWR);
        EXPECT_GE(writer_, 0);
        return writer_;
    }

    void expect_end_at_once(Process& player)
    {
        std::this_thread::sleep_for(500ms);
        ASSERT_TRUE(player.running()) << player.wait().err;
        const auto told = std::chrono::steady_clock::now();
        player.send(GetParam());
        while (player.running() && std::chrono::steady_clock::now() - told < 2s) std::this_thread::sleep_for(1ms);
        EXPECT_LT(std::chrono::duration<double>(std::chrono::steady_clock::now() - told).count(), kAtOnce);
        player.send(SIGKILL);
        const Result result = player.wait();
        EXPECT_EQ(result.signal, GetParam());
        EXPECT_EQ(result.err, "");
    }

    void TearDown() override
    {
        if (writer_ >= 0) close(writer_);
    }

    const ScratchDirectory scratch_;
    int writer_ = -1;
};

TEST_P(Stalled, fifo_that_nobody_writes_to)
{
    Process player = start_player({make_fifo()}, {});
    expect_end_at_once(player);
}

TEST_P(Stalled, fifo_whose_writer_is_silent)
{
    const std::string fifo = make_fifo();
    hold_open(fifo);
    Process player = start_player({fifo}, {});
    expect_end_at_once(player);
}

TEST_P(Stalled, standard_input)
{
    const std::string fifo = make_fifo();
    hold_open(fifo);
    Process player({"sh", "-c", std::string("exec ") + VSURF_PLAY + " - <" + fifo});
    expect_end_at_once(player);
}

TEST_P(Stalled, subtitles)
{
    const std::string fifo = make_fifo();
    hold_open(fifo);
    Process player = start_player({"--subtitles", fifo}, {});
    expect_end_at_once(player);
}

TEST_P(Stalled, address_that_does_not_answer)
{
    const int listener = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&address), size), 0);
    ASSERT_EQ(listen(listener, 4), 0);
    ASSERT_EQ(getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size), 0);
    Process player = start_player({"http://127.0.0.1:" + std::to_string(ntohs(address.sin_port)) + "/film.mp4"}, {});
    expect_end_at_once(player);
    close(listener);
}

TEST_P(Stalled, film_that_stops_in_the_middle_of_a_window)
{
    const std::string fifo = make_fifo();
    const int writer = hold_open(fifo);
    Process player = start_player({fifo}, {"SDL_VIDEODRIVER=dummy"});
    write_y4m(scratch_ / "clip.y4m", gradient(64, 48), 20);
    const std::string film = contents(scratch_ / "clip.y4m");
    ASSERT_EQ(write(writer, film.data(), film.size()), static_cast<ssize_t>(film.size()));
    std::this_thread::sleep_for(1s);
    expect_end_at_once(player);
}

std::string signal_name(const testing::TestParamInfo<int>& signal)
{
    return signal.param == SIGINT ? "interrupt" : "termination";
}

INSTANTIATE_TEST_SUITE_P(Signals, Stalled, testing::Values(SIGINT, SIGTERM), signal_name);

} // namespace
} // namespace player_test
