// Doors for tests: make allocations of the process heap and of OLE strings fail at will, and show a block of
// the process heap as it is when it is given back.
#pragma once

#include <atomic>
#include <cstddef>

namespace vzapi::platform {

// Asked before every such allocation; false makes it fail. Null, as always outside tests: never asked.
using AllocationGate = bool (*)() noexcept;

inline std::atomic<AllocationGate> g_test_only_allocation_gate{nullptr};

[[nodiscard]] inline bool allocation_allowed() noexcept {
    const AllocationGate gate = g_test_only_allocation_gate.load(std::memory_order_relaxed);
    return gate == nullptr || gate();
}

// Told of every block of the process heap right before it is released, after the wiping.
using ReleaseObserver = void (*)(const void* block, std::size_t size) noexcept;

inline std::atomic<ReleaseObserver> g_test_only_release_observer{nullptr};

inline void observe_release(const void* block, std::size_t size) noexcept {
    const ReleaseObserver observer = g_test_only_release_observer.load(std::memory_order_relaxed);
    if (observer != nullptr) observer(block, size);
}

}  // namespace vzapi::platform
