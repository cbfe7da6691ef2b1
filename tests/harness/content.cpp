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

} // namespace

const char* name(Content content)
{
    switch (content) {
    case Content::kNoise: return "noise";
    case Content::kExtremes: return "extremes";
    case Content::kNear: return "near";
    case Content::kLevels: return "levels";
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
    default: return stripes(size);
    }
}

} // namespace harness
