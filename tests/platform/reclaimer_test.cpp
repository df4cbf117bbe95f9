#include "platform/reclaimer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>
#include <vector>

#include "platform/allocation_gate.h"
#include "platform/ole_string.h"
#include "support/guard_page.h"
#include "support/pointer_to.h"

namespace vzapi::platform {
namespace {

// The blocks that are released while it lives, with what they hold at that moment.
class Released {
public:
    Released() {
        blocks_.clear();
        g_test_only_release_observer = [](const void* block, std::size_t size) noexcept {
            const auto* bytes = static_cast<const unsigned char*>(block);
            blocks_.push_back({block, {bytes, bytes + size}});
        };
    }
    ~Released() { g_test_only_release_observer = nullptr; }
    Released(const Released&) = delete;
    Released& operator=(const Released&) = delete;

    [[nodiscard]] static std::size_t count() { return blocks_.size(); }
    [[nodiscard]] static std::ptrdiff_t times(const void* block) {
        return std::count_if(blocks_.begin(), blocks_.end(),
                             [block](const Block& each) { return each.address == block; });
    }
    // Of the block that was released first.
    [[nodiscard]] static const std::vector<unsigned char>& content() { return blocks_.at(0).content; }

private:
    struct Block {
        const void* address;
        std::vector<unsigned char> content;
    };
    static inline std::vector<Block> blocks_;
};

TEST(Reclaimer, ReleasesEveryBlockThatItTook) {
    std::vector<void*> blocks;
    for (std::size_t size = 0; size < 200; ++size) blocks.push_back(heap_allocate(size * 37));
    const Released released;
    {
        Reclaimer reclaimer;
        for (void* block : blocks) reclaimer.release(block);
    }
    EXPECT_EQ(Released::count(), blocks.size());
    for (const void* block : blocks) {
        EXPECT_EQ(Released::times(block), 1);
        EXPECT_FALSE(heap_owns(block));
    }
}

TEST(Reclaimer, ReleasesNothingWhenNothingIsTaken) {
    const Released released;
    { const Reclaimer reclaimer; }
    EXPECT_EQ(Released::count(), 0U);
}

TEST(Reclaimer, TellsTheSizeAndLeavesTheContentToBeRead) {
    auto* block = static_cast<unsigned char*>(heap_allocate(5000));
    std::memset(block, 0x5A, 5000);
    Reclaimer reclaimer;
    const Reclaimer::Taken taken = reclaimer.take(block, 5000);
    ASSERT_TRUE(taken);
    EXPECT_EQ(taken.size(), 5000U);
    EXPECT_TRUE(std::all_of(block, block + 5000, [](unsigned char byte) { return byte == 0x5A; }));
}

TEST(Reclaimer, LeavesAloneABlockOfFewerBytesThanThereShouldBe) {
    void* block = heap_allocate(23);
    {
        Reclaimer reclaimer;
        const Reclaimer::Taken taken = reclaimer.take(block, 24);
        EXPECT_FALSE(taken);
        EXPECT_EQ(taken.size(), 0U);
    }
    EXPECT_TRUE(heap_free(block));
}

TEST(Reclaimer, TakesABlockOfNoBytes) {
    void* block = heap_allocate(0);
    {
        Reclaimer reclaimer;
        const Reclaimer::Taken taken = reclaimer.take(block);
        EXPECT_TRUE(taken);
        EXPECT_EQ(taken.size(), 0U);
    }
    EXPECT_FALSE(heap_owns(block));
}

TEST(Reclaimer, TakesABlockOnceWhileItIsLookedIntoAndAfterwards) {
    void* outer = heap_allocate(64);
    void* inner = heap_allocate(64);
    const Released released;
    {
        Reclaimer reclaimer;
        {
            const Reclaimer::Taken taken = reclaimer.take(outer);
            ASSERT_TRUE(taken);
            EXPECT_FALSE(reclaimer.take(outer)) << "points at itself";
            const Reclaimer::Taken nested = reclaimer.take(inner);
            ASSERT_TRUE(nested);
            EXPECT_FALSE(reclaimer.take(inner));
            EXPECT_FALSE(reclaimer.take(outer)) << "points back";
            std::memset(outer, 0x11, 64);  // still there
            std::memset(inner, 0x22, 64);
        }
        EXPECT_FALSE(reclaimer.take(inner));
        EXPECT_FALSE(reclaimer.take(outer));
    }
    EXPECT_EQ(Released::times(outer), 1);
    EXPECT_EQ(Released::times(inner), 1);
}

TEST(Reclaimer, WipesWhatItIsToldTo) {
    for (const Wipe wipe : {Wipe::No, Wipe::Yes}) {
        void* block = heap_allocate(300);
        std::memset(block, 0x77, 300);
        const Released released;
        {
            Reclaimer reclaimer;
            const Reclaimer::Taken taken = reclaimer.take(block, 0, wipe);
            EXPECT_EQ(*static_cast<unsigned char*>(block), 0x77) << "not before its end";
        }
        ASSERT_EQ(Released::count(), 1U);
        const unsigned char expected = wipe == Wipe::Yes ? 0x00 : 0x77;
        EXPECT_EQ(Released::content(), std::vector<unsigned char>(300, expected));
    }
}

TEST(Reclaimer, WipesOnlyTheBlocksThatItIsToldTo) {
    auto* kept = static_cast<unsigned char*>(heap_allocate(16));
    auto* wiped = static_cast<unsigned char*>(heap_allocate(16));
    std::memset(kept, 0x77, 16);
    std::memset(wiped, 0x77, 16);
    static std::size_t zeros = 0;
    zeros = 0;
    g_test_only_release_observer = [](const void* block, std::size_t size) noexcept {
        const auto* bytes = static_cast<const unsigned char*>(block);
        zeros += static_cast<std::size_t>(std::count(bytes, bytes + size, 0));
    };
    {
        Reclaimer reclaimer;
        reclaimer.release(wiped, Wipe::Yes);
        reclaimer.release(kept);
    }
    g_test_only_release_observer = nullptr;
    EXPECT_EQ(zeros, 16U);
}

// Neither a block nor, where strings are told from other memory, a string.
void expect_left_alone(void* address, const char* what) {
    Reclaimer reclaimer;
    EXPECT_FALSE(reclaimer.take(address)) << what;
    EXPECT_FALSE(reclaimer.take(address, 0, Wipe::Yes)) << what;
    reclaimer.release(address, Wipe::Yes);
}

TEST(Reclaimer, LeavesAloneWhatIsNoBlock) {
    alignas(16) static std::array<unsigned char, 64> in_static_memory{};
    alignas(16) std::array<unsigned char, 64> on_the_stack{};
    on_the_stack.fill(0x5A);
    std::vector<unsigned char> of_another_allocator(64, 0x5A);
    char16_t* string = ole_string_allocate(u"a string, not a block");
    const Released released;

    expect_left_alone(nullptr, "null");
    expect_left_alone(in_static_memory.data() + 32, "static");
    expect_left_alone(on_the_stack.data() + 32, "stack");
    expect_left_alone(of_another_allocator.data(), "operator new");
    expect_left_alone(string, "OLE string");
    for (const std::uintptr_t address : {1U, 8U, 15U, 16U, 32U, 4096U}) {
        expect_left_alone(test::pointer_to<void>(address), "small number");
    }
    EXPECT_EQ(Released::count(), 0U);
    EXPECT_TRUE(std::all_of(on_the_stack.begin(), on_the_stack.end(),
                            [](unsigned char byte) { return byte == 0x5A; }));
    EXPECT_EQ(of_another_allocator, std::vector<unsigned char>(64, 0x5A));
    EXPECT_EQ(std::u16string_view(string), u"a string, not a block");
    ole_string_free(string);
}

TEST(Reclaimer, LeavesAloneThePlacesInsideABlock) {
    auto* block = static_cast<unsigned char*>(heap_allocate(256));
    std::memset(block, 0x5A, 256);
    for (std::size_t offset = 1; offset < 256; ++offset) expect_left_alone(block + offset, "inside");
    EXPECT_TRUE(std::all_of(block, block + 256, [](unsigned char byte) { return byte == 0x5A; }));
    EXPECT_TRUE(heap_free(block));
}

TEST(Reclaimer, LeavesAloneUnreadableMemoryAndWhatBordersOnIt) {
    const test::GuardPage page(1, 1, 1);
    expect_left_alone(page.unreadable(), "unreadable page");
    expect_left_alone(page.unreadable() + 64, "inside unreadable page");
    expect_left_alone(page.begin(), "page begin");
    expect_left_alone(page.last(16), "page end");
    expect_left_alone(page.last(1), "last byte");
    expect_left_alone(page.behind(), "its header would be unreadable");
    expect_left_alone(page.behind() + 16, "its header would be the first readable bytes");
}

TEST(Reclaimer, LeavesAloneAnUnreadableString) {
    const test::GuardPage page;
    Reclaimer reclaimer;
    reclaimer.release_string(nullptr);
    reclaimer.release_string(page.unreadable_as<char16_t>());
    reclaimer.release_string(test::pointer_to<char16_t>(2));
}

TEST(Reclaimer, ReleasesStringsAndBlocksTogether) {
    std::vector<char16_t*> strings;
    std::vector<void*> blocks;
    for (std::size_t i = 0; i < 100; ++i) {
        strings.push_back(ole_string_allocate(std::u16string(i, u'x')));
        blocks.push_back(heap_allocate(i));
    }
    const Released released;
    {
        Reclaimer reclaimer;
        for (std::size_t i = 0; i < 100; ++i) {
            const Reclaimer::Taken taken = reclaimer.take(blocks[i]);
            reclaimer.release_string(strings[i]);
        }
    }
    EXPECT_EQ(Released::count(), 100U);
}

TEST(Reclaimer, LeavesAloneWhatAnEarlierOneReleased) {
    void* block = heap_allocate(48);
    { Reclaimer().release(block); }
    expect_left_alone(block, "released before");
}

}  // namespace
}  // namespace vzapi::platform
