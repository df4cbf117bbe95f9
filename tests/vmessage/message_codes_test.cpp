// The words of status, type and folder, row by row.
#include "vmessage/message_codes.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace vzapi::vmessage {
namespace {

struct Row {
    std::uint32_t code;
    std::string_view name;
};

constexpr Row kStatuses[] = {
    {1, "UNSENT"},  {2, "SENT"},      {3, "FAILED"},    {4, "UNREAD"},     {5, "READ"},       {6, "DRAFT"},
    {7, "PENDING"}, {8, "CANCELLED"}, {9, "DELIVERED"}, {10, "RECEIVING"}, {11, "TEMP_FAIL"}, {12, "SENDING"},
};

constexpr Row kTypes[] = {
    {1, "DELIVER"},       {2, "DELIVER_REPORT"}, {3, "SUBMIT"},
    {4, "SUBMIT_REPORT"}, {5, "STATUS_REPORT"},  {6, "SMS_COMMAND"},
};

constexpr Row kFolders[] = {{1, "INBOX"}, {2, "OUTBOX"}, {3, "DRAFTS"}, {4, "SENT"}};

constexpr std::uint32_t kNoCodes[] = {0, 13, 14, 15, 16, 255, 256, UINT32_MAX};

std::u16string wide(std::string_view text) {
    return {text.begin(), text.end()};
}

template <std::size_t Count>
void expect_rows(const Row (&rows)[Count], std::string_view (*name_of)(std::uint32_t) noexcept,
                 std::uint32_t (*code_of)(std::u16string_view) noexcept) {
    for (const Row& row : rows) {
        EXPECT_EQ(name_of(row.code), row.name);
        EXPECT_EQ(code_of(wide(row.name)), row.code);
    }
    for (const std::uint32_t code : kNoCodes) EXPECT_EQ(name_of(code), "") << code;
    EXPECT_EQ(name_of(Count + 1), "");
}

TEST(MessageCodes, EachStatus) {
    expect_rows(kStatuses, status_name, status_code);
}

TEST(MessageCodes, EachType) {
    expect_rows(kTypes, type_name, type_code);
}

TEST(MessageCodes, EachFolder) {
    expect_rows(kFolders, folder_name, folder_code);
}

TEST(MessageCodes, WordsAreComparedExactly) {
    for (const std::u16string_view name :
         {u"inbox", u"Inbox", u"INBOX ", u" INBOX", u"INBO", u"INBOXX", u""}) {
        EXPECT_EQ(folder_code(name), 0U);
    }
    for (const std::u16string_view name : {u"read", u"READ ", u"REA", u"\u0152EAD", u"5", u""}) {
        EXPECT_EQ(status_code(name), 0U);
    }
    for (const std::u16string_view name : {u"deliver", u"DELIVER_", u"DELIVER-REPORT", u"SUBMI\u0154", u""}) {
        EXPECT_EQ(type_code(name), 0U);
    }
    EXPECT_EQ(type_code(std::u16string_view(u"SUBMIT\0", 7)), 0U);
}

TEST(MessageCodes, UnitsBeyondAsciiAreNotTakenForLetters) {
    EXPECT_EQ(folder_code(u"INBO\u0158"), 0U) << "0x158 ends in the byte of X";
}

}  // namespace
}  // namespace vzapi::vmessage
