// SPDX-License-Identifier: MIT
#include "tools/source.h"
#include "tools/error.h"
#include "tools/pattern.h"
#include <cstring>
#include <filesystem>
#include <new>
#include <utility>
extern "C" {
#include <libavdevice/avdevice.h>
#include <libavutil/pixdesc.h>
}

namespace player {
namespace {

// "file:" keeps a colon in a file name from being read as a protocol.
std::string address(const Source& source)
{
    if (source.is_standard_input()) return "pipe:0";
    std::error_code ignored;
    if (std::filesystem::is_directory(source.file, ignored)) throw Error(source.file + ": is a directory");
    const bool is_address = source.file.find("://") != std::string::npos;
    return is_address && !std::filesystem::exists(source.file, ignored) ? source.file : "file:" + source.file;
}

// Null where FFmpeg is to find out.
const AVInputFormat* demuxer(const Source& source)
{
    if (source.is_pattern()) {
        avdevice_register_all();
        if (const AVInputFormat* format = av_find_input_format("lavfi")) return format;
        throw Error("this FFmpeg has no test pattern (lavfi); name a file");
    }
    if (source.format.empty()) return nullptr;
    if (const AVInputFormat* format = av_find_input_format(source.format.c_str())) return format;
    throw Error("--format " + source.format + ": FFmpeg reads no such format");
}

struct Dictionary {
    AVDictionary* entries = nullptr;

    Dictionary() = default;
    Dictionary(Dictionary&& other) noexcept : entries(std::exchange(other.entries, nullptr)) {}
    ~Dictionary() { av_dict_free(&entries); }
    void set(const char* name, const std::string& value)
    {
        if (!value.empty() && av_dict_set(&entries, name, value.c_str(), 0) < 0) throw std::bad_alloc();
    }
};

Dictionary description(const Source& source)
{
    Dictionary words;
    if (source.is_pattern()) return words;
    if (source.format == "rawvideo" && source.frame_size.empty())
        throw Error("--format rawvideo: needs --video-size WIDTHxHEIGHT");
    words.set("pixel_format", source.pixel_format);
    words.set("video_size", source.frame_size);
    return words;
}

// What is left over would have been ignored.
void check_all_taken(const Source& source, const Dictionary& left, const AVFormatContext& context)
{
    const AVDictionaryEntry* entry = av_dict_get(left.entries, "", nullptr, AV_DICT_IGNORE_SUFFIX);
    if (!entry) return;
    const char* option = std::strcmp(entry->key, "video_size") ? "--pixel-format" : "--video-size";
    throw Error(option + (": does not go with " + source.name()) + ", which is " + context.iformat->name);
}

} // namespace

FramePtr new_frame()
{
    FramePtr frame(av_frame_alloc());
    if (!frame) throw std::bad_alloc();
    return frame;
}

std::string av_error_text(int code, const char* content)
{
    if (code == AVERROR_INVALIDDATA) return std::string("not ").append(content).append(" that FFmpeg understands");
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(code, text, sizeof text);
    return text;
}

std::string Source::name() const
{
    return is_pattern() ? "test pattern" : is_standard_input() ? "standard input" : file;
}

FormatPtr open(const Source& source, Interrupt& interrupt)
{
    if (!source.pixel_format.empty() && av_get_pix_fmt(source.pixel_format.c_str()) == AV_PIX_FMT_NONE)
        throw Error("--pixel-format " + source.pixel_format + ": FFmpeg knows no such format");
    const AVInputFormat* format = demuxer(source);
    const std::string what = source.is_pattern() ? pattern(source) : address(source);
    Dictionary words = description(source);
    AVFormatContext* opened = avformat_alloc_context(); // freed where it cannot be opened
    if (!opened) throw std::bad_alloc();
    opened->interrupt_callback = interrupt.callback();
    int status = avformat_open_input(&opened, what.c_str(), format, &words.entries);
    if (status == AVERROR(EINVAL) && source.frame_size.empty() && !source.is_pattern())
        throw Error(source.name() + ": has no header; say what it holds by --format, --video-size and --pixel-format");
    if (status < 0) throw Error(source.name() + ": " + av_error_text(status, source.content));
    FormatPtr context(opened);
    check_all_taken(source, words, *context);
    // FFmpeg would draw a text file as terminal art.
    if (!std::strcmp(context->iformat->name, "tty"))
        throw Error(source.name() + ": a text file, not " + source.content);
    status = avformat_find_stream_info(context.get(), nullptr);
    if (status < 0) throw Error(source.name() + ": " + av_error_text(status, source.content));
    return context;
}

} // namespace player
