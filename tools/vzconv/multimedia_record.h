// A multimedia record for the library to write from, and all that it points to.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "vzapi/multimedia.h"

namespace vzconv {

// The lists of a part.
struct MultimediaPartLists {
    std::vector<MultimediaParameter> parameters;
    std::vector<MultimediaParameter> disposition_parameters;
    std::vector<MultimediaHeader> headers;
};

// Owns what its entries point to, so an entry is good as long as this lives. Values are made first and put
// into headers and parts then.
class MultimediaRecord {
public:
    MultimediaRecord() = default;
    MultimediaRecord(const MultimediaRecord&) = delete;
    MultimediaRecord& operator=(const MultimediaRecord&) = delete;

    char16_t* text(std::u16string text);
    // Throws Failure when there are more than a record, whose lengths are 32 bits, can say.
    uint8_t* bytes(std::vector<uint8_t> bytes);
    MultimediaValue* value(const MultimediaValue& value);

    void set_type(uint32_t type) { type_ = type; }
    void set_flag(uint32_t flag, bool is_set) { flags_ = is_set ? flags_ | flag : flags_ & ~flag; }
    void add_header(const MultimediaHeader& header) { headers_.push_back(header); }

    // Appends a part, whose lists are those given, and returns its number, from 1. Throws Failure when a list
    // is longer than a record can say.
    uint32_t add_part(MultimediaPart part, MultimediaPartLists lists);

    // The record as it is now; good until something is added. The transaction id and the version come first
    // among its headers, as they do in a PDU.
    MultimediaItem item();

private:
    uint32_t type_ = VZ_MMS_TYPE_NONE;
    uint32_t flags_ = VZ_MMS_NO_PRESENTATION;
    std::vector<MultimediaHeader> headers_;
    std::vector<MultimediaPart> parts_;
    std::deque<MultimediaPartLists> lists_;  // of each part
    std::deque<std::u16string> texts_;
    std::deque<std::vector<uint8_t>> data_;
    std::deque<MultimediaValue> values_;
};

}  // namespace vzconv
