// Multimedia records made by hand.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "vzapi/multimedia.h"

namespace vzapi::test {

// Owns all that the record points at. What is added to a part goes to the last one.
class MultimediaBuilder {
public:
    explicit MultimediaBuilder(std::uint32_t type, std::uint32_t flags = VZ_MMS_NO_PRESENTATION)
        : type_(type), flags_(flags) {}

    MultimediaBuilder& number(std::uint32_t header, std::uint64_t value);
    MultimediaBuilder& date(std::uint32_t header, std::uint64_t seconds);
    MultimediaBuilder& text(std::uint32_t header, std::u16string_view text);
    MultimediaBuilder& address(std::uint32_t header, std::uint32_t token, std::u16string_view text = {});
    MultimediaBuilder& record(std::uint32_t header, std::uint32_t kind, MultimediaValue value);

    // Transaction id, version and sender, and with it a receiver.
    MultimediaBuilder& sendable();

    // Their number.
    std::uint32_t part(std::u16string_view type, std::string_view data, std::uint32_t container = 0);
    std::uint32_t container(std::u16string_view type, std::uint32_t container = 0);
    [[nodiscard]] MultimediaPart& last() { return parts_.back(); }
    void parameter(std::u16string_view name, std::u16string_view text);
    void parameter(std::u16string_view name, std::uint32_t kind, std::uint64_t number);
    void raw_parameter(std::u16string_view name, std::string_view bytes);
    void move_parameter_to_disposition();  // the last one
    void disposition_parameter(std::u16string_view name, std::u16string_view text);
    void part_header(MultimediaHeader header);

    // For members of records.
    [[nodiscard]] char16_t* own(std::u16string_view text);
    [[nodiscard]] MultimediaValue* own(const MultimediaValue& value);
    [[nodiscard]] std::uint8_t* own_bytes(std::string_view bytes);

    // The record, which holds until the next change.
    [[nodiscard]] MultimediaItem& item();

private:
    struct Lists {
        std::vector<MultimediaParameter> parameters;
        std::vector<MultimediaParameter> disposition_parameters;
        std::vector<MultimediaHeader> headers;
    };

    std::uint32_t type_;
    std::uint32_t flags_;
    std::vector<MultimediaHeader> headers_;
    std::vector<MultimediaPart> parts_;
    std::deque<Lists> lists_;  // of each part
    std::deque<std::u16string> texts_;
    std::deque<std::string> data_;
    std::deque<MultimediaValue> values_;
    MultimediaItem item_{};
};

[[nodiscard]] MultimediaHeader number_header(std::uint32_t number, std::uint64_t value);

}  // namespace vzapi::test
