#include "platform/heap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <vector>

#include "platform/allocation_gate.h"
#include "platform/ole_string.h"
#include "support/failing_allocations.h"
#include "support/guard_page.h"
#include "support/pointer_to.h"

namespace vzapi::platform {
namespace {

bool is_all_zero(const void* block, std::size_t size) {
    const auto* bytes = static_cast<const unsigned char*>(block);
    return std::all_of(bytes, bytes + size, [](unsigned char byte) { return byte == 0; });
}

TEST(Heap, GivesZeroFilledBlocksAlignedForAnyTypeAndKnowsTheirSize) {
    for (const std::size_t size : {1U, 7U, 8U, 15U, 16U, 17U, 4095U, 4096U, 100000U, 5000000U}) {
        void* block = heap_allocate(size);
        ASSERT_NE(block, nullptr) << size;
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block) % alignof(std::max_align_t), 0U) << size;
        EXPECT_TRUE(is_all_zero(block, size)) << size;
        EXPECT_TRUE(heap_owns(block)) << size;
        EXPECT_EQ(heap_size(block), size);
        std::memset(block, 0xA5, size);
        EXPECT_TRUE(heap_free(block)) << size;
    }
}

TEST(Heap, ZeroFillsABlockThatWasUsedBefore) {
    for (int round = 0; round < 20; ++round) {
        void* block = heap_allocate(200);
        ASSERT_NE(block, nullptr);
        EXPECT_TRUE(is_all_zero(block, 200));
        std::memset(block, 0xFF, 200);
        EXPECT_TRUE(heap_free(block));
    }
}

TEST(Heap, ABlockOfZeroBytesIsABlockOfItsOwn) {
    void* first = heap_allocate(0);
    void* second = heap_allocate(0);
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first, second);
    EXPECT_TRUE(heap_owns(first));
    EXPECT_EQ(heap_size(first), 0U);
    EXPECT_TRUE(heap_free(first, Wipe::Yes));
    EXPECT_TRUE(heap_free(second));
}

TEST(Heap, ASizeThatNoMemoryHasGivesNull) {
    constexpr std::size_t kMost = std::numeric_limits<std::size_t>::max();
    for (const std::size_t size : {kMost, kMost - 1, kMost - 15, kMost - 16, kMost - 17, kMost / 2 + 1}) {
        EXPECT_EQ(heap_allocate(size), nullptr) << size;
    }
}

void expect_left_alone(void* address, const char* what) {
    EXPECT_FALSE(heap_owns(address)) << what;
    EXPECT_EQ(heap_size(address), 0U) << what;
    EXPECT_FALSE(heap_free(address)) << what;
    EXPECT_FALSE(heap_free(address, Wipe::Yes)) << what;
}

TEST(Heap, LeavesAloneWhatIsNoBlock) {
    alignas(16) static std::array<unsigned char, 64> in_static_memory{};
    alignas(16) std::array<unsigned char, 64> on_the_stack{};
    on_the_stack.fill(0x5A);
    std::vector<unsigned char> of_another_allocator(64, 0x5A);

    expect_left_alone(nullptr, "null");
    expect_left_alone(in_static_memory.data(), "static");
    expect_left_alone(in_static_memory.data() + 32, "inside static");
    expect_left_alone(on_the_stack.data(), "stack");
    expect_left_alone(on_the_stack.data() + 32, "inside stack");
    expect_left_alone(of_another_allocator.data(), "operator new");
    for (const std::uintptr_t address : {1U, 8U, 15U, 16U, 32U, 4096U}) {
        expect_left_alone(test::pointer_to<void>(address), "small number");
    }
    for (const unsigned char byte : on_the_stack) EXPECT_EQ(byte, 0x5A);
    for (const unsigned char byte : of_another_allocator) EXPECT_EQ(byte, 0x5A);
}

TEST(Heap, LeavesAloneThePlacesInsideABlock) {
    auto* block = static_cast<unsigned char*>(heap_allocate(256));
    ASSERT_NE(block, nullptr);
    std::memset(block, 0x5A, 256);
    for (std::size_t offset = 1; offset < 256; ++offset) {
        EXPECT_FALSE(heap_owns(block + offset)) << offset;
        EXPECT_FALSE(heap_free(block + offset, Wipe::Yes)) << offset;
    }
    for (std::size_t offset = 0; offset < 256; ++offset) ASSERT_EQ(block[offset], 0x5A) << offset;
    EXPECT_TRUE(heap_free(block));
}

