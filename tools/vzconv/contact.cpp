#include "vzconv/contact.h"

#include "vzapi/contact.h"
#include "vzconv/contact_json.h"
#include "vzconv/contact_show.h"
#include "vzconv/library.h"

namespace vzconv {
namespace {

using Contact = ReadRecord<ContactItem, kContactRecord>;

std::string show(std::string_view text, const Options& options) {
    return show_contact(*Contact(text, options.door));
}

void to_json(std::string_view text, const Options& options, nlohmann::ordered_json& object) {
    put_contact(*Contact(text, options.door), object);
}

std::string from_json(const JsonObject& object, const Options& options) {
    ContactRecord record;
    take_contact(object.fields, record);
    const ContactItem item = record.item();
    return write_record(kContactRecord, &item, options);
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
