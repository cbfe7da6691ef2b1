// SPDX-License-Identifier: MIT
// The choice of an instruction set, made among sets whose answers are known on every machine: when it is published, and
// how the environment variable changes it. The library makes it once, before main; so the build runs this program
// once for each value of the variable.
#include "dispatch/questions.h"
#include "frame/dispatch.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace vsurf {
namespace {

// The set that a call would have met, at each of the questions which sets run here.
constinit const Isa* met[16] = {};
constinit int met_count = 0;

bool answer(bool runs_here)
{
    if (met_count < 16) met[met_count++] = &active_isa();
    return runs_here;
}

} // namespace

bool can_run_absent() { return answer(false); }
bool can_run_best() { return answer(true); }
bool can_run_middle() { return answer(true); }
bool can_run_lowest() { return answer(true); }

#define ISA(name)                 \
    namespace name {              \
    extern const Kernels kernels; \
    const Kernels kernels = {};   \
    }
ISA(absent)
ISA(best)
ISA(middle)
ISA(lowest)
#undef ISA

} // namespace vsurf

namespace {

constinit const char* met_by_early_constructor = nullptr;

// Runs before constructors that have no priority, as the library's does.
__attribute__((constructor(101))) void run_early() { met_by_early_constructor = vsurf::active_isa().name; }

TEST(Choice, is_published_in_one_step)
{
    EXPECT_STREQ(met_by_early_constructor, "lowest");
    ASSERT_GT(vsurf::met_count, 0);
    for (int i = 0; i < vsurf::met_count; ++i) EXPECT_STREQ(vsurf::met[i]->name, "lowest") << "question " << i;
}

TEST(Choice, is_the_best_or_the_one_that_the_environment_names)
{
    const char* variable = std::getenv("VSURF_ISA");
    const std::string wanted = variable ? variable : "";
    const bool runs_here = wanted == "best" || wanted == "middle" || wanted == "lowest";
    EXPECT_EQ(vsurf::active_isa().name, runs_here ? wanted : "best") << "VSURF_ISA is '" << wanted << "'";
}

} // namespace