TEST(Heap, LeavesAloneACopyOfABlockWithItsHeader) {
    auto* block = static_cast<unsigned char*>(heap_allocate(64));
    ASSERT_NE(block, nullptr);
    alignas(16) std::array<unsigned char, 80> copy{};
    const volatile unsigned char* header = block - 16;
    for (std::size_t i = 0; i < 16; ++i) copy[i] = header[i];
    expect_left_alone(copy.data() + 16, "copy");
    EXPECT_TRUE(heap_free(block));
}

TEST(Heap, LeavesAloneUnreadableMemoryAndWhatBordersOnIt) {
    const test::GuardPage page;
    expect_left_alone(page.unreadable(), "unreadable page");
    expect_left_alone(page.unreadable() + 16, "inside unreadable page");
    expect_left_alone(page.unreadable() + 64, "inside unreadable page");
    expect_left_alone(page.begin(), "page begin");
    expect_left_alone(page.last(16), "page end");
    expect_left_alone(page.last(1), "last byte");
}

TEST(Heap, ReleasesABlockOnce) {
    for (const std::size_t size : {0U, 1U, 24U, 5000U, 5000000U}) {
        void* block = heap_allocate(size);
        ASSERT_NE(block, nullptr);
        EXPECT_TRUE(heap_free(block));
        EXPECT_FALSE(heap_owns(block)) << size;
        EXPECT_FALSE(heap_free(block)) << size;
        EXPECT_FALSE(heap_free(block, Wipe::Yes)) << size;
    }
}

TEST(Heap, LeavesAloneAnOleString) {
    char16_t* text = ole_string_allocate(u"a string, not a block");
    ASSERT_NE(text, nullptr);
    EXPECT_FALSE(heap_owns(text));
    EXPECT_FALSE(heap_free(text, Wipe::Yes));
    EXPECT_EQ(std::u16string_view(text), u"a string, not a block");
    ole_string_free(text);
}

TEST(Heap, ManyBlocksLiveSideBySide) {
    std::vector<unsigned char*> blocks;
    for (std::size_t size = 0; size < 500; ++size) {
        blocks.push_back(static_cast<unsigned char*>(heap_allocate(size)));
        ASSERT_NE(blocks.back(), nullptr);
        std::memset(blocks.back(), static_cast<int>(size & 0xFF), size);
    }
    for (std::size_t size = 0; size < blocks.size(); ++size) {
        EXPECT_EQ(heap_size(blocks[size]), size);
        for (std::size_t i = 0; i < size; ++i) ASSERT_EQ(blocks[size][i], size & 0xFF);
        EXPECT_TRUE(heap_free(blocks[size]));
    }
}

// What a block holds at the moment it is given back.
std::vector<unsigned char> released_content(Wipe wipe) {
    static std::vector<unsigned char> content;
    content.assign(300, 0xEE);
    g_test_only_release_observer = [](const void* block, std::size_t size) noexcept {
        if (size == content.size()) std::memcpy(content.data(), block, size);
    };
    void* block = heap_allocate(300);
    std::memset(block, 0x77, 300);
    EXPECT_TRUE(heap_free(block, wipe));
    g_test_only_release_observer = nullptr;
    return content;
}

TEST(Heap, WipesABlockBeforeItIsReleased) {
    EXPECT_EQ(released_content(Wipe::Yes), std::vector<unsigned char>(300, 0x00));
    EXPECT_EQ(released_content(Wipe::No), std::vector<unsigned char>(300, 0x77));
}

TEST(Heap, FailsWhenTheGateSaysSo) {
    test::FailingAllocations failing(2, test::Allocations::HeapAndOle);
    const HeapPointer<void> first(heap_allocate(8));
    const HeapPointer<void> second(heap_allocate(8));
    const HeapPointer<void> third(heap_allocate(8));
    failing.stop();
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(second, nullptr);
    EXPECT_NE(third, nullptr);
    EXPECT_TRUE(failing.failed());
    EXPECT_EQ(failing.asked(), 3U);
}

}  // namespace
}  // namespace vzapi::platform
