// Every planar loader on every instruction set against the model, over the whole range of small pictures.
#include "harness/checker.h"
#include "harness/effort.h"

#include <gtest/gtest.h>

namespace {

using harness::Case;
using harness::Checker;
using harness::Loader;
using harness::Pitch;
using harness::Placement;
using harness::Random;

constexpr size_t kReach = size_t{1} << 20;

class PlanarExactness : public testing::TestWithParam<Loader> {
protected:
    // Ends the test at the first case that differs: the ones after it would say the same.
    bool check(const Case& c, const std::vector<Placement>& placements)
    {
        if (auto wrong = checker_.run(c, placements)) ADD_FAILURE() << *wrong;
        return !HasFailure();
    }

private:
    Checker checker_{kReach};
};

TEST_P(PlanarExactness, every_width_and_height)
{
    const int cases = harness::by_effort(20, 2);
    for (int width = 0; width <= 160; ++width) {
        for (int height = 0; height <= 20; height += harness::by_effort(1, 1 + (width + height) % 5)) {
            for (int i = 0; i < cases; ++i) {
                const int number = (width * 21 + height) * cases + i;
                const Case c = harness::any_case(GetParam(), width, height, static_cast<uint64_t>(number));
                ASSERT_TRUE(check(c, harness::flush_and_aligned(number % 64)));
            }
        }
    }
}

TEST_P(PlanarExactness, every_pair_of_pitches)
{
    static constexpr int kWidths[] = {0,  1,  7,  8,  15, 16, 17,  20,  24,  31,  32,  33,  40,  47,  48,  56,  63,
                                      64, 65, 72, 80, 95, 96, 104, 111, 112, 120, 127, 128, 129, 136, 144, 145, 160};
    Random random(11);
    for (const int width : kWidths) {
        for (int pair = 0; pair < 100; pair += harness::by_effort(1, 7)) {
            Case c;
            c.loader = &GetParam();
            c.width = width;
            c.height = random.between(0, 14);
            c.y_pitch = harness::source_pitch(GetParam(), width, static_cast<Pitch>(pair % 10), random);
            c.dst_pitch = harness::surface_pitch(GetParam(), width, static_cast<Pitch>(pair / 10), random);
            harness::complete(c, random);
            ASSERT_TRUE(check(c, harness::flush_and_aligned(random.between(0, 63))));
        }
    }
}

TEST_P(PlanarExactness, every_base_alignment)
{
    static constexpr int kWidths[] = {16, 32, 48, 64, 80, 112, 128, 144, 192, 240, 256, 100, 250};
    Random random(12);
    for (const int width : kWidths) {
        for (int alignment = 0; alignment < 64; alignment += harness::by_effort(1, 5)) {
            const Case c = harness::any_case(GetParam(), width, random.between(1, 12), random.next());
            ASSERT_TRUE(check(c, {{Placement::Kind::kInside, alignment}}));
        }
    }
}

// Lines that end in the middle of a block reach over into the next line, so the order of stores shows.
TEST_P(PlanarExactness, tight_lines_that_overlap_the_next)
{
    Random random(13);
    for (int width = 1; width <= 320; width += harness::by_effort(1, 9)) {
        Case c;
        c.loader = &GetParam();
        c.width = width;
        c.height = random.between(1, 12);
        c.y_pitch = harness::source_pitch(GetParam(), width, Pitch::kTight, random);
        c.dst_pitch = harness::surface_pitch(GetParam(), width, Pitch::kTight, random);
        harness::complete(c, random);
        ASSERT_TRUE(check(c, harness::flush_and_aligned(random.between(0, 63))));
        if (!GetParam().signed_pitches) continue;
        c.dst_pitch = -c.dst_pitch;
        ASSERT_TRUE(check(c, harness::flush()));
    }
}

TEST_P(PlanarExactness, wide_pictures)
{
    static constexpr int kWidths[] = {161,  176,  255,  256,  257,  320,  352,  511,  512,  513,  640,
                                      719,  720,  854,  1000, 1023, 1024, 1279, 1280, 1366, 1440, 1919,
                                      1920, 1921, 2048, 2560, 3000, 3840, 4000, 4080, 4095, 4096};
    Random random(14);
    for (const int width : kWidths) {
        for (int i = 0; i < harness::by_effort(30, 1); ++i) {
            const Case c = harness::any_case(GetParam(), width, random.between(0, 10), random.next());
            ASSERT_TRUE(check(c, harness::flush_and_aligned(random.between(0, 63))));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Loaders, PlanarExactness, testing::ValuesIn(harness::loaders()),
                         [](const auto& tested) { return std::string(tested.param.name); });

// A new planar loader in the index must not go untested.
TEST(PlanarIndex, every_loader_has_a_model)
{
    std::vector<std::string> indexed, modelled;
#define EXPORT_(name, params, args) \
    if (std::string(#params).find("y_pitch") != std::string::npos) indexed.push_back(#name);
#include "frame/exports.inc"
#undef EXPORT_
    for (const Loader& loader : harness::loaders()) modelled.push_back(loader.name);
    EXPECT_EQ(indexed, modelled);
}

} // namespace
