// SPDX-License-Identifier: MIT
#include "tools/options.h"
#include "tools/error.h"
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <getopt.h>
#include <initializer_list>
#include <set>

namespace player {
namespace {

constexpr int kMaxSide = 16384;

enum Id {
    kSurface = 256,
    kHalf,
    kZoom,
    kField,
    kBrightness,
    kContrast,
    kSaturation,
    kSubtitles,
    kSubtitleTrack,
    kAlone,
    kOverlay,
    kDump,
    kFrames,
    kWindow,
    kLoop,
    kStats,
    kIsa,
    kSize,
    kSeconds,
    kFormat,
    kPixelFormat,
    kVideoSize,
    kQuiet
};

constexpr option kOptions[] = {
    {"surface", required_argument, nullptr, kSurface},
    {"half", no_argument, nullptr, kHalf},
    {"zoom", required_argument, nullptr, kZoom},
    {"field", no_argument, nullptr, kField},
    {"brightness", required_argument, nullptr, kBrightness},
    {"contrast", required_argument, nullptr, kContrast},
    {"saturation", required_argument, nullptr, kSaturation},
    {"subtitles", required_argument, nullptr, kSubtitles},
    {"subtitle-track", required_argument, nullptr, kSubtitleTrack},
    {"subpicture-alone", no_argument, nullptr, kAlone},
    {"overlay", no_argument, nullptr, kOverlay},
    {"dump", required_argument, nullptr, kDump},
    {"frames", required_argument, nullptr, kFrames},
    {"window", no_argument, nullptr, kWindow},
    {"loop", no_argument, nullptr, kLoop},
    {"stats", no_argument, nullptr, kStats},
    {"isa", required_argument, nullptr, kIsa},
    {"size", required_argument, nullptr, kSize},
    {"seconds", required_argument, nullptr, kSeconds},
    {"format", required_argument, nullptr, kFormat},
    {"pixel-format", required_argument, nullptr, kPixelFormat},
    {"video-size", required_argument, nullptr, kVideoSize},
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
    constexpr double kMost = 3.98; // the last hundredth that rounds to at most Controls::kMaxGain
    return static_cast<int>(std::lround(number(text, name, 0.0, kMost) * Controls::kUnity));
}

int track(const std::string& text)
{
    constexpr int kMostTracks = 999;
    return text == "default" ? 0 : number(text.c_str(), "subtitle-track", 1, kMostTracks);
}

SurfaceFormat surface(const char* text)
{
    if (auto format = format_named(text)) return *format;
    throw Error("--surface " + std::string(text) + ": not one of " + format_names());
}

Scaling zoom(const std::string& text)
{
    if (text == "1x2") return Scaling::zoom_1x2;
    if (text == "2x2") return Scaling::zoom_2x2;
    throw Error("--zoom " + text + ": not 1x2 or 2x2");
}

struct Size {
    int width, height;
};

Size size(const std::string& text, const std::string& name)
{
    const std::size_t cross = text.find('x');
    if (cross == std::string::npos) throw Error("--" + name + " " + text + ": not of the form WIDTHxHEIGHT");
    auto side = [&](const std::string& digits) { return number(digits.c_str(), name.c_str(), 1, kMaxSide); };
    return {side(text.substr(0, cross)), side(text.substr(cross + 1))};
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

void shape(int id, const char* argument, Source& source)
{
    switch (id) {
    case kSize: {
        const Size pattern = size(argument, "size");
        source.width = pattern.width;
        source.height = pattern.height;
        break;
    }
    case kSeconds: source.seconds = number(argument, "seconds", 0.001, 86400.0); break;
    case kFormat: source.format = argument; break;
    case kPixelFormat: source.pixel_format = argument; break;
    case kVideoSize:
        size(argument, "video-size");
        source.frame_size = argument;
        break;
    }
}

void turn(int id, const char* argument, View& view)
{
    switch (id) {
    case kSurface: view.surface = surface(argument); break;
    case kHalf: view.scaling = Scaling::half_width; break;
    case kZoom: view.scaling = zoom(argument); break;
    case kField: view.scaling = Scaling::field; break;
    case kBrightness:
        view.controls.brightness = number(argument, "brightness", -Controls::kMaxBrightness, Controls::kMaxBrightness);
        break;
    case kContrast: view.controls.contrast = gain(argument, "contrast"); break;
    case kSaturation: view.controls.saturation = gain(argument, "saturation"); break;
    case kAlone: view.alone = true; break;
    case kOverlay: view.overlay = true; break;
    }
}

void apply(int id, const char* argument, Options& options)
{
    switch (id) {
    case kSubtitles:
        if (!*argument) throw Error("--subtitles: names no file");
        options.subtitles.file = argument;
        break;
    case kSubtitleTrack: options.subtitles.track = track(argument); break;
    case kDump:
        if (!*argument) throw Error("--dump: names no directory");
        options.dump = argument;
        break;
    case kFrames: options.frames = number<int64_t>(argument, "frames", 1, INT64_MAX); break;
    case kLoop: options.loop = true; break;
    case kStats: options.stats = true; break;
    case kIsa: options.isa = isa(argument); break;
    case kQuiet: options.quiet = true; break;
    case 'h': options.action = Options::Action::help; break;
    case 'V': options.action = Options::Action::version; break;
    default: shape(id, argument, options.source); turn(id, argument, options.view);
    }
}

[[noreturn]] void refuse(int problem, char** argv)
{
    const std::string word = argv[optind - 1];
    if (problem == ':') throw Error(word + ": needs a value");
    if (optopt > 0 && optopt < 256) throw Error("-" + std::string(1, static_cast<char>(optopt)) + ": unknown option");
    throw Error(word + (optopt ? ": takes no value" : ": unknown option (see --help)"));
}

void check_together(const Options& options, const std::set<int>& given)
{
    auto any = [&](std::initializer_list<int> ids) {
        return std::any_of(ids.begin(), ids.end(), [&](int id) { return given.contains(id); });
    };
    if (given.contains(kHalf) + given.contains(kZoom) + given.contains(kField) > 1)
        throw Error("--half, --zoom and --field exclude each other");
    if (options.view.alone && !options.subtitles.wanted)
        throw Error("--subpicture-alone: needs --subtitles or --subtitle-track");
    if (options.subtitles.file == "-" && options.source.is_standard_input())
        throw Error("--subtitles -: standard input is the video already");
    if (any({kSize, kSeconds}) && !options.source.is_pattern())
        throw Error("--size and --seconds shape the test pattern; they do not go with a file");
    if (any({kFormat, kVideoSize}) && options.source.is_pattern())
        throw Error("--format and --video-size describe a file; name one");
    if (options.loop && options.source.is_standard_input()) throw Error("--loop cannot repeat standard input");
    if (options.loop && options.dump && !options.frames && !options.window)
        throw Error("--loop with --dump writes without end; add --frames");
}

} // namespace

Options parse_options(int argc, char** argv)
{
    Options options;
    std::set<int> given;
    opterr = 0;
    for (int id; (id = getopt_long(argc, argv, ":hV", kOptions, nullptr)) != -1;) {
        if (id == '?' || id == ':') refuse(id, argv);
        given.insert(id);
        apply(id, optarg, options);
    }
    if (options.action != Options::Action::play) return options;
    if (argc - optind > 1) throw Error(std::string(argv[optind + 1]) + ": one file at a time");
    if (optind < argc) {
        if (!*argv[optind]) throw Error("the file name is empty");
        options.source.file = argv[optind];
    }
    options.subtitles.wanted = given.contains(kSubtitles) || given.contains(kSubtitleTrack);
    options.window = given.contains(kWindow) || !options.dump;
    check_together(options, given);
    return options;
}

} // namespace player
