#include "mms/multimedia_text.h"

#include <cstdio>
#include <cstring>
#include <span>
#include <vector>

namespace vzapi::test {
namespace {

std::string number(std::uint64_t value) {
    return std::to_string(value);
}

std::string shown_bytes(const std::uint8_t* bytes, std::uint32_t count) {
    if (bytes == nullptr) return "-";
    std::string text = number(count) + ":";
    for (const std::uint8_t byte : std::span(bytes, count)) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02X", byte);
        text += digits;
    }
    return text;
}

std::string shown_value(std::uint32_t kind, const MultimediaContent& value) {
    std::string text = "kind " + number(kind) + " ";
    if (kind == VZ_MMS_VALUE_TEXT) return text + shown(value.text);
    if (kind < VZ_MMS_VALUE_ENCODED_TEXT) return text + number(value.number);
    const MultimediaValue& record = *value.record;
    return text + number(record.size) + "/" + number(record.token) + "/" + number(record.count) + "/" +
           number(record.charset) + "/" + number(record.number) + " name " + shown(record.name) + " text " +
           shown(record.text) + " bytes " + shown_bytes(record.bytes, record.byteCount);
}

std::string shown_headers(const MultimediaHeader* headers, std::uint32_t count, const char* indent) {
    std::string text;
    for (const MultimediaHeader& header : std::span(headers, count)) {
        text += indent + ("header " + number(header.number)) + " " + number(header.size) + "/" +
                number(header.flags) + " " + shown_value(header.kind, header.value) + "\n";
    }
    return text;
}

std::string shown_parameters(const MultimediaParameter* parameters, std::uint32_t count) {
    std::string text;
    for (const MultimediaParameter& parameter : std::span(parameters, count)) {
        text += "; " + number(parameter.size) + " " + shown(parameter.name) + " " +
                shown_value(parameter.kind, parameter.value);
    }
    return text;
}

}  // namespace

std::string shown(const char16_t* text) {
    if (text == nullptr) return "-";
    std::string shown;
    for (; *text != 0; ++text) {
        if (*text >= 0x20 && *text < 0x7F) {
            shown += static_cast<char>(*text);
            continue;
        }
        char escape[7];
        std::snprintf(escape, sizeof escape, "\\u%04X", static_cast<unsigned>(*text));
        shown += escape;
    }
    return shown;
}

std::string shown(const MultimediaItem& item) {
    std::string text = "type " + number(item.messageType) + " flags " + number(item.flags) + "\n" +
                       shown_headers(item.headers, item.headerCount, "");
    for (const MultimediaPart& part : std::span(item.parts, item.partCount)) {
        text += "part size " + number(part.size) + " flags " + number(part.flags) + " in " +
                number(part.container) + " " + shown(part.contentType) + " charset " + number(part.charset) +
                shown_parameters(part.parameters, part.parameterCount) + "\n  name " + shown(part.name) +
                " id " + shown(part.contentId) + " location " + shown(part.contentLocation) +
                " disposition " + shown(part.disposition) +
                shown_parameters(part.dispositionParameters, part.dispositionParameterCount) + "\n" +
                shown_headers(part.headers, part.headerCount, "  ") + "  data " +
                shown_bytes(part.data, part.dataLength) + "\n";
    }
    return text;
}

std::string shown_as_whole(MultimediaItem item) {
    std::vector<MultimediaPart> parts(item.parts, item.parts + item.partCount);
    for (MultimediaPart& part : parts) part.flags &= ~std::uint32_t{VZ_MMS_PART_TRUNCATED};
    item.flags &= ~std::uint32_t{VZ_MMS_TRUNCATED};
    item.parts = parts.data();
    return shown(item);
}

ReadMultimedia::ReadMultimedia(std::string pdu) {
    std::memset(&item_, 0xA5, sizeof item_);
    item_.size = sizeof item_;
    const DataObject in{sizeof in, 0, static_cast<std::uint32_t>(pdu.size()), pdu.data()};
    result_ = ODCAPI_ParseDataObject(VZ_OBJECT_MULTIMEDIA, &in, &item_);
}

ReadMultimedia::~ReadMultimedia() {
    static_cast<void>(ODCAPI_FreeParsedData(VZ_OBJECT_MULTIMEDIA, &item_));
}

std::string ReadMultimedia::data(std::size_t index) const {
    const MultimediaPart& part = item_.parts[index];
    return {reinterpret_cast<const char*>(part.data), part.dataLength};
}

std::string written(const MultimediaItem& item, ResultCode& result) {
    DataObject out{sizeof out, 7, 99, nullptr};
    result = ODCAPI_CreateDataObject(VZ_OBJECT_MULTIMEDIA, &item, &out);
    std::string pdu(static_cast<const char*>(out.text), out.length);
    static_cast<void>(ODCAPI_FreeDataObject(&out));
    return pdu;
}

std::string written(const MultimediaItem& item) {
    ResultCode result = VZ_OK;
    return written(item, result);
}

}  // namespace vzapi::test
