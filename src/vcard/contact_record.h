// The contact record: building one while it is read, and releasing it.
#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "call_context.h"
#include "platform/heap.h"
#include "vcard/contact_fields.h"
#include "vzapi/contact.h"

namespace vzapi::vcard {

// Collects the entries of a contact and owns all that hangs on them until hand_over(). Arrays, sub-records
// and picture data are process-heap blocks, strings OLE strings. Every add_ raises VZ_ERR_OUT_OF_MEMORY, or
// throws std::bad_alloc, when there is no memory and then leaves the builder as it was. IDs are those of
// contact_fields(), each with a value of its kind.
class ContactBuilder {
public:
    ContactBuilder() = default;
    ~ContactBuilder();
    ContactBuilder(const ContactBuilder&) = delete;
    ContactBuilder& operator=(const ContactBuilder&) = delete;

    // Makes room for that many entries at once.
    void reserve(std::size_t entries) { entries_.reserve(entries); }

    void add_text(std::uint32_t id, bool preferred, std::u16string_view text);
    // `form` is VZ_FORM_EXTENDED.
    void add_number(std::uint32_t id, bool preferred, std::uint32_t number);
    void add_date(std::uint32_t id, bool preferred, const ContactDate& date);
    // An empty type is stored as null.
    void add_photo(bool preferred, std::u16string_view image_type, std::span<const std::byte> data);
    // The same with a block that holds the `length` bytes already.
    void add_photo(bool preferred, std::u16string_view image_type, platform::HeapPointer<std::uint8_t> data,
                   std::uint32_t length);
    // The seven components in the order of ADR; `form` is VZ_FORM_ADDRESS.
    void add_address(std::uint32_t id, bool preferred, const std::array<std::u16string_view, 7>& components);
    // `preferred` and the kind stand in the nested entry, whose `fieldId` is 0; the outer one is never
    // preferred.
    void add_messaging(std::uint32_t kind, bool preferred, std::u16string_view address);

    // True when an entry of that id was added.
    [[nodiscard]] bool has(std::uint32_t id) const noexcept { return added_.test(id); }

    // Gives everything to `item`, whose lists are set fresh, each in the order in which its entries were
    // added; `size` is left alone. Raises VZ_ERR_OUT_OF_MEMORY and keeps everything when an array cannot be
    // allocated.
    void hand_over(ContactItem& item);

private:
    void make_room();
    void add(std::uint32_t id, bool preferred, std::uint32_t form, ContactValue value) noexcept;

    std::vector<ContactField> entries_;         // of all four lists
    std::bitset<VZ_CONTACT_GENDER + 1> added_;  // by id
};

// Releases everything that a read put into the record at `item` and sets all but `size` to zero. What is not
// the library's own - arrays and sub-records that are no live blocks of the process heap, strings that cannot
// be read - is left alone, with all that hangs on it. Raises VZ_ERR_POINTER for a record that cannot be read,
// VZ_ERR_BAD_VALUE for one whose `size` is not 64 from interface version 13 on.
void release_contact(void* item, const ReleaseContext& context);

}  // namespace vzapi::vcard
