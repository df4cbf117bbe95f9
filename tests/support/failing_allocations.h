// Makes an allocation fail on purpose, so that each one of a piece of work gets its turn:
//
//     for (std::size_t n = 1;; ++n) {
//         FailingAllocations failing(n);
//         const ResultCode code = convert(...);
//         failing.stop();
//         if (!failing.failed()) break;  // fewer than n allocations: the work has succeeded
//         EXPECT_EQ(code, VZ_ERR_OUT_OF_MEMORY);
//     }
#pragma once

#include <cstddef>

namespace vzapi::test {

// What counts as an allocation.
enum class Allocations : unsigned {
    HeapAndOle = 1,   // blocks of the process heap and OLE strings of the library objects in this program
    OperatorNew = 2,  // operator new, over-aligned types aside. On Linux also that of shared libraries; on
                      // Windows a DLL has an operator new of its own, which is out of reach
    All = 3,
};

// Counts the allocations of the thread that made it, and fails one. At most one lives on a thread at a time.
class FailingAllocations {
public:
    static constexpr std::size_t kNone = 0;

    // Fails the `nth` allocation from here, the first being 1. kNone: counts only.
    explicit FailingAllocations(std::size_t nth, Allocations which = Allocations::All);
    ~FailingAllocations();
    FailingAllocations(const FailingAllocations&) = delete;
    FailingAllocations& operator=(const FailingAllocations&) = delete;

    // False in programs whose operator new cannot be replaced, since ThreadSanitizer has: none of its
    // allocations is counted or fails there.
    [[nodiscard]] static bool sees_operator_new() noexcept;

    // Ends counting and failing, so that the test itself can allocate again.
    void stop() noexcept;

    // How many allocations have been asked for, the failed one included.
    [[nodiscard]] std::size_t asked() const noexcept { return asked_; }
    // True when the n-th one came, and failed.
    [[nodiscard]] bool failed() const noexcept { return failed_; }

private:
    friend bool allow_allocation(Allocations kind) noexcept;

    const std::size_t nth_;
    const Allocations which_;
    std::size_t asked_ = 0;
    bool failed_ = false;
};

}  // namespace vzapi::test
