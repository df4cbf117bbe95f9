#include "vzconv/contact.h"

#include "vzapi/contact.h"
#include "vzconv/contact_json.h"
#include "vzconv/contact_photos.h"
#include "vzconv/contact_show.h"
#include "vzconv/record_converter.h"

namespace vzconv {
namespace {

using Contacts =
    RecordConverter<ContactItem, kContactRecord, ContactRecord, show_contact, put_contact, take_contact>;

std::vector<EmbeddedFile> files(std::string_view text, const Options& options) {
    return photos_of(*Contacts::Read(text, options.door));
}

}  // namespace

// An array of one value, an empty list or a "preferred" that is false are said otherwise by to_json.
const Converter kContactConverter = {Contacts::show,       Contacts::to_json, Contacts::from_json,
                                     Contacts::plain_form, nullptr,           files};

}  // namespace vzconv
