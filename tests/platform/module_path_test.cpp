#include "platform/module_path.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace vzapi::platform {
namespace {

TEST(ModulePath, IsAbsoluteAndNamesTheProgramThatTheCodeIsLinkedInto) {
    const std::filesystem::path path(module_path());
    EXPECT_TRUE(path.is_absolute()) << path;
    EXPECT_TRUE(std::filesystem::is_regular_file(path)) << path;
    EXPECT_EQ(path.stem(), "vzapi_tests") << path;
}

TEST(ModulePath, DoesNotDependOnTheCurrentFolder) {
    const std::u16string before = module_path();
    const std::filesystem::path folder = std::filesystem::current_path();
    std::filesystem::current_path(folder.root_path());
    EXPECT_EQ(module_path(), before);
    std::filesystem::current_path(folder);
}

}  // namespace
}  // namespace vzapi::platform
