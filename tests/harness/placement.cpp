// SPDX-License-Identifier: MIT
#include "harness/placement.h"

#include <sstream>

namespace harness {

std::string describe(const Placement& placement)
{
    const char* page = placement.edge == Edge::kStart ? "after a guard page" : "before a guard page";
    if (!placement.phases) return std::string("touched bytes right ") + page;
    std::ostringstream out;
    out << "the destination at " << placement.phases->destination << " modulo 64, the others by "
        << placement.phases->others << ", touched bytes less than 64 " << page;
    return out.str();
}

std::vector<Placement> flush() { return {{Edge::kStart, std::nullopt}, {Edge::kEnd, std::nullopt}}; }

Placement at_phase(int destination, Random& random)
{
    return {random.one_in(2) ? Edge::kStart : Edge::kEnd, Phases{destination, random.next()}};
}

std::vector<Placement> flush_and_phased(Random& random)
{
    std::vector<Placement> all = flush();
    all.push_back(at_phase(random.between(0, 63), random));
    return all;
}

} // namespace harness
