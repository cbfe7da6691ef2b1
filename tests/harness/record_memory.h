// SPDX-License-Identifier: MIT
// A record flush against a guard page.
#pragma once
#include "harness/arena.h"

#include <cstring>

namespace harness {

template <class Record> class RecordMemory {
public:
    RecordMemory() : arena_(sizeof(Record)) {}

    Record* put(const Record& record) const
    {
        std::memcpy(address(), &record, sizeof record);
        return address();
    }

    bool intact(const Record& record) const { return std::memcmp(address(), &record, sizeof record) == 0; }
    const Record& get() const { return *address(); }

    // For a call that must not look at its record.
    Record* forbidden(bool null) const { return null ? nullptr : reinterpret_cast<Record*>(arena_.forbidden()); }

private:
    Record* address() const { return reinterpret_cast<Record*>(arena_.end()) - 1; }

    Arena arena_;
};

} // namespace harness
