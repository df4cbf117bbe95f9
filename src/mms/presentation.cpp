#include "mms/presentation.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <unordered_set>

#include "mms/multipart.h"
#include "platform/utf8.h"
#include "versit/ascii.h"

namespace vzapi::mms {
namespace {

constexpr std::u16string_view kRelated = u"application/vnd.wap.multipart.related";
constexpr std::u16string_view kMixed = u"application/vnd.wap.multipart.mixed";
constexpr std::u16string_view kSmil = u"application/smil";
constexpr std::u16string_view kPresentationName = u"presentation.smil";

enum class Medium { None, Picture, Video, Sound, Text };

Medium medium_of(std::u16string_view media) noexcept {
    if (versit::starts_with_ignoring_case(media, "IMAGE/")) return Medium::Picture;
    if (versit::starts_with_ignoring_case(media, "VIDEO/")) return Medium::Video;
    if (versit::starts_with_ignoring_case(media, "AUDIO/")) return Medium::Sound;
    return versit::equals_ignoring_case(media, "TEXT/PLAIN") ? Medium::Text : Medium::None;
}

// Scalar values that a document may hold (XML 1.0, section 2.2).
bool is_xml_character(char32_t character) noexcept {
    if (character < 0x20) return character == '\t' || character == '\n' || character == '\r';
    return character < 0xD800 || (character > 0xDFFF && character < 0xFFFE) || character > 0xFFFF;
}

void append_percent(std::string_view bytes, std::string& out) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    for (const char byte : bytes) {
        const auto octet = static_cast<unsigned char>(byte);
        out += {'%', kDigits[octet / 16], kDigits[octet % 16]};
    }
}

// Appends a reference as the value of an attribute. What no document may hold, and the white space that a
// parser would make blanks of, is written as in a URI.
void append_reference(std::u16string_view text, std::string& out) {
    for (std::size_t at = 0; at < text.size();) {
        const bool is_pair =
            at + 1 < text.size() && (text[at] & 0xFC00U) == 0xD800 && (text[at + 1] & 0xFC00U) == 0xDC00;
        const std::u16string_view character = text.substr(at, is_pair ? 2 : 1);
        at += character.size();
        const char16_t unit = character.front();
        const std::string utf8 = platform::utf16_to_utf8(character);
        if (unit == u'&')
            out += "&amp;";
        else if (unit == u'<')
            out += "&lt;";
        else if (unit == u'>')
            out += "&gt;";
        else if (unit == u'"')
            out += "&quot;";
        else if (unit < 0x20 || (!is_pair && !is_xml_character(unit)))
            append_percent(utf8, out);
        else
            out += utf8;
    }
}

std::string reference_to(const Part& part) {
    std::string reference;
    if (part.content_location && !part.content_location->empty()) {
        append_reference(*part.content_location, reference);
    } else {
        reference = "cid:";
        append_reference(*part.content_id, reference);
    }
    return reference;
}

// Pages of at most one picture or video, one text and one sound each; a picture or video begins a page.
class SmilWriter {
public:
    void add(const Part& part) {
        switch (medium_of(part.type.media)) {
            case Medium::Picture:
                return add_visual("img", part);
            case Medium::Video:
                return add_visual("video", part);
            case Medium::Sound:
                return add_companion("audio", "", part, has_sound_);
            case Medium::Text:
                return add_companion("text", " region=\"Text\"", part, has_text_);
            case Medium::None:
                return;
        }
    }

    [[nodiscard]] std::string document() const {
        return "<smil><head><layout><root-layout/>"
               "<region id=\"Image\" top=\"0%\" left=\"0%\" width=\"100%\" height=\"70%\" fit=\"meet\"/>"
               "<region id=\"Text\" top=\"70%\" left=\"0%\" width=\"100%\" height=\"30%\" fit=\"scroll\"/>"
               "</layout></head><body>" +
               pages_ + "</par></body></smil>";
    }

private:
    void begin_page() {
        pages_ += pages_.empty() ? "<par dur=\"5000ms\">" : "</par><par dur=\"5000ms\">";
        has_text_ = false;
        has_sound_ = false;
    }

    void append_element(std::string_view element, std::string_view region, const Part& part) {
        pages_.append("<").append(element).append(" src=\"").append(reference_to(part)).append("\"");
        pages_.append(region).append("/>");
    }

    void add_visual(std::string_view element, const Part& part) {
        begin_page();
        append_element(element, " region=\"Image\"", part);
    }

    void add_companion(std::string_view element, std::string_view region, const Part& part, bool& is_there) {
        if (pages_.empty() || is_there) begin_page();
        append_element(element, region, part);
        is_there = true;
    }

    std::string pages_;
    bool has_text_ = false;
    bool has_sound_ = false;
};

// Names that no other part has.
class FreeNames {
public:
    explicit FreeNames(const std::vector<Part>& parts) {
        for (const Part& part : parts) {
            if (part.content_location) taken_.insert(*part.content_location);
            if (part.content_id) taken_.insert(*part.content_id);
        }
    }

