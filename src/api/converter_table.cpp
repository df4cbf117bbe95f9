#include "api/converter_table.h"

#include <array>

#include "platform/pointer_probe.h"
#include "result.h"
#include "vbookmark/bookmark.h"
#include "vcard/contact_group.h"
#include "vcard/contact_reader.h"
#include "vcard/contact_record.h"
#include "vcard/contact_writer.h"
#include "vzapi/vzapi.h"

namespace vzapi {
namespace {

using enum OutputSize;

// Stand in the rows whose converters the library does not have yet: what comes before a converter works, the
// conversion itself is refused.
template <class Unit>
void read_nothing(const versit::BasicVersitObject<Unit>& object, void* /*item*/,
                  const ReaderContext& /*context*/) {
    if (versit::root_info(std::span(object.lines())).name.empty()) raise(VZ_ERR_INVALID_TEXT);
    raise(VZ_ERR_UNEXPECTED);
}

template <class Unit>
std::basic_string<Unit> write_nothing(const void* /*item*/, const WriterContext& /*context*/) {
    raise(VZ_ERR_UNEXPECTED);
}

void release_nothing(void* item, const ReleaseContext& /*context*/) {
    if (!platform::is_readable(item)) raise(VZ_ERR_POINTER);
    raise(VZ_ERR_UNEXPECTED);
}

constexpr NarrowConverter kNoNarrowConverter{read_nothing<char>, write_nothing<char>};
constexpr WideConverter kNoWideConverter{read_nothing<char16_t>, write_nothing<char16_t>};
constexpr NarrowConverter kContactConverter{vcard::read_contact, vcard::write_contact};
constexpr NarrowConverter kContactGroupConverter{vcard::read_contact_group, vcard::write_contact_group};
constexpr NarrowConverter kBookmarkConverter{vbookmark::read, vbookmark::write};

constexpr std::uint32_t kContactSizes[] = {64};
constexpr std::uint32_t kCalendarSizes[] = {112, 128, 152, 192};
constexpr std::uint32_t kMessageSizes[] = {64};
constexpr std::uint32_t kBookmarkSizes[] = {32};
constexpr std::uint32_t kContactGroupSizes[] = {32};

// One row a type code, in the order of the codes, which begin at 1.
constexpr std::array<ConverterRow, 5> kConverters{{
    // clang-format off
    {VZ_TYPE_CONTACT,       kContactSizes,      "BEGIN:VCARD",     "END:VCARD",     &kContactConverter,      nullptr,           Any,   vcard::release_contact},
    {VZ_TYPE_CALENDAR,      kCalendarSizes,     "BEGIN:VCALENDAR", "END:VCALENDAR", &kNoNarrowConverter,     nullptr,           Any,   release_nothing},
    {VZ_TYPE_MESSAGE,       kMessageSizes,      "BEGIN:VMSG",      "END:VMSG",      nullptr,                 &kNoWideConverter, Any,   release_nothing},
    {VZ_TYPE_BOOKMARK,      kBookmarkSizes,     "BEGIN:VBKM",      "END:VBKM",      &kBookmarkConverter,     nullptr,           Any,   vbookmark::release},
    {VZ_TYPE_CONTACT_GROUP, kContactGroupSizes, "BEGIN:VCARD",     "END:VCARD",     &kContactGroupConverter, nullptr,           Exact, vcard::release_contact_group},
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
