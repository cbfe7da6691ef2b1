// SPDX-License-Identifier: MIT
#include "model/samples.h"

#include <algorithm>

namespace model {
namespace {

int16_t low16(int64_t value)
{
    return static_cast<int16_t>(static_cast<uint16_t>(static_cast<uint64_t>(value) & 0xFFFF));
}

int16_t saturate16(int value) { return static_cast<int16_t>(std::clamp(value, -32768, 32767)); }

uint8_t saturate8(int value) { return static_cast<uint8_t>(std::clamp(value, 0, 255)); }

// The high half of a signed product: rounds towards minus infinity.
int16_t mulhi(int16_t a, int16_t b) { return static_cast<int16_t>((int{a} * int{b}) >> 16); }

int16_t shift_left(int16_t value, int bits) { return low16(int64_t{value} * (1 << bits)); }

constexpr int16_t kLumaScale = 19071; // 1.164 of the luma shifted left by 2
constexpr int16_t kRedV = 26149;      // 1.596, V shifted left by 2
constexpr int16_t kGreenU = 25625;    // 0.391, U not shifted
constexpr int16_t kGreenV = 26641;    // 0.813, V shifted left by 1
constexpr int16_t kBlueU = 16532;     // 2.018, U shifted left by 3

} // namespace

State state_from(const ajust_contrast_info& record)
{
    State state;
    state.luma_gain = low16(record.y_gain);
    state.chroma_gain = low16(record.uv_gain);
    state.luma_offset = low16(int64_t{record.y_offset_a} + record.y_offset_b);
    state.u_offset = low16(int64_t{record.u_offset_a} + record.u_offset_b);
    state.v_offset = low16(int64_t{record.v_offset_a} + record.v_offset_b);
    return state;
}

uint8_t adjust(uint8_t sample, int16_t gain, int16_t offset)
{
    const int product = static_cast<uint16_t>(low16(int64_t{sample} * gain));
    return saturate8(saturate16((product >> 6) + offset));
}

uint8_t average(uint8_t a, uint8_t b) { return static_cast<uint8_t>((a + b + 1) >> 1); }

uint8_t blend(uint8_t picture, uint8_t subpicture, uint8_t alpha)
{
    const int16_t weight = saturate16(16 - alpha);
    const int16_t sum = saturate16(low16(int64_t{picture} * weight) + low16(int64_t{subpicture} * alpha));
    return saturate8(static_cast<uint16_t>(sum) >> 4);
}

ChromaTerms chroma_terms(uint8_t u, uint8_t v)
{
    const int16_t du = saturate16(u - 128);
    const int16_t dv = saturate16(v - 128);
    return {mulhi(du, kGreenU), mulhi(shift_left(du, 3), kBlueU), mulhi(shift_left(dv, 1), kGreenV),
            mulhi(shift_left(dv, 2), kRedV)};
}

Rgb to_rgb(uint8_t y, const ChromaTerms& chroma)
{
    const int16_t luma = mulhi(shift_left(saturate16(y - 16), 2), kLumaScale);
    const int16_t less_u = saturate16(luma - chroma.gu);
    return {saturate8(saturate16(luma + chroma.rv)), saturate8(saturate16(less_u - chroma.gv)),
            saturate8(saturate16(luma + chroma.bu))};
}

uint16_t rgb16(const Rgb& pixel, uint32_t layout)
{
    const int r = pixel.r, g = pixel.g, b = pixel.b;
    switch (layout) {
    case 0: return static_cast<uint16_t>((r & 0xF8) << 8 | (g & 0xFC) << 3 | (b & 0xF8) >> 3);
    case 1: return static_cast<uint16_t>((r & 0xF8) << 8 | (g & 0xF8) << 3 | (b & 0xF8) >> 2);
    case 2: return static_cast<uint16_t>((r & 0xFC) << 8 | (g & 0xFC) << 2 | (b & 0xF0) >> 4);
    default: return static_cast<uint16_t>((r & 0xFC) << 8 | (g & 0xF8) << 2 | (b & 0xF8) >> 3);
    }
}

} // namespace model
