#include "mms/multipart.h"

#include <algorithm>
#include <utility>

#include "versit/ascii.h"

namespace vzapi::mms {
namespace {

constexpr std::u16string_view kUnknownMedia = u"application/octet-stream";
constexpr std::uint32_t kMostHeaderNumber = 0x7F;

void mark_truncated(Message& message, std::size_t number) {
    message.parts[number - 1].flags |= VZ_MMS_PART_TRUNCATED;
    message.flags |= VZ_MMS_TRUNCATED;
}

// Adds parts and what is in them to a message.
class BodyReader {
public:
    BodyReader(EntryLimit& limit, Message& message) : limit_(limit), message_(message) {}

    // `part` is inside `nesting` containers.
    void add_part(Part part, std::size_t nesting) {
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

// The parts of a body, written from the innermost container outwards: an entry begins with its length.
class BodyWriter {
public:
    explicit BodyWriter(const std::vector<Part>& parts) : parts_(parts), inside_(parts.size()) {
        for (std::size_t i = 0; i < parts.size(); ++i) {
            if (parts[i].container != 0) inside_[parts[i].container - 1].push_back(i);
        }
    }

    void append_content(std::size_t index, WspWriter& pdu) const {
        const Part& part = parts_[index];
        if ((part.flags & VZ_MMS_PART_CONTAINER) == 0) return pdu.append(part.data);
        pdu.uintvar(static_cast<std::uint32_t>(inside_[index].size()));
        for (const std::size_t entry : inside_[index]) append_entry(entry, pdu);
    }

private:
    void append_entry(std::size_t index, WspWriter& pdu) const {
        const Part& part = parts_[index];
        WspWriter head;
        CMultipartFile::encode_head(part, head);
        pdu.uintvar(static_cast<std::uint32_t>(head.bytes().size()));
        if ((part.flags & VZ_MMS_PART_CONTAINER) == 0) {
            pdu.uintvar(static_cast<std::uint32_t>(part.data.size()));
            pdu.append(head.bytes());
            return pdu.append(part.data);
        }
        WspWriter content;
        append_content(index, content);
        pdu.uintvar(static_cast<std::uint32_t>(content.bytes().size()));
        pdu.append(head.bytes());
        pdu.append(content.bytes());
    }

    const std::vector<Part>& parts_;
    std::vector<std::vector<std::size_t>> inside_;  // of each part
};

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
        if (part.type.media.empty() || part.container > i) return false;
        if (is_container && !CMultipartContainer::is_container(part.type.media)) return false;
        if (part.container != 0) {
            if ((parts[part.container - 1].flags & VZ_MMS_PART_CONTAINER) == 0) return false;
            nesting[i] = nesting[part.container - 1] + 1;
        }
        if (is_container && nesting[i] >= kMostNesting) return false;
        if (!std::all_of(part.headers.begin(), part.headers.end(), can_encode_header)) return false;
    }
    return true;
}

void CMultipartContainer::encode(const std::vector<Part>& parts, WspWriter& pdu) {
    BodyWriter(parts).append_content(0, pdu);
}

}  // namespace vzapi::mms
