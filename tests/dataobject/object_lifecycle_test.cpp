// Initialise and terminate of the data-object family, as a host application sees them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "support/guard_page.h"
#include "vzapi/odcapi.h"
#include "vzapi/vzapi.h"

namespace {

using namespace vzapi::test;

TEST(ObjectLifecycle, TheInterfaceVersionIsTen) {
    std::uint32_t version = 0;
    EXPECT_EQ(ODCAPI_GetAPIVersion(&version), VZ_OK);
    EXPECT_EQ(version, 10U);
}

TEST(ObjectLifecycle, TheVersionNeedsAPlace) {
    const GuardPage page;
    EXPECT_EQ(ODCAPI_GetAPIVersion(nullptr), 0x80100012U);
    EXPECT_EQ(ODCAPI_GetAPIVersion(page.unreadable_as<std::uint32_t>()), 0x80100012U);
    std::byte* const short_place = page.last(3);
    std::fill_n(short_place, 3, std::byte{0xA5});
    EXPECT_EQ(ODCAPI_GetAPIVersion(page.last_as<std::uint32_t>(3)), 0x80100012U);
    EXPECT_EQ(std::count(short_place, short_place + 3, std::byte{0xA5}), 3);
}

struct InitializeCase {
    std::uint32_t version;
    std::uint64_t reserved;
    ResultCode expected;
};

constexpr InitializeCase kRefused[] = {
    {0, 0, 0x80100013U},  {0, 1, 0x80100013U},              // the version comes first
    {10, 1, 0x80100012U}, {10, 0x100000000U, 0x80100012U},  // all 64 bits count
    {16, 1, 0x80100012U},                                   // then the reserved argument
    {16, 0, 0x80100005U}, {9, 0, 0x80100005U},
    {11, 0, 0x80100005U}, {UINT32_MAX, 0, 0x80100005U},
};

TEST(ObjectLifecycle, OnlyVersionTenIsInitialised) {
    for (const InitializeCase& row : kRefused) {
        EXPECT_EQ(ODCAPI_Initialize(row.version, row.reserved), row.expected)
            << row.version << " " << row.reserved;
    }
    EXPECT_EQ(ODCAPI_Initialize(10, 0), VZ_OK);
    EXPECT_EQ(ODCAPI_Terminate(0), VZ_OK);
}

TEST(ObjectLifecycle, TerminateNeedsNoInitialisation) {
    EXPECT_EQ(ODCAPI_Terminate(0), VZ_OK);
    EXPECT_EQ(ODCAPI_Terminate(0), VZ_OK);
    EXPECT_EQ(ODCAPI_Terminate(1), 0x80100012U);
    EXPECT_EQ(ODCAPI_Terminate(0x100000000U), 0x80100012U);
}

TEST(ObjectLifecycle, TheCountIsApartFromThatOfTheOtherFamily) {
    EXPECT_EQ(ODCAPI_Initialize(10, 0), VZ_OK);
    EXPECT_EQ(VZAPI_Initialize(16), 1U);
    EXPECT_EQ(ODCAPI_Initialize(10, 0), VZ_OK);
    EXPECT_EQ(ODCAPI_Terminate(0), VZ_OK);
    EXPECT_EQ(ODCAPI_Terminate(0), VZ_OK);
    EXPECT_EQ(ODCAPI_Terminate(0), VZ_OK);
    EXPECT_EQ(VZAPI_Terminate(), 0U);
}

}  // namespace
