// Multimedia records for tests: reading, writing, and showing all that is in one as text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "vzapi/odcapi.h"

namespace vzapi::test {

// ASCII as it stands, all other units as \uXXXX; null as "-".
[[nodiscard]] std::string shown(const char16_t* text);

// All members of the record, one line a header or part; equal texts come of equal records alone.
[[nodiscard]] std::string shown(const MultimediaItem& item);

// The same without the marks that the PDU was cut off: what is written is whole.
[[nodiscard]] std::string shown_as_whole(MultimediaItem item);

// A record that is filled from a PDU and released at the end.
class ReadMultimedia {
public:
    explicit ReadMultimedia(std::string pdu);
    ~ReadMultimedia();
    ReadMultimedia(const ReadMultimedia&) = delete;
    ReadMultimedia& operator=(const ReadMultimedia&) = delete;

    [[nodiscard]] ResultCode result() const { return result_; }
    [[nodiscard]] const MultimediaItem& item() const { return item_; }
    [[nodiscard]] const MultimediaPart& part(std::size_t index) const { return item_.parts[index]; }
    [[nodiscard]] std::string data(std::size_t index) const;

private:
    MultimediaItem item_;
    ResultCode result_ = VZ_OK;
};

// The PDU of a record; empty when it is refused, with the result in `result`.
[[nodiscard]] std::string written(const MultimediaItem& item, ResultCode& result);
[[nodiscard]] std::string written(const MultimediaItem& item);

}  // namespace vzapi::test
