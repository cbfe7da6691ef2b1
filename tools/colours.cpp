// SPDX-License-Identifier: MIT
#include "tools/colours.h"
#include <algorithm>
#include <array>
extern "C" {
#include <libavutil/pixdesc.h>
}

namespace player {
namespace {

constexpr int kMostLinesOfBt601 = 576; // untagged pictures with more are taken for HD

bool is_rgb(const AVFrame& frame)
{
    const AVPixFmtDescriptor* format = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
    return format && format->flags & (AV_PIX_FMT_FLAG_RGB | AV_PIX_FMT_FLAG_PAL);
}

bool has_range_in_its_name(int format)
{
    constexpr std::array kFull{AV_PIX_FMT_YUVJ420P, AV_PIX_FMT_YUVJ422P, AV_PIX_FMT_YUVJ444P, AV_PIX_FMT_YUVJ440P,
                               AV_PIX_FMT_YUVJ411P};
    return std::find(kFull.begin(), kFull.end(), format) != kFull.end();
}

} // namespace

Colours colours_of(const AVFrame& frame)
{
    Colours colours;
    if (is_rgb(frame)) return colours;
    switch (frame.colorspace) {
    case AVCOL_SPC_BT709: colours.matrix = Matrix::bt709; break;
    case AVCOL_SPC_BT2020_NCL:
    case AVCOL_SPC_BT2020_CL: colours.matrix = Matrix::bt2020; break;
    case AVCOL_SPC_BT470BG:
    case AVCOL_SPC_SMPTE170M:
    case AVCOL_SPC_FCC: break;
    default:
        colours.matrix_assumed = true;
        if (std::min(frame.width, frame.height) > kMostLinesOfBt601) colours.matrix = Matrix::bt709;
    }
    const bool named = has_range_in_its_name(frame.format);
    colours.full = named || frame.color_range == AVCOL_RANGE_JPEG;
    colours.range_assumed = !named && frame.color_range == AVCOL_RANGE_UNSPECIFIED;
    return colours;
}

std::string Colours::text() const
{
    constexpr const char* kNames[] = {"BT.601", "BT.709", "BT.2020"};
    std::string text = kNames[static_cast<int>(matrix)];
    text.append(matrix_assumed ? " (assumed), " : ", ").append(full ? "full range" : "limited range");
    return text.append(range_assumed ? " (assumed)" : "");
}

} // namespace player
