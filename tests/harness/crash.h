// SPDX-License-Identifier: MIT
// Makes a fault on a guard page name the call that caused it.
#pragma once
#include "harness/placement.h"
#include "harness/variants.h"

#include <string>

namespace harness {

// Something that can say which call it makes.
class Described {
public:
    virtual std::string describe() const = 0;

protected:
    ~Described() = default;
};

// For its lifetime, a fault is reported as having happened in this call.
class InCall {
public:
    InCall(const Described& call, const Placement& placement, const Variant& table);
    ~InCall();
    InCall(const InCall&) = delete;
    InCall& operator=(const InCall&) = delete;
};

} // namespace harness
