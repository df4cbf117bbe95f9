#include "vmessage/message_codes.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "vzapi/message.h"

namespace vzapi::vmessage {
namespace {

struct CodeRow {
    std::uint32_t code;
    std::string_view name;
};

// One row a word, in the order of the codes, which begin at 1.
constexpr std::array<CodeRow, 12> kStatuses{{
    {VZ_MESSAGE_STATUS_UNSENT, "UNSENT"},
    {VZ_MESSAGE_STATUS_SENT, "SENT"},
    {VZ_MESSAGE_STATUS_FAILED, "FAILED"},
    {VZ_MESSAGE_STATUS_UNREAD, "UNREAD"},
    {VZ_MESSAGE_STATUS_READ, "READ"},
    {VZ_MESSAGE_STATUS_DRAFT, "DRAFT"},
    {VZ_MESSAGE_STATUS_PENDING, "PENDING"},
    {VZ_MESSAGE_STATUS_CANCELLED, "CANCELLED"},
    {VZ_MESSAGE_STATUS_DELIVERED, "DELIVERED"},
    {VZ_MESSAGE_STATUS_RECEIVING, "RECEIVING"},
    {VZ_MESSAGE_STATUS_TEMP_FAIL, "TEMP_FAIL"},
    {VZ_MESSAGE_STATUS_SENDING, "SENDING"},
}};

constexpr std::array<CodeRow, 6> kTypes{{
    {VZ_MESSAGE_TYPE_DELIVER, "DELIVER"},
    {VZ_MESSAGE_TYPE_DELIVER_REPORT, "DELIVER_REPORT"},
    {VZ_MESSAGE_TYPE_SUBMIT, "SUBMIT"},
    {VZ_MESSAGE_TYPE_SUBMIT_REPORT, "SUBMIT_REPORT"},
    {VZ_MESSAGE_TYPE_STATUS_REPORT, "STATUS_REPORT"},
    {VZ_MESSAGE_TYPE_SMS_COMMAND, "SMS_COMMAND"},
}};

constexpr std::array<CodeRow, 4> kFolders{{
    {VZ_FOLDER_INBOX, "INBOX"},
    {VZ_FOLDER_OUTBOX, "OUTBOX"},
    {VZ_FOLDER_DRAFTS, "DRAFTS"},
    {VZ_FOLDER_SENT, "SENT"},
}};

template <class Table>
constexpr bool codes_begin_at_1(const Table& table) {
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (table[i].code != i + 1) return false;
    }
    return true;
}
static_assert(codes_begin_at_1(kStatuses) && codes_begin_at_1(kTypes) && codes_begin_at_1(kFolders));

template <class Table>
std::string_view name_of(const Table& table, std::uint32_t code) noexcept {
    return code >= 1 && code <= table.size() ? table[code - 1].name : std::string_view{};
}

template <class Table>
std::uint32_t code_of(const Table& table, std::u16string_view name) noexcept {
    const auto row = std::find_if(table.begin(), table.end(), [&](const CodeRow& candidate) {
        return std::equal(candidate.name.begin(), candidate.name.end(), name.begin(), name.end(),
                          [](char expected, char16_t unit) { return unit == char16_t(expected); });
    });
    return row == table.end() ? 0 : row->code;
}

}  // namespace

std::string_view status_name(std::uint32_t code) noexcept {
    return name_of(kStatuses, code);
}

std::string_view type_name(std::uint32_t code) noexcept {
    return name_of(kTypes, code);
}

std::string_view folder_name(std::uint32_t code) noexcept {
    return name_of(kFolders, code);
}

std::uint32_t status_code(std::u16string_view name) noexcept {
    return code_of(kStatuses, name);
}

std::uint32_t type_code(std::u16string_view name) noexcept {
    return code_of(kTypes, name);
}

std::uint32_t folder_code(std::u16string_view name) noexcept {
    return code_of(kFolders, name);
}

}  // namespace vzapi::vmessage
