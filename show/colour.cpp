// SPDX-License-Identifier: MIT
// Coefficients: from the look and from how colours are encoded to whole numbers.
#include "show/plan.h"

namespace vsurf {

// The parts of R and B in luma, as ITU-R BT.601, BT.709 and BT.2020 give them; G has the rest.
struct Weights {
    double red, blue;
    constexpr double green() const { return 1 - red - blue; }
};
constexpr Weights kWeights[] = {{.299, .114}, {.2126, .0722}, {.2627, .0593}};

// From black to white, and from the least chroma to the greatest.
struct Steps {
    int black;
    double luma, chroma;
};
constexpr Steps kSteps[] = {{16, 219, 224}, {0, 255, 255}};

// To the nearest whole number, halves up. Only for what fits.
static constexpr int rounded(double x)
{
    const double half_up = x + .5;
    const int cut = static_cast<int>(half_up);
    return cut > half_up ? cut - 1 : cut;
}

// R, G and B (0 to 255) of samples: luma * y, red_v * v and so on, where y is above black and u, v are around 0.
//
//   R = Y + 2 (1 - Kr) V',  B = Y + 2 (1 - Kb) U',  Y = Kr R + Kg G + Kb B
struct ToRgb {
    double luma, red_v, green_u, green_v, blue_u;
};
static constexpr ToRgb to_rgb(const Weights& k, const Steps& steps)
{
    const double c = 255 / steps.chroma, red_v = 2 * (1 - k.red) * c, blue_u = 2 * (1 - k.blue) * c;
    return {255 / steps.luma, red_v, blue_u * k.blue / k.green(), red_v * k.red / k.green(), blue_u};
}

// In the units of frame/rgb.h. BT.601 limited is the exports' own, whose coefficients are older and a little off. At
// most 2 levels from exact arithmetic, as a test over all samples shows.
static constexpr RgbEncoding fixed_point(int matrix, int range)
{
    if (matrix == VSURF_BT601 && range == VSURF_LIMITED) return kBt601Limited;
    const ToRgb exact = to_rgb(kWeights[matrix], kSteps[range]);
    auto in_16_bits = [](double x) { return static_cast<int16_t>(rounded(x)); };
    return {in_16_bits(kSteps[range].black),  in_16_bits(16384 * exact.luma),    in_16_bits(16384 * exact.red_v),
            in_16_bits(8192 * exact.green_u), in_16_bits(16384 * exact.green_v), in_16_bits(8192 * exact.blue_u)};
}
static constexpr RgbEncoding kRgb[3][2] = {{fixed_point(0, 0), fixed_point(0, 1)},
                                           {fixed_point(1, 0), fixed_point(1, 1)},
                                           {fixed_point(2, 0), fixed_point(2, 1)}};

struct Turn {
    double cosine, sine;
};

// Of half turns from -1 to 1: whole quarters are exact, and what is left is at most an eighth of a turn, for which the
// series are exact to the last bit but one.
static Turn turn_of(double half_turns)
{
    const int quarters = rounded(2 * half_turns);
    const double angle = (half_turns - quarters / 2.) * 3.14159265358979323846, square = angle * angle;
    double cosine = 1, sine = 1;
    for (int i = 18; i > 0; i -= 2) {
        cosine = 1 - cosine * square / (i * (i - 1));
        sine = 1 - sine * square / (i * (i + 1));
    }
    sine *= angle;
    switch (quarters & 3) {
    case 0: return {cosine, sine};
    case 1: return {-sine, cosine};
    case 2: return {-cosine, -sine};
    default: return {sine, -cosine};
    }
}

static Transform look_step(const vsurf_look& look)
{
    const double s = 4096 * (1 + double{look.saturation});
    const Turn turn = look.hue != 0 ? turn_of(look.hue) : Turn{1, 0};
    const int a = rounded(s * turn.cosine), b = rounded(s * turn.sine);
    const int brightness = rounded(255 * double{look.brightness}),
              contrast = rounded(4096 * (1 + double{look.contrast}));
    return {128, 128 + brightness, contrast, 0, 0, a, b, -1, b, a, a != 4096 || b != 0};
}

// Y, U and V of what they were in another encoding: first R, G and B of them, then the sums of these.
static Transform encoding_step(const Weights& k_in, const Steps& in, const Weights& k, const Steps& out)
{
    const ToRgb rgb = to_rgb(k_in, in);
    const double yu = k.blue * rgb.blue_u - k.green() * rgb.green_u, yv = k.red * rgb.red_v - k.green() * rgb.green_v;
    const double luma = 4096 * out.luma / 255, chroma = 4096 * out.chroma / 255;
    const double u = chroma / (2 * (1 - k.blue)), v = chroma / (2 * (1 - k.red));
    return {in.black,
            out.black,
            rounded(luma * rgb.luma),
            rounded(luma * yu),
            rounded(luma * yv),
            rounded(u * (rgb.blue_u - yu)),
            rounded(u * -yv),
            1,
            rounded(v * -yu),
            rounded(v * (rgb.red_v - yv)),
            true};
}

static OverlayEncoding overlay_encoding(const Weights& k, const Steps& steps)
{
    const double y = 65536 * steps.luma / 255, c = 65536 * steps.chroma / 255;
    const double u = c / (2 * (1 - k.blue)), v = c / (2 * (1 - k.red));
    return {{{rounded(y * k.red), rounded(y * k.green()), rounded(y * k.blue)},
             {rounded(-u * k.red), rounded(-u * k.green()), rounded(c / 2)},
             {rounded(c / 2), rounded(-v * k.green()), rounded(-v * k.blue)}},
            {steps.black, 128, 128}};
}

void plan_colours(const vsurf_job& job, Plan& plan)
{
    const vsurf_look& look = job.look;
    plan.step_count = 0;
    if (look.brightness != 0 || look.contrast != 0 || look.saturation != 0 || look.hue != 0)
        plan.steps[plan.step_count++] = look_step(look);
    const int matrix = value_of(job.picture->matrix), range = value_of(job.picture->range);
    plan.rgb = kRgb[matrix][range];
    if (!has_chroma(plan.surface)) return;
    const int matrix_out = value_of(job.surface->matrix), range_out = value_of(job.surface->range);
    if (matrix != matrix_out || range != range_out)
        plan.steps[plan.step_count++] =
            encoding_step(kWeights[matrix], kSteps[range], kWeights[matrix_out], kSteps[range_out]);
    if (plan.overlay_count > 0) plan.overlay_encoding = overlay_encoding(kWeights[matrix_out], kSteps[range_out]);
}

} // namespace vsurf
