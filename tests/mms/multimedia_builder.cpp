#include "mms/multimedia_builder.h"

namespace vzapi::test {
namespace {

constexpr std::uint32_t kHeaderSize = sizeof(MultimediaHeader);
constexpr std::uint32_t kParameterSize = sizeof(MultimediaParameter);

MultimediaContent content_of(std::uint64_t number) {
    MultimediaContent content{};
    content.number = number;
    return content;
}

MultimediaContent content_of(char16_t* text) {
    MultimediaContent content{};
    content.text = text;
    return content;
}

MultimediaContent content_of(MultimediaValue* record) {
    MultimediaContent content{};
    content.record = record;
    return content;
}

}  // namespace

MultimediaHeader number_header(std::uint32_t number, std::uint64_t value) {
    return {kHeaderSize, VZ_MMS_VALUE_NUMBER, number, 0, content_of(value)};
}

char16_t* MultimediaBuilder::own(std::u16string_view text) {
    return texts_.emplace_back(text).data();
}

MultimediaValue* MultimediaBuilder::own(const MultimediaValue& value) {
    return &values_.emplace_back(value);
}

std::uint8_t* MultimediaBuilder::own_bytes(std::string_view bytes) {
    return reinterpret_cast<std::uint8_t*>(data_.emplace_back(bytes).data());
}

MultimediaBuilder& MultimediaBuilder::number(std::uint32_t header, std::uint64_t value) {
    headers_.push_back(number_header(header, value));
    return *this;
}

MultimediaBuilder& MultimediaBuilder::date(std::uint32_t header, std::uint64_t seconds) {
    headers_.push_back({kHeaderSize, VZ_MMS_VALUE_DATE, header, 0, content_of(seconds)});
    return *this;
}

MultimediaBuilder& MultimediaBuilder::text(std::uint32_t header, std::u16string_view text) {
    headers_.push_back({kHeaderSize, VZ_MMS_VALUE_TEXT, header, 0, content_of(own(text))});
    return *this;
}

MultimediaBuilder& MultimediaBuilder::address(std::uint32_t header, std::uint32_t token,
                                              std::u16string_view text) {
    MultimediaValue value{};
    value.token = token;
    if (token != VZ_MMS_ADDRESS_INSERT) value.text = own(text);
    return record(header, VZ_MMS_VALUE_ADDRESS, value);
}

MultimediaBuilder& MultimediaBuilder::record(std::uint32_t header, std::uint32_t kind,
                                             MultimediaValue value) {
    value.size = sizeof value;
    headers_.push_back({kHeaderSize, kind, header, 0, content_of(own(value))});
    return *this;
}

MultimediaBuilder& MultimediaBuilder::sendable() {
    return text(VZ_MMS_HEADER_TRANSACTION_ID, u"t-9")
        .number(VZ_MMS_HEADER_VERSION, VZ_MMS_VERSION_1_2)
        .address(VZ_MMS_HEADER_FROM, VZ_MMS_ADDRESS_INSERT)
        .address(VZ_MMS_HEADER_TO, VZ_MMS_ADDRESS_PLMN, u"+15555550101");
}

std::uint32_t MultimediaBuilder::part(std::u16string_view type, std::string_view data,
                                      std::uint32_t container) {
    MultimediaPart part{};
    part.size = sizeof part;
    part.container = container;
    part.contentType = own(type);
    part.dataLength = static_cast<std::uint32_t>(data.size());
    if (!data.empty()) part.data = own_bytes(data);
    parts_.push_back(part);
    lists_.emplace_back();
    return static_cast<std::uint32_t>(parts_.size());
}

std::uint32_t MultimediaBuilder::container(std::u16string_view type, std::uint32_t container) {
    const std::uint32_t number = part(type, "", container);
    last().flags = VZ_MMS_PART_CONTAINER;
    return number;
}

void MultimediaBuilder::parameter(std::u16string_view name, std::u16string_view text) {
    lists_.back().parameters.push_back({kParameterSize, VZ_MMS_VALUE_TEXT, own(name), content_of(own(text))});
}

void MultimediaBuilder::parameter(std::u16string_view name, std::uint32_t kind, std::uint64_t number) {
    lists_.back().parameters.push_back({kParameterSize, kind, own(name), content_of(number)});
}

void MultimediaBuilder::raw_parameter(std::u16string_view name, std::string_view bytes) {
    MultimediaValue value{};
    value.size = sizeof value;
    value.bytes = own_bytes(bytes);
    value.byteCount = static_cast<std::uint32_t>(bytes.size());
    lists_.back().parameters.push_back({kParameterSize, VZ_MMS_VALUE_RAW, own(name), content_of(own(value))});
}

void MultimediaBuilder::move_parameter_to_disposition() {
    Lists& lists = lists_.back();
    lists.disposition_parameters.push_back(lists.parameters.back());
    lists.parameters.pop_back();
}

void MultimediaBuilder::disposition_parameter(std::u16string_view name, std::u16string_view text) {
    lists_.back().disposition_parameters.push_back(
        {kParameterSize, VZ_MMS_VALUE_TEXT, own(name), content_of(own(text))});
}

void MultimediaBuilder::part_header(MultimediaHeader header) {
    lists_.back().headers.push_back(header);
}

MultimediaItem& MultimediaBuilder::item() {
    for (std::size_t i = 0; i < parts_.size(); ++i) {
        MultimediaPart& part = parts_[i];
        Lists& lists = lists_[i];
        part.parameterCount = static_cast<std::uint32_t>(lists.parameters.size());
        part.parameters = lists.parameters.data();
        part.dispositionParameterCount = static_cast<std::uint32_t>(lists.disposition_parameters.size());
        part.dispositionParameters = lists.disposition_parameters.data();
        part.headerCount = static_cast<std::uint32_t>(lists.headers.size());
        part.headers = lists.headers.data();
    }
    item_ = {sizeof item_,
             type_,
             flags_,
             static_cast<std::uint32_t>(headers_.size()),
             headers_.data(),
             static_cast<std::uint32_t>(parts_.size()),
             0,
             parts_.data()};
    return item_;
}

}  // namespace vzapi::test
