// SPDX-License-Identifier: MIT
// The band that is doubled along its edges: every kind of picture in every place of a frame.
#include "harness/exactness.h"

namespace {

using harness::Case;
using harness::Content;
using harness::Pitch;
using harness::Random;

class BandExactness : public harness::Exactness {};

TEST_P(BandExactness, every_content_start_and_mode)
{
    static constexpr Content kContents[] = {Content::kNoise, Content::kExtremes, Content::kNear, Content::kLevels,
                                            Content::kStripes};
    Random random(41);
    for (const Content content : kContents) {
        for (const int pitch : harness::widths(GetParam(), 256)) {
            for (int start = 0; start < 4; ++start) {
                for (const int field_mode : {0, 1}) {
                    if (harness::quick() && !random.one_in(9)) continue;
                    const int lines = random.between(8, 24);
                    Case c = harness::case_of(GetParam(), pitch, lines, Pitch::kTight,
                                              static_cast<Pitch>(random.between(0, 6)), random);
                    c.content = content;
                    c.start = start;
                    c.field_mode = field_mode;
                    if (random.one_in(2)) c.adjustment = harness::unity_adjustment();
                    ASSERT_TRUE(check(c, harness::flush_and_phased(random)));
                }
            }
        }
    }
}

// Lines beyond what is interpolated or buffered at a time, with every rest of blocks.
TEST_P(BandExactness, long_lines)
{
    static constexpr int kPitches[] = {512,  528,  544,  560,  576,  592,  1040, 1072, 4096,
                                       4112, 4128, 4144, 4160, 4624, 8192, 8208, 8256};
    Random random(42);
    for (const int pitch : kPitches) {
        if (harness::quick() && pitch != 560 && pitch != 4144) continue;
        for (const Content content : {Content::kNoise, Content::kNear, Content::kStripes}) {
            for (const Pitch surface : {Pitch::kLines64, Pitch::kTight, Pitch::kOdd}) {
                Case c = harness::case_of(GetParam(), pitch, 8 + random.between(0, 2), Pitch::kTight, surface, random);
                c.content = content;
                ASSERT_TRUE(check(c, harness::flush_and_phased(random)));
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Bands, BandExactness, testing::Values(harness::export_named("strech_opt_yuy2_ajust")),
                         harness::name_of<harness::Export>);

} // namespace
