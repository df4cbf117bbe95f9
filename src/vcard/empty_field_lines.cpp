// The lines that make a receiving device clear the fields that a contact does not have.
#include "vcard/contact_writing.h"

namespace vzapi::vcard {
namespace {

// What keeps a line from being written.
enum class Kept {
    ByValue,    // any value that can be read, a text of no length included
    ByContent,  // a value that says something
};

struct EmptyFieldRow {
    std::string_view line;
    std::uint32_t field;
    Kept kept;
};

// In the order in which they are written.
constexpr EmptyFieldRow kEmptyFields[] = {
    // clang-format off
    {"BDAY:",                  VZ_CONTACT_BIRTHDAY,     Kept::ByContent},
    {"X-ANNIVERSARY:",         VZ_CONTACT_ANNIVERSARY,  Kept::ByContent},
    {"NOTE:",                  VZ_CONTACT_NOTE,         Kept::ByValue},
    {"PHOTO;ENCODING=BASE64:", VZ_CONTACT_PHOTO,        Kept::ByContent},
    {"ORG:",                   VZ_CONTACT_COMPANY,      Kept::ByContent},
    {"TITLE:",                 VZ_CONTACT_JOB_TITLE,    Kept::ByContent},
    {"TEL;VOICE:",             VZ_CONTACT_PHONE,        Kept::ByContent},
    {"EMAIL:",                 VZ_CONTACT_EMAIL,        Kept::ByContent},
    {"EMAIL;INTERNET;HOME:",   VZ_CONTACT_EMAIL_HOME,   Kept::ByContent},
    {"EMAIL;INTERNET;WORK:",   VZ_CONTACT_EMAIL_WORK,   Kept::ByContent},
    {"ADR;POSTAL:;;;;;;",      VZ_CONTACT_ADDRESS,      Kept::ByValue},
    {"ADR;HOME:;;;;;;",        VZ_CONTACT_ADDRESS_HOME, Kept::ByValue},
    {"ADR;WORK:;;;;;;",        VZ_CONTACT_ADDRESS_WORK, Kept::ByValue},
    {"URL:",                   VZ_CONTACT_WEB,          Kept::ByContent},
    {"URL;HOME:",              VZ_CONTACT_WEB_HOME,     Kept::ByContent},
    {"URL;WORK:",              VZ_CONTACT_WEB_WORK,     Kept::ByContent},
    {"X-EPOCSECONDNAME:",      VZ_CONTACT_SECOND_NAME,  Kept::ByContent},
    // clang-format on
};

}  // namespace

void write_empty_fields(ContactWriting& writing) {
    for (const EmptyFieldRow& row : kEmptyFields) {
        const FieldSet& kept = row.kept == Kept::ByValue ? writing.with_value() : writing.with_content();
        if (!kept.test(row.field)) writing.lines().line(row.line);
    }
}

}  // namespace vzapi::vcard
