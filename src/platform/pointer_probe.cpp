// What both systems share: ranges, the memory of pages found readable, and text of unknown length.
#include "platform/pointer_probe.h"

#include <cstring>

namespace vzapi::platform {
namespace {

std::uintptr_t address_of(const void* pointer) noexcept {
    return reinterpret_cast<std::uintptr_t>(pointer);
}

const void* pointer_to(std::uintptr_t address) noexcept {
    // Pages are numbers here. NOLINTNEXTLINE(performance-no-int-to-ptr)
    return reinterpret_cast<const void*>(address);
}

std::uintptr_t page_of(std::uintptr_t address) noexcept {
    return address & ~std::uintptr_t{kPageSize - 1};
}

// Asks `page_is_readable` about each page that the range touches.
template <class Question>
bool all_pages(std::uintptr_t first, std::size_t size, Question page_is_readable) noexcept {
    const std::uintptr_t last = size == 0 ? first : first + (size - 1);
    if (last < first) return false;
    const std::uintptr_t last_page = page_of(last);
    for (std::uintptr_t page = page_of(first);; page += kPageSize) {
        if (!page_is_readable(page)) return false;
        if (page == last_page) return true;
    }
}

// Copied out, since the text may stand at an odd address.
char16_t unit_at(std::uintptr_t address) noexcept {
    char16_t unit;
    std::memcpy(&unit, pointer_to(address), sizeof unit);
    return unit;
}

}  // namespace

bool is_readable(const void* address, std::size_t size) noexcept {
    return all_pages(address_of(address), size,
                     [](std::uintptr_t page) noexcept { return is_readable(pointer_to(page)); });
}

bool PointerProbe::page_readable(std::uintptr_t page) noexcept {
    std::uintptr_t& slot = readable_pages_[page / kPageSize % kSlots];
    if (slot == page && page != 0) return true;
    if (!is_readable(pointer_to(page))) return false;
    slot = page;
    return true;
}

bool PointerProbe::readable(const void* address) noexcept {
    return page_readable(page_of(address_of(address)));
}

bool PointerProbe::readable(const void* address, std::size_t size) noexcept {
    return all_pages(address_of(address), size,
                     [this](std::uintptr_t page) noexcept { return page_readable(page); });
}

std::u16string_view PointerProbe::text(const char16_t* text) noexcept {
    if (!readable(text, sizeof(char16_t))) return {};
    const std::uintptr_t start = address_of(text);
    std::uintptr_t readable_end = page_of(start + 1) + kPageSize;
    for (std::size_t length = 0;;) {
        const std::size_t known = (readable_end - start) / sizeof(char16_t);
        while (length < known && unit_at(start + length * sizeof(char16_t)) != 0) ++length;
        if (length < known || !page_readable(readable_end)) return {text, length};
        readable_end += kPageSize;
    }
}

std::u16string_view PointerProbe::text(const char16_t* text, std::u16string& storage) {
    const std::u16string_view found = this->text(text);
    const bool aligned = address_of(text) % alignof(char16_t) == 0;
    if (aligned || found.data() == nullptr) return found;
    storage.resize(found.size());
    std::memcpy(storage.data(), pointer_to(address_of(text)), found.size() * sizeof(char16_t));
    return storage;
}

}  // namespace vzapi::platform
