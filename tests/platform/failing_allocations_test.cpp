// The helper that makes allocations fail is itself held to what it says.
#include "support/failing_allocations.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <string>
#include <thread>

#include "platform/heap.h"
#include "platform/ole_string.h"

namespace vzapi::platform {
namespace {

using test::Allocations;
using test::FailingAllocations;

// Four allocations, one of each kind; the number of those that came.
int allocate_four() {
    int came = 0;
    const HeapPointer<void> block(heap_allocate(8));
    came += block != nullptr ? 1 : 0;
    const OleString text(ole_string_allocate(u"text"));
    came += text ? 1 : 0;
    const std::unique_ptr<char[]> array(new (std::nothrow) char[8]);
    came += array != nullptr ? 1 : 0;
    try {
        const std::string string(100, 'x');
        came += static_cast<int>(string.size() / 100);
    } catch (const std::bad_alloc&) {
        return came;
    }
    return came;
}

TEST(FailingAllocations, GivesEachAllocationItsTurn) {
    if (!FailingAllocations::sees_operator_new()) GTEST_SKIP() << "operator new cannot be counted here";
    std::size_t n = 1;
    for (;; ++n) {
        FailingAllocations failing(n);
        const int came = allocate_four();
        failing.stop();
        EXPECT_EQ(failing.asked(), 4U);
        if (!failing.failed()) break;
        EXPECT_EQ(came, 3) << n;
    }
    EXPECT_EQ(n, 5U);
}

TEST(FailingAllocations, TellsKindsApart) {
    if (!FailingAllocations::sees_operator_new()) GTEST_SKIP() << "operator new cannot be counted here";
    FailingAllocations blocks(FailingAllocations::kNone, Allocations::HeapAndOle);
    const int with_blocks = allocate_four();
    blocks.stop();
    FailingAllocations objects(FailingAllocations::kNone, Allocations::OperatorNew);
    const int with_objects = allocate_four();
    objects.stop();
    EXPECT_EQ(with_blocks, 4);
    EXPECT_EQ(with_objects, 4);
    EXPECT_EQ(blocks.asked(), 2U);
    EXPECT_EQ(objects.asked(), 2U);
}

TEST(FailingAllocations, LeavesOtherThreadsAlone) {
    int came = 0;
    std::thread other;
    {
        FailingAllocations failing(1, Allocations::HeapAndOle);
        other = std::thread([&came] { came = allocate_four(); });
        other.join();
        EXPECT_EQ(failing.asked(), 0U);
    }
    EXPECT_EQ(came, 4);
}

}  // namespace
}  // namespace vzapi::platform
