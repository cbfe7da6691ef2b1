// Makes a fault on a guard page name the call that caused it.
#pragma once
#include "harness/arena.h"
#include "harness/case.h"
#include "harness/variants.h"

namespace harness {

// For its lifetime, a fault is reported as having happened in this call.
class InCall {
public:
    InCall(const Case& c, const Placement& placement, const Variant& table);
    ~InCall();
    InCall(const InCall&) = delete;
    InCall& operator=(const InCall&) = delete;
};

std::string describe(const Placement& placement);

} // namespace harness
