// The library, for code that speaks in exceptions and RAII: each call that fails throws Failure with the
// reason.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "vzapi/vzapi.h"
#include "vzconv/profile.h"

namespace vzconv {

// Announces the interface version that this program is built for, for as long as it lives.
class LibrarySession {
public:
    LibrarySession() { VZAPI_Initialize(VZ_INTERFACE_VERSION); }
    ~LibrarySession() { VZAPI_Terminate(); }
    LibrarySession(const LibrarySession&) = delete;
    LibrarySession& operator=(const LibrarySession&) = delete;
};

// The test for the marks of an object of `type`. `text` is 8-bit text, which messages (whose text crosses the
// interface as UTF-16) are converted from.
void validate(uint32_t type, std::string_view text);

// Reads `text` into the record at `item`, which owns nothing yet. What it holds after a failure needs
// releasing too.
void read_record(uint32_t type, std::string_view text, void* item);

// The text that the library writes for the record at `item` and the device of that profile, as 8-bit text.
std::string write_record(uint32_t type, const void* item, const Profile& profile);

// A record that the library filled from text, released with what it owns.
template <class Item, uint32_t kType>
class ReadRecord {
public:
    explicit ReadRecord(std::string_view text) : item_(new Item{}) {
        item_->size = sizeof(Item);
        read_record(kType, text, item_.get());
    }

    const Item& operator*() const { return *item_; }
    const Item* operator->() const { return item_.get(); }

private:
    struct Release {
        void operator()(Item* item) const {
            FreeConverterData(kType, item);
            delete item;
        }
    };
    std::unique_ptr<Item, Release> item_;
};

}  // namespace vzconv
