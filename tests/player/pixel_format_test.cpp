// SPDX-License-Identifier: MIT
// Every pixel format that FFmpeg's decoders deliver, at odd sizes, against arithmetic in real numbers.
#include "tools/colours.h"
#include "tools/converter.h"
#include <array>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <vector>
extern "C" {
#include <libavutil/imgutils.h>
#include <libavutil/pixdesc.h>
}

namespace player_test {
namespace {

using Colour = std::array<double, 3>;

struct Kind {
    double kr, kb;
    bool full;
};

constexpr double kLargest = 333; // pixels
constexpr Kind kBt601{0.299, 0.114, false};

// Components from 0 to 1, chroma around its middle.
Colour rgb_of(double y, double u, double v, const Kind& kind)
{
    const double luma = kind.full ? y : (255 * y - 16) / 219, scale = kind.full ? 1 : 255.0 / 224;
    const double cb = (u - 128 / 255.0) * scale, cr = (v - 128 / 255.0) * scale, kg = 1 - kind.kr - kind.kb;
    const double red = luma + 2 * (1 - kind.kr) * cr, blue = luma + 2 * (1 - kind.kb) * cb;
    return {red, (luma - kind.kr * red - kind.kb * blue) / kg, blue};
}

const AVPixFmtDescriptor& descriptor(int format) { return *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(format)); }

bool is_rgb(int format) { return descriptor(format).flags & AV_PIX_FMT_FLAG_RGB; }

// Few bits, one colour: steps would be blurred where chroma is shared.
bool is_coarse(const AVPixFmtDescriptor& format)
{
    for (int i = 0; i < format.nb_components; i++)
        if (format.comp[i].depth < 8) return true;
    return false;
}

// What a component holds, from 0 to 1.
double sample(const AVPixFmtDescriptor& format, int component, double across, double down)
{
    if (component == 3 || (format.nb_components == 2 && component == 1)) return 1;
    if (is_coarse(format)) return component == 1 ? 0.6 : 0.4;
    if (component == 0) return (70 + 100 * across) / 255;
    if (component == 1) return (110 + 36 * down) / 255;
    return (146 - 36 * across) / 255;
}

class Samples {
public:
    Samples(AVPixelFormat pixel_format, int width, int height)
    {
        frame->format = pixel_format;
        frame->width = width;
        frame->height = height;
        if (av_frame_get_buffer(frame.get(), 1) < 0) throw std::bad_alloc();
        for (int plane = 0; plane < 4 && frame->buf[plane]; plane++)
            std::memset(frame->buf[plane]->data, 0, frame->buf[plane]->size);
        for (int component = 0; component < format().nb_components; component++) fill(component);
    }

    const AVPixFmtDescriptor& format() const { return descriptor(frame->format); }

    double at(int component, int x, int y) const
    {
        const AVComponentDescriptor& c = format().comp[component];
        const bool chroma = subsampled(component);
        x >>= chroma ? format().log2_chroma_w : 0;
        y >>= chroma ? format().log2_chroma_h : 0;
        if (format().flags & AV_PIX_FMT_FLAG_FLOAT) {
            float value;
            std::memcpy(&value, frame->data[c.plane] + y * frame->linesize[c.plane] + x * c.step + c.offset, 4);
            return value;
        }
        uint16_t value = 0;
        const uint8_t* data[4] = {frame->data[0], frame->data[1], frame->data[2], frame->data[3]};
        av_read_image_line2(&value, data, frame->linesize, &format(), x, y, component, 1, 0, sizeof value);
        return scaled(value, component);
    }

    Colour rgb(int x, int y, const Kind& kind) const
    {
        if (is_rgb(frame->format)) return {at(0, x, y), at(1, x, y), at(2, x, y)};
        const bool grey = format().nb_components < 3;
        const double middle = 128 / 255.0;
        return rgb_of(at(0, x, y), grey ? middle : at(1, x, y), grey ? middle : at(2, x, y), kind);
    }

