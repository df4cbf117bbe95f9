#include "vcalendar/calendar_writing.h"

#include <cstring>

#include "result.h"
#include "vcalendar/calendar_record.h"
#include "vcalendar/calendar_time.h"
#include "versit/text_cleanup.h"
#include "vzapi/vzapi.h"

namespace vzapi::vcalendar {
namespace {

bool asks_for_version_2(const WriterContext& context) noexcept {
    return context.option1 == VZ_PROFILE_20 && context.option2 >= VZ_PROFILE_20_CALENDAR_2 &&
           context.option3 != 0;
}

CalendarItem load_item(platform::CallerMemory& memory, const void* address) {
    std::uint32_t size = 0;
    if (!memory.load(address, size)) raise(VZ_ERR_POINTER);
    const std::span<const std::byte> bytes = memory.bytes(address, record_length(size));
    if (bytes.empty()) raise(VZ_ERR_POINTER);
    CalendarItem item{};
    std::memcpy(&item, bytes.data(), bytes.size());
    return item;
}

bool is_escaped(char16_t unit) noexcept {
    return unit == u'\\' || unit == u';' || unit == u',';
}

}  // namespace

CalendarWriting::CalendarWriting(const void* item, const WriterContext& context)
    : api_version_(context.api_version),
      is_version_2_(asks_for_version_2(context)),
      item_(load_item(memory_, item)),
      switches_(size_switches(item_.size, context.api_version)) {}

std::string_view CalendarWriting::date_text(const CalendarTime& time) {
    date_.clear();
    if (is_valid(time)) append_zoned_date_text(time, date_);
    return date_;
}

void CalendarWriting::append_text(std::u16string_view text, std::u16string& value) const {
    if (!is_version_2_) {
        value.append(text);
        return;
    }
    for (const char16_t unit : text) {
        if (is_escaped(unit)) value.push_back(u'\\');
        value.push_back(unit);
    }
}

void CalendarWriting::text_line(versit::PropertyId property, std::u16string_view text) {
    std::u16string_view clean = versit::clean_text(text, clean_);
    if (clean.empty()) clean = text;  // control characters alone are better than nothing
    value_.clear();
    append_text(clean, value_);
    lines_.property(property, {}, value_);
}

void CalendarWriting::number_line(versit::PropertyId property, std::uint32_t number) {
    lines_.property(property, {}, std::string_view(std::to_string(number)));
}

}  // namespace vzapi::vcalendar
