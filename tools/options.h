// The command line.
#pragma once
#include "frame/dispatch.h"
#include "tools/controls.h"
#include "tools/geometry.h"
#include "tools/source.h"
#include <filesystem>
#include <optional>

namespace player {

struct Options {
    enum class Action { play, help, version };

    Action action = Action::play;
    Source source;
    SurfaceFormat surface = SurfaceFormat::rgb32;
    Scaling scaling = Scaling::none;
    Controls controls;
    std::optional<std::filesystem::path> dump;
    std::optional<int64_t> frames;
    bool window = true;
    bool loop = false, stats = false, quiet = false;
    const vsurf::Isa* isa = &vsurf::active_isa();
};

// Throws Error with one line of what is wrong.
Options parse_options(int argc, char** argv);

std::string help_text();
std::string version_text();
const char* key_text();

} // namespace player
