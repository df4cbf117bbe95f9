#include "vzconv/contact.h"

#include "vzapi/contact.h"
#include "vzconv/contact_json.h"
#include "vzconv/contact_show.h"
#include "vzconv/library.h"

namespace vzconv {
namespace {

using Contact = ReadRecord<ContactItem, VZ_TYPE_CONTACT>;

std::string show(std::string_view text) {
    return show_contact(*Contact(text));
}

void to_json(std::string_view text, nlohmann::ordered_json& object) {
    put_contact(*Contact(text), object);
}

std::string from_json(const nlohmann::json& fields, const Profile& profile) {
    ContactRecord record;
    take_contact(fields, record);
    const ContactItem item = record.item();
    return write_record(VZ_TYPE_CONTACT, &item, profile);
}

// An array of one value, an empty list or a "preferred" that is false are said otherwise by to_json.
nlohmann::json plain_form(const nlohmann::json& fields) {
    ContactRecord record;
    take_contact(fields, record);
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    put_contact(record.item(), object);
    return nlohmann::json(object);
}

}  // namespace

const Converter kContactConverter = {show, to_json, from_json, plain_form};

}  // namespace vzconv
