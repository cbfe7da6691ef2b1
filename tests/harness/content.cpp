// SPDX-License-Identifier: MIT
#include "harness/content.h"

#include "harness/random.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace harness {
namespace {

std::vector<uint8_t> noise(size_t size)
{
    Random random(1);
    std::vector<uint8_t> bytes(size);
    for (size_t i = 0; i + 8 <= size; i += 8) {
        const uint64_t word = random.next();
        std::memcpy(&bytes[i], &word, 8);
    }
    return bytes;
}

template <class Change> std::vector<uint8_t> changed(std::vector<uint8_t> bytes, Change change)
{
    for (uint8_t& byte : bytes) byte = static_cast<uint8_t>(change(byte));
    return bytes;
}

std::vector<uint8_t> weights(size_t size)
{
    return changed(noise(size), [](uint8_t byte) { return byte % 17; });
}

int extreme(uint8_t noise)
{
    static constexpr int kExtremes[8] = {0, 15, 16, 128, 235, 255, 0, 255};
    return kExtremes[noise % 8];
}

// A stretch of one period, then one of another. Neighbouring lines show it shifted by their pitch modulo the period.
std::vector<uint8_t> stripes(size_t size)
{
    static constexpr int kPeriods[] = {31, 47, 33, 65, 15, 49, 97, 62, 18, 79, 34, 23};
    static constexpr size_t kStretch = 1500;
    std::vector<uint8_t> bytes(size);
    for (size_t i = 0; i < size; ++i) {
        const int period = kPeriods[i / kStretch % std::size(kPeriods)];
        const int at = static_cast<int>(i) % period, half = period / 2;
        const int rise = 40 + 20 * static_cast<int>(i / kStretch % 9); // from soft to hard
        bytes[i] =
            static_cast<uint8_t>(at < half ? std::min(30 + rise * at, 220) : std::max(220 - rise * (at - half), 30));
    }
    return bytes;
}

// Runs of up to 60 units of bytes. The last byte of a unit is 0 throughout a run, or 255, or anything.
std::vector<uint8_t> runs(size_t size, size_t unit)
{
    Random random(5);
    std::vector<uint8_t> bytes = noise(size);
    for (size_t at = 0; at < size;) {
        const int kind = random.between(0, 2);
        for (const size_t end = at + unit * static_cast<size_t>(random.between(1, 60)); at < end; at += unit) {
            if (kind != 2 && at + unit <= size) bytes[at + unit - 1] = kind == 0 ? 0 : 255;
        }
    }
    return bytes;
}

// Runs of drawn samples up to this length, opaque, even or varied, among transparent ones, which may fill whole lines.
std::vector<uint8_t> drawn(size_t size, int run)
{
    static constexpr int kGaps[] = {40, 200, 1000, 6000};
    Random random(3);
    std::vector<uint8_t> bytes(size);
    auto length = [&random](int longest) { return static_cast<size_t>(random.between(1, random.between(1, longest))); };
    for (size_t at = 0; at < size; at += length(random.pick(kGaps))) {
        const int weight = random.between(1, 16), kind = random.between(0, 2);
        for (const size_t end = std::min(size, at + length(run)); at < end; ++at) {
            bytes[at] = static_cast<uint8_t>(kind == 0 ? 16 : kind == 1 ? weight : random.between(1, 16));
        }
    }
    return bytes;
}

std::vector<uint8_t> stray(std::vector<uint8_t> bytes)
{
    Random random(4);
    for (size_t at = 0; at < bytes.size(); at += static_cast<size_t>(random.between(1, 400))) {
        bytes[at] = static_cast<uint8_t>(random.between(17, random.pick({17, 18, 255})));
    }
    return bytes;
}

} // namespace

const char* name(Content content)
{
    switch (content) {
    case Content::kNoise: return "noise";
    case Content::kExtremes: return "extremes";
    case Content::kNear: return "near";
    case Content::kLevels: return "levels";
    case Content::kMask: return "mask";
    case Content::kSprites: return "sprites";
    case Content::kTransparent: return "transparent";
    case Content::kWeights: return "weights";
    case Content::kSubtitle: return "subtitle";
    case Content::kDots: return "dots";
    case Content::kOpaque: return "opaque";
    case Content::kStray: return "stray";
    case Content::kHalfScale: return "half scale";
    case Content::kBeyond: return "beyond the scale";
    default: return "stripes";
    }
}

std::vector<uint8_t> bytes_of(Content content, size_t size)
{
    switch (content) {
    case Content::kNoise: return noise(size);
    case Content::kExtremes: return changed(noise(size), extreme);
    case Content::kNear: return changed(noise(size), [](uint8_t byte) { return 100 + byte % 24; });
    case Content::kLevels: return changed(noise(size), [](uint8_t byte) { return 96 + 32 * (byte % 3); });
    case Content::kMask: return runs(size, 1);
    case Content::kSprites: return runs(size, 4);
    case Content::kTransparent: return std::vector<uint8_t>(size, 0);
    case Content::kWeights: return weights(size);
    case Content::kStray: return stray(weights(size));
    case Content::kSubtitle: return drawn(size, 90);
    case Content::kDots: return drawn(size, 1);
    case Content::kOpaque: return std::vector<uint8_t>(size, 16);
    case Content::kHalfScale: return changed(noise(size), [](uint8_t byte) { return byte % 128; });
    case Content::kBeyond: return std::vector<uint8_t>(size, 200);
    default: return stripes(size);
    }
}

} // namespace harness
