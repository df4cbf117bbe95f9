#include "vcard/contact_writer.h"

#include "result.h"
#include "vcard/contact_writing.h"
#include "vzapi/vzapi.h"

namespace vzapi::vcard {

std::string write_contact(const void* item, const WriterContext& context) {
    ContactWriting writing(context);
    ContactItem contact;
    if (!writing.memory().load(item, contact)) raise(VZ_ERR_POINTER);
    const bool size_is_checked = context.api_version >= VZ_INTERFACE_CHECKED_SIZES;
    if (size_is_checked && contact.size != sizeof(ContactItem)) raise(VZ_ERR_BAD_VALUE);

    writing.lines().line("BEGIN:VCARD");
    writing.lines().line("VERSION:2.1");
    write_general(writing, contact);
    write_phones(writing, contact);
    write_addresses(writing, contact);
    write_extended(writing, contact);
    if (writing.has(Effect::EmptyFieldLines)) write_empty_fields(writing);
    writing.lines().line("END:VCARD");
    return writing.lines().take();
}

}  // namespace vzapi::vcard
