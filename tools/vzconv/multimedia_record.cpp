#include "vzconv/multimedia_record.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "vzconv/failure.h"

namespace vzconv {
namespace {

uint32_t count_of(std::size_t size) {
    if (size > std::numeric_limits<uint32_t>::max()) throw Failure("more than 4294967295 entries in a list");
    return static_cast<uint32_t>(size);
}

// The place of a header among the others, where the standard has one for it.
int rank_of(const MultimediaHeader& header) {
    if (header.number == VZ_MMS_HEADER_TRANSACTION_ID) return 0;
    return header.number == VZ_MMS_HEADER_VERSION ? 1 : 2;
}

}  // namespace

char16_t* MultimediaRecord::text(std::u16string text) {
    texts_.push_back(std::move(text));
    return texts_.back().data();
}

uint8_t* MultimediaRecord::bytes(std::vector<uint8_t> bytes) {
    if (bytes.size() > std::numeric_limits<uint32_t>::max()) throw Failure("more than 4 GB of data");
    data_.push_back(std::move(bytes));
    return data_.back().data();
}

MultimediaValue* MultimediaRecord::value(const MultimediaValue& value) {
    values_.push_back(value);
    return &values_.back();
}

uint32_t MultimediaRecord::add_part(MultimediaPart part, MultimediaPartLists lists) {
    lists_.push_back(std::move(lists));
    MultimediaPartLists& kept = lists_.back();
    part.parameters = kept.parameters.data();
    part.parameterCount = count_of(kept.parameters.size());
    part.dispositionParameters = kept.disposition_parameters.data();
    part.dispositionParameterCount = count_of(kept.disposition_parameters.size());
    part.headers = kept.headers.data();
    part.headerCount = count_of(kept.headers.size());
    parts_.push_back(part);
    return count_of(parts_.size());
}

MultimediaItem MultimediaRecord::item() {
    std::stable_sort(headers_.begin(), headers_.end(),
                     [](const auto& a, const auto& b) { return rank_of(a) < rank_of(b); });
    MultimediaItem item{};
    item.size = sizeof item;
    item.messageType = type_;
    item.flags = flags_;
    item.headerCount = count_of(headers_.size());
    item.headers = headers_.data();
    item.partCount = count_of(parts_.size());
    item.parts = parts_.data();
    return item;
}

}  // namespace vzconv
