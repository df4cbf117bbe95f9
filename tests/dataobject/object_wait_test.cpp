// The count of ODCAPI_Initialize, and the wait of ODCAPI_Terminate for pending operations, with the real
// sleep replaced.
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "api/library_state.h"
#include "platform/sleep.h"
#include "vzapi/odcapi.h"
#include "vzapi/vzapi.h"

namespace vzapi {
namespace {

std::vector<std::uint32_t> g_sleeps;
std::size_t g_pending_for = 0;

void record_sleep(std::uint32_t milliseconds) {
    g_sleeps.push_back(milliseconds);
    if (g_sleeps.size() >= g_pending_for) library_state().pending_objects = 0;
}

class ObjectTerminateWait : public testing::Test {
protected:
    void SetUp() override {
        g_sleeps.clear();
        platform::test_only_set_sleep(record_sleep);
    }
    void TearDown() override {
        platform::test_only_set_sleep(nullptr);
        library_state().pending_objects = 0;
        library_state().object_init_count = 0;
    }
};

TEST_F(ObjectTerminateWait, DoesNotSleepWhenNothingIsPending) {
    EXPECT_EQ(ODCAPI_Initialize(10, 0), VZ_OK);
    EXPECT_EQ(ODCAPI_Terminate(0), VZ_OK);
    EXPECT_TRUE(g_sleeps.empty());
}

TEST_F(ObjectTerminateWait, PollsEverySecondUntilNothingIsPending) {
    library_state().pending_objects = 2;
    g_pending_for = 3;
    EXPECT_EQ(ODCAPI_Terminate(0), VZ_OK);
    EXPECT_EQ(g_sleeps, std::vector<std::uint32_t>(3, 1000));
}

TEST_F(ObjectTerminateWait, GivesUpAfterThirtySleeps) {
    library_state().pending_objects = 1;
    g_pending_for = 1000;
    EXPECT_EQ(ODCAPI_Terminate(0), VZ_OK);
    EXPECT_EQ(g_sleeps, std::vector<std::uint32_t>(30, 1000));
}

TEST_F(ObjectTerminateWait, OnlyTheLastTerminationWaits) {
    EXPECT_EQ(ODCAPI_Initialize(10, 0), VZ_OK);
    EXPECT_EQ(ODCAPI_Initialize(10, 0), VZ_OK);
    library_state().pending_objects = 1;
    g_pending_for = 1;
    EXPECT_EQ(ODCAPI_Terminate(0), VZ_OK);
    EXPECT_TRUE(g_sleeps.empty());
    EXPECT_EQ(ODCAPI_Terminate(0), VZ_OK);
    EXPECT_EQ(g_sleeps.size(), 1U);
}

TEST_F(ObjectTerminateWait, ARefusedTerminationNeitherCountsNorWaits) {
    EXPECT_EQ(ODCAPI_Initialize(10, 0), VZ_OK);
    library_state().pending_objects = 1;
    EXPECT_EQ(ODCAPI_Terminate(1), VZ_ERR_POINTER);
    EXPECT_TRUE(g_sleeps.empty());
    EXPECT_EQ(library_state().object_init_count, 1U);
}

TEST_F(ObjectTerminateWait, ARefusedInitialisationDoesNotCount) {
    EXPECT_EQ(ODCAPI_Initialize(0, 0), VZ_ERR_BAD_VALUE);
    EXPECT_EQ(ODCAPI_Initialize(10, 1), VZ_ERR_POINTER);
    EXPECT_EQ(ODCAPI_Initialize(16, 0), VZ_ERR_VERSION);
    EXPECT_EQ(library_state().object_init_count, 0U);
}

TEST_F(ObjectTerminateWait, TheFamiliesCountAndWaitApart) {
    library_state().busy = true;
    EXPECT_EQ(ODCAPI_Terminate(0), VZ_OK);
    EXPECT_TRUE(g_sleeps.empty()) << "work of the other family";
    library_state().busy = false;
    library_state().pending_objects = 1;
    VZAPI_Initialize(16);
    EXPECT_EQ(library_state().object_init_count, 0U);
    VZAPI_Terminate();
    EXPECT_TRUE(g_sleeps.empty()) << "work of this family";
}

}  // namespace
}  // namespace vzapi
