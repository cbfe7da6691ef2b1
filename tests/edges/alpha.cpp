// SPDX-License-Identifier: MIT
// Alpha restored from the blue of a drawing, and shown in one.
#include "edges/bytes.h"
#include "edges/job.h"

namespace {

using harness::Bytes;
using harness::little_endian;
using harness::part;
using harness::place;
using vsurf::Kernels;

// How many pixels a line takes in whole blocks, how far apart lines begin in the alpha plane, and how many pixels
// further than the pitch in the drawing.
struct Steps {
    size_t pixels;
    int alpha, drawing;
};

struct Lines {
    int width, height, pitch; // of the picture
    int lines;
    Steps eights, sixteens; // by the size of a block
};
constexpr Lines kLines[] = {
    {16, 3, 16, 3, {16, 16, 0}, {16, 16, 0}},
    {16, 3, 32, 3, {16, 24, 0}, {16, 24, 0}}, // half of what the pitch leaves over
    {16, 3, 33, 3, {16, 24, 0}, {16, 24, 0}},
    {16, 3, 8, 3, {16, 12, 0}, {16, 12, 0}}, // lines are stored over the end of others
    {16, 3, 7, 3, {16, 11, 0}, {16, 11, 0}}, // -9 >> 1
    {16, 3, -20, 3, {16, -2, 0}, {16, -2, 0}},
    {32, 1, 64, 1, {32, 48, 0}, {32, 48, 0}},
    {32, 0, 64, 1, {32, 48, 0}, {32, 48, 0}}, // at least one line
    {32, -7, 64, 1, {32, 48, 0}, {32, 48, 0}},
    {12, 3, 40, 3, {16, 30, 4}, {16, 30, 4}}, // 16 + (28 >> 1)
    {20, 3, 40, 3, {24, 34, 4}, {32, 42, 12}},
    {25, 2, 40, 2, {32, 39, 7}, {32, 39, 7}},
    {0, 2, 40, 2, {8, 28, 8}, {16, 36, 16}}, // at least one block
    {144, 4, 152, 4, {144, 148, 0}, {144, 148, 0}},
};

class Alpha : public harness::OnEveryJob {
protected:
    struct Format {
        JobEntry restore, show;
        size_t bytes; // a pixel
        Steps Lines::*restored;
        bool counts; // the record's height down
    };
    static constexpr Format kFormats[] = {
        {&Kernels::Restore_RGB32_To_Alpha, &Kernels::load_subpicture_alpha_rgb32, 4, &Lines::eights, false},
        {&Kernels::Restore_RGB24_To_Alpha, &Kernels::load_subpicture_alpha_rgb24, 3, &Lines::eights, true},
        {&Kernels::Restore_RGB16_565_To_Alpha, &Kernels::load_subpicture_alpha_rgb16_565, 2, &Lines::sixteens, false}};

    static constexpr int kMiddle = 1000; // where lines may go either way

    static uint8_t blue(size_t x) { return static_cast<uint8_t>(3 + 7 * x); }

    // A pixel of that blue, and what else must not matter.
    static Bytes pixel(const Format& format, size_t x)
    {
        const auto other = static_cast<uint32_t>(~x * 0x35751);
        return little_endian(format.bytes == 2 ? other << 5 | (blue(x) & 0x1F) : other << 8 | blue(x), format.bytes);
    }

    // The alpha of a line that begins with pixel `first` of those.
    static Bytes restored(const Format& format, size_t first, size_t pixels)
    {
        Bytes line;
        for (size_t x = first; x < first + pixels; ++x) {
            line.push_back(format.bytes == 4 ? blue(x) : format.bytes == 3 ? blue(x + 1) : blue(x) & 0x1F);
        }
        return line;
    }

    static Bytes shown(const Format& format, const uint8_t* alphas, size_t pixels)
    {
        Bytes line;
        for (size_t x = 0; x < pixels; ++x) {
            line.push_back(alphas[x]);
            line.insert(line.end(), format.bytes - 1, 0);
        }
        return line;
    }

