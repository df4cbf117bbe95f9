// The wait of VZAPI_Terminate for work in progress, with the real sleep replaced.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "api/library_state.h"
#include "platform/sleep.h"
#include "vzapi/vzapi.h"

namespace vzapi {
namespace {

std::vector<std::uint32_t> g_sleeps;
std::size_t g_busy_for = 0;

void record_sleep(std::uint32_t milliseconds) {
    g_sleeps.push_back(milliseconds);
    if (g_sleeps.size() >= g_busy_for) library_state().busy = false;
}

class TerminateWait : public testing::Test {
protected:
    void SetUp() override {
        g_sleeps.clear();
        platform::test_only_set_sleep(record_sleep);
    }
    void TearDown() override {
        platform::test_only_set_sleep(nullptr);
        library_state().busy = false;
    }
};

TEST_F(TerminateWait, DoesNotSleepWhenNothingIsInProgress) {
    VZAPI_Initialize(16);
    EXPECT_EQ(VZAPI_Terminate(), 0U);
    EXPECT_TRUE(g_sleeps.empty());
}

TEST_F(TerminateWait, PollsEverySecondUntilTheWorkIsDone) {
    library_state().busy = true;
    g_busy_for = 3;
    EXPECT_EQ(VZAPI_Terminate(), 0U);
    EXPECT_EQ(g_sleeps, std::vector<std::uint32_t>(3, 1000));
}

TEST_F(TerminateWait, GivesUpAfterThirtySleeps) {
    library_state().busy = true;
    g_busy_for = 1000;
    EXPECT_EQ(VZAPI_Terminate(), 0U);
    EXPECT_EQ(g_sleeps, std::vector<std::uint32_t>(30, 1000));
    EXPECT_TRUE(library_state().busy);
}

TEST_F(TerminateWait, OnlyTheLastTerminationWaits) {
    VZAPI_Initialize(16);
    VZAPI_Initialize(16);
    library_state().busy = true;
    g_busy_for = 1;
    EXPECT_EQ(VZAPI_Terminate(), 1U);
    EXPECT_TRUE(g_sleeps.empty());
    EXPECT_EQ(VZAPI_Terminate(), 0U);
    EXPECT_EQ(g_sleeps.size(), 1U);
}

}  // namespace
}  // namespace vzapi
