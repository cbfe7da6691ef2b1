// SPDX-License-Identifier: MIT
// What the comparisons of vsurf_show with its model share.
#pragma once
#include "harness/effort.h"
#include "harness/show_checker.h"

#include <gtest/gtest.h>

namespace show_test {

inline harness::Placement any_placement(harness::Random& random)
{
    if (random.one_in(2)) return harness::at_phase(random.between(0, 63), random);
    return random.pick({harness::flush()[0], harness::flush()[1]});
}

// From every picture format to every surface format. A test ends at the first case that differs.
class EveryPair : public testing::TestWithParam<std::tuple<vsurf_format, vsurf_format>> {
protected:
    explicit EveryPair(harness::ShowChecker& checker) : checker_(checker) {}

    static vsurf_format picture() { return std::get<0>(GetParam()); }
    static vsurf_format surface() { return std::get<1>(GetParam()); }

    // 0 to 74.
    static int number() { return 15 * (picture() - VSURF_I420) + surface() - VSURF_I420; }

    bool check(const harness::ShowCase& c, const harness::Placement& placement)
    {
        if (auto wrong = checker_.run(c, {placement})) ADD_FAILURE() << *wrong;
        return !HasFailure();
    }

private:
    harness::ShowChecker& checker_;
};

inline std::string name_of_pair(const testing::TestParamInfo<std::tuple<vsurf_format, vsurf_format>>& tested)
{
    return std::string(harness::name_of_format(std::get<0>(tested.param))) + "_to_" +
           harness::name_of_format(std::get<1>(tested.param));
}

#define VSURF_SHOW_EVERY_PAIR(suite)                                                          \
    INSTANTIATE_TEST_SUITE_P(Formats, suite,                                                  \
                             testing::Combine(testing::ValuesIn(harness::picture_formats()),  \
                                              testing::ValuesIn(harness::surface_formats())), \
                             show_test::name_of_pair)

} // namespace show_test
