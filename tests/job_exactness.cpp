// SPDX-License-Identifier: MIT
// Every export for subpictures and colour keys on every instruction set against the model.
#include "harness/exactness.h"

#include <algorithm>
#include <iterator>

namespace {

using harness::JobCase;
using harness::JobExport;
using harness::Pitch;
using harness::Random;

class JobExactness : public harness::JobsExactness {
protected:
    static int any_height(Random& random, int highest)
    {
        return random.between(GetParam().sizes.least_height, highest);
    }

    static JobCase any(int width, int height, Random& random)
    {
        return harness::any_job(GetParam(), width, height, random.next());
    }
};

class JobInPlace : public JobExactness {};
class JobBelowZero : public JobExactness {};

TEST_P(JobExactness, every_width_and_height)
{
    Random random(40);
    int number = 0;
    for (const int width : harness::widths(GetParam(), 160)) {
        for (const int height : harness::heights(GetParam(), 20)) {
            if ((width + height) % harness::by_effort(1, 13) != 0) continue;
            for (int i = 0; i < harness::by_effort(2, 1); ++i) {
                const JobCase c = harness::any_job(GetParam(), width, height, static_cast<uint64_t>(++number));
                ASSERT_TRUE(check(c, harness::flush_and_phased(random)));
            }
        }
    }
}

TEST_P(JobExactness, every_pair_of_pitches)
{
    static constexpr int kWidths[] = {8, 15, 16, 17, 32, 40, 48, 64, 72, 96, 100, 128, 144, 160};
    Random random(41);
    for (const int width : kWidths) {
        for (int pair = 0; pair < 100; pair += harness::by_effort(1, 31)) {
            const harness::JobPitches pitches = {
                static_cast<Pitch>(pair % 10), static_cast<Pitch>(random.between(0, 9)), static_cast<Pitch>(pair / 10)};
            const JobCase c = harness::job_of(GetParam(), width, any_height(random, 14), pitches, random);
            ASSERT_TRUE(check(c, harness::flush_and_phased(random)));
        }
    }
}

// Lines that end in the middle of a block reach over into the next line, so the order of stores shows.
TEST_P(JobExactness, lines_that_overlap_the_next)
{
    Random random(43);
    for (int width = 9; width <= 320; width += harness::by_effort(1, 23)) {
        const JobCase c =
            harness::job_of(GetParam(), width, any_height(random, 12),
                            {Pitch::kTight, Pitch::kTight, random.pick({Pitch::kTight, Pitch::kCrowded})}, random);
        ASSERT_TRUE(check(c, harness::flush_and_phased(random)));
    }
}

// Lines and their beginnings that fill whole cache lines, of a strip's length and more.
TEST_P(JobExactness, surfaces_of_whole_cache_lines)
{
    static constexpr int kWidths[] = {16, 64, 80, 128, 192, 256, 320, 1040, 2048, 2064, 2176, 4096, 4160, 4288, 8256};
    Random random(46);
    for (const int width : kWidths) {
        for (int i = 0; i < harness::by_effort(4, 1); ++i) {
            JobCase c =
                harness::job_of(GetParam(), width, any_height(random, width < 500 ? 16 : 6),
                                {harness::any_pitch(random), harness::any_pitch(random), Pitch::kRounded}, random);
            c.surface_pitch = (c.surface_pitch + 127) / 128 * (i % 2 == 0 ? 128 : -128);
            ASSERT_TRUE(check(c, {harness::flush()[0], harness::at_phase(0, random)}));
        }
        if (harness::quick() && width > 256) break;
    }
}

TEST_P(JobExactness, wide_pictures)
{
    static constexpr int kWidths[] = {161,  176,  255,  256,  320,  352,  512,  640,  719,  720,
                                      854,  1000, 1280, 1366, 1920, 1921, 2560, 3840, 4080, 4095,
                                      4096, 4097, 4112, 4128, 4176, 5000, 8192, 8208, 8300};
    Random random(44);
    for (const int width : kWidths) {
        for (int i = 0; i < harness::by_effort(2, 1); ++i) {
            const JobCase c = any(width, any_height(random, 10), random);
            ASSERT_TRUE(check(c, harness::flush_and_phased(random)));
        }
        if (harness::quick() && width > 1000) break;
    }
}

TEST_P(JobInPlace, whole_blocks_at_equal_pitches)
{
    Random random(45);
    for (int width = 16; width <= 800; width += 16 * harness::by_effort(1, 5)) {
        for (const Pitch pitch : {Pitch::kTight, Pitch::kPadded, Pitch::kLines64, Pitch::kOdd}) {
            JobCase c = harness::job_of(GetParam(), width, any_height(random, 12),
                                        {pitch, random.pick({pitch, Pitch::kAny}), pitch}, random);
            c.picture_pitch = c.surface_pitch;
            c.in_place = true;
            ASSERT_TRUE(check(c, harness::flush_and_phased(random)));
        }
    }
}

// One line, one pass, or one strip.
TEST_P(JobBelowZero, sizes_count_as_the_least)
{
    Random random(47);
    for (const int size : {-1, -2, -3, -4, -15, -16, -17, -100, -65536, -0x40000000}) {
        JobCase c = any(48, size, random);
        ASSERT_TRUE(check(c, harness::flush()));
        if (!GetParam().sizes.signed_width) continue;
        c.width = size;
        ASSERT_TRUE(check(c, harness::flush()));
    }
}

auto those_that(bool (*fit)(const JobExport&))
{
    std::vector<JobExport> found;
    std::copy_if(harness::job_exports().begin(), harness::job_exports().end(), std::back_inserter(found), fit);
    return testing::ValuesIn(found);
}

bool works_in_place(const JobExport& tested) { return tested.works_in_place(); }

bool has_signed_height(const JobExport& tested) { return tested.sizes.least_height < 0; }

INSTANTIATE_TEST_SUITE_P(Jobs, JobExactness, testing::ValuesIn(harness::job_exports()), harness::name_of<JobExport>);
INSTANTIATE_TEST_SUITE_P(Jobs, JobInPlace, those_that(works_in_place), harness::name_of<JobExport>);
INSTANTIATE_TEST_SUITE_P(Jobs, JobBelowZero, those_that(has_signed_height), harness::name_of<JobExport>);

} // namespace
