// SPDX-License-Identifier: MIT
// The comparison of jobs itself: the model, dressed as a table of exports, passes; each way of spoiling it is caught.
#include "harness/exactness.h"
#include "harness/job_record.h"
#include "selfcheck/fakes.h"

#include <algorithm>
#include <cstring>
#include <sstream>

namespace {

using harness::Edge;
using harness::JobCase;
using harness::JobExport;
using harness::JobKind;
using harness::Phases;
using harness::Placement;
using selfcheck::JobSpoil;

const std::vector<harness::Variant> kFakeTables = {{"the model itself", &selfcheck::fakes}};
const Placement kRoomAfter = {Edge::kStart, Phases{5}}; // the guard page is on the other side
const Placement kRoomBefore = {Edge::kEnd, Phases{5}};

std::vector<size_t> sources(JobKind kind)
{
    using namespace harness;
    switch (kind) {
    case JobKind::kConversion:
    case JobKind::kRestore: return {kSurface};
    case JobKind::kAlphaDrawer: return {kAlpha};
    case JobKind::kDrawer: return {kAlpha, kSubpictureY, kSubpictureU, kSubpictureV};
    case JobKind::kFill: return {};
    case JobKind::kMask: return {kPictureY};
    default: return {kPictureY, kPictureU, kPictureV, kAlpha, kSubpictureY, kSubpictureU, kSubpictureV};
    }
}

bool has_record(const JobExport& tested) { return tested.kind != JobKind::kFill && tested.kind != JobKind::kMask; }

class JobSelfcheck : public testing::TestWithParam<JobExport> {
protected:
    JobSelfcheck()
    {
        case_.info.rgb16_layout = 2;
        case_.seed |= 3; // no null pointers
        for (const size_t plane : GetParam().destinations()) used_[plane] = true;
        for (const size_t plane : sources(GetParam().kind)) used_[plane] = true;
    }

    std::optional<std::string> run(JobSpoil how, size_t which = 0, const Placement& placement = kRoomAfter)
    {
        static harness::JobChecker checker(size_t{1} << 20);
        selfcheck::spoilt_job = {how, which};
        selfcheck::known_adjustment = case_.adjustment;
        return checker.run(case_, {placement}, kFakeTables);
    }

    void expect_caught(const std::string& what, JobSpoil how, size_t which = 0)
    {
        const auto wrong = run(how, which, how == JobSpoil::kByteTooFew ? kRoomBefore : kRoomAfter);
        ASSERT_TRUE(wrong) << what;
        EXPECT_NE(wrong->find(what), std::string::npos) << *wrong;
    }

    void expect_fault(JobSpoil how, size_t plane = 0, const Placement& placement = kRoomAfter)
    {
        std::ostringstream call;
        call << "fault at .*" << GetParam().name << " width " << case_.width << " height " << case_.height;
        EXPECT_DEATH(run(how, plane, placement), call.str()) << harness::kPlaneFields[plane].name;
    }

