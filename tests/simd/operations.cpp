// SPDX-License-Identifier: MIT
// Every operation of the vector layer at every width of one instruction set.
#include "simd/bytes.h"
#include "simd/dwords.h"
#include "simd/lanes.h"
#include "simd/order.h"
#include "simd/stores.h"
#include "simd/words.h"

namespace vsurf::VSURF_ISA {
namespace {

using simd_test::OperationLists;
using simd_test::Operations;

template <int count> constexpr Operations list(const Operation (&operations)[count]) { return {operations, count}; }

#define ALL_SHIFTS(N)                                                                                               \
    list(kShiftsOfWords<N, 1>), list(kShiftsOfWords<N, 2>), list(kShiftsOfWords<N, 3>), list(kShiftsOfWords<N, 4>), \
        list(kShiftsOfWords<N, 5>), list(kShiftsOfWords<N, 6>), list(kShiftsOfWords<N, 7>),                         \
        list(kShiftsOfWords<N, 8>), list(kShiftsOfWords<N, 10>), list(kShiftsOfWords<N, 11>)

#if VSURF_TEST_LANES
#define OF_LANES(N) list(kStores<N, Uncached>), list(kLanes<N>), list(kShuffles<N>),
#else
#define OF_LANES(N)
#endif

#define EVERY_WIDTH(N)                                                                                    \
    list(kOperationsOnWords<N>), ALL_SHIFTS(N), list(kOperationsOnPairs<N>), list(kOperationsOnBytes<N>), \
        list(kOrders<N>), list(kPlainLoads<N>), list(kWovenLoads<N, 1>), list(kWovenLoads<N, 2>),         \
        list(kWovenLoads<N, 4>), list(kStores<N, uint8_t*>), list(kCachedStores<N>), OF_LANES(N) list(kZips<N>)

constexpr Operations kAll[] = {
    EVERY_WIDTH(16),          list(kMasksFull<16>),     list(kOperationsOnDwords<16>), list(kEighths<16>),
    list(kDropped<16, 3>),    list(kDropped<16, 4>),    list(kDropped<16, 6>),         list(kNeighbours<16, 1>),
    list(kNeighbours<16, 2>), list(kNeighbours<16, 4>),
#if VSURF_TEST_LANES && defined __AVX2__
    EVERY_WIDTH(32),          list(kMasksFull<32>),     list(kOperationsOnDwords<32>), list(kCombined<32>),
#if defined __AVX512BW__
    EVERY_WIDTH(64),
#endif
#endif
};

} // namespace

extern const OperationLists operations;
const OperationLists operations = {kAll, sizeof kAll / sizeof *kAll};

} // namespace vsurf::VSURF_ISA