    MIX_INFO job_of(const Lines& of, int surface_pitch)
    {
        MIX_INFO job = record({of.width, of.height, of.pitch, kUnread, surface_pitch, 0xFFFFFFFF});
        job.subpic_alpha += kMiddle;
        job.surface += kMiddle;
        return job;
    }

    static int pitch_of(const Format& format, const Lines& of)
    {
        return static_cast<int>(format.bytes) * (of.width + 20) + 1;
    }

    static void expect_left(const MIX_INFO& after, MIX_INFO job, const Format& format, const Lines& of)
    {
        if (format.counts) job.height -= of.lines;
        expect_record(after, job);
    }
};

TEST_P(Alpha, is_the_blue_of_a_pixel_or_of_its_right_neighbour)
{
    for (const Format& format : kFormats) {
        for (size_t x = 0; x < 200; ++x) place(surface, x * format.bytes, pixel(format, x));
        for (int width = 16; width <= 144; width += 16) {
            const auto pixels = static_cast<size_t>(width);
            alpha.assign(kRoom, kUntouched);
            run(format.restore, {width, 1, width, kUnread, 4 * width});
            EXPECT_EQ(part(alpha, 0, pixels), restored(format, 0, pixels));
            EXPECT_EQ(part(alpha, pixels, kRoom - pixels), Bytes(kRoom - pixels, kUntouched));
        }
    }
}

TEST_P(Alpha, of_16_bits_is_five_of_them)
{
    place(surface, 0, {0x10, 0x00, 0xFF, 0xFF, 0xE0, 0xFF, 0x20, 0x00, 0x1F, 0x00, 0x00, 0x80});
    run(&Kernels::Restore_RGB16_565_To_Alpha, {16, 1, 16, kUnread, 32});
    EXPECT_EQ(part(alpha, 0, 6), (Bytes{16, 31, 0, 0, 31, 0}));
}

TEST_P(Alpha, takes_the_byte_behind_a_line_of_24_bits)
{
    surface.assign(kRoom, 1);
    surface[24] = 99;
    alpha.assign(kRoom, kUntouched);
    run(&Kernels::Restore_RGB24_To_Alpha, {8, 1, 8, kUnread, 24});
    EXPECT_EQ(part(alpha, 0, 9), (Bytes{1, 1, 1, 1, 1, 1, 1, 99, kUntouched}));
}

TEST_P(Alpha, is_restored_in_lines_that_step_by_half_of_what_the_pitch_leaves_over)
{
    for (const Format& format : kFormats) {
        for (const Lines& of : kLines) {
            const Steps& steps = of.*format.restored;
            const int pitch = pitch_of(format, of), step = pitch + static_cast<int>(format.bytes) * steps.drawing;
            Bytes expected(kRoom, kUntouched);
            for (int line = 0; line < of.lines; ++line) {
                const auto first = static_cast<size_t>(5 * line), from = static_cast<size_t>(kMiddle + line * step);
                for (size_t x = 0; x <= steps.pixels; ++x) {
                    place(surface, from + x * format.bytes, pixel(format, first + x));
                }
                place(expected, static_cast<size_t>(kMiddle + line * steps.alpha),
                      restored(format, first, steps.pixels));
            }
            const Bytes drawing = surface;
            alpha.assign(kRoom, kUntouched);
            const MIX_INFO job = job_of(of, pitch);
            expect_left(run(format.restore, job), job, format, of);
            EXPECT_EQ(alpha, expected) << "width " << of.width << ", pitch " << of.pitch;
            EXPECT_EQ(surface, drawing);
        }
    }
}

TEST_P(Alpha, is_shown_as_the_value_of_a_pixel)
{
    alpha = harness::counting(kRoom);
    for (const Format& format : kFormats) {
        const size_t line = 256 * format.bytes;
        const Bytes surface_after = drawn(format.show, {256, 1, 256, kUnread, 1024});
        EXPECT_EQ(part(surface_after, 16 * format.bytes, 2), (Bytes{16, 0}));
        EXPECT_EQ(part(surface_after, 200 * format.bytes, 2), (Bytes{200, 0})); // of 16 bits: into green
        EXPECT_EQ(part(surface_after, 0, line), shown(format, alpha.data(), 256));
        EXPECT_EQ(part(surface_after, line, kRoom - line), Bytes(kRoom - line, kUntouched));
    }
}

TEST_P(Alpha, is_shown_in_lines_that_step_as_they_do_when_restored)
{
    for (size_t i = 0; i < kRoom; ++i) alpha[i] = blue(i);
    for (const Format& format : kFormats) {
        for (const Lines& of : kLines) {
            const int pitch = pitch_of(format, of);
            const int step = pitch + static_cast<int>(format.bytes) * of.sixteens.drawing;
            Bytes expected(kRoom, kUntouched);
            for (int line = 0; line < of.lines; ++line) {
                place(expected, static_cast<size_t>(kMiddle + line * step),
                      shown(format, alpha.data() + kMiddle + line * of.sixteens.alpha, of.sixteens.pixels));
            }
            surface.assign(kRoom, kUntouched);
            const MIX_INFO job = job_of(of, pitch);
            expect_left(run(format.show, job), job, format, of);
            EXPECT_EQ(surface, expected) << "width " << of.width << ", pitch " << of.pitch;
        }
    }
}

TEST_P(Alpha, is_shown_in_lines_that_may_run_upwards_or_over_each_other)
{
    for (size_t i = 0; i < kRoom; ++i) alpha[i] = blue(i);
    for (const Format& format : kFormats) {
        const auto bytes = static_cast<int>(format.bytes);
        for (const int pitch : {-112 * bytes - 3, bytes, -bytes, 0}) {
            Bytes expected(kRoom, kUntouched);
            for (int line = 0; line < 3; ++line) {
                place(expected, static_cast<size_t>(kMiddle + line * pitch),
                      shown(format, alpha.data() + kMiddle + line * 112, 112));
            }
            surface.assign(kRoom, kUntouched);
            run(format.show, job_of({112, 3, 112, 3, {}, {}}, pitch));
            EXPECT_EQ(surface, expected) << pitch;
        }
    }
}

TEST_P(Alpha, is_restored_from_drawings_that_run_upwards)
{
    for (const Format& format : kFormats) {
        const int pitch = -20 * static_cast<int>(format.bytes);
        Bytes expected(kRoom, kUntouched);
        for (size_t line = 0; line < 3; ++line) {
            for (size_t x = 0; x <= 16; ++x) {
                place(surface, kMiddle - 20 * line * format.bytes + x * format.bytes, pixel(format, 5 * line + x));
            }
            place(expected, kMiddle + 16 * line, restored(format, 5 * line, 16));
        }
        alpha.assign(kRoom, kUntouched);
        run(format.restore, job_of({16, 3, 16, 3, {}, {}}, pitch));
        EXPECT_EQ(alpha, expected);
    }
}

TEST_P(Alpha, moves_to_the_left_when_shown_and_restored_in_24_bits)
{
    for (const Format& format : kFormats) {
        Bytes before(kRoom);
        for (size_t i = 0; i < kRoom; ++i) before[i] = static_cast<uint8_t>(i % 31);
        alpha = before;
        const harness::Region region = {32, 2, 32, kUnread, 130};
        drawn(format.show, region);
        alpha.assign(kRoom, 77);
        run(format.restore, region);
        if (format.bytes == 3) {
            before.erase(before.begin());
            before[31] = before[63] = kUntouched; // the bytes behind the lines
        }
        EXPECT_EQ(part(alpha, 0, 64), part(before, 0, 64));
        EXPECT_EQ(alpha[64], 77);
    }
}

VSURF_ON_EVERY_TABLE(Alpha);

} // namespace
