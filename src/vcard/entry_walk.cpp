#include "vcard/entry_walk.h"

#include <algorithm>

namespace vzapi::vcard {
namespace {

constexpr std::uintptr_t kEntrySize = sizeof(ContactField);

std::uintptr_t address_of(const void* pointer) noexcept {
    return reinterpret_cast<std::uintptr_t>(pointer);
}

// Lists are walked as numbers: a wild count would carry a pointer out of its array.
const void* pointer_to(std::uintptr_t address) noexcept {
    return reinterpret_cast<const void*>(address);  // NOLINT(performance-no-int-to-ptr)
}

std::uint64_t entries_in(const ContactField* list, std::uint32_t count) noexcept {
    const bool negative = count > INT32_MAX;
    if (list == nullptr || negative) return 0;
    const std::uintptr_t room = (UINTPTR_MAX - address_of(list)) / kEntrySize;
    return std::min<std::uint64_t>(count, room);
}

}  // namespace

EntryWalk::EntryWalk(platform::CallerMemory& memory, const ContactField* list, std::uint32_t count,
                     UnreadableEntry unreadable) noexcept
    : memory_(memory), at_(address_of(list)), left_(entries_in(list, count)), unreadable_(unreadable) {}

bool EntryWalk::next(ContactField& entry) noexcept {
    while (left_ != 0) {
        if (memory_.load(pointer_to(at_), entry)) {
            unreadable_pages_ = 0;
            at_ += kEntrySize;
            --left_;
            return true;
        }
        if (unreadable_ == UnreadableEntry::EndsList || !skip_page()) left_ = 0;
    }
    return false;
}

bool EntryWalk::skip_page() noexcept {
    if (++unreadable_pages_ == kMostUnreadablePages) return false;
    const bool begins_readable = memory_.readable(pointer_to(at_));
    const std::uintptr_t inside = begins_readable ? at_ + (kEntrySize - 1) : at_;
    const std::uintptr_t to_page_end = platform::kPageSize - inside % platform::kPageSize + (inside - at_);
    const std::uint64_t skipped = (to_page_end + kEntrySize - 1) / kEntrySize;
    if (skipped >= left_) return false;
    left_ -= skipped;
    at_ += skipped * kEntrySize;
    return true;
}

}  // namespace vzapi::vcard
