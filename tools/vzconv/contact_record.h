// A contact record for the library to write from, and all that it points to.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "vzapi/contact.h"
#include "vzconv/contact_words.h"

namespace vzconv {

// Owns what its entries point to, so an entry is good as long as this lives. Values are made first and put
// into the lists then, in any order.
class ContactRecord {
public:
    ContactRecord() = default;
    ContactRecord(const ContactRecord&) = delete;
    ContactRecord& operator=(const ContactRecord&) = delete;

    ContactValue text(std::u16string text);
    ContactValue date(const ContactDate& date);
    ContactValue photo(std::optional<std::u16string> image_type, std::vector<uint8_t> data);
    // `parts` are in the order of address_parts().
    ContactValue address(std::vector<std::u16string> parts);
    ContactValue messaging(bool preferred, uint32_t kind, std::u16string address);

    // Appends an entry to the list that `word` names.
    void add(const ContactWord& word, bool preferred, const ContactValue& value);

    // The record as it is now; good until the next add().
    ContactItem item();

private:
    std::vector<ContactField> lists_[4];  // by ContactList
    std::deque<std::u16string> texts_;
    std::deque<ContactDate> dates_;
    std::deque<ContactPhoto> photos_;
    std::deque<std::vector<uint8_t>> pictures_;
    std::deque<ContactAddress> addresses_;
    std::deque<ContactField> messaging_;
};

}  // namespace vzconv
