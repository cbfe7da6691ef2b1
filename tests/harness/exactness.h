// SPDX-License-Identifier: MIT
// What the comparisons of every export share.
#pragma once
#include "harness/checker.h"
#include "harness/effort.h"
#include "harness/job_checker.h"

#include <gtest/gtest.h>

namespace harness {

template <class Export, class Checker> class ExactnessOf : public testing::TestWithParam<Export> {
protected:
    // Ends the test at the first case that differs: the ones after it would say the same.
    template <class Case> bool check(const Case& c, const std::vector<Placement>& placements)
    {
        if (auto wrong = checker().run(c, placements)) ADD_FAILURE() << *wrong;
        return !this->HasFailure();
    }

    static Checker& checker()
    {
        static Checker one(size_t{1} << 21);
        return one;
    }
};

using Exactness = ExactnessOf<Export, Checker>;
using JobsExactness = ExactnessOf<JobExport, JobChecker>;

template <class Export> std::string name_of(const testing::TestParamInfo<Export>& tested) { return tested.param.name; }

} // namespace harness
