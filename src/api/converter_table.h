// The converter table: one row per type code, the single place where a type is registered. Both exported
// families dispatch through it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "call_context.h"
#include "versit/object.h"
#include "vzapi/base.h"

namespace vzapi {

// 8-bit text: a reader of parsed lines, a writer of one text.
struct NarrowConverter {
    // Fills the record; raises a ResultCode on failure and leaves the record releasable.
    void (*read)(const versit::VersitObject& object, void* item, const ReaderContext& context);
    std::string (*write)(const void* item, const WriterContext& context);
};

// UTF-16 text.
struct WideConverter {
    void (*read)(const versit::WideVersitObject& object, void* item, const ReaderContext& context);
    std::u16string (*write)(const void* item, const WriterContext& context);
};

// What VersitData.size has to be when a writer is called.
enum class OutputSize : bool { Any, Exact };

struct ConverterRow {
    std::uint32_t type;
    std::span<const std::uint32_t>
        known_sizes;                // ascending; a record of such a size is cleared before reading
    std::string_view begin_marker;  // what ValidateVersitData looks for
    std::string_view end_marker;
    const NarrowConverter* narrow;  // one of the two is null
    const WideConverter* wide;
    OutputSize output_size;
    void (*release)(void* item, const ReleaseContext& context);

    // The bytes that every version of the record has.
    [[nodiscard]] std::size_t smallest_size() const noexcept { return known_sizes.front(); }
};

// The row of `type`; raises VZ_ERR_UNKNOWN_TYPE when there is none.
[[nodiscard]] const ConverterRow& converter_of(std::uint32_t type);

}  // namespace vzapi
