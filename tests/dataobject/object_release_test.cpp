// What the release functions give back to the process heap: each block once, and all of them.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "dataobject/email_text.h"
#include "platform/allocation_gate.h"
#include "support/text.h"
#include "vzapi/odcapi.h"

namespace vzapi::test {
namespace {

std::vector<const void*> g_released;

// The blocks that `release` gives back.
template <class Release>
std::vector<const void*> blocks_released_by(Release release) {
    g_released.clear();
    platform::g_test_only_release_observer = [](const void* block, std::size_t) noexcept {
        g_released.push_back(block);
    };
    EXPECT_EQ(release(), VZ_OK);
    platform::g_test_only_release_observer = nullptr;
    return g_released;
}

using Blocks = std::vector<const void*>;

TEST(ObjectRelease, TheArraysOfAnEmailItem) {
    const DataObject in = object_of("<Email><read>1</read><created>2024-05-06</created></Email>");
    EmailItem item{};
    ASSERT_EQ(ODCAPI_ParseDataObject(VZ_OBJECT_EMAIL, &in, &item), VZ_OK);
    const Blocks blocks{item.times, item.flags};
    const auto release = [&] { return ODCAPI_FreeParsedData(VZ_OBJECT_EMAIL, &item); };
    EXPECT_EQ(blocks_released_by(release), blocks);
    EXPECT_EQ(blocks_released_by(release), Blocks());
}

TEST(ObjectRelease, TheTextAndTheAddressesOfAMessage) {
    std::u16string text =
        u"BEGIN:VMSG\r\nVERSION:1.1\r\nBEGIN:VCARD\r\nTEL:1\r\nTEL:2\r\nEND:VCARD\r\nBEGIN:VBODY\r\na\r\n";
    const DataObject in = data_of(text);
    MessageItem item{};
    item.size = sizeof item;
    ASSERT_EQ(ODCAPI_ParseDataObject(VZ_OBJECT_MESSAGE, &in, &item), VZ_OK);
    const Blocks blocks{item.text, item.addresses};
    const auto release = [&] { return ODCAPI_FreeParsedData(VZ_OBJECT_MESSAGE, &item); };
    EXPECT_EQ(blocks_released_by(release), blocks);
    EXPECT_EQ(blocks_released_by(release), Blocks());
}

TEST(ObjectRelease, TheBytesOfADataObject) {
    MessageItem item{};
    item.size = sizeof item;
    DataObject object{sizeof object, 0, 0, nullptr};
    EXPECT_EQ(blocks_released_by([&] { return ODCAPI_CreateDataObject(VZ_OBJECT_MESSAGE, &item, &object); }),
              Blocks())
        << "the text of the conversion becomes that of the object";
    const Blocks blocks{object.text};
    EXPECT_EQ(blocks_released_by([&] { return ODCAPI_FreeDataObject(&object); }), blocks);
}

TEST(ObjectRelease, ValidatingKeepsNothing) {
    const DataObject email = object_of("<Email><read>1</read><created>2024-05-06</created></Email>");
    EXPECT_EQ(blocks_released_by([&] { return ODCAPI_ValidateDataObject(VZ_OBJECT_EMAIL, &email); }).size(),
              2U);
}

}  // namespace
}  // namespace vzapi::test
