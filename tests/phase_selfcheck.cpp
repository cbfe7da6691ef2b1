// SPDX-License-Identifier: MIT
// What is wrong at the ends of lines is caught: the sweep over all phases finds each kind, however rare.
#include "harness/exactness.h"
#include "harness/sweep.h"
#include "selfcheck/broken_lines.h"
#include "selfcheck/fakes.h"

#include <algorithm>

namespace {

using harness::Arena;
using harness::Edge;
using harness::Export;
using harness::JobExport;
using selfcheck::Break;
using selfcheck::BrokenLine;

size_t destinations(const Export&) { return 1; }
size_t destinations(const JobExport& tested) { return tested.destinations().size(); }
int width_step(const Export& tested) { return tested.sizes.width_step; }
int width_step(const JobExport&) { return 1; }

template <class Fixture> class BrokenLines : public Fixture {
protected:
    ~BrokenLines() override { selfcheck::broken_line = {}; }

    std::optional<std::string> run(const BrokenLine& broken, size_t most_points = SIZE_MAX)
    {
        selfcheck::spoil = selfcheck::Spoil::kNothing;
        selfcheck::spoilt_job = {};
        selfcheck::broken_line = broken;
        const auto fake = selfcheck::breaking(this->GetParam());
        harness::Random random(61);
        auto points = harness::sweep_points(this->GetParam(), random);
        points.resize(std::min(points.size(), most_points));
        return harness::sweep(this->checker(), fake, points, random, {{"broken", &selfcheck::fakes}});
    }

    void expect_caught(const BrokenLine& broken)
    {
        const auto wrong = run(broken);
        ASSERT_TRUE(wrong) << static_cast<int>(broken.how) << " of destination " << broken.destination;
        EXPECT_NE(wrong->find("bytes differ"), std::string::npos) << *wrong;
    }

    void whole_lines_pass()
    {
        const auto wrong = run({}, 100);
        EXPECT_FALSE(wrong) << *wrong;
    }

    void ends_are_compared()
    {
        for (size_t i = 0; i < destinations(this->GetParam()); ++i) {
            for (const Break how :
                 {Break::kWrongHead, Break::kLostTail, Break::kByteBehind, Break::kUpperLost, Break::kLowerLost}) {
                expect_caught({how, i});
            }
        }
    }

    // At a single phase and a single remainder.
    void pairs_are_visited()
    {
        harness::Random random(62);
        for (int i = 0; i < harness::by_effort(3, 1); ++i) {
            const int step = width_step(this->GetParam()), phase = random.between(0, 63);
            expect_caught({Break::kWrongByte, 0, phase, step * random.between(0, 64 / step - 1)});
        }
    }
};

class BrokenLinesOfLoads : public BrokenLines<harness::Exactness> {};
class BrokenLinesOfJobs : public BrokenLines<harness::JobsExactness> {};

TEST_P(BrokenLinesOfLoads, whole_lines_pass) { whole_lines_pass(); }
TEST_P(BrokenLinesOfLoads, ends_are_compared) { ends_are_compared(); }
TEST_P(BrokenLinesOfLoads, pairs_are_visited) { pairs_are_visited(); }
TEST_P(BrokenLinesOfJobs, whole_lines_pass) { whole_lines_pass(); }
TEST_P(BrokenLinesOfJobs, ends_are_compared) { ends_are_compared(); }
TEST_P(BrokenLinesOfJobs, pairs_are_visited) { pairs_are_visited(); }

INSTANTIATE_TEST_SUITE_P(Exports, BrokenLinesOfLoads, testing::ValuesIn(harness::exports()), harness::name_of<Export>);
INSTANTIATE_TEST_SUITE_P(Jobs, BrokenLinesOfJobs, testing::ValuesIn(harness::job_exports()),
                         harness::name_of<JobExport>);

TEST(Placements, lie_at_their_phase_close_to_a_guard_page)
{
    const Arena arena(size_t{1} << 12);
    for (int size = 1; size <= 200; ++size) {
        for (int phase = 0; phase < 64; ++phase) {
            uint8_t* const first = arena.place(-7, size - 7, Edge::kStart, phase);
            uint8_t* const last = arena.place(-7, size - 7, Edge::kEnd, phase);
            EXPECT_EQ(reinterpret_cast<uintptr_t>(first) % 64, static_cast<uintptr_t>(phase));
            EXPECT_EQ(reinterpret_cast<uintptr_t>(last) % 64, static_cast<uintptr_t>(phase));
            EXPECT_TRUE(first - 7 >= arena.begin() && first - 7 < arena.begin() + 64);
            EXPECT_TRUE(last - 7 + size <= arena.end() && last - 7 + size > arena.end() - 64);
        }
    }
}

TEST(Placements, bring_every_plane_to_every_phase)
{
    for (size_t plane = 0; plane < harness::kJobPlanes; ++plane) {
        uint64_t seen = 0;
        for (int phase = 0; phase < 64; ++phase) seen |= uint64_t{1} << harness::Phases{phase, 0x123456789}.of(plane);
        EXPECT_EQ(seen, UINT64_MAX) << plane;
    }
}

} // namespace
