#include "tools/options.h"
#include "tools/error.h"
#include <charconv>
#include <cmath>
#include <cstring>
#include <getopt.h>
#include <iterator>

namespace player {
namespace {

constexpr int kMaxSide = 16384;

enum Id {
    kSurface = 256,
    kHalf,
    kBrightness,
    kContrast,
    kSaturation,
    kDump,
    kFrames,
    kWindow,
    kLoop,
    kStats,
    kIsa,
    kSize,
    kSeconds,
    kQuiet
};

constexpr option kOptions[] = {
    {"surface", required_argument, nullptr, kSurface},
    {"half", no_argument, nullptr, kHalf},
    {"brightness", required_argument, nullptr, kBrightness},
    {"contrast", required_argument, nullptr, kContrast},
    {"saturation", required_argument, nullptr, kSaturation},
    {"dump", required_argument, nullptr, kDump},
    {"frames", required_argument, nullptr, kFrames},
    {"window", no_argument, nullptr, kWindow},
    {"loop", no_argument, nullptr, kLoop},
    {"stats", no_argument, nullptr, kStats},
    {"isa", required_argument, nullptr, kIsa},
    {"size", required_argument, nullptr, kSize},
    {"seconds", required_argument, nullptr, kSeconds},
    {"quiet", no_argument, nullptr, kQuiet},
    {"help", no_argument, nullptr, 'h'},
    {"version", no_argument, nullptr, 'V'},
    {},
};

template <class T> T number(const char* text, const char* name, T least, T most)
{
    T value{};
    const char* end = text + std::strlen(text);
    const auto [stop, error] = std::from_chars(text, end, value);
    if (error == std::errc{} && stop == end && value >= least && value <= most) return value;
    auto shown = [](T limit) {
        std::string digits = std::to_string(limit);
        if constexpr (std::is_floating_point_v<T>) digits.erase(digits.find_last_not_of('0') + 1);
        return digits.ends_with('.') ? digits.substr(0, digits.size() - 1) : digits;
    };
    throw Error("--" + std::string(name) + " " + text + ": not a number from " + shown(least) + " to " + shown(most));
}

int gain(const char* text, const char* name)
{
    constexpr double kMost = 3.98; // the last hundredth that rounds to no more than Controls::kMaxGain
    return static_cast<int>(std::lround(number(text, name, 0.0, kMost) * Controls::kUnity));
}

SurfaceFormat surface(const char* text)
{
    if (auto format = format_named(text)) return *format;
    throw Error("--surface " + std::string(text) + ": not one of " + format_names());
}

void size(const char* text, Source& source)
{
    const char* cross = std::strchr(text, 'x');
    if (!cross) throw Error("--size " + std::string(text) + ": not of the form WIDTHxHEIGHT");
    source.width = number(std::string(text, cross).c_str(), "size", 1, kMaxSide);
    source.height = number(cross + 1, "size", 1, kMaxSide);
}

const vsurf::Isa* isa(const char* text)
{
    std::string names;
    for (int i = 0; i < vsurf::isa_count; i++) {
        const vsurf::Isa& each = vsurf::isas[i];
        if (!std::strcmp(each.name, text)) {
            if (each.runs_here()) return &each;
            throw Error("--isa " + std::string(text) + ": this processor does not have it");
        }
        names.append(i ? ", " : "").append(each.name);
    }
    throw Error("--isa " + std::string(text) + ": not one of " + names);
}

void apply(int id, const char* argument, Options& options)
{
    switch (id) {
    case kSurface: options.surface = surface(argument); break;
    case kHalf: options.half = true; break;
    case kBrightness:
        options.controls.brightness =
            number(argument, "brightness", -Controls::kMaxBrightness, Controls::kMaxBrightness);
        break;
    case kContrast: options.controls.contrast = gain(argument, "contrast"); break;
    case kSaturation: options.controls.saturation = gain(argument, "saturation"); break;
    case kDump:
        if (!*argument) throw Error("--dump: names no directory");
        options.dump = argument;
        break;
    case kFrames: options.frames = number<int64_t>(argument, "frames", 1, INT64_MAX); break;
    case kLoop: options.loop = true; break;
    case kStats: options.stats = true; break;
    case kIsa: options.isa = isa(argument); break;
    case kSize: size(argument, options.source); break;
    case kSeconds: options.source.seconds = number(argument, "seconds", 0.001, 86400.0); break;
    case kQuiet: options.quiet = true; break;
    case 'h': options.action = Options::Action::help; break;
    case 'V': options.action = Options::Action::version; break;
    }
}

[[noreturn]] void refuse(int problem, char** argv)
{
    const std::string word = argv[optind - 1];
    if (problem == ':') throw Error(word + ": needs a value");
    if (optopt > 0 && optopt < 256) throw Error("-" + std::string(1, static_cast<char>(optopt)) + ": unknown option");
    throw Error(word + (optopt ? ": takes no value" : ": unknown option (see --help)"));
}

void check_together(const Options& options, bool window, bool shaped)
{
    if (shaped && !options.source.is_pattern())
        throw Error("--size and --seconds shape the test pattern; they do not go with a file");
    if (options.loop && options.source.is_standard_input()) throw Error("--loop cannot repeat standard input");
    if (options.loop && options.dump && !options.frames && !window)
        throw Error("--loop with --dump writes without end; add --frames");
}

} // namespace

Options parse_options(int argc, char** argv)
{
    Options options;
    bool window = false, shaped = false;
    opterr = 0;
    for (int id; (id = getopt_long(argc, argv, ":hV", kOptions, nullptr)) != -1;) {
        if (id == '?' || id == ':') refuse(id, argv);
        window |= id == kWindow;
        shaped |= id == kSize || id == kSeconds;
        apply(id, optarg, options);
    }
    if (options.action != Options::Action::play) return options;
    if (argc - optind > 1) throw Error(std::string(argv[optind + 1]) + ": one file at a time");
    if (optind < argc) {
        if (!*argv[optind]) throw Error("the file name is empty");
        options.source.file = argv[optind];
    }
    check_together(options, window, shaped);
    options.window = window || !options.dump;
    return options;
}

} // namespace player
