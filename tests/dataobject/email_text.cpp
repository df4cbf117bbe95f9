#include "dataobject/email_text.h"

#include <cstdio>
#include <span>

namespace vzapi::test {
namespace {

constexpr const char* kFlagNames[] = {"?", "read", "forwarded", "replied", "deleted", "flagged"};
constexpr const char* kTimeNames[] = {"?", "created", "modified", "received"};

template <std::size_t count>
std::string name_of(const char* const (&names)[count], std::uint32_t id) {
    return id < count ? names[id] : names[0];
}

std::string word_of(const EmailFlagField& flag) {
    const std::string word = name_of(kFlagNames, flag.id) + "=" + std::to_string(flag.value);
    return flag.size == 12 ? word : word + "!";
}

std::string word_of(const EmailTimeField& field) {
    const MessageTime& time = field.time;
    char text[40];
    std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d", time.year, time.month, time.day,
                  time.hour, time.minute, time.second);
    const auto* const bytes = reinterpret_cast<const unsigned char*>(&time);
    bool is_clean = field.size == 28 && time.reserved == 0;
    for (std::size_t i = 11; i < sizeof time; ++i) is_clean = is_clean && bytes[i] == 0;
    return name_of(kTimeNames, field.id) + "=" + text + (is_clean ? "" : "!");
}

void append_unit(char16_t unit, std::string& text) {
    if (unit >= 0x20 && unit < 0x7F) {
        text += static_cast<char>(unit);
        return;
    }
    char escape[8];
    std::snprintf(escape, sizeof escape, "\\u%04X", static_cast<unsigned>(unit));
    text += escape;
}

}  // namespace

std::string described(const EmailItem& item) {
    std::string text;
    for (const EmailFlagField& flag : std::span(item.flags, item.flagCount)) text += word_of(flag) + " ";
    for (const EmailTimeField& time : std::span(item.times, item.timeCount)) text += word_of(time) + " ";
    if (item.itemText != nullptr) {
        text += "text=";
        for (const char16_t* unit = item.itemText; *unit != 0; ++unit) append_unit(*unit, text);
    } else if (!text.empty()) {
        text.pop_back();
    }
    if ((item.flagCount == 0) != (item.flags == nullptr)) text += " wrong flags";
    if ((item.timeCount == 0) != (item.times == nullptr)) text += " wrong times";
    if (item.size != sizeof item) text += " wrong size";
    return text;
}

std::string email_of(std::string_view document) {
    const DataObject in = object_of(document);
    EmailRecord record;
    const ResultCode code = ODCAPI_ParseDataObject(VZ_OBJECT_EMAIL, &in, &record.item);
    const std::string text = described(record.item);
    if (code == VZ_OK) return text;
    char number[16];
    std::snprintf(number, sizeof number, "%08X", static_cast<unsigned>(code));
    return text.empty() ? number : number + (" " + text);
}

}  // namespace vzapi::test
