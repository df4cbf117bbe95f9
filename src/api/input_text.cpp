#include "api/input_text.h"

#include <cstdint>
#include <cstring>

#include "platform/pointer_probe.h"
#include "result.h"

namespace vzapi {
namespace {

void require_readable_text(const VersitData& data, ResultCode unreadable) {
    const bool empty = data.text == nullptr && data.length == 0;
    if (!empty && !platform::is_readable(data.text, data.length)) raise(unreadable);
}

}  // namespace

std::string_view narrow_text(const VersitData& data, ResultCode unreadable) {
    require_readable_text(data, unreadable);
    return {static_cast<const char*>(data.text), data.length};
}

std::u16string_view wide_text(const VersitData& data, ResultCode unreadable, std::u16string& storage) {
    require_readable_text(data, unreadable);
    const std::size_t units = data.length / sizeof(char16_t);
    if (reinterpret_cast<std::uintptr_t>(data.text) % alignof(char16_t) == 0) {
        return {static_cast<const char16_t*>(data.text), units};
    }
    storage.resize(units);
    std::memcpy(storage.data(), data.text, units * sizeof(char16_t));
    return storage;
}

}  // namespace vzapi