    JobCase case_ = harness::any_job(GetParam(), 37, 12, 4);
    bool used_[harness::kJobPlanes] = {};
};

class RecordSelfcheck : public JobSelfcheck {};

TEST_P(JobSelfcheck, the_model_equals_itself)
{
    for (const Placement& placement : {harness::flush()[0], harness::flush()[1], kRoomBefore, kRoomAfter}) {
        const auto wrong = run(JobSpoil::kNothing, 0, placement);
        EXPECT_FALSE(wrong) << *wrong;
    }
}

TEST_P(JobSelfcheck, wrong_bytes_are_caught_in_every_plane)
{
    for (size_t plane = 0; plane < harness::kJobPlanes; ++plane) {
        if (!used_[plane]) continue;
        for (const JobSpoil how : {JobSpoil::kWrongByte, JobSpoil::kByteTooMany, JobSpoil::kByteTooFew}) {
            expect_caught(std::string("1 bytes differ in ") + harness::kPlaneFields[plane].name + ",", how, plane);
        }
    }
    EXPECT_FALSE(run(JobSpoil::kNothing)) << "a caught difference must not outlive its case";
}

TEST_P(JobSelfcheck, steps_beyond_the_touched_bytes_fault)
{
    const Placement start = harness::flush()[0], end = harness::flush()[1];
    const size_t step = harness::by_effort(size_t{1}, size_t{4}); // a fault takes a process of its own
    for (size_t plane = std::strlen(GetParam().name) % step; plane < harness::kJobPlanes; plane += step) {
        if (used_[plane]) {
            expect_fault(JobSpoil::kReadsTooFar, plane, end);
            expect_fault(JobSpoil::kReadsTooEarly, plane, start);
        } else if (has_record(GetParam())) {
            expect_fault(JobSpoil::kReadsUnused, plane);
        }
    }
}

TEST_P(RecordSelfcheck, every_field_of_the_record_is_compared)
{
    for (size_t plane = 0; plane < harness::kJobPlanes; ++plane) {
        const std::string what = std::string("the record's ") + harness::kPlaneFields[plane].name + " is ";
        expect_caught(what, JobSpoil::kMovesPointer, plane);
    }
    for (size_t number = 0; number < std::size(harness::kNumberFields); ++number) {
        const std::string what = std::string("the record's ") + harness::kNumberFields[number].name + " is ";
        expect_caught(what, JobSpoil::kChangesNumber, number);
    }
    expect_caught("the record's color_key", JobSpoil::kChangesKey);
    expect_caught("the record's contrast_info", JobSpoil::kChangesInfoPointer);
}

TEST_P(RecordSelfcheck, the_adjustments_beside_the_record_are_watched)
{
    if (GetParam().reads_layout) expect_caught("adjustments was changed", JobSpoil::kChangesInfo);
    else expect_fault(JobSpoil::kReadsUnusedInfo);
}

std::vector<JobExport> with_record()
{
    std::vector<JobExport> found = harness::job_exports();
    std::erase_if(found, [](const JobExport& each) { return !has_record(each); });
    return found;
}

INSTANTIATE_TEST_SUITE_P(Jobs, JobSelfcheck, testing::ValuesIn(harness::job_exports()), harness::name_of<JobExport>);
INSTANTIATE_TEST_SUITE_P(Jobs, RecordSelfcheck, testing::ValuesIn(with_record()), harness::name_of<JobExport>);

// Functions that move the record's pointers, and how far those of this region go.
TEST(JobSelfcheckMoves, a_pointer_that_stays_is_caught)
{
    static constexpr const char* kMovers[] = {"Convert_RGB24_To_AYUY2", "mix_ayuy2_half_yuy2_p_ajust",
                                              "mix_ayuy2_yuy2_i_ajust", "mix_ayuy2_rgb32_p_ajust"};
    harness::JobChecker checker(size_t{1} << 16);
    for (const JobExport& each : harness::job_exports()) {
        if (std::find(std::begin(kMovers), std::end(kMovers), std::string(each.name)) == std::end(kMovers)) continue;
        harness::Random random(5);
        const JobCase c = harness::job_of(
            each, 48, 12, {harness::Pitch::kPadded, harness::Pitch::kPadded, harness::Pitch::kPadded}, random);
        selfcheck::known_adjustment = c.adjustment;
        for (size_t plane = 0; plane < harness::kJobPlanes; ++plane) {
            const harness::PlaneField& field = harness::kPlaneFields[plane];
            const bool picture = plane <= harness::kPictureV;
            if (field.moved == nullptr || (picture && each.kind == JobKind::kConversion)) continue;
            selfcheck::spoilt_job = {JobSpoil::kLeavesPointer, plane};
            const auto wrong = checker.run(c, {kRoomAfter}, kFakeTables);
            ASSERT_TRUE(wrong) << each.name << " " << field.name;
            EXPECT_NE(wrong->find(field.name), std::string::npos) << *wrong;
        }
    }
}

} // namespace
