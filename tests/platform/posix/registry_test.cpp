#include "platform/registry.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "support/environment.h"
#include "support/registry_sandbox.h"

namespace vzapi::platform {
namespace {

namespace fs = std::filesystem;

fs::path store() {
    return test::environment("VZAPI_REGISTRY").value();
}

std::string content(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::size_t entries(const fs::path& folder) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

TEST(RegistryOfPosix, IsAFolderAKeyAndAFileAValue) {
    const test::RegistrySandbox sandbox;
    ASSERT_TRUE(registry_create_key(u"SOFTWARE\\Corvanet\\API\\"));
    ASSERT_TRUE(
        registry_write(u"SOFTWARE\\Corvanet\\API\\", u"VZAPI64", u"/opt/gr\u00FC\u00DFe/libvzapi.so"));
    const fs::path folder = store() / "SOFTWARE" / "Corvanet" / "API";
    EXPECT_EQ(content(folder / "VZAPI64"),
              "/opt/gr\xC3\xBC\xC3\x9F"
              "e/libvzapi.so");
    EXPECT_EQ(entries(folder), 1U);
    const fs::perms readable = fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read;
    EXPECT_EQ(fs::status(folder / "VZAPI64").permissions() & readable, readable);
}

TEST(RegistryOfPosix, LeavesNothingBehindWhenAWriteFails) {
    const test::RegistrySandbox sandbox;
    ASSERT_TRUE(registry_create_key(u"key\\folder"));
    EXPECT_FALSE(registry_write(u"key", u"folder", u"value"));
    EXPECT_EQ(entries(store() / "key"), 1U);
}

TEST(RegistryOfPosix, NamesDoNotLeadOutOfTheStore) {
    const test::RegistrySandbox sandbox;
    ASSERT_TRUE(registry_create_key(u"key"));
    for (const std::u16string_view bad : {u"..", u".", u"a/b", u"/etc", u"../x"}) {
        const std::u16string below = u"key\\" + std::u16string(bad);
        EXPECT_FALSE(registry_create_key(bad));
        EXPECT_FALSE(registry_create_key(below));
        EXPECT_FALSE(registry_create_key(below + u"\\key"));
        EXPECT_FALSE(registry_has_key(below));
        EXPECT_FALSE(registry_write(u"key", bad, u"value"));
        EXPECT_FALSE(registry_delete_value(u"key", bad));
        EXPECT_EQ(registry_read(u"key", bad), std::nullopt);
    }
    EXPECT_FALSE(registry_create_key(u"key\\\\below"));
    EXPECT_FALSE(registry_create_key(u"\\key"));
    EXPECT_EQ(entries(store()), 1U);
    EXPECT_EQ(entries(store() / "key"), 0U);
}

}  // namespace
}  // namespace vzapi::platform
