// An e-mail item through the interface: read, read again, released. Whatever the bytes, the results are those
// that the interface promises, both readings agree, and nothing leaks.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>

#include "fuzz_check.h"
#include "vzapi/odcapi.h"

namespace vzapi::fuzz {
namespace {

EmailItem dirty_item(int fill) {
    EmailItem item;
    std::memset(&item, fill, sizeof item);
    item.size = sizeof item;
    return item;
}

void check_flags(const EmailItem& item) {
    check((item.flags == nullptr) == (item.flagCount == 0), "an array exactly when there are flags");
    for (const EmailFlagField& flag : std::span(item.flags, item.flagCount)) {
        check(flag.size == sizeof flag && flag.id >= 1 && flag.id <= 5 && flag.value <= 1,
              "a flag is a flag");
    }
}

bool is_in_calendar(const MessageTime& time) {
    return time.year != 0 && time.month <= 12 && time.day <= 31 && time.hour < 24 && time.minute < 60 &&
           time.second < 60;
}

void check_times(const EmailItem& item) {
    check((item.times == nullptr) == (item.timeCount == 0), "an array exactly when there are times");
    for (const EmailTimeField& field : std::span(item.times, item.timeCount)) {
        check(field.size == sizeof field && field.id >= 1 && field.id <= 3, "a time is a time");
        check(is_in_calendar(field.time), "a time is in the calendar");
    }
}

template <class Field>
bool same(const Field* left, const Field* right, std::size_t count) {
    return count == 0 || std::memcmp(left, right, count * sizeof(Field)) == 0;
}

void check_same(const EmailItem& left, const EmailItem& right) {
    check(left.flagCount == right.flagCount && same(left.flags, right.flags, left.flagCount),
          "the same flags");
    check(left.timeCount == right.timeCount && same(left.times, right.times, left.timeCount),
          "the same times");
    check((left.itemText == nullptr) == (right.itemText == nullptr), "a text both times");
    if (left.itemText == nullptr) return;
    const std::u16string text = left.itemText;
    check(!text.empty() && text == right.itemText, "the same text");
}

void release(EmailItem& item) {
    check(ODCAPI_FreeParsedData(VZ_OBJECT_EMAIL, &item) == VZ_OK, "the record is released");
    const bool is_empty = item.flagCount == 0 && item.flags == nullptr && item.timeCount == 0 &&
                          item.times == nullptr && item.itemText == nullptr;
    check(is_empty && item.size == sizeof item, "a released record is empty");
}

}  // namespace
}  // namespace vzapi::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vzapi::fuzz;
    if (size > kLongestInput) return 0;
    std::string bytes(data, data + size);
    const DataObject in{sizeof in, 0, static_cast<std::uint32_t>(size), bytes.data()};
    EmailItem item = dirty_item(0xA5);
    EmailItem again = dirty_item(0x5A);
    const ResultCode result = ODCAPI_ParseDataObject(VZ_OBJECT_EMAIL, &in, &item);
    check(result == VZ_OK || result == VZ_ERR_BAD_VALUE, "result " + std::to_string(result));
    check(ODCAPI_ParseDataObject(VZ_OBJECT_EMAIL, &in, &again) == result, "the same result again");
    check_flags(item);
    check_times(item);
    check_same(item, again);
    if (result != VZ_OK)
        check(item.flagCount == 0 && item.timeCount == 0 && item.itemText == nullptr, "empty");
    release(item);
    release(again);
    if (size > 0) check(ODCAPI_ValidateDataObject(VZ_OBJECT_EMAIL, &in) == VZ_OK, "always valid");
    return 0;
}
