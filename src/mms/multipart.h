// The body of a multimedia message: one part, or a container of parts (WAP-230-WSP, section 8.5).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "mms/mms_message.h"
#include "mms/wsp_encoding.h"

namespace vzapi::mms {

inline constexpr std::size_t kMostNesting = 8;   // a container deeper than that is a part with data
inline constexpr std::size_t kMostParts = 4096;  // of one message; those behind are left out

// One entry of a container: the head of a part, and its data.
class CMultipartFile {
public:
    // Reads content type and headers out of the head of an entry; what is not understood there is kept raw,
    // and an unreadable rest, or what is beyond the limit, left out. A transfer encoding is undone.
    static void decode(Bytes head, Bytes data, EntryLimit& limit, Part& part);

    // Appends the head.
    static void encode_head(const Part& part, WspWriter& head);
};

// The content of a body, of which the lengths are known and the data still stand where they were.
class EncodedBody {
public:
    // Views `parts`, which must stay; without any the body is empty. REQUIRES:
    // CMultipartContainer::can_encode(parts), and no part but the first is in no container.
    explicit EncodedBody(const std::vector<Part>& parts);

    [[nodiscard]] std::size_t size() const noexcept {
        return entries_.empty() ? 0 : entries_.front().content_size;
    }
    // Writes size() bytes.
    void copy_to(std::byte* out) const;

private:
    // A part as it stands in its container, and what it holds itself.
    struct Entry {
        WspWriter head;
        std::size_t content_size = 0;
        std::size_t count = 0;
        std::size_t first = 0;  // indices; 0, which is the body, stands for none
        std::size_t next = 0;
    };

    // Returns the end of what it writes.
    std::byte* copy_content(std::size_t index, std::byte* out) const;

    const std::vector<Part>* parts_;
    std::vector<Entry> entries_;  // of each part
};

class CMultipartContainer {
public:
    // True for the multipart types, whatever their subtype, of WSP and of MIME.
    [[nodiscard]] static bool is_container(std::u16string_view media) noexcept;

    // Adds the body with the content type `type` to `message.parts`: one part, and those in it. What is not
    // complete, or beyond the limit, is left out and marked.
    static void decode(ContentType type, Bytes body, EntryLimit& limit, Message& message);

    // False when a PDU cannot hold `parts`: one has no media type, is in something that is no container
    // before it, or has a header that is none of the forms that part heads have; there are too many, or they
    // are too deep.
    [[nodiscard]] static bool can_encode(const std::vector<Part>& parts);
};

// True for SMIL, the language of presentation parts.
[[nodiscard]] bool is_presentation(std::u16string_view media) noexcept;

// Sets `name` of every part, and the mark of the presentation parts. REQUIRES: every container stands before
// its parts.
void name_parts(std::vector<Part>& parts);

// Makes a parameter "name" of every name that is neither empty nor the one that the part has without it.
void keep_names(std::vector<Part>& parts);

// The name that `parts[index]` has by its content type, disposition, location, id or place.
[[nodiscard]] std::u16string derived_name(const std::vector<Part>& parts, std::size_t index);

}  // namespace vzapi::mms
