// Fields of a header, in octets and as what is read of them.
#pragma once

#include <span>

#include "mms/wire_bytes.h"

namespace vzapi::mms {

struct FieldRow {
    const char* what;
    const char* octets;
    Value value;
    const char* written;  // null: the same octets
};

// One canonical value, at least, of each field by its number.
[[nodiscard]] std::span<const FieldRow> canonical_fields();

// What writers get wrong.
[[nodiscard]] std::span<const FieldRow> deviating_fields();

// What does not fit the form of its field, or has no form; where the value is not raw in the row, it is the
// octets behind the first.
[[nodiscard]] std::span<const FieldRow> raw_fields();

// The headers of three whole messages.
inline constexpr const char* kNotification =
    "8C 82 98 't-7' 00 8D 92 89 18 80 '+15555550100/TYPE=PLMN' 00 96 07 EA 'Caf' C3 A9 00 8A 80 8E 02 7D 00 "
    "88 05 81 03 03 F4 80 83 'http://mms.example.net/a?id=7' 00";
inline constexpr const char* kSendRequest =
    "8C 80 98 't-8' 00 8D 90 89 01 81 97 '+15555550101/TYPE=PLMN' 00 86 81";
inline constexpr const char* kSendRequestType = "84 18 B3 89 'application/smil' 00 8A '<s>' 00";
inline constexpr const char* kDelivery =
    "8C 86 8D 90 8B 'm7@example.net' 00 97 '+15555550101/TYPE=PLMN' 00 85 04 3A A2 16 EE 95 81";

}  // namespace vzapi::mms