    player::FramePtr frame = player::new_frame();

private:
    bool subsampled(int component) const
    {
        return !is_rgb(frame->format) && format().nb_components > 2 && (component == 1 || component == 2);
    }

    // RGB ends at all ones; YUV has its 8-bit values times a power of two.
    double scaled(int value, int component) const
    {
        const int depth = format().comp[component].depth;
        if (frame->format == AV_PIX_FMT_MONOWHITE) return 1 - value;
        if (is_rgb(frame->format) || depth < 8) return value / (std::ldexp(1, depth) - 1);
        return value / std::ldexp(255, depth - 8);
    }

    void fill(int component)
    {
        const AVComponentDescriptor& c = format().comp[component];
        const bool chroma = subsampled(component);
        const int width = AV_CEIL_RSHIFT(frame->width, chroma ? format().log2_chroma_w : 0);
        const int height = AV_CEIL_RSHIFT(frame->height, chroma ? format().log2_chroma_h : 0);
        const double most =
            is_rgb(frame->format) || c.depth < 8 ? std::ldexp(1, c.depth) - 1 : std::ldexp(255, c.depth - 8);
        std::vector<uint16_t> line(static_cast<std::size_t>(width));
        for (int y = 0; y < height; y++) {
            for (int x = 0; x < width; x++) {
                const double value = sample(format(), component, x / kLargest, y / kLargest);
                line[static_cast<std::size_t>(x)] = static_cast<uint16_t>(std::lround(value * most));
                const auto exact = static_cast<float>(value);
                if (format().flags & AV_PIX_FMT_FLAG_FLOAT)
                    std::memcpy(frame->data[c.plane] + y * frame->linesize[c.plane] + x * c.step + c.offset, &exact, 4);
            }
            if (!(format().flags & AV_PIX_FMT_FLAG_FLOAT))
                av_write_image_line2(line.data(), frame->data, frame->linesize, &format(), 0, y, component, width,
                                     sizeof line[0]);
        }
    }
};

std::vector<AVPixelFormat> delivered_formats()
{
    std::vector<AVPixelFormat> formats;
    const AVPixFmtDescriptor* each = nullptr;
    // Sensors' patterns and CIE colours are no RGB or YUV; a palette has a test of its own.
    constexpr uint64_t kOther = AV_PIX_FMT_FLAG_HWACCEL | AV_PIX_FMT_FLAG_BAYER | AV_PIX_FMT_FLAG_PAL;
    while ((each = av_pix_fmt_desc_next(each))) {
        const AVPixelFormat format = av_pix_fmt_desc_get_id(each);
        const bool foreign = each->flags & AV_PIX_FMT_FLAG_FLOAT && each->flags & AV_PIX_FMT_FLAG_BE;
        // FFmpeg's own descriptions of the latter two are not what it converts.
        if (!sws_isSupportedInput(format) || each->flags & kOther || foreign || format == AV_PIX_FMT_RGB8 ||
            !std::strncmp(each->name, "xyz", 3))
            continue;
        formats.push_back(format);
    }
    return formats;
}

std::string name_of(const testing::TestParamInfo<AVPixelFormat>& info) { return av_get_pix_fmt_name(info.param); }

class DeliveredFormat : public testing::TestWithParam<AVPixelFormat> {};

TEST_P(DeliveredFormat, keeps_its_colours_to_the_last_pixel_of_odd_sizes)
{
    constexpr std::pair<int, int> kSizes[] = {{333, 217}, {33, 16}, {32, 17}, {3, 5}, {1, 1}};
    for (const auto& [width, height] : kSizes) {
        const Samples source(GetParam(), width, height);
        player::Converter converter;
        const AVFrame& result = converter.to_known(*source.frame);
        const player::Colours colours = player::colours_of(*source.frame);
        const Kind kind{kBt601.kr, kBt601.kb, colours.full};
        Samples converted(static_cast<AVPixelFormat>(result.format), result.width, result.height);
        av_frame_unref(converted.frame.get());
        ASSERT_GE(av_frame_ref(converted.frame.get(), &result), 0);
        ASSERT_EQ(result.width, width);
        ASSERT_EQ(result.height, height);
        const Kind result_kind{kBt601.kr, kBt601.kb, player::colours_of(result).full};
        double worst = 0;
        int at_x = 0, at_y = 0;
        for (int y = 0; y < height; y++) {
            for (int x = 0; x < width; x++) {
                const Colour expected = source.rgb(x, y, kind), got = converted.rgb(x, y, result_kind);
                for (std::size_t c = 0; c < 3; c++) {
                    const double wrong = 255 * std::abs(expected[c] - got[c]);
                    if (wrong > worst) worst = wrong, at_x = x, at_y = y;
                }
            }
        }
        // The four bits of a sample are filled up with zeros.
        const bool four_bits = is_rgb(GetParam()) && source.format().comp[0].depth == 4;
        EXPECT_LE(worst, four_bits ? 9 : 5) << width << "x" << height << ", at " << at_x << "," << at_y << ", as "
                                            << av_get_pix_fmt_name(static_cast<AVPixelFormat>(result.format));
    }
}

TEST(Colours, are_those_of_the_stream_or_the_usual_ones)
{
    const player::FramePtr frame = player::new_frame();
    frame->format = AV_PIX_FMT_YUV420P;
    frame->width = 1920;
    auto text = [&](int height, AVColorSpace matrix, AVColorRange range) {
        frame->height = height;
        frame->colorspace = matrix;
        frame->color_range = range;
        return player::colours_of(*frame).text();
    };
    EXPECT_EQ(text(576, AVCOL_SPC_UNSPECIFIED, AVCOL_RANGE_UNSPECIFIED), "BT.601 (assumed), limited range (assumed)");
    EXPECT_EQ(text(577, AVCOL_SPC_UNSPECIFIED, AVCOL_RANGE_MPEG), "BT.709 (assumed), limited range");
    EXPECT_EQ(text(480, AVCOL_SPC_BT709, AVCOL_RANGE_JPEG), "BT.709, full range");
    EXPECT_EQ(text(1080, AVCOL_SPC_SMPTE170M, AVCOL_RANGE_MPEG), "BT.601, limited range");
    EXPECT_EQ(text(1080, AVCOL_SPC_BT2020_NCL, AVCOL_RANGE_MPEG), "BT.2020, limited range");
    frame->format = AV_PIX_FMT_YUVJ420P;
    EXPECT_EQ(text(480, AVCOL_SPC_BT470BG, AVCOL_RANGE_UNSPECIFIED), "BT.601, full range");
}

TEST(DeliveredPalette, shows_its_colour)
{
    const player::FramePtr frame = player::new_frame();
    frame->format = AV_PIX_FMT_PAL8;
    frame->width = 33;
    frame->height = 17;
    ASSERT_GE(av_frame_get_buffer(frame.get(), 0), 0);
    for (int y = 0; y < 17; y++) std::memset(frame->data[0] + y * frame->linesize[0], 7, 33);
    std::memset(frame->data[1], 0, AVPALETTE_SIZE);
    reinterpret_cast<uint32_t*>(frame->data[1])[7] = 0xff336699;
    player::Converter converter;
    const AVFrame& result = converter.to_known(*frame);
    for (const auto& [x, y] : {std::pair{0, 0}, std::pair{32, 16}}) {
        auto sample = [&](int plane, int column, int line) {
            return result.data[plane][line * result.linesize[plane] + column] / 255.0;
        };
        const Colour got = rgb_of(sample(0, x, y), sample(1, x / 2, y / 2), sample(2, x / 2, y / 2), kBt601);
        EXPECT_NEAR(got[0] * 255, 0x33, 3);
        EXPECT_NEAR(got[1] * 255, 0x66, 3);
        EXPECT_NEAR(got[2] * 255, 0x99, 3);
    }
}

INSTANTIATE_TEST_SUITE_P(All, DeliveredFormat, testing::ValuesIn(delivered_formats()), name_of);

} // namespace
} // namespace player_test
