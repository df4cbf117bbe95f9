// A door for tests: makes allocations of the process heap and of OLE strings fail at will.
#pragma once

#include <atomic>

namespace vzapi::platform {

// Asked before every such allocation; false makes it fail. Null, as always outside tests: never asked.
using AllocationGate = bool (*)() noexcept;

inline std::atomic<AllocationGate> g_test_only_allocation_gate{nullptr};

[[nodiscard]] inline bool allocation_allowed() noexcept {
    const AllocationGate gate = g_test_only_allocation_gate.load(std::memory_order_relaxed);
    return gate == nullptr || gate();
}

}  // namespace vzapi::platform
