// How much memory of operator new a piece of work has at most had at one time:
//
//     MemoryMeter meter;
//     work();
//     EXPECT_LE(meter.peak(), ...);
#pragma once

#include <cstddef>

namespace vzapi::test {

// Counts the blocks of the thread that made it, from its making on. At most one lives on a thread at a time.
// Nothing is seen where FailingAllocations::sees_operator_new() is false.
class MemoryMeter {
public:
    MemoryMeter() noexcept;
    ~MemoryMeter();
    MemoryMeter(const MemoryMeter&) = delete;
    MemoryMeter& operator=(const MemoryMeter&) = delete;

    [[nodiscard]] std::size_t peak() const noexcept { return peak_; }

private:
    friend void meter_allocation(void* block) noexcept;
    friend void meter_release(void* block) noexcept;

    std::size_t in_use_ = 0;
    std::size_t peak_ = 0;
};

// For operator new and operator delete, which tell every block; null is none.
void meter_allocation(void* block) noexcept;
void meter_release(void* block) noexcept;

}  // namespace vzapi::test
