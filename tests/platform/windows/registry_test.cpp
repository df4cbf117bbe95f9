#include "platform/registry.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>

#include "support/registry_sandbox.h"

namespace vzapi::platform {
namespace {

constexpr std::u16string_view kKey = u"SOFTWARE\\Corvanet\\API\\";
constexpr const wchar_t* kSystemKey = L"SOFTWARE\\Corvanet\\API";

TEST(RegistryOfWindows, WritesStringsWithTheirTerminator) {
    const test::RegistrySandbox sandbox;
    ASSERT_TRUE(registry_create_key(kKey));
    ASSERT_TRUE(registry_write(kKey, u"VZAPI64", u"path"));
    std::array<wchar_t, 16> value{};
    DWORD type = 0;
    DWORD bytes = sizeof value;
    ASSERT_EQ(
        RegGetValueW(HKEY_LOCAL_MACHINE, kSystemKey, L"VZAPI64", RRF_RT_ANY, &type, value.data(), &bytes),
        ERROR_SUCCESS);
    EXPECT_EQ(type, DWORD{REG_SZ});
    EXPECT_EQ(bytes, 5 * sizeof(wchar_t));
    EXPECT_STREQ(value.data(), L"path");
}

TEST(RegistryOfWindows, ReadsStringsOnly) {
    const test::RegistrySandbox sandbox;
    ASSERT_TRUE(registry_create_key(kKey));
    const DWORD number = 5;
    ASSERT_EQ(RegSetKeyValueW(HKEY_LOCAL_MACHINE, kSystemKey, L"number", REG_DWORD, &number, sizeof number),
              ERROR_SUCCESS);
    EXPECT_EQ(registry_read(kKey, u"number"), std::nullopt);
}

TEST(RegistryOfWindows, ReadsAStringWithoutItsTerminator) {
    const test::RegistrySandbox sandbox;
    ASSERT_TRUE(registry_create_key(kKey));
    ASSERT_EQ(RegSetKeyValueW(HKEY_LOCAL_MACHINE, kSystemKey, L"bare", REG_SZ, L"path", 4 * sizeof(wchar_t)),
              ERROR_SUCCESS);
    EXPECT_EQ(registry_read(kKey, u"bare"), u"path");
}

}  // namespace
}  // namespace vzapi::platform
