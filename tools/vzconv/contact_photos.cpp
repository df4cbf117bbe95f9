#include "vzconv/contact_photos.h"

#include <algorithm>
#include <string_view>

#include "vzconv/contact_name.h"
#include "vzconv/contact_parts.h"
#include "vzconv/file_types.h"

namespace vzconv {
namespace {

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Of "JPEG" or "image/jpeg".
std::string content_type_of(std::string type) {
    std::transform(type.begin(), type.end(), type.begin(), lower);
    if (type.empty()) return "image/jpeg";
    return type.find('/') == std::string::npos ? "image/" + type : type;
}

EmbeddedFile file_of(const ContactPhoto& photo, const std::string& name) {
    EmbeddedFile file;
    file.name = name;
    if (photo.data != nullptr) file.data.assign(photo.data, photo.data + photo.dataLength);
    file.type = picture_type_of(file.data);
    if (file.type.empty()) file.type = content_type_of(text_of(photo.imageType));
    return file;
}

}  // namespace

std::vector<EmbeddedFile> photos_of(const ContactItem& item) {
    // A stroke in a name does not part folders.
    std::string name = name_of(item);
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == '/' || c == '\\'; }, '_');
    std::vector<EmbeddedFile> photos;
    for (const ContactField& entry : entries_of(item, ContactList::General)) {
        if (entry.fieldId != VZ_CONTACT_PHOTO || entry.value.photo == nullptr) continue;
        photos.push_back(file_of(*entry.value.photo, name));
    }
    return photos;
}

}  // namespace vzconv
