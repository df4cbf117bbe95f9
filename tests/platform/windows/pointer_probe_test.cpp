#include "platform/pointer_probe.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "support/guard_page.h"

namespace vzapi::platform {
namespace {

TEST(IsReadableOfWindows, KeepsTheLastError) {
    const test::GuardPage page;
    for (const DWORD before : {DWORD{0}, DWORD{ERROR_FILE_NOT_FOUND}, DWORD{ERROR_NOACCESS}}) {
        SetLastError(before);
        EXPECT_TRUE(is_readable(page.begin()));
        EXPECT_EQ(GetLastError(), before);
        EXPECT_FALSE(is_readable(page.unreadable()));
        EXPECT_EQ(GetLastError(), before);
        EXPECT_FALSE(is_readable(nullptr));
        EXPECT_EQ(GetLastError(), before);
    }
}

}  // namespace
}  // namespace vzapi::platform
