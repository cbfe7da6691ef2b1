// SPDX-License-Identifier: MIT
#include "harness/sweep.h"

#include "harness/effort.h"

namespace harness {
namespace {

Pitch any_sweep_pitch(Random& random)
{
    return random.pick({Pitch::kTight, Pitch::kTight, Pitch::kRounded, Pitch::kRounded, Pitch::kPadded, Pitch::kLines64,
                        Pitch::kOdd, Pitch::kAbove, Pitch::kAbove, Pitch::kNegative, Pitch::kNegativeOdd,
                        Pitch::kNegativeAbove, Pitch::kAny});
}

int any_sweep_height(Random& random) { return random.pick({2, 2, 3, 4, 4, 5, 6, 7, 8, 10, 12}); }

// Every phase with every remainder; lines long enough for whole cache lines in most planes.
void add_round(int width_step, Random& random, std::vector<SweepPoint>& to)
{
    for (int remainder = 0; remainder < 64; remainder += width_step) {
        const uint64_t others = random.next(); // the same for all 64, so that every plane comes to every phase
        for (int phase = 0; phase < 64; ++phase) {
            const int whole = 64 * random.pick({1, 2, 2, 3, 4, 5});
            const Edge edge = random.one_in(2) ? Edge::kStart : Edge::kEnd;
            to.push_back({whole + remainder, {edge, Phases{phase, others}}});
        }
    }
}

std::vector<SweepPoint> points(int width_step, Random& random)
{
    std::vector<SweepPoint> all;
    const int rounds = by_effort(8, 1) * (width_step == 1 ? 1 : 2); // wide steps leave few remainders
    for (int round = 0; round < rounds; ++round) add_round(width_step, random, all);
    return all;
}

} // namespace

std::vector<SweepPoint> sweep_points(const Export& tested, Random& random)
{
    return points(tested.sizes.width_step, random);
}

std::vector<SweepPoint> sweep_points(const JobExport&, Random& random) { return points(1, random); }

std::vector<SweepPoint> long_points(Random& random)
{
    std::vector<SweepPoint> all;
    for (int i = 0; i < by_effort(64, 4); ++i) {
        const int width = i % 4 == 0 ? 16 * random.between(256, 544) : random.between(4096, 8704);
        all.push_back({width, at_phase(random.between(0, 63), random)});
    }
    return all;
}

Case sweep_case(const Export& tested, int width, Random& random)
{
    const int height = legal_height(tested, any_sweep_height(random));
    width = legal_width(tested, width);
    const Pitch source = any_sweep_pitch(random);
    return case_of(tested, width, height, source, any_sweep_pitch(random), random);
}

JobCase sweep_case(const JobExport& tested, int width, Random& random)
{
    const int height = any_sweep_height(random);
    const Pitch picture = any_sweep_pitch(random), subpicture = any_sweep_pitch(random);
    JobCase c = job_of(tested, width, height, {picture, subpicture, any_sweep_pitch(random)}, random);
    if (tested.works_in_place() && width % 16 == 0 && c.surface_pitch >= width && random.one_in(2)) {
        c.picture_pitch = c.surface_pitch;
        c.in_place = true;
    }
    return c;
}

} // namespace harness
