// E-mail items in tests: documents to records, and records as text that shows every byte of them.
#pragma once

#include <string>
#include <string_view>

#include "vzapi/odcapi.h"

namespace vzapi::test {

[[nodiscard]] inline DataObject object_of(std::string_view bytes) {
    return {sizeof(DataObject), 0, static_cast<std::uint32_t>(bytes.size()), const_cast<char*>(bytes.data())};
}

// An e-mail record; what the library put into it is given back at the end.
class EmailRecord {
public:
    EmailRecord() { item.size = sizeof item; }
    ~EmailRecord() { static_cast<void>(ODCAPI_FreeParsedData(VZ_OBJECT_EMAIL, &item)); }
    EmailRecord(const EmailRecord&) = delete;
    EmailRecord& operator=(const EmailRecord&) = delete;

    EmailItem item{};
};

// "read=0 flagged=1 created=2024-05-06T07:08:09 text=abc": flags, times and text, in the order of the record.
// An entry with a wrong size, or with a byte that has to be 0 and is not, ends in "!".
[[nodiscard]] std::string described(const EmailItem& item);

// What `document` is read as: described(), or the result in hexadecimal when it is none.
[[nodiscard]] std::string email_of(std::string_view document);

}  // namespace vzapi::test
