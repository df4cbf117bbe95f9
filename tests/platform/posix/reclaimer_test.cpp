// What only blocks with headers of the library's own can tell: which strings are live.
#include "platform/reclaimer.h"

#include <gtest/gtest.h>

#include <array>
#include <string_view>

#include "platform/ole_string.h"
#include "platform/posix/guarded_block.h"
#include "support/guard_page.h"

namespace vzapi::platform {
namespace {

bool is_live(const void* text) {
    return guarded_owns(BlockKind::OleString, text);
}

TEST(ReclaimerOfPosix, TakesAStringOnce) {
    char16_t* text = ole_string_allocate(u"text");
    {
        Reclaimer reclaimer;
        reclaimer.release_string(text);
        EXPECT_FALSE(is_live(text));
        reclaimer.release_string(text);
        EXPECT_EQ(std::u16string_view(text), u"text") << "not released before the end";
    }
    EXPECT_FALSE(is_live(text));
}

TEST(ReclaimerOfPosix, LeavesAloneWhatIsNoLiveString) {
    alignas(16) static std::array<char16_t, 32> in_static_memory = {u'a', u'b'};
    alignas(16) std::array<char16_t, 32> on_the_stack = {u'a', u'b'};
    const test::GuardPage page(1, 1, 1);
    char16_t* text = ole_string_allocate(u"a longer text that has places inside");
    void* block = heap_allocate(64);
    {
        Reclaimer reclaimer;
        reclaimer.release_string(in_static_memory.data() + 8);
        reclaimer.release_string(on_the_stack.data() + 8);
        reclaimer.release_string(page.last_as<char16_t>(16));
        reclaimer.release_string(static_cast<char16_t*>(static_cast<void*>(page.behind())));
        reclaimer.release_string(static_cast<char16_t*>(block));
        for (std::size_t unit = 1; unit < 20; ++unit) reclaimer.release_string(text + unit);
    }
    EXPECT_EQ(std::u16string_view(in_static_memory.data()), u"ab");
    EXPECT_EQ(std::u16string_view(on_the_stack.data()), u"ab");
    EXPECT_TRUE(is_live(text));
    EXPECT_TRUE(heap_free(block));
    ole_string_free(text);
}

}  // namespace
}  // namespace vzapi::platform
