// SPDX-License-Identifier: MIT
// What the harness asks of the operating system.
#pragma once
#include <cstddef>
#include <cstdint>

namespace harness {

size_t page_size();

// Address space that faults when touched, its parts that may be touched, and its end. They abort where they fail.
uint8_t* reserve_pages(size_t bytes);
void open_pages(uint8_t* at, size_t bytes);
void release_pages(uint8_t* at, size_t bytes);

// Has `report` called with the address of every fault from now on, before the program ends because of it.
void report_faults(void (*report)(const void* address));

} // namespace harness
