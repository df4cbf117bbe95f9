#include "support/machine_zone.h"

#include <gtest/gtest.h>

#include <string_view>

#include "support/run_in_zone.h"

namespace vzapi::test {
namespace {

// Separated by blanks.
constexpr std::string_view kZones = VZAPI_TEST_ZONES " ";

}  // namespace

void in_machine_zone(const std::string& zone, const std::function<void()>& body) {
    // Without these two the body would run on one platform only.
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    ASSERT_NE(std::string_view(test->test_suite_name()).find("MachineZone"), std::string_view::npos);
    ASSERT_NE(kZones.find(zone + " "), kZones.npos);

    const testing::ScopedTrace trace(__FILE__, __LINE__, "TZ=" + zone);
    run_in_zone(zone, body);
}

}  // namespace vzapi::test
