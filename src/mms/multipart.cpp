#include "mms/multipart.h"

#include <algorithm>
#include <utility>

#include "mms/wsp_parameters.h"
#include "versit/ascii.h"

namespace vzapi::mms {
namespace {

constexpr std::u16string_view kUnknownMedia = u"application/octet-stream";
constexpr std::uint32_t kMostHeaderNumber = 0x7F;
constexpr std::size_t kUsualParts = 16;

void mark_truncated(Message& message, std::size_t number) {
    message.parts[number - 1].flags |= VZ_MMS_PART_TRUNCATED;
    message.flags |= VZ_MMS_TRUNCATED;
}

// Adds parts and what is in them to a message.
class BodyReader {
public:
    BodyReader(EntryLimit& limit, Message& message) : limit_(limit), message_(message) {}

    // `part` is inside `nesting` containers.
    void add_part(Part&& part, std::size_t nesting) {
        const Bytes content = part.data;
        const bool is_container =
            nesting < kMostNesting && CMultipartContainer::is_container(part.type.media);
        if (is_container) {
            part.flags |= VZ_MMS_PART_CONTAINER;
            part.data = {};
        }
        append(message_.parts, std::move(part));
        if (is_container) add_entries(content, nesting + 1);
    }

private:
    void add_entries(Bytes content, std::size_t nesting) {
        const std::size_t container = message_.parts.size();
        CWSPEncoding body(content);
        const std::optional<std::uint32_t> count = body.uintvar();
        bool is_complete = count.has_value();
        if (is_complete && nesting == 1)
            message_.parts.reserve(container + std::min<std::size_t>(*count, kUsualParts));
        for (std::uint32_t i = 0; is_complete && i < *count; ++i) {
            is_complete = add_entry(body, container, nesting);
        }
        if (!is_complete) mark_truncated(message_, container);
    }

    // False when there is no further one, or it is the last because it is cut off.
    bool add_entry(CWSPEncoding& body, std::size_t container, std::size_t nesting) {
        if (message_.parts.size() >= kMostParts || limit_.is_exceeded()) return false;
        const std::optional<std::uint32_t> head_length = body.uintvar();
        const std::optional<std::uint32_t> data_length = head_length ? body.uintvar() : std::nullopt;
        if (!data_length) return false;
        const std::optional<Bytes> head = body.bytes(*head_length);
        if (!head) return false;
        const Bytes data = *body.bytes(std::min<std::size_t>(*data_length, body.left()));

        Part part;
        part.container = static_cast<std::uint32_t>(container);
        CMultipartFile::decode(*head, data, limit_, part);
        const std::size_t number = message_.parts.size() + 1;
        add_part(std::move(part), nesting);
        if (data.size() == *data_length) return true;
        mark_truncated(message_, number);
        return false;
    }

    EntryLimit& limit_;
    Message& message_;
};

bool can_encode_header(const Header& header) {
    const Value& value = header.value;
    switch (value.kind) {
        case VZ_MMS_VALUE_NUMBER:
        case VZ_MMS_VALUE_DATE:
        case VZ_MMS_VALUE_TEXT:
            return header.number <= kMostHeaderNumber;
        case VZ_MMS_VALUE_NAMED_TEXT:
            return !value.name.empty() &&
                   std::all_of(value.name.begin(), value.name.end(),
                               [](char16_t unit) { return unit >= 0x20 && unit != 0x7F; }) &&
                   value.name.front() < 0x7F;
        case VZ_MMS_VALUE_RAW: {
            CWSPEncoding octets(value.bytes);
            return header.number <= kMostHeaderNumber && octets.skip_value() && octets.at_end();
        }
        default:
            return false;
    }
}

bool can_encode_head(const Part& part) {
    const auto can_write_all = [](const std::vector<Parameter>& parameters) {
        return std::all_of(parameters.begin(), parameters.end(), can_write);
    };
    return !part.type.media.empty() && can_write_all(part.type.parameters) &&
           (!part.disposition || can_write_all(part.disposition->parameters)) &&
           std::all_of(part.headers.begin(), part.headers.end(), can_encode_header);
}

std::byte* copy(Bytes bytes, std::byte* out) {
    return std::copy(bytes.begin(), bytes.end(), out);
}

std::size_t uintvar_size(std::size_t value) {
    std::size_t size = 1;
    while ((value >>= 7U) != 0) ++size;
    return size;
}

}  // namespace

bool CMultipartContainer::is_container(std::u16string_view media) noexcept {
    return versit::starts_with_ignoring_case(media, "APPLICATION/VND.WAP.MULTIPART.") ||
           versit::starts_with_ignoring_case(media, "MULTIPART/");
}

void CMultipartContainer::decode(ContentType type, Bytes body, EntryLimit& limit, Message& message) {
    Part part;
    part.type = std::move(type);
    if (part.type.media.empty()) part.type.media = kUnknownMedia;
    part.data = body;
    BodyReader(limit, message).add_part(std::move(part), 0);
}

bool CMultipartContainer::can_encode(const std::vector<Part>& parts) {
    if (parts.size() > kMostParts) return false;
    std::vector<std::size_t> nesting(parts.size());
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const Part& part = parts[i];
        const bool is_container = (part.flags & VZ_MMS_PART_CONTAINER) != 0;
        if (!can_encode_head(part) || part.container > i) return false;
        if (is_container && !CMultipartContainer::is_container(part.type.media)) return false;
        if (part.container != 0) {
            if ((parts[part.container - 1].flags & VZ_MMS_PART_CONTAINER) == 0) return false;
            nesting[i] = nesting[part.container - 1] + 1;
        }
        if (is_container && nesting[i] >= kMostNesting) return false;
    }
    return true;
}

EncodedBody::EncodedBody(const std::vector<Part>& parts) : parts_(&parts), entries_(parts.size()) {
    for (std::size_t i = parts.size(); i-- != 0;) {
        const Part& part = parts[i];
        Entry& entry = entries_[i];
        const bool is_container = (part.flags & VZ_MMS_PART_CONTAINER) != 0;
        entry.content_size += is_container ? uintvar_size(entry.count) : part.data.size();
        if (part.container == 0) continue;
        CMultipartFile::encode_head(part, entry.head);
        const std::size_t head_size = entry.head.bytes().size();
        Entry& outside = entries_[part.container - 1];
        ++outside.count;
        outside.content_size +=
            uintvar_size(head_size) + uintvar_size(entry.content_size) + head_size + entry.content_size;
        entry.next = std::exchange(outside.first, i);
    }
}

void EncodedBody::copy_to(std::byte* out) const {
    if (!entries_.empty()) copy_content(0, out);
}

std::byte* EncodedBody::copy_content(std::size_t index, std::byte* out) const {
    const Part& part = (*parts_)[index];
    if ((part.flags & VZ_MMS_PART_CONTAINER) == 0) return copy(part.data, out);
    const Entry& container = entries_[index];
    WspWriter count;
    count.uintvar(static_cast<std::uint32_t>(container.count));
    out = copy(count.bytes(), out);
    for (std::size_t i = container.first; i != 0; i = entries_[i].next) {
        const Entry& entry = entries_[i];
        WspWriter lengths;
        lengths.uintvar(static_cast<std::uint32_t>(entry.head.bytes().size()));
        lengths.uintvar(static_cast<std::uint32_t>(entry.content_size));
        out = copy_content(i, copy(entry.head.bytes(), copy(lengths.bytes(), out)));
    }
    return out;
}

}  // namespace vzapi::mms
