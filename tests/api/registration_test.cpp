// DllRegisterServer and DllUnregisterServer of the shared library, on a settings store of the test's own.
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>

#include "platform/registry.h"
#include "support/registry_sandbox.h"
#include "vzapi/vzapi.h"

namespace {

using vzapi::platform::registry_has_key;
using vzapi::platform::registry_read;
using vzapi::platform::registry_write;
using vzapi::test::RegistrySandbox;
using vzapi::test::Store;

constexpr const char16_t* kKey = u"SOFTWARE\\Corvanet\\API\\";

TEST(Registration, WritesThePathOfTheLibraryUnderBothNames) {
    const RegistrySandbox sandbox;
    for (int call = 0; call < 2; ++call) {
        EXPECT_EQ(DllRegisterServer(), 0);
        const std::optional<std::u16string> conversion = registry_read(kKey, u"VZAPI64");
        const std::optional<std::u16string> data_object = registry_read(kKey, u"ODCAPI64");
        ASSERT_TRUE(conversion.has_value());
        EXPECT_EQ(conversion, data_object);
        const std::filesystem::path path(*conversion);
        EXPECT_TRUE(path.is_absolute()) << path;
        EXPECT_TRUE(std::filesystem::exists(path)) << path;
        EXPECT_NE(path.filename().string().find("vzapi."), std::string::npos) << path;
    }
}

TEST(Registration, RemovesBothValuesAndLeavesTheKey) {
    const RegistrySandbox sandbox;
    EXPECT_EQ(DllRegisterServer(), 0);
    ASSERT_TRUE(registry_write(kKey, u"Other", u"kept"));
    for (int call = 0; call < 2; ++call) {
        EXPECT_EQ(DllUnregisterServer(), 0);
        EXPECT_FALSE(registry_read(kKey, u"VZAPI64").has_value());
        EXPECT_FALSE(registry_read(kKey, u"ODCAPI64").has_value());
        EXPECT_EQ(registry_read(kKey, u"Other"), u"kept");
    }
}

TEST(Registration, UnregisteringWithoutRegistrationMakesNothing) {
    const RegistrySandbox sandbox;
    EXPECT_EQ(DllUnregisterServer(), 0);
    EXPECT_FALSE(registry_has_key(kKey));
}

TEST(Registration, AStoreThatCannotBeWrittenIsPassedOverInSilence) {
    const RegistrySandbox sandbox(Store::Unusable);
    EXPECT_EQ(DllRegisterServer(), 0);
    EXPECT_EQ(DllUnregisterServer(), 0);
    EXPECT_FALSE(registry_read(kKey, u"VZAPI64").has_value());
}

}  // namespace
