#include "platform/registry.h"

#include <gtest/gtest.h>

#include "support/failing_allocations.h"
#include "support/registry_sandbox.h"

namespace vzapi::platform {
namespace {

using test::RegistrySandbox;
using test::Store;

constexpr std::u16string_view kKey = u"SOFTWARE\\Corvanet\\API";
constexpr std::u16string_view kKeyWithEnd = u"SOFTWARE\\Corvanet\\API\\";

TEST(Registry, WritesReadsAndDeletes) {
    const RegistrySandbox sandbox;
    ASSERT_FALSE(registry_has_key(kKey));
    ASSERT_TRUE(registry_create_key(kKey));
    EXPECT_TRUE(registry_has_key(kKey));
    EXPECT_EQ(registry_read(kKey, u"VZAPI64"), std::nullopt);
    EXPECT_TRUE(registry_write(kKey, u"VZAPI64", u"C:\\Programme\\vzapi.dll"));
    EXPECT_EQ(registry_read(kKey, u"VZAPI64"), u"C:\\Programme\\vzapi.dll");
    EXPECT_TRUE(registry_delete_value(kKey, u"VZAPI64"));
    EXPECT_EQ(registry_read(kKey, u"VZAPI64"), std::nullopt);
    EXPECT_TRUE(registry_has_key(kKey)) << "the key goes with its values";
}

TEST(Registry, ATrailingBackslashOfAKeyDoesNotMatter) {
    const RegistrySandbox sandbox;
    ASSERT_TRUE(registry_create_key(kKeyWithEnd));
    EXPECT_TRUE(registry_has_key(kKey));
    EXPECT_TRUE(registry_has_key(kKeyWithEnd));
    EXPECT_TRUE(registry_write(kKeyWithEnd, u"name", u"value"));
    EXPECT_EQ(registry_read(kKey, u"name"), u"value");
    EXPECT_EQ(registry_read(kKeyWithEnd, u"name"), u"value");
    EXPECT_TRUE(registry_delete_value(kKey, u"name"));
    EXPECT_EQ(registry_read(kKeyWithEnd, u"name"), std::nullopt);
}

TEST(Registry, CreatingTwiceKeepsWhatIsThere) {
    const RegistrySandbox sandbox;
    ASSERT_TRUE(registry_create_key(kKey));
    ASSERT_TRUE(registry_write(kKey, u"name", u"value"));
    EXPECT_TRUE(registry_create_key(kKey));
    EXPECT_EQ(registry_read(kKey, u"name"), u"value");
}

TEST(Registry, WritingTwiceKeepsTheLastValue) {
    const RegistrySandbox sandbox;
    ASSERT_TRUE(registry_create_key(kKey));
    EXPECT_TRUE(registry_write(kKey, u"name", u"a long first value"));
    EXPECT_TRUE(registry_write(kKey, u"name", u"second"));
    EXPECT_EQ(registry_read(kKey, u"name"), u"second");
    EXPECT_TRUE(registry_write(kKey, u"other", u"third"));
    EXPECT_EQ(registry_read(kKey, u"name"), u"second");
}

TEST(Registry, KeepsValuesOfEveryKind) {
    const RegistrySandbox sandbox;
    ASSERT_TRUE(registry_create_key(kKey));
    const std::u16string values[] = {u"",
                                     u"x",
                                     u"Gr\u00FC\u00DFe \u65E5\u672C \U0001F600",
                                     std::u16string(u"zero\0inside", 11),
                                     u"two\r\nlines\n",
                                     std::u16string(255, u'a'),
                                     std::u16string(256, u'b'),
                                     std::u16string(5000, u'c')};
    for (const std::u16string& value : values) {
        EXPECT_TRUE(registry_write(kKey, u"name", value));
        EXPECT_EQ(registry_read(kKey, u"name"), value);
    }
}

TEST(Registry, WhatIsMissingIsSaidToBe) {
    const RegistrySandbox sandbox;
    EXPECT_FALSE(registry_has_key(kKey));
    EXPECT_EQ(registry_read(kKey, u"name"), std::nullopt);
    EXPECT_FALSE(registry_write(kKey, u"name", u"value")) << "no key to write to";
    EXPECT_FALSE(registry_delete_value(kKey, u"name"));
    ASSERT_TRUE(registry_create_key(kKey));
    EXPECT_FALSE(registry_delete_value(kKey, u"name")) << "no value to delete";
    EXPECT_EQ(registry_read(kKey, u"name"), std::nullopt);
}

TEST(Registry, AKeyIsNoValueAndAValueNoKey) {
    const RegistrySandbox sandbox;
    ASSERT_TRUE(registry_create_key(u"SOFTWARE\\Corvanet"));
    ASSERT_TRUE(registry_write(u"SOFTWARE\\Corvanet", u"value", u"text"));
    EXPECT_FALSE(registry_has_key(u"SOFTWARE\\Corvanet\\value"));
    EXPECT_EQ(registry_read(u"SOFTWARE", u"Corvanet"), std::nullopt);
    EXPECT_FALSE(registry_delete_value(u"SOFTWARE", u"Corvanet"));
    EXPECT_TRUE(registry_has_key(u"SOFTWARE\\Corvanet"));
}

TEST(Registry, NamesThatCannotBeAreRefused) {
    const RegistrySandbox sandbox;
    ASSERT_TRUE(registry_create_key(kKey));
    for (const std::u16string_view key :
         {std::u16string_view(), std::u16string_view(u"\\"), std::u16string_view(u"a\0b", 3)}) {
        EXPECT_FALSE(registry_create_key(key));
        EXPECT_FALSE(registry_has_key(key));
        EXPECT_FALSE(registry_write(key, u"name", u"value"));
        EXPECT_EQ(registry_read(key, u"name"), std::nullopt);
    }
    for (const std::u16string_view name : {std::u16string_view(), std::u16string_view(u"a\0b", 3)}) {
        EXPECT_FALSE(registry_write(kKey, name, u"value"));
        EXPECT_EQ(registry_read(kKey, name), std::nullopt);
        EXPECT_FALSE(registry_delete_value(kKey, name));
    }
}

TEST(Registry, AStoreThatCannotBeUsedMakesEveryCallFail) {
    const RegistrySandbox sandbox(Store::Unusable);
    EXPECT_FALSE(registry_create_key(kKey));
    EXPECT_FALSE(registry_has_key(kKey));
    EXPECT_FALSE(registry_write(kKey, u"name", u"value"));
    EXPECT_EQ(registry_read(kKey, u"name"), std::nullopt);
    EXPECT_FALSE(registry_delete_value(kKey, u"name"));
}

// Runs `call` with its first, second, third ... allocation failing, until it needs no more.
template <class Call>
void expect_false_whenever_memory_fails(Call call) {
    for (std::size_t n = 1; n < 1000; ++n) {
        test::FailingAllocations failing(n);
        const bool done = call();
        failing.stop();
        if (!failing.failed()) {
            EXPECT_GE(n, 2U) << "nothing was ever allocated";
            EXPECT_TRUE(done);
            return;
        }
        EXPECT_FALSE(done) << "allocation " << n;
    }
    FAIL() << "never succeeds";
}

TEST(Registry, FailsWhenMemoryDoes) {
    if (!test::FailingAllocations::sees_operator_new()) GTEST_SKIP() << "operator new cannot be counted here";
    const RegistrySandbox sandbox;
    const std::u16string key = u"SOFTWARE\\A key long enough to be allocated\\Below it another key";
    const std::u16string name = u"a name long enough to be allocated";
    expect_false_whenever_memory_fails([&] { return registry_create_key(key); });
    expect_false_whenever_memory_fails([&] { return registry_has_key(key); });
    expect_false_whenever_memory_fails(
        [&] { return registry_write(key, name, u"a value long enough, too"); });
    expect_false_whenever_memory_fails([&] { return registry_delete_value(key, name); });
}

}  // namespace
}  // namespace vzapi::platform
