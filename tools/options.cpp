// SPDX-License-Identifier: MIT
#include "tools/options.h"
#include "tools/error.h"
#include "tools/values.h"
#include <cmath>
#include <cstring>
#include <vsurf.h>

namespace player {
namespace {

constexpr int64_t kMostPictures = 1'000'000'000'000'000;
constexpr std::size_t kColumn = 24; // of meanings in the help

// CLI11 speaks of a "disallowed flag override".
std::string in_words(const CLI::ParseError& error)
{
    const std::string text = error.what(), what = " was given a disallowed flag override";
    return text.ends_with(what) ? "--" + text.substr(0, text.size() - what.size()) + ": takes no value" : text;
}

// Options of a kind, in the order of the help.
class CommandLine {
public:
    explicit CommandLine(Options& options);
    void parse(int argc, const char* const* argv);

private:
    using Take = std::function<void(const std::string&)>;

    void add_picture();
    void add_subtitles();
    void add_description();
    void add_playing();
    void check() const;
    bool given(const char* name) const { return app_.count(name) > 0; }
    // What `take` throws gets the name in front.
    CLI::Option* add(const char* name, const char* value, const Take& take, const std::string& meaning)
    {
        auto named = [=](const std::string& text) {
            try {
                take(text);
            } catch (const CLI::ValidationError& error) {
                throw CLI::ValidationError(name, error.what());
            }
        };
        return app_.add_option_function<std::string>(name, named, meaning)
            ->type_name(value)
            ->option_text(value)
            ->group(group_);
    }
    CLI::Option* flag(const char* name, bool& value, const std::string& meaning)
    {
        return app_.add_flag(name, value, meaning)->disable_flag_override()->group(group_);
    }
    void gain(const char* name, int& value, const char* meaning);

