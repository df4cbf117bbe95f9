#include "api/converter_table.h"

#include <array>

#include "result.h"
#include "vbookmark/bookmark.h"
#include "vcalendar/calendar_reader.h"
#include "vcalendar/calendar_record.h"
#include "vcalendar/calendar_writer.h"
#include "vcard/contact_group.h"
#include "vcard/contact_reader.h"
#include "vcard/contact_record.h"
#include "vcard/contact_writer.h"
#include "vmessage/message_reader.h"
#include "vmessage/message_record.h"
#include "vmessage/message_writer.h"
#include "vzapi/vzapi.h"

namespace vzapi {
namespace {

using enum OutputSize;

constexpr NarrowConverter kContactConverter{vcard::read_contact, vcard::write_contact};
constexpr NarrowConverter kCalendarConverter{vcalendar::read_calendar, vcalendar::write_calendar};
constexpr WideConverter kMessageConverter{vmessage::read, vmessage::write};
constexpr NarrowConverter kBookmarkConverter{vbookmark::read, vbookmark::write};
constexpr NarrowConverter kContactGroupConverter{vcard::read_contact_group, vcard::write_contact_group};

constexpr std::uint32_t kContactSizes[] = {64};
constexpr std::uint32_t kCalendarSizes[] = {112, 128, 152, 192};
constexpr std::uint32_t kMessageSizes[] = {64};
constexpr std::uint32_t kBookmarkSizes[] = {32};
constexpr std::uint32_t kContactGroupSizes[] = {32};

// One row a type code, in the order of the codes, which begin at 1.
constexpr std::array<ConverterRow, 5> kConverters{{
    // clang-format off
    {VZ_TYPE_CONTACT,       kContactSizes,      "BEGIN:VCARD",     "END:VCARD",     &kContactConverter,      nullptr,            Any,   vcard::release_contact},
    {VZ_TYPE_CALENDAR,      kCalendarSizes,     "BEGIN:VCALENDAR", "END:VCALENDAR", &kCalendarConverter,     nullptr,            Any,   vcalendar::release_calendar},
    {VZ_TYPE_MESSAGE,       kMessageSizes,      "BEGIN:VMSG",      "END:VMSG",      nullptr,                 &kMessageConverter, Any,   vmessage::release},
    {VZ_TYPE_BOOKMARK,      kBookmarkSizes,     "BEGIN:VBKM",      "END:VBKM",      &kBookmarkConverter,     nullptr,            Any,   vbookmark::release},
    {VZ_TYPE_CONTACT_GROUP, kContactGroupSizes, "BEGIN:VCARD",     "END:VCARD",     &kContactGroupConverter, nullptr,            Exact, vcard::release_contact_group},
    // clang-format on
}};

constexpr bool index_follows_type() {
    for (std::size_t i = 0; i < kConverters.size(); ++i) {
        if (kConverters[i].type != i + 1) return false;
    }
    return true;
}
static_assert(index_follows_type());

}  // namespace

const ConverterRow& converter_of(std::uint32_t type) {
    if (type == 0 || type > kConverters.size()) raise(VZ_ERR_UNKNOWN_TYPE);
    return kConverters[type - 1];
}

}  // namespace vzapi
