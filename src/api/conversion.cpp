// The exported conversion functions: argument checks, dispatch by type code, hand-over. No format knowledge.
#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "api/converter_table.h"
#include "api/guard.h"
#include "api/input_text.h"
#include "api/library_state.h"
#include "platform/heap.h"
#include "platform/pointer_probe.h"
#include "result.h"
#include "versit/parser.h"
#include "vzapi/vzapi.h"

namespace vzapi {
namespace {

void require_not_null(const void* pointer) {
    if (pointer == nullptr) raise(VZ_ERR_INVALID_PARAM);
}

void require_readable(const void* pointer, std::size_t size) {
    if (!platform::is_readable(pointer, size)) raise(VZ_ERR_POINTER);
}

std::uint32_t size_of_record(const void* item) {
    std::uint32_t size = 0;
    std::memcpy(&size, item, sizeof size);
    return size;
}

// A record of a size that the type knows is zeroed behind that size; any other is left as it is.
void clear_record(const ConverterRow& row, void* item) {
    const std::uint32_t size = size_of_record(item);
    if (std::find(row.known_sizes.begin(), row.known_sizes.end(), size) == row.known_sizes.end()) return;
    require_readable(item, size);
    std::memset(static_cast<std::byte*>(item) + sizeof size, 0, size - sizeof size);
}

void read_text(const ConverterRow& row, const VersitData& in, void* item) {
    const ReaderContext context{library_state().api_version};
    if (row.narrow != nullptr) {
        const versit::VersitObject object = versit::parse(narrow_text(in, VZ_ERR_POINTER));
        if (object.empty()) raise(VZ_ERR_INVALID_TEXT);
        row.narrow->read(object, item, context);
    } else {
        std::u16string storage;
        const versit::WideVersitObject object = versit::parse_wide(wide_text(in, VZ_ERR_POINTER, storage));
        if (object.empty()) raise(VZ_ERR_INVALID_TEXT);
        row.wide->read(object, item, context);
    }
}

// Looks at the `size` that the caller has set, before the writing overwrites it.
void require_output_size(const ConverterRow& row, const VersitData& out) {
    if (row.output_size == OutputSize::Exact && out.size != sizeof out) raise(VZ_ERR_INVALID_PARAM);
}

// Gives the caller a block of its own with the bytes of `text`.
void hand_out(std::string_view bytes, VersitData& out) {
    if (bytes.size() > UINT32_MAX) raise(VZ_ERR_OUT_OF_MEMORY);
    platform::HeapPointer<void> block(platform::heap_allocate_unfilled(bytes.size()));
    if (!block) raise(VZ_ERR_OUT_OF_MEMORY);
    std::memcpy(block.get(), bytes.data(), bytes.size());
    out.length = static_cast<std::uint32_t>(bytes.size());
    out.text = block.release();
}

void write_text(const ConverterRow& row, const void* item, const WriterContext& context, VersitData& out) {
    out = {sizeof(VersitData), VZ_FORMAT_CONVERTED, 0, nullptr};
    if (row.narrow != nullptr) {
        hand_out(row.narrow->write(item, context), out);
    } else {
        const std::u16string text = row.wide->write(item, context);
        hand_out({reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)}, out);
    }
}

}  // namespace
}  // namespace vzapi

using vzapi::library_state;
using vzapi::raise;
using vzapi::require_not_null;
using vzapi::require_readable;

std::uint32_t VZAPI_GetAPIVersion() noexcept {
    return VZ_INTERFACE_VERSION;
}

// Every version but 0 is accepted, whatever this library's own: hosts rely on it.
std::uint32_t VZAPI_Initialize(std::uint32_t version) {
    if (version == 0) raise(VZ_ERR_VERSION);
    library_state().api_version = version;
    return ++library_state().init_count;
}

std::uint32_t VZAPI_Terminate() noexcept {
    auto& count = library_state().init_count;
    if (count != 0 && --count != 0) return count;
    vzapi::release_shared_state([] { return library_state().busy.load(); });
    return count;
}

ResultCode ConvertToVersit(std::uint32_t type, const void* item, VersitData* out) noexcept {
    return ConvertToVersit2(0, 0, 0, type, item, out);
}

ResultCode ConvertToVersit2(std::uint64_t option1, std::uint32_t option2, std::uint64_t option3,
                            std::uint32_t type, const void* item, VersitData* out) noexcept {
    return vzapi::guarded([&] {
        require_not_null(item);
        require_not_null(out);
        const vzapi::ConverterRow& row = vzapi::converter_of(type);
        require_readable(item, row.smallest_size());
        require_readable(out, sizeof *out);
        vzapi::require_output_size(row, *out);
        const auto family = static_cast<std::uint32_t>(option1);  // hosts need not clear the upper half
        vzapi::write_text(row, item, {library_state().api_version, family, option2, option3}, *out);
    });
}

ResultCode ConvertFromVersit(std::uint32_t type, const VersitData* in, void* item) noexcept {
    return vzapi::guarded([&] {
        require_not_null(item);
        require_not_null(in);
        const vzapi::ConverterRow& row = vzapi::converter_of(type);
        require_readable(in, sizeof *in);
        require_readable(item, row.smallest_size());
        vzapi::clear_record(row, item);
        vzapi::read_text(row, *in, item);
    });
}

ResultCode FreeVersitData(VersitData* data) noexcept {
    return vzapi::guarded([&] {
        require_readable(data, sizeof *data);
        if (data->size != sizeof *data) raise(VZ_ERR_INVALID_PARAM);
        vzapi::platform::heap_free(data->text);
        *data = {};
    });
}

ResultCode FreeConverterData(std::uint32_t type, void* item) noexcept {
    return vzapi::guarded([&] { vzapi::converter_of(type).release(item, {library_state().api_version}); });
}