    CLI::App app_;
    Options& options_;
    std::string group_;
};

CommandLine::CommandLine(Options& options) : options_(options)
{
    app_.description("Plays a video through vsurf.");
    app_.name("vsurf-play");
    app_.get_formatter()->column_width(kColumn);
    app_.get_formatter()->label("OPTIONS", "OPTION...");
    app_.set_help_flag();
    app_.add_option("FILE", options_.files, "the video, '-' for standard input; without it a test pattern")
        ->option_text(" ")
        ->check(not_empty("the file name is empty"));
    add_picture();
    add_subtitles();
    add_description();
    add_playing();
    app_.footer("Keys:\n" + key_list(kColumn - 2) +
                "\nExit status: 0, or 2 after one line on standard error: wrong usage or input, or what had to be\n"
                "skipped in a damaged stream that was played as far as possible.");
}

void CommandLine::gain(const char* name, int& value, const char* meaning)
{
    // 3.98 is the last hundredth that rounds to no more than Controls::kMaxGain.
    auto take = [&value](const std::string& text) {
        value = static_cast<int>(std::lround(std::stod(text) * Controls::kUnity));
    };
    add(name, "X", take, meaning)->check(between(0.0, 3.98, "0 to 3.98"));
}

void CommandLine::add_picture()
{
    group_ = "Picture";
    View& view = options_.view;
    auto surface = [&view](const std::string& text) {
        const auto format = format_named(text);
        if (!format) throw CLI::ValidationError(text + ": not one of " + format_names());
        view.surface = *format;
    };
    auto zoom = [&view](const std::string& text) {
        if (text != "1x2" && text != "2x2") throw CLI::ValidationError(text + ": not 1x2 or 2x2");
        view.scaling = text == "1x2" ? Scaling::zoom_1x2 : Scaling::zoom_2x2;
    };
    add("--surface", "FORMAT", surface,
        "what vsurf writes: " + format_names() + "\n(default rgb32; rgb16-555 has its zero bit at the bottom)");
    CLI::Option* half = app_.add_flag_callback(
        "--half", [&view] { view.scaling = Scaling::half_width; },
        "half width; surfaces other than yuy2 and yv12 become yuy2");
    CLI::Option* zoomed = add("--zoom", "1x2|2x2", zoom,
                              "twice the height; twice the width and height, where surfaces other than yuy2 and\n"
                              "yv12 become yuy2");
    CLI::Option* field = app_.add_flag_callback(
        "--field", [&view] { view.scaling = Scaling::field; },
        "take the picture for one field: its lines 0, 2, 4, ... are doubled along edges; the\n"
        "surface becomes yuy2 (--half, --zoom and --field exclude each other)");
    half->excludes(zoomed)->excludes(field);
    zoomed->excludes(field);
    for (CLI::Option* each : {half, field}) each->disable_flag_override()->option_text(" ")->group(group_);
    add(
        "--brightness", "N", [&view](const std::string& text) { view.controls.brightness = std::stoi(text); },
        "added to luma, -255 to 255 (default 0)")
        ->check(between(-Controls::kMaxBrightness, Controls::kMaxBrightness, "-255 to 255"));
    gain("--contrast", view.controls.contrast, "gain around mid-grey, 0 to 3.98 (default 1)");
    gain("--saturation", view.controls.saturation, "gain of the colours, 0 to 3.98 (default 1)");
    flag("--overlay", view.overlay,
         "paint the window in a colour key and show the video where the key is, and a progress\n"
         "bar along the top");
}

void CommandLine::add_subtitles()
{
    group_ = "Subtitles";
    auto file = [this](const std::string& text) { options_.subtitles.file = text; };
    auto track = [this](const std::string& text) {
        if (text != "default") options_.subtitles.track = std::stoi(text);
    };
    add("--subtitles", "FILE", file, "draw those in FILE: ASS, SubRip, WebVTT, ... or a video with a text track")
        ->check(not_empty("names no file"));
    CLI::Validator number = between(1, 999, "1 to 999");
    add("--subtitle-track", "N", track,
        "draw track N of the video, or of the FILE with --subtitles, counted from 1. 'default'\n"
        "is the text track that is marked so, else the first. Bitmaps cannot be drawn.")
        ->check([number](const std::string& text) { return text == "default" ? std::string() : number(text); });
    flag("--subpicture-alone", options_.view.alone,
         "nothing but the subtitles, on the colour key; surfaces other than RGB become rgb32.\n"
         "With --overlay the key shows the video. Subtitles are drawn at the size of the video,\n"
         "then scaled with it. With them --field leaves the surface what it is, and averages\n"
         "lines: on yuy2 while there is one to be seen, elsewhere always.");
}

void CommandLine::add_description()
{
    group_ = "File without a header";
    Source& source = options_.source;
    add(
        "--format", "NAME", [&source](const std::string& text) { source.format = text; },
        "what FFmpeg calls its kind, such as rawvideo");
    add(
        "--pixel-format", "NAME", [&source](const std::string& text) { source.pixel_format = text; },
        "what FFmpeg calls its pixels, such as yuyv422 for YUY2; also for the test pattern");
    auto take = [&source](const std::string& text) {
        size(text);
        source.frame_size = text;
    };
    add("--video-size", "WxH", take, "size of its pictures");
}

void CommandLine::add_playing()
{
    group_ = "Playing";
    Source& source = options_.source;
    flag("--loop", options_.loop, "start again at the end");
    auto frames = [this](const std::string& text) { options_.frames = std::stoll(text); };
    add("--frames", "N", frames, "stop after N pictures")->check(between<int64_t>(1, kMostPictures, "1 to 10^15"));
    add(
        "--dump", "DIR", [this](const std::string& text) { options_.dump = text; },
        "write DIR/picture-000001.png and so on, as fast as possible and without a window")
        ->check(not_empty("names no directory"));
    flag("--window", options_.window, "with --dump: show a window as well");
    auto pattern = [&source](const std::string& text) {
        source.width = size(text).width;
        source.height = size(text).height;
    };
    add("--size", "WxH", pattern, "size of the test pattern (default 1280x720), up to 16000x16000");
    add(
        "--seconds", "S", [&source](const std::string& text) { source.seconds = std::stod(text); },
        "length of the test pattern (default 10)")
        ->check(between(0.001, 86400.0, "0.001 to 86400"));
    auto sound = [this](const std::string& text) { options_.sound.track = std::stoi(text); };
    add("--audio-track", "N", sound, "play this sound track, counted from 1")->check(between(1, 999, "1 to 999"));
    flag("--mute", options_.mute, "no sound until m is pressed");
    auto moment = [](std::optional<double>& value) {
        return [&value](const std::string& text) { value = std::stod(text); };
    };
    add("--start", "S", moment(options_.start), "begin at this second")->check(between(0.0, 1e6, "0 to 1000000"));
    add("--end", "S", moment(options_.end), "end at this second")->check(between(0.001, 1e6, "0.001 to 1000000"));
    app_.add_option("--threads", options_.threads,
                    "show each picture in N bands, on as many threads, where vsurf_show does it")
        ->option_text("N")
        ->check(between(1, 64, "1 to 64"))
        ->group(group_);
    app_.add_option("--isa", options_.isa, "use this instruction set instead of the best")
        ->type_name("NAME")
        ->option_text("NAME")
        ->check(CLI::IsMember({"scalar", "sse2", "avx2", "avx512", "neon"}))
        ->group(group_);
    flag("--stats", options_.stats,
         "print which exports of vsurf ran, on which instruction set, and their time per picture");
    flag("--quiet", options_.quiet, "no progress on the terminal");
    app_.set_help_flag("-h,--help", "this text")->disable_flag_override()->group(group_);
    app_.set_version_flag("-V,--version", "vsurf-play " VSURF_VERSION, "the version")
        ->disable_flag_override()
        ->group(group_);
}

void CommandLine::parse(int argc, const char* const* argv)
try {
    options_.window = false;
    app_.parse(argc, argv);
    if (!options_.files.empty()) options_.source.file = options_.files.front();
    options_.subtitles.wanted = given("--subtitles") || given("--subtitle-track");
    options_.window = options_.window || !options_.dump;
    options_.sound.wanted = options_.window;
    check();
} catch (const CLI::CallForHelp&) {
    options_.text = CLI::detail::find_and_replace(app_.help(), "\n\n\n", "\n\n");
} catch (const CLI::CallForVersion& version) {
    options_.text = std::string(version.what()) + "\n";
} catch (const CLI::ParseError& error) {
    throw Error(in_words(error) + " (see --help)");
}

void CommandLine::check() const
{
    const Source& source = options_.source;
    if (options_.view.alone && !options_.subtitles.wanted)
        throw Error("--subpicture-alone: needs --subtitles or --subtitle-track");
    if (options_.subtitles.file == "-" && source.is_standard_input())
        throw Error("--subtitles -: standard input is the video already");
    if ((given("--size") || given("--seconds")) && !source.is_pattern())
        throw Error("--size and --seconds shape the test pattern; they do not go with a file");
    if ((given("--format") || given("--video-size")) && source.is_pattern())
        throw Error("--format and --video-size describe a file; name one");
    if (options_.dump && options_.files.size() > 1) throw Error("--dump takes the pictures of one file");
    if (options_.loop && source.is_standard_input()) throw Error("--loop cannot repeat standard input");
    if (options_.loop && options_.dump && !options_.frames && !options_.window)
        throw Error("--loop with --dump writes without end; add --frames");
}

} // namespace

Options parse_options(int argc, const char* const* argv)
{
    Options options;
    CommandLine(options).parse(argc, argv);
    return options;
}

} // namespace player
