#include "tools/source.h"
#include "tools/error.h"
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <new>
extern "C" {
#include <libavdevice/avdevice.h>
}

namespace player {
namespace {

// The pattern is drawn in whole chroma samples: an odd size needs chroma of full resolution to begin with.
std::string pattern(const Source& source)
{
    const bool odd = source.width % 2 || source.height % 2;
    char text[160];
    std::snprintf(text, sizeof text, "testsrc2=size=%dx%d:rate=%d:duration=%.3f%s,format=yuv420p", source.width,
                  source.height, Source::kPatternRate, source.seconds, odd ? ",format=yuv444p" : "");
    return text;
}

// "file:" keeps a colon in a file name from being read as a protocol.
std::string address(const Source& source)
{
    if (source.is_standard_input()) return "pipe:0";
    std::error_code ignored;
    if (std::filesystem::is_directory(source.file, ignored)) throw Error(source.file + ": is a directory");
    const bool is_address = source.file.find("://") != std::string::npos;
    return is_address && !std::filesystem::exists(source.file, ignored) ? source.file : "file:" + source.file;
}

} // namespace

FramePtr new_frame()
{
    FramePtr frame(av_frame_alloc());
    if (!frame) throw std::bad_alloc();
    return frame;
}

std::string av_error_text(int code)
{
    if (code == AVERROR_INVALIDDATA) return "not a video that FFmpeg understands";
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(code, text, sizeof text);
    return text;
}

std::string Source::name() const
{
    return is_pattern() ? "test pattern" : is_standard_input() ? "standard input" : file;
}

FormatPtr open(const Source& source)
{
    const AVInputFormat* format = nullptr;
    if (source.is_pattern()) {
        avdevice_register_all();
        format = av_find_input_format("lavfi");
        if (!format) throw Error("this FFmpeg has no test pattern (lavfi); name a file");
    }
    AVFormatContext* opened = nullptr;
    const std::string what = source.is_pattern() ? pattern(source) : address(source);
    int status = avformat_open_input(&opened, what.c_str(), format, nullptr);
    if (status < 0) throw Error(source.name() + ": " + av_error_text(status));
    FormatPtr context(opened);
    // FFmpeg would draw a text file as terminal art.
    if (!std::strcmp(context->iformat->name, "tty")) throw Error(source.name() + ": a text file, not a video");
    status = avformat_find_stream_info(context.get(), nullptr);
    if (status < 0) throw Error(source.name() + ": " + av_error_text(status));
    return context;
}

} // namespace player
