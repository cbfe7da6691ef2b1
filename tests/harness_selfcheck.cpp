// SPDX-License-Identifier: MIT
// The comparison itself: the model, dressed as a table of exports, passes; each way of spoiling it is caught.
#include "harness/exactness.h"
#include "model/planar.h"
#include "selfcheck/fakes.h"

#include <sstream>

namespace {

using harness::Case;
using harness::Checker;
using harness::Edge;
using harness::Export;
using harness::Phases;
using harness::Placement;
using harness::Variant;
using selfcheck::Spoil;
using selfcheck::unlimited;

const std::vector<Variant> kFakeTables = {{"the model itself", &selfcheck::fakes}};
const Placement kRoomAfter = {Edge::kStart, Phases{5}}; // the guard page is on the other side
const Placement kRoomBefore = {Edge::kEnd, Phases{5}};

class HarnessSelfcheck : public testing::TestWithParam<Export> {
protected:
    std::optional<std::string> run(Spoil how, const Placement& placement)
    {
        Case c = harness::any_case(GetParam(), width(), height(), 4);
        c.info.rgb16_layout = 2;
        selfcheck::spoil = how;
        selfcheck::known_adjustment = c.adjustment;
        return checker_.run(c, {placement}, kFakeTables);
    }

    void expect_fault(Spoil how, const Placement& placement)
    {
        std::ostringstream call;
        call << "fault at .*" << GetParam().name << " width " << width() << " height " << height();
        EXPECT_DEATH(run(how, placement), call.str());
    }

    static int width() { return harness::legal_width(GetParam(), 37); }
    static int height() { return harness::legal_height(GetParam(), 12); }
    static bool reads_record() { return GetParam().reads_layout || GetParam().reads_geometry; }
    static bool has_frame() { return GetParam().family == harness::Family::kBand; }

    Checker checker_{size_t{1} << 20};
};

TEST_P(HarnessSelfcheck, the_model_equals_itself)
{
    for (const Placement& placement : {harness::flush()[0], harness::flush()[1], kRoomBefore, kRoomAfter}) {
        const auto wrong = run(Spoil::kNothing, placement);
        EXPECT_FALSE(wrong) << *wrong;
    }
}

TEST_P(HarnessSelfcheck, wrong_bytes_are_caught)
{
    for (const Spoil how : {Spoil::kWrongByte, Spoil::kUnwrittenByte, Spoil::kByteTooMany, Spoil::kByteTooFew}) {
        const auto wrong = run(how, how == Spoil::kByteTooFew ? kRoomBefore : kRoomAfter);
        ASSERT_TRUE(wrong);
        EXPECT_NE(wrong->find("1 bytes differ"), std::string::npos) << *wrong;
    }
    EXPECT_FALSE(run(Spoil::kNothing, kRoomAfter)) << "a caught difference must not outlive its case";
}

TEST_P(HarnessSelfcheck, changed_inputs_are_caught)
{
    EXPECT_TRUE(run(Spoil::kChangesSource, kRoomAfter));
    if (reads_record()) {
        EXPECT_TRUE(run(Spoil::kChangesRecord, kRoomAfter));
    }
    if (has_frame()) {
        EXPECT_TRUE(run(Spoil::kChangesFrame, kRoomAfter));
    }
}

TEST_P(HarnessSelfcheck, steps_beyond_the_touched_bytes_fault)
{
    const Placement start = harness::flush()[0], end = harness::flush()[1];
    expect_fault(Spoil::kByteTooMany, end);
    expect_fault(Spoil::kByteTooFew, start);
    expect_fault(Spoil::kReadsTooFar, end);
    expect_fault(Spoil::kReadsTooEarly, start);
}

TEST_P(HarnessSelfcheck, looks_at_ignored_arguments_fault)
{
    const std::string name = GetParam().name;
    if (!reads_record()) expect_fault(Spoil::kReadsIgnoredRecord, kRoomAfter);
    if (name.starts_with("LoadYUY2") || name.starts_with("yuy2_")) expect_fault(Spoil::kReadsIgnoredPlane, kRoomAfter);
    if (has_frame()) expect_fault(Spoil::kReadsBeyondFrame, kRoomAfter);
}

INSTANTIATE_TEST_SUITE_P(Exports, HarnessSelfcheck, testing::ValuesIn(harness::exports()), harness::name_of<Export>);

// A new export in the index must not go untested.
TEST(HarnessIndex, every_export_has_a_model)
{
    const std::vector<std::string> indexed = {
#define EXPORT(name, call) #name,
#include "frame/exports.inc"
#undef EXPORT
    };
    std::vector<std::string> modelled;
    for (const Export& each : harness::exports()) modelled.push_back(each.name);
    for (const harness::JobExport& each : harness::job_exports()) modelled.push_back(each.name);
    EXPECT_EQ(indexed, modelled);
}

// Writes a pass line by line instead of block by block; the difference shows only where the lines overlap.
void line_by_line(void* y, void* u, void* v, void* dst, int width, int, int y_pitch, int dst_pitch,
                  ajust_contrast_info*)
{
    model::Planes both = {unlimited(y), unlimited(u), unlimited(v), unlimited(dst)};
    model::loadimage_rgb32(both, {width, 2, y_pitch, dst_pitch, nullptr, {}});
    model::Planes second = {unlimited(static_cast<uint8_t*>(y) + y_pitch), unlimited(u), unlimited(v),
                            unlimited(static_cast<uint8_t*>(dst) + dst_pitch)};
    model::loadimage_rgb32(second, {width, 2, 0, 0, nullptr, {}});
}

TEST(HarnessSelfcheckOrder, the_order_of_stores_shows_where_lines_overlap)
{
    vsurf::Kernels table = selfcheck::fakes;
    table.loadimage_rgb32 = line_by_line;
    Checker checker(size_t{1} << 16);
    Case c;
    c.tested = &harness::export_named("loadimage_rgb32");
    c.height = 2;
    for (c.width = 1; c.width <= 64; ++c.width) {
        c.y_pitch = c.width;
        c.dst_pitch = 4 * c.width;
        const bool overlap = c.width % 16 != 0 && c.width > 16; // a single block has nothing to come after it
        EXPECT_EQ(checker.run(c, {kRoomAfter}, {{"line by line", &table}}).has_value(), overlap) << c.width;
    }
}

} // namespace
