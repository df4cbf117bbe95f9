// ContactItem to vCard 2.1 text: pictures.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "support/failing_allocations.h"
#include "vcard/written_contact.h"

namespace vzapi::test {
namespace {

struct TypeCase {
    Text type;
    std::string written;
};

TEST(ContactWriting, TheImageTypeIsABeginningOfAKnownNameOrJpeg) {
    const TypeCase rows[] = {
        {std::nullopt, "JPEG"}, {u"JPG", "JPG"},      {u"JPEG", "JPEG"}, {u"JPE", "JPE"},   {u"JFIF", "JFIF"},
        {u"PNG", "PNG"},        {u"BMP", "BMP"},      {u"GIF", "GIF"},   {u"TIFF", "JPEG"}, {u"jpeg", "JPEG"},
        {u"PN", "PN"},          {u"J", "J"},          {u"JP", "JP"},     {u"B", "B"},       {u"gif", "JPEG"},
        {u"PNGX", "JPEG"},      {u"JPEGS", "JPEG"},   {u"NG", "JPEG"},   {u"Png", "JPEG"},  {u" PNG", "JPEG"},
        {u"P\u00D1G", "JPEG"},  {u"\u014APG", "JPEG"}};
    for (const TypeCase& row : rows) {
        EXPECT_EQ(written(Contact{photo(row.type, "abc")}),
                  card({"PHOTO;ENCODING=BASE64;TYPE=" + row.written + ":YWJj"}))
            << row.written;
    }
}

TEST(ContactWriting, AnEmptyImageTypeIsTheBeginningOfEveryName) {
    EXPECT_EQ(written(Contact{photo(u"", "abc")}), card({"PHOTO;ENCODING=BASE64;TYPE=:YWJj"}));
}

TEST(ContactWriting, APhotoOfSeveralLinesIsFollowedByAnEmptyLine) {
    const std::string bytes(90, '\0');
    EXPECT_EQ(written(Contact{photo(u"PNG", bytes), text(11, u"x")}),
              card({"PHOTO;ENCODING=BASE64;TYPE=PNG:" + std::string(45, 'A'), " " + std::string(75, 'A'), "",
                    "X-EPOCSECONDNAME:x"}));
}

TEST(ContactWriting, ALargePhotoCostsNoMoreAllocationsThanASmallOne) {
    if (!FailingAllocations::sees_operator_new()) GTEST_SKIP() << "operator new is not counted here";
    std::vector<std::size_t> asked;
    for (const std::size_t size : {std::size_t{1} << 10, std::size_t{1} << 20, std::size_t{1} << 22}) {
        ContactRecord record({photo(u"PNG", std::string(size, 'x'))});
        FailingAllocations counting(FailingAllocations::kNone);
        const std::string out = written(record.item());
        counting.stop();
        asked.push_back(counting.asked());
        EXPECT_GT(out.size(), size / 3 * 4);
        EXPECT_LT(out.size(), size / 3 * 4 + size / 3 * 4 / 75 * 3 + 200) << "folded, and nothing else";
    }
    EXPECT_LE(asked[1], asked[0] + 2);
    EXPECT_EQ(asked[2], asked[1]);
}

TEST(ContactWriting, APhotoOfAnotherSizeOrWithoutDataIsSkipped) {
    for (const std::uint32_t size : {0U, 24U, 31U, 33U, 64U}) {
        ContactRecord record({photo(u"PNG", "abc")});
        record.item()->general[0].value.photo->size = size;
        EXPECT_EQ(written(record.item()), card({})) << size;
    }
    ContactRecord record({photo(u"PNG", "abc"), photo(u"PNG", "abc")});
    record.item()->general[0].value.photo->dataLength = 0;
    record.item()->general[1].value.photo->data = nullptr;
    EXPECT_EQ(written(record.item()), card({}));
}

}  // namespace
}  // namespace vzapi::test
