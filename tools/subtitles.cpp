// SPDX-License-Identifier: MIT
#include "tools/subtitles.h"
#include "tools/error.h"
#include <cmath>
#include <cstring>
#include <utility>

namespace player {
namespace {

// libass's own words. It says so of single characters, too.
constexpr const char* kNoFont = "failed to find any fallback";

// Events differ by more than their number, which decoders may count again.
std::string without_number(const std::string& line) { return line.substr(line.find(',') + 1); }

} // namespace

Subtitles::Subtitles(const AVFormatContext& file, int track, std::string name)
    : name_(std::move(name)), stream_(choose_subtitles(file, track, name_)), decoder_(*file.streams[stream_], name_),
      library_(checked(ass_library_init()))
{
    ass_set_message_cb(library_.get(), hear, this);
    ass_set_extract_fonts(library_.get(), 1);
    add_fonts(file);
    renderer_.reset(checked(ass_renderer_init(library_.get())));
    track_.reset(checked(ass_new_track(library_.get())));
    std::string header = decoder_.header();
    ass_process_codec_private(track_.get(), header.data(), static_cast<int>(header.size()));
    ass_set_check_readorder(track_.get(), 0);
    ass_set_fonts(renderer_.get(), nullptr, kFontFamily, ASS_FONTPROVIDER_AUTODETECT, nullptr, 1);
}

void Subtitles::hear(int, const char* format, va_list, void* self)
{
    if (std::strstr(format, kNoFont)) static_cast<Subtitles*>(self)->font_missed_ = true;
}

void Subtitles::add_fonts(const AVFormatContext& file)
{
    for (unsigned i = 0; i < file.nb_streams; i++) {
        const AVStream& stream = *file.streams[i];
        const AVCodecParameters& parameters = *stream.codecpar;
        const bool font = parameters.codec_id == AV_CODEC_ID_TTF || parameters.codec_id == AV_CODEC_ID_OTF;
        if (!font || parameters.extradata_size <= 0) continue;
        const AVDictionaryEntry* title = av_dict_get(stream.metadata, "filename", nullptr, 0);
        ass_add_font(library_.get(), title ? title->value : "font", reinterpret_cast<const char*>(parameters.extradata),
                     parameters.extradata_size);
    }
}

void Subtitles::take(AVPacket& packet)
{
    const std::lock_guard lock(mutex_);
    for (SubtitleEvent& event : decoder_.decode(packet)) {
        if (!seen_.emplace(event.start, event.duration, without_number(event.line)).second) continue;
        ass_process_chunk(track_.get(), event.line.data(), static_cast<int>(event.line.size()), event.start,
                          event.duration);
    }
}

bool Subtitles::empty() const
{
    const std::lock_guard lock(mutex_);
    return seen_.empty();
}

SubtitleImages Subtitles::draw(double time, int width, int height, double sample_aspect)
{
    const std::lock_guard lock(mutex_);
    ass_set_frame_size(renderer_.get(), width, height);
    ass_set_storage_size(renderer_.get(), width, height);
    ass_set_pixel_aspect(renderer_.get(), sample_aspect);
    int changed = 0;
    const ASS_Image* first = ass_render_frame(renderer_.get(), track_.get(), std::llround(time * 1000), &changed);
    // libass takes a script without events for a change each time.
    const bool before = std::exchange(visible_, first != nullptr);
    drawn_ = drawn_ || visible_;
    return {first, changed != 0 && (visible_ || before)};
}

std::string Subtitles::damage() const
{
    const std::lock_guard lock(mutex_);
    const int64_t count = decoder_.damaged();
    if (font_missed_ && !drawn_) return name_ + ": not drawn: no font was found (Debian: fonts-dejavu-core)";
    if (count == 0) return "";
    return name_ + ": skipped " + std::to_string(count) + (count == 1 ? " damaged subtitle" : " damaged subtitles");
}

std::unique_ptr<Subtitles> read_subtitles(const Source& source, int track, Interrupt& interrupt)
{
    const FormatPtr file = open(source, interrupt);
    auto subtitles = std::make_unique<Subtitles>(*file, track, source.name());
    const PacketPtr packet(checked(av_packet_alloc()));
    int status;
    while ((status = av_read_frame(file.get(), packet.get())) >= 0) {
        if (packet->stream_index == subtitles->stream()) subtitles->take(*packet);
        av_packet_unref(packet.get());
    }
    if (status != AVERROR_EOF) throw Error(source.name() + ": " + av_error_text(status, source.content));
    if (!subtitles->empty()) return subtitles;
    const std::string damage = subtitles->damage();
    throw Error(damage.empty() ? source.name() + ": has no subtitles" : damage + ", and there are no others");
}

} // namespace player
