#include "platform/sleep.h"

#include <gtest/gtest.h>

#include <chrono>
#include <vector>

namespace vzapi::platform {
namespace {

std::vector<std::uint32_t>& asked_for() {
    static std::vector<std::uint32_t> waits;
    return waits;
}

TEST(Sleep, CallsWhatATestPutInItsPlace) {
    asked_for().clear();
    test_only_set_sleep([](std::uint32_t milliseconds) { asked_for().push_back(milliseconds); });
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 30; ++i) sleep(1000);
    sleep(0xFFFFFFFF);
    test_only_set_sleep(nullptr);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
    ASSERT_EQ(asked_for().size(), 31U);
    EXPECT_EQ(asked_for().front(), 1000U);
    EXPECT_EQ(asked_for().back(), 0xFFFFFFFFU);
}

TEST(Sleep, WaitsAgainAfterATest) {
    test_only_set_sleep([](std::uint32_t) {});
    test_only_set_sleep(nullptr);
    const auto start = std::chrono::steady_clock::now();
    sleep(50);
    // Less one tick of a coarse system clock.
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(34));
}

}  // namespace
}  // namespace vzapi::platform
