#include "vzconv/contact_name.h"

#include "vzconv/contact_parts.h"

namespace vzconv {
namespace {

constexpr uint32_t kParts[] = {VZ_CONTACT_NAME_PREFIX, VZ_CONTACT_GIVEN_NAME,  VZ_CONTACT_ADDITIONAL_NAME,
                               VZ_CONTACT_FAMILY_NAME, VZ_CONTACT_NAME_SUFFIX, VZ_CONTACT_NAME_EXTRA};
constexpr uint32_t kFamilyFirst[] = {VZ_CONTACT_FAMILY_NAME,     VZ_CONTACT_GIVEN_NAME,
                                     VZ_CONTACT_ADDITIONAL_NAME, VZ_CONTACT_NAME_PREFIX,
                                     VZ_CONTACT_NAME_SUFFIX,     VZ_CONTACT_NAME_EXTRA};

}  // namespace

std::span<const uint32_t> name_parts() {
    return kParts;
}

std::span<const uint32_t> family_first_name_parts() {
    return kFamilyFirst;
}

std::string name_of_parts(const ContactItem& item, std::span<const uint32_t> parts,
                          std::string_view between) {
    std::string name;
    for (const uint32_t id : parts) {
        for (const ContactField& entry : entries_of(item, ContactList::General)) {
            const std::string part = entry.fieldId == id ? text_of(entry.value.text) : std::string();
            if (!name.empty() && !part.empty()) name += between;
            name += part;
        }
    }
    return name;
}

std::string name_of(const ContactItem& item) {
    for (const ContactField& entry : entries_of(item, ContactList::General)) {
        if (entry.fieldId != VZ_CONTACT_FORMATTED_NAME) continue;
        std::string name = text_of(entry.value.text);
        if (!name.empty()) return name;
    }
    return name_of_parts(item, kParts, " ");
}

}  // namespace vzconv
