// SPDX-License-Identifier: MIT
// Surfaces large enough for other ways of storing: whole cache lines past the caches, whatever the alignment.
#include "harness/exactness.h"
#include "harness/job_checker.h"

namespace {

using harness::Case;
using harness::Checker;
using harness::Export;
using harness::JobExport;
using harness::Pitch;
using harness::Placement;
using harness::Random;

constexpr size_t kReach = size_t{24} << 20;

struct Size {
    int width, height;
};

// Of a loader, of an enlarger.
const std::vector<Size> kSizes[] = {
    {{720, 576},
     {1920, 64},
     {3840, 40},
     {1366, 200},
     {1368, 200},
     {1000, 301},
     {1920, 1080},
     {4096, 80},
     {2047, 90},
     {656, 300}},
    {{1920, 82}, {640, 240}, {976, 160}, {720, 288}},
};

// What to add to a line's bytes for its pitch: lines stay aligned as the base is, or wander.
constexpr int kPadding[] = {0, 64, 32, 16, 8, 1, 48};
constexpr int kAlignments[] = {0, 32, 16, 48, 8, 4, 1, 63};

Checker& checker()
{
    static Checker one(kReach);
    return one;
}

std::vector<Placement> any_placements(Random& random)
{
    const Placement phased = harness::at_phase(random.pick(kAlignments), random);
    return {phased, random.pick({harness::flush()[0], harness::flush()[1]})};
}

class LargeSurfaces : public testing::TestWithParam<Export> {};

TEST_P(LargeSurfaces, every_kind_of_alignment)
{
    Random random(21);
    const Export& tested = GetParam();
    const std::vector<Size>& sizes = kSizes[tested.family == harness::Family::kLoader ? 0 : 1];
    const size_t step = harness::by_effort(size_t{1}, sizes.size() - 1);
    for (size_t s = 1; s < sizes.size() + 1; s += step) {
        const Size& size = sizes[s % sizes.size()];
        for (const int padding : kPadding) {
            // The largest size by the model takes as long as all others.
            if ((harness::quick() || size.height > 1000) && padding != 0 && padding != 16) continue;
            Case c;
            c.tested = &tested;
            c.width = harness::legal_width(tested, size.width);
            c.height = size.height;
            c.y_pitch = harness::source_pitch(tested, c.width, random.pick({Pitch::kRounded, Pitch::kPadded}), random);
            const int line = harness::line_bytes(tested, harness::rounded(c.width));
            c.dst_pitch = (padding == 0 ? line : (line + 63) / 64 * 64 + padding);
            if (tested.signed_pitches && random.one_in(5)) c.dst_pitch = -c.dst_pitch;
            harness::complete(c, random);
            const auto wrong = checker().run(c, any_placements(random));
            ASSERT_FALSE(wrong) << *wrong;
        }
    }
}

// Pitches below a line's stores: the order of stores decides, in large surfaces as in small ones.
TEST_P(LargeSurfaces, lines_that_overlap)
{
    if (GetParam().family != harness::Family::kLoader) GTEST_SKIP() << "enlarged lines may not overlap";
    Random random(22);
    static constexpr Size kOdd[] = {{1915, 600}, {1366, 768}, {3825, 300}, {1001, 1001}, {719, 577}};
    for (const Size& size : kOdd) {
        if (harness::quick() && size.height != 300) continue;
        Case c;
        c.tested = &GetParam();
        c.width = size.width;
        c.height = size.height;
        c.y_pitch = size.width;
        c.dst_pitch = harness::line_bytes(GetParam(), size.width);
        harness::complete(c, random);
        const auto wrong = checker().run(c, {harness::at_phase(random.pick(kAlignments), random)});
        ASSERT_FALSE(wrong) << *wrong;
    }
}

class LargeJobs : public testing::TestWithParam<JobExport> {};

TEST_P(LargeJobs, every_kind_of_alignment)
{
    static harness::JobChecker jobs(size_t{4} << 20);
    static constexpr Size kJobSizes[] = {{1920, 144}, {976, 280}, {720, 400}, {4112, 72}};
    Random random(23);
    for (const Size& size : kJobSizes) {
        for (const int padding : {0, 64, 16}) {
            if (harness::quick() && (size.width != 976 || padding == 0)) continue;
            const Pitch planes = random.pick({Pitch::kRounded, Pitch::kPadded});
            harness::JobCase c = harness::job_of(GetParam(), size.width, size.height, {planes, planes, planes}, random);
            const int line = size.width * GetParam().pixel_bytes;
            c.surface_pitch = padding == 0 ? line : (line + 63) / 64 * 64 + padding;
            if (random.one_in(5)) c.surface_pitch = -c.surface_pitch;
            const auto wrong = jobs.run(c, any_placements(random));
            ASSERT_FALSE(wrong) << *wrong;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Exports, LargeSurfaces, testing::ValuesIn(harness::exports()), harness::name_of<Export>);
INSTANTIATE_TEST_SUITE_P(Jobs, LargeJobs, testing::ValuesIn(harness::job_exports()), harness::name_of<JobExport>);

} // namespace
