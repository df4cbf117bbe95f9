#include <gtest/gtest.h>

#include <array>
#include <string_view>

#include "platform/heap.h"
#include "platform/ole_string.h"
#include "platform/posix/guarded_block.h"
#include "support/guard_page.h"

namespace vzapi::platform {
namespace {

bool is_live(const void* text) {
    return guarded_owns(BlockKind::OleString, text);
}

TEST(OleStringOfPosix, IsReleasedOnce) {
    char16_t* text = ole_string_allocate(u"text");
    EXPECT_TRUE(is_live(text));
    ole_string_free(text);
    EXPECT_FALSE(is_live(text));
    ole_string_free(text);  // AddressSanitizer and the C library stop the program at a second release
}

TEST(OleStringOfPosix, ReleaseLeavesAloneWhatIsNoLiveString) {
    alignas(16) static std::array<char16_t, 32> in_static_memory = {u'a', u'b'};
    alignas(16) std::array<char16_t, 32> on_the_stack = {u'a', u'b'};
    const test::GuardPage page;
    char16_t* text = ole_string_allocate(u"a longer text that has places inside");
    ASSERT_NE(text, nullptr);

    ole_string_free(in_static_memory.data());
    ole_string_free(in_static_memory.data() + 8);
    ole_string_free(on_the_stack.data());
    ole_string_free(on_the_stack.data() + 8);
    ole_string_free(page.unreadable_as<char16_t>());
    ole_string_free(page.last_as<char16_t>(16));
    for (std::size_t unit = 1; unit < 20; ++unit) ole_string_free(text + unit);

    EXPECT_EQ(std::u16string_view(in_static_memory.data()), u"ab");
    EXPECT_EQ(std::u16string_view(on_the_stack.data()), u"ab");
    EXPECT_TRUE(is_live(text));
    ole_string_free(text);
}

TEST(OleStringOfPosix, ReleaseLeavesAloneABlockOfTheHeap) {
    void* block = heap_allocate(64);
    ole_string_free(static_cast<char16_t*>(block));
    EXPECT_TRUE(heap_owns(block));
    EXPECT_TRUE(heap_free(block));
}

}  // namespace
}  // namespace vzapi::platform
