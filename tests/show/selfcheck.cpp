// SPDX-License-Identifier: MIT
// The comparison of vsurf_show itself: its model, dressed as the function, passes; each way of spoiling it is caught.
#include "harness/fixture.h"
#include "harness/show_checker.h"
#include "model/show_formats.h"
#include "show/fakes.h"

namespace {

using harness::Edge;
using harness::Phases;
using harness::Placement;
using harness::ShowCase;
using selfcheck::ShowSpoil;

const Placement kRoomAfter = {Edge::kStart, Phases{5}}; // the guard page is on the other side
const Placement kRoomBefore = {Edge::kEnd, Phases{5}};

class ShowSelfcheck : public testing::TestWithParam<vsurf_format> {
protected:
    std::optional<std::string> run(ShowSpoil how, const Placement& placement, int padding = 0)
    {
        harness::Random random(7);
        ShowCase c = harness::show_case(VSURF_NV12, GetParam(), 38, 12, random, {true, false, false, false});
        for (ptrdiff_t& pitch : c.picture.pitch) pitch = 38;
        for (ptrdiff_t& pitch : c.surface.pitch) pitch = 38 * 4 + padding;
        if (padding == 0) c.surface.pitch[0] = line_bytes();
        c.seed |= 1; // planes that there are not fault
        c.overlays = {{VSURF_COVERAGE, 3, 3, 5, 5, nullptr, 5, 0xff00ff00}};
        selfcheck::show_spoil = how;
        return checker().run(c, {placement}, selfcheck::fake_show());
    }

    void expect_difference(ShowSpoil how, const Placement& placement, int padding = 0)
    {
        const auto wrong = run(how, placement, padding);
        ASSERT_TRUE(wrong) << static_cast<int>(how);
        EXPECT_NE(wrong->find("bytes differ in"), std::string::npos) << *wrong;
    }

    void expect_fault(ShowSpoil how, Edge edge)
    {
        EXPECT_DEATH(run(how, {edge, std::nullopt}), "fault at .* in picture .NV12 38x12");
    }

    static int line_bytes() { return static_cast<int>(model::plane_shape(GetParam(), 0, 38, 12).line); }

    static harness::ShowChecker& checker()
    {
        static harness::ShowChecker one(size_t{1} << 16);
        return one;
    }
};

TEST_P(ShowSelfcheck, the_model_equals_itself)
{
    for (const Placement& placement : {harness::flush()[0], harness::flush()[1], kRoomBefore, kRoomAfter}) {
        const auto wrong = run(ShowSpoil::kNothing, placement);
        EXPECT_FALSE(wrong) << *wrong;
    }
}

TEST_P(ShowSelfcheck, wrong_bytes_are_caught)
{
    for (const ShowSpoil how : {ShowSpoil::kWrongHead, ShowSpoil::kLostTail, ShowSpoil::kLostLine}) {
        expect_difference(how, kRoomAfter);
        expect_difference(how, kRoomBefore, 3);
    }
    EXPECT_FALSE(run(ShowSpoil::kNothing, kRoomAfter)) << "a caught difference must not outlive its case";
}

TEST_P(ShowSelfcheck, bytes_outside_the_rectangle_are_caught)
{
    expect_difference(ShowSpoil::kByteInPadding, kRoomAfter, 5);
    expect_difference(ShowSpoil::kByteBefore, kRoomBefore);
    expect_difference(ShowSpoil::kByteBehind, kRoomAfter);
}

TEST_P(ShowSelfcheck, changed_inputs_and_refusals_are_caught)
{
    expect_difference(ShowSpoil::kChangesSource, kRoomAfter);
    EXPECT_TRUE(run(ShowSpoil::kChangesJob, kRoomAfter));
    EXPECT_TRUE(run(ShowSpoil::kRefuses, kRoomAfter));
}

TEST_P(ShowSelfcheck, steps_beyond_the_planes_fault)
{
    expect_fault(ShowSpoil::kByteBefore, Edge::kStart);
    expect_fault(ShowSpoil::kByteBehind, Edge::kEnd);
    expect_fault(ShowSpoil::kReadsTooEarly, Edge::kStart);
    expect_fault(ShowSpoil::kReadsTooFar, Edge::kEnd);
    expect_fault(ShowSpoil::kReadsOverlay, Edge::kStart);
    expect_fault(ShowSpoil::kReadsNoPlane, Edge::kStart);
}

INSTANTIATE_TEST_SUITE_P(Surfaces, ShowSelfcheck,
                         testing::Values(VSURF_I420, VSURF_YUY2, VSURF_BGRX, VSURF_RGB24, VSURF_RGB655),
                         [](const auto& tested) { return std::string(harness::name_of_format(tested.param)); });

} // namespace
