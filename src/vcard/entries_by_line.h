// The entries of a list in the order of the lines that they become.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "vcard/contact_writing.h"

namespace vzapi::vcard {

// One kind of line and the fields that it is made of; 0 stands for no further field.
struct LineRow {
    std::array<std::uint32_t, 6> fields;
    std::size_t least_components = 0;  // of a compound value
};

// The lines of a list in the order in which they are written. The ids of the list begin at `first_id`.
class LineOrder {
public:
    static constexpr std::size_t kMostLines = 16;
    static constexpr std::size_t kMostIds = 32;
    static constexpr std::uint8_t kNoLine = kMostLines;

    constexpr LineOrder(std::uint32_t first_id, std::span<const LineRow> rows)
        : first_id_(first_id), rows_(rows) {
        for (std::uint8_t& line : line_of_) line = kNoLine;
        for (std::size_t line = 0; line < rows.size(); ++line) {
            for (const std::uint32_t id : rows[line].fields) {
                if (id != 0) line_of_.at(id - first_id) = static_cast<std::uint8_t>(line);
            }
        }
    }

    [[nodiscard]] constexpr std::span<const LineRow> rows() const noexcept { return rows_; }

    // The line of a field; kNoLine for an id that is none of the list's.
    [[nodiscard]] constexpr std::uint8_t line_of(std::uint32_t id) const noexcept {
        const std::uint32_t index = id - first_id_;
        return index < line_of_.size() ? line_of_[index] : kNoLine;
    }

private:
    std::uint32_t first_id_;
    std::span<const LineRow> rows_;
    std::array<std::uint8_t, kMostIds> line_of_{};
};

// An entry of a known field; `text` is that of an entry with a text.
struct ListedEntry {
    const FieldRow* row;
    ContactField field;
    std::u16string_view text;
    std::uint32_t next;
};

// Reads a list once. Entries that cannot be read are left out, and those without a text where there should be
// one; entries of one line stay in the order of the list.
class EntriesByLine {
public:
    EntriesByLine(ContactWriting& writing, const ContactField* list, std::uint32_t count,
                  const LineOrder& order);

    // The first entry of the line of that number, and the one after `entry`; null when there is none.
    [[nodiscard]] const ListedEntry* first(std::size_t line) const noexcept {
        return entry_at(chains_[line].first);
    }
    [[nodiscard]] const ListedEntry* next(const ListedEntry& entry) const noexcept {
        return entry_at(entry.next);
    }

private:
    static constexpr std::uint32_t kNone = UINT32_MAX;

    struct Chain {
        std::uint32_t first = kNone;
        std::uint32_t last = kNone;
    };

    void add(std::size_t line, const ListedEntry& entry);
    [[nodiscard]] const ListedEntry* entry_at(std::uint32_t index) const noexcept {
        return index == kNone ? nullptr : &entries_[index];
    }

    std::vector<ListedEntry> entries_;
    std::array<Chain, LineOrder::kMostLines> chains_;
};

}  // namespace vzapi::vcard
