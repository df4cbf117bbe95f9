// A record that a caller gave to be written, and what hangs on it: nothing is touched before it has been found
// readable, and nothing is expected to be aligned.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <forward_list>
#include <span>
#include <string>
#include <string_view>

#include "platform/pointer_probe.h"
#include "vzapi/contact.h"

namespace vzapi::vcard {

// Lives as long as the writing of one record; so do the texts that it hands out.
class CallerMemory {
public:
    // Copies what stands at `address` to `value`. False, and `value` untouched, when not all of it can be read.
    template <class T>
    [[nodiscard]] bool load(const void* address, T& value) noexcept {
        if (!probe_.readable(address, sizeof value)) return false;
        std::memcpy(&value, address, sizeof value);
        return true;
    }

    // The zero-terminated text at `address`, which ends at the latest where memory cannot be read. data() is
    // null when there is none: `address` is null or cannot be read.
    [[nodiscard]] std::u16string_view text(const char16_t* address);

    // The `length` bytes at `address`; none when not all of them can be read.
    [[nodiscard]] std::span<const std::byte> bytes(const void* address, std::size_t length) noexcept;

    [[nodiscard]] bool readable(const void* address) noexcept { return probe_.readable(address); }

private:
    platform::PointerProbe probe_;
    std::forward_list<std::u16string> aligned_texts_;  // copies of texts that stand at odd addresses
};

// What an entry that cannot be read means for the rest of its list.
enum class UnreadableEntry { EndsList, IsSkipped };

// Walks the entries of one list. A negative count is an empty list. Entries that cannot be read are skipped a
// memory page at a time, and a list is taken to end where kMostUnreadablePages in a row cannot be read: a
// wild count of 2^31 - 1 entries, 12 million pages, costs no more than those.
class EntryWalk {
public:
    static constexpr std::size_t kMostUnreadablePages = 256;

    EntryWalk(CallerMemory& memory, const ContactField* list, std::uint32_t count,
              UnreadableEntry unreadable) noexcept;

    // Copies the next entry to `entry`; false at the end.
    [[nodiscard]] bool next(ContactField& entry) noexcept;

private:
    // Moves on to the first entry that begins behind the page which keeps the current one from being read.
    [[nodiscard]] bool skip_page() noexcept;

    CallerMemory& memory_;
    std::uintptr_t at_;
    std::uint64_t left_;  // entries from at_ on
    UnreadableEntry unreadable_;
    std::size_t unreadable_pages_ = 0;  // in a row
};

}  // namespace vzapi::vcard
