// SPDX-License-Identifier: MIT
// Every export on every instruction set against the model, at every address of its destination modulo 64.
#include "harness/exactness.h"
#include "harness/sweep.h"

namespace {

using harness::Random;

template <class Fixture> class Phases : public Fixture {
protected:
    void check_all(const std::vector<harness::SweepPoint>& points, Random& random)
    {
        const auto wrong = harness::sweep(this->checker(), this->GetParam(), points, random);
        ASSERT_FALSE(wrong) << *wrong;
    }

    void every_phase_and_remainder()
    {
        Random random(61);
        check_all(harness::sweep_points(this->GetParam(), random), random);
    }

    void long_lines()
    {
        Random random(63);
        check_all(harness::long_points(random), random);
    }
};

class PhaseExactness : public Phases<harness::Exactness> {};
class JobPhaseExactness : public Phases<harness::JobsExactness> {};

TEST_P(PhaseExactness, every_phase_and_remainder) { every_phase_and_remainder(); }
TEST_P(PhaseExactness, long_lines) { long_lines(); }
TEST_P(JobPhaseExactness, every_phase_and_remainder) { every_phase_and_remainder(); }
TEST_P(JobPhaseExactness, long_lines) { long_lines(); }

INSTANTIATE_TEST_SUITE_P(Exports, PhaseExactness, testing::ValuesIn(harness::exports()),
                         harness::name_of<harness::Export>);
INSTANTIATE_TEST_SUITE_P(Jobs, JobPhaseExactness, testing::ValuesIn(harness::job_exports()),
                         harness::name_of<harness::JobExport>);

} // namespace
