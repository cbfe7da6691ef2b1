// SPDX-License-Identifier: MIT
// Runs programs and collects what they say.
#pragma once
#include <filesystem>
#include <string>
#include <sys/types.h>
#include <vector>

namespace player_test {

// A directory that goes away with everything in it.
class ScratchDirectory {
public:
    ScratchDirectory();
    ~ScratchDirectory();
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

using Arguments = std::vector<std::string>;

struct Result {
    int status = -1; // of exit; -1 when a signal ended the program
    int signal = 0;
    double seconds = 0;
    std::string out, err;
};

class Process {
public:
    // `environment` adds "NAME=value" to the inherited variables, of which those of a display are left out.
    Process(const Arguments& command, const Arguments& environment = {});
    ~Process(); // kills it if it still runs
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    bool running();
    void send(int signal) const;
    Result wait(); // kills it after a minute

private:
    ScratchDirectory output_;
    pid_t pid_ = -1;
    bool ended_ = false;
    int wait_status_ = 0;
    double started_;
};

Result play(Arguments arguments, const Arguments& environment = {});
Process start_player(Arguments arguments, const Arguments& environment);
bool installed(const std::string& program);
std::string contents(const std::filesystem::path& file);
void write_file(const std::filesystem::path& file, const std::string& bytes);

} // namespace player_test
