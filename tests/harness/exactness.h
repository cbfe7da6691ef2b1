// SPDX-License-Identifier: MIT
// What the comparisons of every export share.
#pragma once
#include "harness/checker.h"
#include "harness/effort.h"

#include <gtest/gtest.h>

namespace harness {

class Exactness : public testing::TestWithParam<Export> {
protected:
    // Ends the test at the first case that differs: the ones after it would say the same.
    bool check(const Case& c, const std::vector<Placement>& placements)
    {
        if (auto wrong = checker_.run(c, placements)) ADD_FAILURE() << *wrong;
        return !HasFailure();
    }

    // A case of chosen pitches, the rest random.
    static Case case_of(int width, int height, Pitch source, Pitch surface, Random& random)
    {
        Case c;
        c.tested = &GetParam();
        c.width = width;
        c.height = height;
        c.y_pitch = source_pitch(GetParam(), width, source, random);
        c.dst_pitch = surface_pitch(GetParam(), width, surface, random);
        complete(c, random);
        return c;
    }

private:
    Checker checker_{size_t{1} << 20};
};

inline std::string name_of(const testing::TestParamInfo<Export>& tested) { return tested.param.name; }

} // namespace harness