    // `wish`, or with a number before its extension when it is taken.
    std::u16string take(const std::u16string& wish) {
        std::u16string name = wish;
        for (std::size_t i = 2; !taken_.insert(name).second; ++i) {
            const std::size_t dot = std::min(wish.rfind(u'.'), wish.size());
            const std::string number = std::to_string(i);
            name =
                wish.substr(0, dot) + u"_" + std::u16string(number.begin(), number.end()) + wish.substr(dot);
        }
        return name;
    }

private:
    std::unordered_set<std::u16string> taken_;
};

bool has_content(const std::optional<std::u16string>& text) {
    return text && !text->empty();
}

bool is_in_body(const Part& part) noexcept {
    return part.container == 1;
}

// Each medium needs something that the presentation can refer to it by.
void give_locations(std::vector<Part>& parts) {
    FreeNames names(parts);
    for (std::size_t i = 1; i < parts.size(); ++i) {
        Part& part = parts[i];
        const bool is_referred_to = is_in_body(part) && medium_of(part.type.media) != Medium::None;
        if (!is_referred_to || has_content(part.content_location) || has_content(part.content_id)) continue;
        part.content_location = names.take(part.name.empty() ? derived_name(parts, i) : part.name);
    }
}

// Puts `part` first into the body.
void insert_first(std::vector<Part>& parts, Part part) {
    for (Part& other : parts) {
        if (other.container > 1) ++other.container;
    }
    part.container = 1;
    parts.insert(parts.begin() + 1, std::move(part));
}

bool has_media(const std::vector<Part>& parts) {
    return std::any_of(parts.begin(), parts.end(), [](const Part& part) {
        return is_in_body(part) && medium_of(part.type.media) != Medium::None;
    });
}

void add_presentation(std::vector<Part>& parts) {
    Part smil;
    smil.flags = VZ_MMS_PART_PRESENTATION;
    smil.type.media = kSmil;
    smil.content_location = FreeNames(parts).take(std::u16string(kPresentationName));
    insert_first(parts, std::move(smil));
    give_locations(parts);  // the numbers in them are those of the finished body

    SmilWriter pages;
    for (const Part& part : parts) {
        if (is_in_body(part)) pages.add(part);
    }
    const std::string document = pages.document();
    Part& presentation = parts[1];
    presentation.decoded.resize(document.size());
    std::transform(document.begin(), document.end(), presentation.decoded.begin(),
                   [](char each) { return static_cast<std::byte>(each); });
    presentation.data = presentation.decoded;
}

Part* find_presentation(std::vector<Part>& parts) {
    const auto marked = std::find_if(parts.begin(), parts.end(), [](const Part& part) {
        return is_in_body(part) && (part.flags & VZ_MMS_PART_PRESENTATION) != 0;
    });
    if (marked != parts.end()) return &*marked;
    const auto typed = std::find_if(parts.begin(), parts.end(), [](const Part& part) {
        return is_in_body(part) && is_presentation(part.type.media);
    });
    return typed == parts.end() ? nullptr : &*typed;
}

void set_parameter(ContentType& type, std::u16string_view name, std::string_view name_upper,
                   std::u16string text) {
    const bool is_there =
        std::any_of(type.parameters.begin(), type.parameters.end(), [name_upper](const Parameter& each) {
            return versit::equals_ignoring_case(std::u16string_view(each.name), name_upper);
        });
    if (is_there) return;
    Parameter parameter{std::u16string(name), {}};
    parameter.value.kind = VZ_MMS_VALUE_TEXT;
    parameter.value.text = std::move(text);
    type.parameters.push_back(std::move(parameter));
}

// Names the root in the type of its container.
void refer_to_root(std::vector<Part>& parts) {
    Part* const root = find_presentation(parts);
    if (root == nullptr) return;
    if (!has_content(root->content_id)) {
        root->content_id = FreeNames(parts).take(u"presentation");
    }
    ContentType& type = parts.front().type;
    set_parameter(type, u"type", "TYPE", root->type.media);
    set_parameter(type, u"start", "START", u"<" + *root->content_id + u">");
}

// Such a part has members that only an entry of a container can have.
bool needs_entry(const Part& part) {
    return part.content_id || part.content_location || part.disposition || !part.headers.empty();
}

bool needs_container(const std::vector<Part>& parts) {
    const auto outside =
        std::count_if(parts.begin(), parts.end(), [](const Part& part) { return part.container == 0; });
    if (outside > 1) return true;
    return outside == 1 && (parts.front().flags & VZ_MMS_PART_CONTAINER) == 0 && needs_entry(parts.front());
}

void put_into_container(std::vector<Part>& parts) {
    for (Part& part : parts) ++part.container;
    Part container;
    container.flags = VZ_MMS_PART_CONTAINER;
    container.type.media = kMixed;
    parts.insert(parts.begin(), std::move(container));
}

bool is_one_of(std::u16string_view media, std::string_view wsp_upper, std::string_view mime_upper) {
    return versit::equals_ignoring_case(media, wsp_upper) || versit::equals_ignoring_case(media, mime_upper);
}

bool is_mixed(std::u16string_view media) {
    return is_one_of(media, "APPLICATION/VND.WAP.MULTIPART.MIXED", "MULTIPART/MIXED");
}

bool is_related(std::u16string_view media) {
    return is_one_of(media, "APPLICATION/VND.WAP.MULTIPART.RELATED", "MULTIPART/RELATED");
}

}  // namespace

void complete_body(Message& message) {
    std::vector<Part>& parts = message.parts;
    if (parts.empty()) return;
    const bool is_new = needs_container(parts);
    if (is_new) put_into_container(parts);
    Part* const root = find_presentation(parts);
    if (is_new && root != nullptr) parts.front().type.media = kRelated;
    if ((message.flags & VZ_MMS_NO_PRESENTATION) != 0) return;
    const std::u16string_view media = parts.front().type.media;
    if (!is_related(media) && !is_mixed(media)) return;
    if (root == nullptr && has_media(parts)) {
        if (is_mixed(media)) parts.front().type.media = kRelated;
        add_presentation(parts);
    }
    if (is_related(parts.front().type.media)) refer_to_root(parts);
}

}  // namespace vzapi::mms
