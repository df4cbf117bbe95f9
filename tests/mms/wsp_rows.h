// Values of the binary encoding, in octets and as what is read of them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "mms/wire_bytes.h"

namespace vzapi::mms {

struct EncodedRow {
    const char* what;
    const char* octets;
    std::uint32_t charset;
    std::u16string text;
    const char* written;  // null: the same octets
};

struct TypeRow {
    const char* what;
    const char* octets;
    std::u16string media;
    std::uint32_t charset;
    std::vector<Parameter> parameters;
    const char* written;  // null: the same octets
};

struct DispositionRow {
    const char* what;
    const char* octets;
    std::u16string kind;
    std::vector<Parameter> parameters;
    const char* written;  // null: the same octets
};

[[nodiscard]] std::span<const EncodedRow> encoded_texts();
[[nodiscard]] std::span<const TypeRow> content_types();
[[nodiscard]] std::span<const TypeRow>
content_types_with_parameters();  // each number once, a canonical value
[[nodiscard]] std::span<const DispositionRow> dispositions();

}  // namespace vzapi::mms
