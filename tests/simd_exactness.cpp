// SPDX-License-Identifier: MIT
// The vector layer: every operation at every width of every instruction set against plain loops.
#include "harness/effort.h"
#include "harness/random.h"
#include "harness/variants.h"
#include "simd/operation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <map>

// The build lists the sets whose operations it holds: SET(avx2) SET(sse2).
#define SET(name)                                      \
    namespace vsurf::name {                            \
    extern const simd_test::OperationLists operations; \
    }
VSURF_TEST_SETS
#undef SET

namespace {

using harness::Random;
using simd_test::Operation;
using simd_test::OperationLists;

struct Tested {
    std::string set;
    Operation operation;
};

void PrintTo(const Tested& tested, std::ostream* out) { *out << tested.set << ' ' << tested.operation.name; }

const std::map<std::string, const OperationLists*>& sets()
{
#define SET(name) {#name, &vsurf::name::operations},
    static const std::map<std::string, const OperationLists*> all = {VSURF_TEST_SETS};
#undef SET
    return all;
}

// Of the sets that run here.
std::vector<Tested> every_operation()
{
    std::vector<Tested> all;
    for (const harness::Variant& table : harness::variants()) {
        const auto set = sets().find(table.name);
        if (set == sets().end()) continue;
        for (int i = 0; i < set->second->count; ++i) {
            const simd_test::Operations& list = set->second->first[i];
            for (int j = 0; j < list.count; ++j) all.push_back({set->first, list.first[j]});
        }
    }
    return all;
}

struct alignas(64) Operands {
    uint8_t bytes[size_t{simd_test::kOperands} * simd_test::kOperandBytes] = {};
};

// Every pair of bytes: one operand counts, in steps of 16 for the narrowest register, the other is the same throughout.
constexpr int kPairs = 16 * 256;
Operands pairs(int number)
{
    Operands made;
    for (int i = 0; i < simd_test::kOperandBytes; ++i) {
        made.bytes[i] = static_cast<uint8_t>(number % 16 * 16 + i);
        made.bytes[simd_test::kOperandBytes + i] = static_cast<uint8_t>(number / 16);
    }
    return made;
}

Operands noise(Random& random)
{
    Operands made;
    for (uint8_t& byte : made.bytes) byte = static_cast<uint8_t>(random.next());
    return made;
}

// Numbers around which arithmetic turns, and some others.
template <class Number> Operands extremes(Random& random, std::initializer_list<Number> likely)
{
    Operands made;
    for (size_t i = 0; i < sizeof made; i += sizeof(Number)) {
        const uint64_t noise = random.next();
        const Number value =
            noise % 8 == 0 ? static_cast<Number>(noise >> 8) : likely.begin()[noise / 8 % likely.size()];
        std::memcpy(made.bytes + i, &value, sizeof value);
    }
    return made;
}

Operands any_operands(Random& random)
{
    switch (random.between(0, 3)) {
    case 0: return noise(random);
    case 1: return extremes<uint8_t>(random, {0, 1, 2, 15, 16, 17, 127, 128, 129, 235, 254, 255});
    case 2:
        return extremes<int16_t>(random, {0,    1,    -1,   2,      127,   128,   129,    254,    255,   256,   257,
                                          -128, -255, -256, 0x7f00, 32766, 32767, -32768, -32767, 16384, -16384});
    default:
        return extremes<int32_t>(random, {0, 1, -1, 127, 128, 254, 255, 256, 32767, 32768, 65535, 65536, -32768, -32769,
                                          INT32_MAX, INT32_MIN, INT32_MIN + 1, 1 << 30});
    }
}

const std::vector<Operands>& trials()
{
    static const std::vector<Operands> all = [] {
        std::vector<Operands> made;
        Random random(71);
        for (int number = 0; number < kPairs; ++number) made.push_back(pairs(number));
        for (int i = 0; i < harness::by_effort(60000, 4000); ++i) made.push_back(any_operands(random));
        return made;
    }();
    return all;
}

// What went wrong, or nothing.
std::string run(const Operation& operation, const Operands& operands, int number)
{
    struct alignas(64) Result {
        uint8_t bytes[simd_test::kResultBytes];
    } is, expected;
    std::memset(is.bytes, 0x5A + number % 2, sizeof is);
    expected = is;
    operation.run({operands.bytes, is.bytes, expected.bytes, number});
    if (std::memcmp(is.bytes, expected.bytes, sizeof is) == 0) return {};
    const auto [at, wanted] = std::mismatch(std::begin(is.bytes), std::end(is.bytes), std::begin(expected.bytes));
    return "byte " + std::to_string(at - is.bytes) + " of the result is " + std::to_string(*at) + " instead of " +
           std::to_string(*wanted) + ", trial " + std::to_string(number);
}

class SimdExactness : public testing::TestWithParam<Tested> {};

TEST_P(SimdExactness, equals_its_loop)
{
    for (size_t number = 0; number < trials().size(); ++number) {
        ASSERT_EQ(run(GetParam().operation, trials()[number], static_cast<int>(number)), "");
    }
}

std::string name_of(const testing::TestParamInfo<Tested>& tested)
{
    const Operation& operation = tested.param.operation;
    const std::string variant = operation.variant[0] == 0 ? "" : std::string("_") + operation.variant;
    return tested.param.set + "_" + operation.name + variant + "_of_" + std::to_string(operation.width);
}

TEST(SimdSets, belong_to_every_table)
{
    for (const harness::Variant& table : harness::variants()) {
        const std::string set = table.name.substr(0, table.name.find("_streaming"));
        EXPECT_EQ(sets().count(set), 1U) << set;
    }
}

INSTANTIATE_TEST_SUITE_P(Operations, SimdExactness, testing::ValuesIn(every_operation()), name_of);

} // namespace
