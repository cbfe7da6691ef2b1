// The comparison itself: the model, dressed as a table of loaders, passes; each way of spoiling it is caught.
#include "harness/checker.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using harness::Case;
using harness::Checker;
using harness::Loader;
using harness::Placement;
using harness::Variant;

ajust_contrast_info known_adjustment; // the fakes cannot read the library's state

enum class Spoil {
    kNothing,
    kWrongByte,
    kUnwrittenByte,
    kByteTooMany,
    kByteTooFew,
    kReadsTooFar,
    kReadsTooEarly,
    kChangesSource,
    kChangesRecord,
    kReadsIgnoredRecord,
};

Spoil spoil;

model::Plane unlimited(void* origin)
{
    constexpr int64_t kFar = std::numeric_limits<int64_t>::max() / 2;
    return {static_cast<uint8_t*>(origin), -kFar, kFar};
}

void do_spoil(model::Planes& planes, void* y, void* dst, ajust_contrast_info* info)
{
    auto* to = static_cast<uint8_t*>(dst);
    auto* luma = static_cast<volatile uint8_t*>(y);
    switch (spoil) {
    case Spoil::kWrongByte: to[(planes.dst.low() + planes.dst.high()) / 2] ^= 1; break;
    case Spoil::kUnwrittenByte: to[planes.dst.high() - 1] ^= 0x55; break;
    case Spoil::kByteTooMany: to[planes.dst.high()] ^= 1; break;
    case Spoil::kByteTooFew: to[planes.dst.low() - 1] ^= 1; break;
    case Spoil::kReadsTooFar: static_cast<void>(luma[planes.y.high()]); break;
    case Spoil::kReadsTooEarly: static_cast<void>(luma[planes.y.low() - 1]); break;
    case Spoil::kChangesSource: luma[planes.y.low()] = static_cast<uint8_t>(luma[planes.y.low()] ^ 1); break;
    case Spoil::kChangesRecord: info->reserved ^= 1; break;
    case Spoil::kReadsIgnoredRecord: to[planes.dst.low()] ^= static_cast<uint8_t>(info->reserved | 1); break;
    case Spoil::kNothing: break;
    }
}

#define EXPORT_(name, params, args)                                                                          \
    void fake_##name params                                                                                  \
    {                                                                                                        \
        model::Planes planes = {unlimited(y), unlimited(u), unlimited(v), unlimited(dst)};                   \
        model::name(planes, {width, height, y_pitch, dst_pitch, info, model::state_from(known_adjustment)}); \
        do_spoil(planes, y, dst, info);                                                                      \
    }
#include "frame/exports.inc"
#undef EXPORT_

const vsurf::Kernels kFakes = {
#define EXPORT_(name, params, args) fake_##name,
#include "frame/exports.inc"
#undef EXPORT_
};

const std::vector<Variant> kFakeTables = {{"the model itself", &kFakes}};
const Placement kInside = {Placement::Kind::kInside, 5};

class HarnessSelfcheck : public testing::TestWithParam<Loader> {
protected:
    std::optional<std::string> run(Spoil how, const Placement& placement)
    {
        Case c = harness::any_case(GetParam(), 37, 12, 4);
        c.info.rgb16_layout = 2;
        spoil = how;
        known_adjustment = c.adjustment;
        return checker_.run(c, {placement}, kFakeTables);
    }

    void expect_fault(Spoil how, const Placement& placement)
    {
        EXPECT_DEATH(run(how, placement), std::string("fault at .*") + GetParam().name + " width 37 height 12");
    }

    Checker checker_{size_t{1} << 20};
};

TEST_P(HarnessSelfcheck, the_model_equals_itself)
{
    for (const Placement& placement : harness::flush_and_aligned(7)) {
        const auto wrong = run(Spoil::kNothing, placement);
        EXPECT_FALSE(wrong) << *wrong;
    }
}

TEST_P(HarnessSelfcheck, wrong_bytes_are_caught)
{
    for (const Spoil how : {Spoil::kWrongByte, Spoil::kUnwrittenByte, Spoil::kByteTooMany, Spoil::kByteTooFew}) {
        const auto wrong = run(how, kInside);
        ASSERT_TRUE(wrong);
        EXPECT_NE(wrong->find("1 bytes differ"), std::string::npos) << *wrong;
    }
    EXPECT_FALSE(run(Spoil::kNothing, kInside)) << "a caught difference must not outlive its case";
}

TEST_P(HarnessSelfcheck, changed_inputs_are_caught)
{
    EXPECT_TRUE(run(Spoil::kChangesSource, kInside));
    if (GetParam().reads_layout || GetParam().reads_geometry) {
        EXPECT_TRUE(run(Spoil::kChangesRecord, kInside));
    }
}

TEST_P(HarnessSelfcheck, steps_beyond_the_touched_bytes_fault)
{
    const Placement start = harness::flush()[0], end = harness::flush()[1];
    expect_fault(Spoil::kByteTooMany, end);
    expect_fault(Spoil::kByteTooFew, start);
    expect_fault(Spoil::kReadsTooFar, end);
    expect_fault(Spoil::kReadsTooEarly, start);
    if (!GetParam().reads_layout && !GetParam().reads_geometry) expect_fault(Spoil::kReadsIgnoredRecord, kInside);
}

INSTANTIATE_TEST_SUITE_P(Loaders, HarnessSelfcheck, testing::ValuesIn(harness::loaders()),
                         [](const auto& tested) { return std::string(tested.param.name); });

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
    vsurf::Kernels table = kFakes;
    table.loadimage_rgb32 = line_by_line;
    Checker checker(size_t{1} << 16);
    Case c;
    for (const Loader& loader : harness::loaders()) {
        if (loader.entry == &vsurf::Kernels::loadimage_rgb32) c.loader = &loader;
    }
    c.height = 2;
    for (c.width = 1; c.width <= 64; ++c.width) {
        c.y_pitch = c.width;
        c.dst_pitch = 4 * c.width;
        const bool overlap = c.width % 16 != 0 && c.width > 16; // a single block has nothing to come after it
        EXPECT_EQ(checker.run(c, {kInside}, {{"line by line", &table}}).has_value(), overlap) << c.width;
    }
}

} // namespace
