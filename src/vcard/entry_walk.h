// The walk over one list of a contact record that a caller gave to be written.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/caller_memory.h"
#include "vzapi/contact.h"

namespace vzapi::vcard {

// What an entry that cannot be read means for the rest of its list.
enum class UnreadableEntry { EndsList, IsSkipped };

// Walks the entries of one list. A negative count is an empty list. Entries that cannot be read are skipped a
// memory page at a time, and a list is taken to end where kMostUnreadablePages in a row cannot be read: a
// wild count of 2^31 - 1 entries, 12 million pages, costs no more than those.
class EntryWalk {
public:
    static constexpr std::size_t kMostUnreadablePages = 256;

    EntryWalk(platform::CallerMemory& memory, const ContactField* list, std::uint32_t count,
              UnreadableEntry unreadable) noexcept;

    // Copies the next entry to `entry`; false at the end.
    [[nodiscard]] bool next(ContactField& entry) noexcept;

private:
    // Moves on to the first entry that begins behind the page which keeps the current one from being read.
    [[nodiscard]] bool skip_page() noexcept;

    platform::CallerMemory& memory_;
    std::uintptr_t at_;
    std::uint64_t left_;  // entries from at_ on
    UnreadableEntry unreadable_;
    std::size_t unreadable_pages_ = 0;  // in a row
};

}  // namespace vzapi::vcard
