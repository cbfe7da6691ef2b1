// SPDX-License-Identifier: MIT
// Every export on every instruction set against the model, at every address of its destination modulo 64.
#include "harness/exactness.h"
#include "harness/sweep.h"

namespace {

class PhaseExactness : public harness::Exactness {};
class JobPhaseExactness : public harness::JobsExactness {};

TEST_P(PhaseExactness, every_phase_and_remainder)
{
    const auto wrong = harness::sweep(checker(), GetParam());
    ASSERT_FALSE(wrong) << *wrong;
}

TEST_P(JobPhaseExactness, every_phase_and_remainder)
{
    const auto wrong = harness::sweep(checker(), GetParam());
    ASSERT_FALSE(wrong) << *wrong;
}

INSTANTIATE_TEST_SUITE_P(Exports, PhaseExactness, testing::ValuesIn(harness::exports()),
                         harness::name_of<harness::Export>);
INSTANTIATE_TEST_SUITE_P(Jobs, JobPhaseExactness, testing::ValuesIn(harness::job_exports()),
                         harness::name_of<harness::JobExport>);

} // namespace
