// The library, for code that speaks in exceptions and RAII: each call that fails throws Failure with the
// reason. Whether it goes to the conversion family or to the data-object family is for the caller to say; the
// result is the same.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "vzapi/odcapi.h"
#include "vzapi/vzapi.h"
#include "vzconv/options.h"

namespace vzconv {

// Announces to both families the interface versions that this program is built for, for as long as it lives.
class LibrarySession {
public:
    LibrarySession();
    ~LibrarySession();
    LibrarySession(const LibrarySession&) = delete;
    LibrarySession& operator=(const LibrarySession&) = delete;
};

// A record, by its codes in the two families.
struct RecordType {
    uint32_t type;    // VZ_TYPE_...; 0: the conversion family does not have it
    uint32_t object;  // VZ_OBJECT_...; 0: the data-object family does not have it
};

inline constexpr RecordType kContactRecord = {VZ_TYPE_CONTACT, VZ_OBJECT_CONTACT};
inline constexpr RecordType kCalendarRecord = {VZ_TYPE_CALENDAR, VZ_OBJECT_CALENDAR};
inline constexpr RecordType kMessageRecord = {VZ_TYPE_MESSAGE, VZ_OBJECT_MESSAGE};
inline constexpr RecordType kBookmarkRecord = {VZ_TYPE_BOOKMARK, VZ_OBJECT_BOOKMARK};
inline constexpr RecordType kContactGroupRecord = {VZ_TYPE_CONTACT_GROUP, 0};
inline constexpr RecordType kMultimediaRecord = {0, VZ_OBJECT_MULTIMEDIA};
inline constexpr RecordType kEmailRecord = {0, VZ_OBJECT_EMAIL};

// A record that one family alone has is converted by that one: multimedia messages and e-mail items by either
// door, contact groups by Door::Conversions only, and refused at the other.

// The test for the marks of an object of that record. `text` is 8-bit text or bytes, which messages (whose
// text crosses the interface as UTF-16) are converted from.
void validate(RecordType record, std::string_view text, Door door);

// Reads `text` into the record at `item`, which owns nothing yet. What it holds after a failure needs
// releasing too, through the same door.
void read_record(RecordType record, std::string_view text, Door door, void* item);
void release_record(RecordType record, Door door, void* item);

// The text that the library writes for the record at `item` and the device of the profile, as 8-bit text; of
// a multimedia message the bytes, which are the same for every profile.
std::string write_record(RecordType record, const void* item, const Options& options);

// A record that the library filled from text, released with what it owns. `size` is the version of it that
// the library sees.
template <class Item, RecordType kRecord>
class ReadRecord {
public:
    explicit ReadRecord(std::string_view text, Door door = Door::Conversions, uint32_t size = sizeof(Item))
        : item_(new Item{}, Release{door}) {
        item_->size = size;
        read_record(kRecord, text, door, item_.get());
    }

    const Item& operator*() const { return *item_; }
    const Item* operator->() const { return item_.get(); }

private:
    struct Release {
        Door door;
        void operator()(Item* item) const {
            release_record(kRecord, door, item);
            delete item;
        }
    };
    std::unique_ptr<Item, Release> item_;
};

}  // namespace vzconv
