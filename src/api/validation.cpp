// ValidateVersitData: a cheap test that a text has the marks of its kind, without parsing it.
#include <algorithm>
#include <string>
#include <string_view>

#include "api/converter_table.h"
#include "api/guard.h"
#include "api/input_text.h"
#include "platform/pointer_probe.h"
#include "result.h"
#include "versit/ascii.h"
#include "vzapi/vzapi.h"

namespace vzapi {
namespace {

template <class Unit>
std::basic_string_view<Unit> up_to_nul(std::basic_string_view<Unit> text) {
    return text.substr(0, text.find(Unit(0)));
}

// Letters of 8-bit text match in either case, those of messages only as they stand: a lower-case vCard is
// found valid, a lower-case message is not.
bool has_marker(std::string_view text, std::string_view marker) {
    return versit::contains_ignoring_case(text, marker);
}

bool has_marker(std::u16string_view text, std::string_view marker) {
    return std::search(text.begin(), text.end(), marker.begin(), marker.end()) != text.end();
}

template <class Unit>
void require_markers(std::basic_string_view<Unit> text, const ConverterRow& row) {
    const std::basic_string_view<Unit> seen = up_to_nul(text);
    if (!has_marker(seen, row.begin_marker) || !has_marker(seen, row.end_marker)) raise(VZ_ERR_INVALID_TEXT);
}

void require_usable(const VersitData* data) {
    const bool usable = platform::is_readable(data, sizeof *data) && data->size == sizeof *data &&
                        data->length != 0 && platform::is_readable(data->text, data->length);
    if (!usable) raise(VZ_ERR_INVALID_PARAM);
}

}  // namespace
}  // namespace vzapi

ResultCode ValidateVersitData(std::uint32_t type, const VersitData* data) noexcept {
    return vzapi::guarded([&] {
        vzapi::require_usable(data);
        const vzapi::ConverterRow& row = vzapi::converter_of(type);
        if (row.narrow != nullptr) {
            vzapi::require_markers(vzapi::narrow_text(*data, VZ_ERR_INVALID_PARAM), row);
        } else {
            std::u16string storage;
            vzapi::require_markers(vzapi::wide_text(*data, VZ_ERR_INVALID_PARAM, storage), row);
        }
    });
}
