#include "vcard/contact_reader_photo.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "platform/heap.h"
#include "result.h"
#include "vcard/parameter_words.h"
#include "versit/ascii.h"
#include "versit/base64.h"
#include "versit/quoted_printable.h"

namespace vzapi::vcard {
namespace {

using versit::Encoding;
using versit::equals_ignoring_case;

struct PhotoParameters {
    Encoding encoding = Encoding::None;
    std::string_view image_type;
    bool is_reference = false;
};

// What a word of the parameters stands for.
enum class Role { Encoding, EncodingBehindName, Reference, Ignored };

struct WordRow {
    std::string_view word;
    Role role;
    Encoding encoding;
};

constexpr WordRow kWords[] = {
    {"BASE64", Role::Encoding, Encoding::Base64},
    {"B", Role::EncodingBehindName, Encoding::Base64},
    {"QUOTED-PRINTABLE", Role::Encoding, Encoding::QuotedPrintable},
    {"8BIT", Role::Encoding, Encoding::EightBit},
    {"7BIT", Role::Encoding, Encoding::SevenBit},
    {"URL", Role::Reference, Encoding::None},
    {"URI", Role::Reference, Encoding::None},
    {"CONTENT-ID", Role::Reference, Encoding::None},
    {"CID", Role::Reference, Encoding::None},
    {"INLINE", Role::Ignored, Encoding::None},
    {"BINARY", Role::Ignored, Encoding::None},
    {"PREF", Role::Ignored, Encoding::None},
    {"", Role::Ignored, Encoding::None},
};

const WordRow* find_word(std::string_view word) {
    const auto* row = std::find_if(std::begin(kWords), std::end(kWords), [word](const WordRow& each) {
        return equals_ignoring_case(word, each.word);
    });
    return row == std::end(kWords) ? nullptr : row;
}

Encoding encoding_named(std::string_view word) {
    const WordRow* row = find_word(word);
    return row != nullptr && row->encoding != Encoding::None ? row->encoding : Encoding::Unknown;
}

// "image/png" is the type "png".
std::string_view without_media_type(std::string_view type) {
    constexpr std::string_view kImage = "IMAGE/";
    if (versit::starts_with_ignoring_case(type, kImage)) type.remove_prefix(kImage.size());
    return type;
}

void read_bare_word(std::string_view word, PhotoParameters& photo) {
    const WordRow* row = find_word(word);
    if (row != nullptr && row->role == Role::Encoding) {
        photo.encoding = row->encoding;
    } else if (row != nullptr && row->role == Role::Reference) {
        photo.is_reference = true;
    } else if (photo.image_type.empty() && (row == nullptr || row->role != Role::Ignored)) {
        photo.image_type = without_media_type(word);
    }
}

PhotoParameters photo_parameters(std::string_view parameters) {
    PhotoParameters photo;
    for_each_parameter_word(parameters, [&photo](std::string_view name, std::string_view word) {
        if (name.empty()) {
            read_bare_word(word, photo);
        } else if (equals_ignoring_case(name, "ENCODING")) {
            photo.encoding = encoding_named(word);
        } else if (equals_ignoring_case(name, "VALUE")) {
            const WordRow* row = find_word(word);
            photo.is_reference |= row != nullptr && row->role == Role::Reference;
        } else if (equals_ignoring_case(name, "TYPE") && !equals_ignoring_case(word, "PREF")) {
            if (photo.image_type.empty()) photo.image_type = without_media_type(word);
        }
    });
    return photo;
}

// In capitals, the form in which image types are compared when they are written.
std::u16string record_image_type(std::string_view type) {
    std::u16string upper(type.size(), u'\0');
    std::transform(type.begin(), type.end(), upper.begin(),
                   [](char unit) { return char16_t{static_cast<unsigned char>(versit::to_upper(unit))}; });
    return upper;
}

// Straight into the block of the record: a picture may be most of the text.
void add_base64_photo(bool preferred, std::u16string_view image_type, std::string_view text,
                      ContactBuilder& contact) {
    platform::HeapPointer<std::uint8_t> data(
        static_cast<std::uint8_t*>(platform::heap_allocate(versit::decoded_base64_room(text))));
    if (!data) raise(VZ_ERR_OUT_OF_MEMORY);
    const std::size_t length = versit::decode_base64(text, reinterpret_cast<std::byte*>(data.get()));
    if (length != 0)
        contact.add_photo(preferred, image_type, std::move(data), static_cast<std::uint32_t>(length));
}

void add_plain_photo(bool preferred, std::u16string_view image_type, std::string_view bytes,
                     ContactBuilder& contact) {
    if (!bytes.empty()) contact.add_photo(preferred, image_type, std::as_bytes(std::span(bytes)));
}

}  // namespace

void read_photo(const versit::VersitProperty& line, bool preferred, Encoding default_encoding,
                ContactBuilder& contact) {
    const PhotoParameters photo = photo_parameters(line.parameters());
    if (photo.is_reference) return;
    const std::u16string image_type = record_image_type(photo.image_type);
    switch (photo.encoding == Encoding::None ? default_encoding : photo.encoding) {
        case Encoding::Base64:
        case Encoding::Base64Default:
        case Encoding::Base64Default2:
            add_base64_photo(preferred, image_type, line.value(), contact);
            break;
        case Encoding::QuotedPrintable:
            add_plain_photo(preferred, image_type, versit::decode_quoted_printable(line.value()), contact);
            break;
        default:
            add_plain_photo(preferred, image_type, line.value(), contact);
            break;
    }
}

}  // namespace vzapi::vcard
