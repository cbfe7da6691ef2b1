// One call of one loader: everything that decides its result.
#pragma once
#include "harness/loaders.h"
#include "harness/random.h"

#include <string>
#include <vector>

namespace harness {

enum class Content { kNoise, kExtremes };

struct Case {
    const Loader* loader = nullptr;
    int width = 0, height = 0, y_pitch = 0, dst_pitch = 0;
    ajust_contrast_info info = {};       // the record that the loader gets
    ajust_contrast_info adjustment = {}; // the record that `get_contrast_data` got before
    Content content = Content::kNoise;
    uint64_t seed = 0; // which stretch of the content each plane shows
};

std::string describe(const Case& c);

int rounded(int width);                          // to whole blocks of 16
int line_bytes(const Loader& loader, int width); // of the destination, for the stated width

// How the pitches of a case relate to its width.
enum class Pitch { kTight, kRounded, kPadded, kLines64, kOdd, kNegative, kNegativeOdd, kCrowded, kAny, kZero };

int source_pitch(const Loader& loader, int width, Pitch pitch, Random& random);
int surface_pitch(const Loader& loader, int width, Pitch pitch, Random& random);

// Adjustments from plausible to absurd; every field beyond its low 16 bits is noise in some of them.
ajust_contrast_info any_adjustment(Random& random);
ajust_contrast_info unity_adjustment();

// A case with random pitches, adjustment, layout, surface geometry and content.
Case any_case(const Loader& loader, int width, int height, uint64_t seed);

// Fills in what a given geometry leaves open.
void complete(Case& c, Random& random);

} // namespace harness
