#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstring>

#include "platform/pointer_probe.h"
#include "support/guard_page.h"

namespace vzapi::platform {
namespace {

TEST(IsReadableOfPosix, KeepsErrno) {
    const test::GuardPage page;
    for (const int before : {0, EINTR, EFAULT, EINVAL}) {
        errno = before;
        EXPECT_TRUE(is_readable(page.begin()));
        EXPECT_EQ(errno, before);
        EXPECT_FALSE(is_readable(page.unreadable()));
        EXPECT_EQ(errno, before);
        EXPECT_FALSE(is_readable(nullptr));
        EXPECT_EQ(errno, before);
    }
}

TEST(IsReadableOfPosix, KeepsTheSignalMask) {
    const test::GuardPage page;
    std::memset(page.begin(), 0xFF, 64);  // the set of all signals, for a probe that would take it for one
    sigset_t before;
    sigset_t after;
    pthread_sigmask(SIG_SETMASK, nullptr, &before);
    EXPECT_TRUE(is_readable(page.begin()));
    pthread_sigmask(SIG_SETMASK, nullptr, &after);
    for (int number = 1; number < NSIG; ++number) {
        EXPECT_EQ(sigismember(&before, number), sigismember(&after, number)) << number;
    }
}

}  // namespace
}  // namespace vzapi::platform
