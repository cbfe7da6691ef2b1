// SPDX-License-Identifier: MIT
// One operation of the vector layer with the plain loop that says what it computes. What runs on an instruction set is
// compiled with its flags: nothing here may become a function that other objects share.
#pragma once
#include <stdint.h>

namespace simd_test {

constexpr int kOperands = 6, kOperandBytes = 128;
constexpr int kMargin = 64;                                // untouched bytes on both sides of a result
constexpr int kResultBytes = kMargin + 63 + 256 + kMargin; // the longest store, at any address modulo 64

// What an operation works on and where its result goes, filled with the same bytes as what it is compared with. Both
// lie at multiples of 64.
struct Buffers {
    const uint8_t* in;
    uint8_t *is, *expected;
    int number; // of the trial: places that are not whole registers, constants
};

struct Operation {
    const char* name;
    const char* variant; // a constant or a destination; empty for most
    int width;
    void (*run)(const Buffers&);
};

// All of one instruction set, by width and subject.
struct Operations {
    const Operation* first;
    int count;
};
struct OperationLists {
    const Operations* first;
    int count;
};

} // namespace simd_test
