// SPDX-License-Identifier: MIT
#include "tests/player/process.h"
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace player_test {
namespace {

constexpr double kLongest = 60; // seconds

double now() { return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count(); }

Arguments environment_with(const Arguments& more)
{
    Arguments all;
    for (char** each = environ; *each; each++) {
        const std::string variable = *each;
        const std::string name = variable.substr(0, variable.find('='));
        if (name != "DISPLAY" && name != "WAYLAND_DISPLAY" && name != "XDG_RUNTIME_DIR" && name != "SDL_VIDEODRIVER")
            all.push_back(variable);
    }
    all.insert(all.end(), more.begin(), more.end());
    return all;
}

std::vector<char*> pointers(const Arguments& strings)
{
    std::vector<char*> all;
    for (const std::string& each : strings) all.push_back(const_cast<char*>(each.c_str()));
    all.push_back(nullptr);
    return all;
}

} // namespace

ScratchDirectory::ScratchDirectory()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "vsurf-play-test.XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::runtime_error("no scratch directory");
    path_ = pattern;
}

ScratchDirectory::~ScratchDirectory()
{
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

Process::Process(const Arguments& command, const Arguments& environment) : started_(now())
{
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    const int flags = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, (output_ / "out").c_str(), flags, 0600);
    posix_spawn_file_actions_addopen(&files, STDERR_FILENO, (output_ / "err").c_str(), flags, 0600);
    const Arguments variables = environment_with(environment);
    const int error =
        posix_spawnp(&pid_, command[0].c_str(), &files, nullptr, pointers(command).data(), pointers(variables).data());
    posix_spawn_file_actions_destroy(&files);
    if (error) throw std::runtime_error("cannot run " + command[0]);
}

Process::~Process()
{
    if (!running()) return;
    send(SIGKILL);
    waitpid(pid_, nullptr, 0);
}

bool Process::running()
{
    if (!ended_ && waitpid(pid_, &wait_status_, WNOHANG) == pid_) ended_ = true;
    return !ended_;
}

void Process::send(int signal) const
{
    if (!ended_) kill(pid_, signal);
}

Result Process::wait()
{
    while (running()) {
        if (now() - started_ > kLongest) send(SIGKILL);
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    Result result;
    result.seconds = now() - started_;
    if (WIFEXITED(wait_status_)) result.status = WEXITSTATUS(wait_status_);
    else result.signal = WTERMSIG(wait_status_);
    result.out = contents(output_ / "out");
    result.err = contents(output_ / "err");
    return result;
}

Result play(Arguments arguments, const Arguments& environment)
{
    return start_player(std::move(arguments), environment).wait();
}

Process start_player(Arguments arguments, const Arguments& environment)
{
    arguments.insert(arguments.begin(), VSURF_PLAY);
    return Process(arguments, environment);
}

bool installed(const std::string& program) { return Process({"sh", "-c", "command -v " + program}).wait().status == 0; }

std::string contents(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void write_file(const std::filesystem::path& file, const std::string& bytes)
{
    std::ofstream out(file, std::ios::binary);
    if (!(out << bytes).flush()) throw std::runtime_error("cannot write " + file.string());
}

} // namespace player_test
