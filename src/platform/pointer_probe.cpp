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

// The pages that a range of bytes touches; the first behind the last when it wraps around the address space.
struct Pages {
    std::uintptr_t first;
    std::uintptr_t last;
};

Pages pages_of(std::uintptr_t first, std::size_t size) noexcept {
    const std::uintptr_t last = size == 0 ? first : first + (size - 1);
    return last < first ? Pages{1, 0} : Pages{page_of(first), page_of(last)};
}

// The address to ask about in one of several pages: the answer may tell about the page behind, too.
std::uintptr_t page_end(std::uintptr_t page) noexcept {
    return page + (kPageSize - 1);
}

// Copied out, since the text may stand at an odd address.
char16_t unit_at(std::uintptr_t address) noexcept {
    char16_t unit;
    std::memcpy(&unit, pointer_to(address), sizeof unit);
    return unit;
}

}  // namespace

bool is_readable(const void* address, std::size_t size) noexcept {
    const Pages pages = pages_of(address_of(address), size);
    if (pages.first >= pages.last) return pages.first == pages.last && is_readable(address);
    return are_readable(pages.first, pages.last);
}

bool PointerProbe::known(std::uintptr_t page) const noexcept {
    return readable_pages_[page / kPageSize % kSlots] == page && page != 0;
}

bool PointerProbe::find_out(std::uintptr_t address) noexcept {
    const ReadablePages found = readable_pages_at(address);
    for (std::uintptr_t page = found.begin; page != found.end; page += kPageSize) {
        readable_pages_[page / kPageSize % kSlots] = page;
    }
    return !found.none();
}

bool PointerProbe::readable(const void* address) noexcept {
    return known(page_of(address_of(address))) || find_out(address_of(address));
}

bool PointerProbe::readable(const void* address, std::size_t size) noexcept {
    const Pages pages = pages_of(address_of(address), size);
    if (pages.first >= pages.last) return pages.first == pages.last && readable(address);
    for (std::uintptr_t page = pages.first; page <= pages.last; page += kPageSize) {
        if (!known(page) && !find_out(page_end(page))) return false;
    }
    return true;
}

std::u16string_view PointerProbe::text(const char16_t* text) noexcept {
    if (!readable(text, sizeof(char16_t))) return {};
    const std::uintptr_t start = address_of(text);
    std::uintptr_t readable_end = page_of(start + 1) + kPageSize;
    for (std::size_t length = 0;;) {
        const std::size_t units = (readable_end - start) / sizeof(char16_t);
        while (length < units && unit_at(start + length * sizeof(char16_t)) != 0) ++length;
        if (length < units || !readable(pointer_to(readable_end))) return {text, length};
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
