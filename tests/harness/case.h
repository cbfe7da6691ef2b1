// SPDX-License-Identifier: MIT
// One call of one export: everything that decides its result.
#pragma once
#include "harness/content.h"
#include "harness/exports.h"
#include "harness/random.h"

#include <string>
#include <vector>

namespace harness {

struct Case {
    const Export* tested = nullptr;
    int width = 0, height = 0, y_pitch = 0, dst_pitch = 0; // of a band: its frame's pitch, its lines, the same pitch
    int plane = 1;                                         // of a single plane: the number that chooses its offset
    int start = 0, field_mode = 0;                         // of a band
    ajust_contrast_info info = {};                         // the record that the call gets
    ajust_contrast_info adjustment = {};                   // the record that `get_contrast_data` got before
    Content content = Content::kNoise;
    uint64_t seed = 0; // which stretch of the content each plane shows
};

std::string describe(const Case& c);

int rounded(int width);                          // to whole blocks of 16
int line_bytes(const Export& tested, int width); // of the destination, for the stated width

// The legal sizes up to a limit, and the next legal one from one on.
std::vector<int> widths(const Export& tested, int widest);
std::vector<int> heights(const Export& tested, int highest);
int legal_width(const Export& tested, int width);
int legal_height(const Export& tested, int height);

// How the pitches of a case relate to its width.
enum class Pitch {
    kTight,
    kRounded,
    kPadded,
    kLines64,
    kOdd,
    kNegative,
    kNegativeOdd,
    kCrowded,
    kAny,
    kZero,
    kAbove,
    kNegativeAbove
};

// A pitch for lines of `tight` bytes as stated, of `whole` bytes in whole blocks.
int pitch_for(int tight, int whole, Pitch pitch, Random& random);

int source_pitch(const Export& tested, int width, Pitch pitch, Random& random);
int surface_pitch(const Export& tested, int width, Pitch pitch, Random& random);

// Adjustments from plausible to absurd; every field beyond its low 16 bits is noise in some of them.
ajust_contrast_info any_adjustment(Random& random);
ajust_contrast_info unity_adjustment();

// The record that is passed to a call: it holds another adjustment than the state, and at times a layout that there is
// not.
ajust_contrast_info any_record(Random& random);

// One of the pitches, the usual ones more often than others.
Pitch any_pitch(Random& random);

// A case with random pitches, adjustment, layout, surface geometry and content.
Case any_case(const Export& tested, int width, int height, uint64_t seed);

// Fills in what a given geometry leaves open.
void complete(Case& c, Random& random);

// A case of chosen pitches, the rest random.
Case case_of(const Export& tested, int width, int height, Pitch source, Pitch surface, Random& random);

} // namespace harness
