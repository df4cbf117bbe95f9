// Initialise and terminate, as a host application sees them.
#include <gtest/gtest.h>

#include <cstdint>

#include "vzapi/vzapi.h"

namespace {

TEST(Lifecycle, ReportsInterfaceVersionSixteen) {
    EXPECT_EQ(VZAPI_GetAPIVersion(), 16U);
}

TEST(Lifecycle, EveryVersionButZeroIsAcceptedAndCounted) {
    std::uint32_t count = 0;
    for (const std::uint32_t version : {5U, 1000U, 1U, 9U, 10U, 16U, 17U, UINT32_MAX}) {
        EXPECT_EQ(VZAPI_Initialize(version), ++count) << version;
    }
    while (count > 0) EXPECT_EQ(VZAPI_Terminate(), --count);
}

TEST(Lifecycle, VersionZeroThrowsTheResultCodeToTheHost) {
    VZAPI_Initialize(16);
    bool caught = false;
    try {
        VZAPI_Initialize(0);
    } catch (std::uint32_t code) {
        caught = true;
        EXPECT_EQ(code, 0x80100005U);
    }
    EXPECT_TRUE(caught);
    EXPECT_EQ(VZAPI_Initialize(16), 2U) << "the refused call must not have counted";
    VZAPI_Terminate();
    VZAPI_Terminate();
}

// What tells the announced version from outside: from 13 on the release of a record of a wrong size is refused.
ResultCode release_wrong_size() {
    BookmarkItem item{24, nullptr, nullptr, nullptr};
    return FreeConverterData(VZ_TYPE_BOOKMARK, &item);
}

TEST(Lifecycle, TheLastAnnouncedVersionCountsAndStays) {
    VZAPI_Initialize(16);
    EXPECT_EQ(release_wrong_size(), 0x80100013U);
    VZAPI_Initialize(12);
    EXPECT_EQ(release_wrong_size(), 0U);
    EXPECT_THROW(VZAPI_Initialize(0), std::uint32_t);
    EXPECT_EQ(release_wrong_size(), 0U) << "a refused version is not stored";
    VZAPI_Initialize(13);
    EXPECT_EQ(release_wrong_size(), 0x80100013U);
    while (VZAPI_Terminate() != 0) EXPECT_EQ(release_wrong_size(), 0x80100013U);
    EXPECT_EQ(release_wrong_size(), 0x80100013U) << "terminating does not take the version back";
}

TEST(Lifecycle, ThreeInitialisationsAreTakenBackOneByOne) {
    for (int i = 0; i < 3; ++i) VZAPI_Initialize(16);
    EXPECT_EQ(VZAPI_Terminate(), 2U);
    EXPECT_EQ(VZAPI_Terminate(), 1U);
    EXPECT_EQ(VZAPI_Terminate(), 0U);
}

TEST(Lifecycle, TerminateWithoutInitialiseReturnsZero) {
    EXPECT_EQ(VZAPI_Terminate(), 0U);
    EXPECT_EQ(VZAPI_Terminate(), 0U);
}

}  // namespace
