#include "vmessage/message_body.h"

#include <cstddef>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "result.h"
#include "versit/ascii.h"
#include "vmessage/decoded_value.h"
#include "vmessage/message_time.h"

namespace vzapi::vmessage {
namespace {

using versit::WideVersitProperty;
using Lines = std::span<const WideVersitProperty>;

constexpr std::string_view kDate = "DATE:";
constexpr std::u16string_view kLineEnd = u"\r\n";

// The time that a line "Date:" tells, year 0 when it tells none; nothing for any other line. What looks like
// such a line and is none belongs to the text: somebody may have written it.
std::optional<MessageTime> date_of(std::u16string_view line) {
    if (!versit::starts_with_ignoring_case(line, kDate)) return std::nullopt;
    const std::u16string_view value = versit::trim_blanks(line.substr(kDate.size()));
    return value.empty() ? MessageTime{} : parse_body_time(value);
}

bool carries_text(const WideVersitProperty& line) {
    if (!versit::equals_ignoring_case(line.raw_name(), "X-SMS")) return false;
    const std::optional<std::u16string_view> type = line.parameter("TYPE");
    return type && versit::equals_ignoring_case(*type, "TEXT") &&
           line.text().find(u':') != std::u16string_view::npos;
}

bool is_quoted_printable(const WideVersitProperty& line) {
    return versit::contains_ignoring_case(line.parameters(), "QUOTED-PRINTABLE");
}

// Takes the lines of a text one after the other into a block of its full size.
class TextBlock {
public:
    explicit TextBlock(std::size_t units) : units_(units) {
        if (units > UINT32_MAX / sizeof(char16_t)) raise(VZ_ERR_OUT_OF_MEMORY);
        block_.reset(static_cast<char16_t*>(platform::heap_allocate((units + 1) * sizeof(char16_t))));
        if (!block_) raise(VZ_ERR_OUT_OF_MEMORY);
    }

    void append(std::u16string_view text) {
        if (text.empty()) return;
        std::memcpy(block_.get() + filled_, text.data(), text.size() * sizeof(char16_t));
        filled_ += text.size();
    }

    void give_to(MessageBody& body) noexcept {
        body.text = std::move(block_);
        body.length = static_cast<std::uint32_t>(units_ * sizeof(char16_t));
    }

private:
    std::size_t units_;
    std::size_t filled_ = 0;
    platform::HeapPointer<char16_t> block_;
};

void set_text(std::u16string_view text, MessageBody& body) {
    TextBlock block(text.size());
    block.append(text);
    block.give_to(body);
}

// `first` and `rest`, a line end between two of them.
void set_joined_text(std::u16string_view first, Lines rest, MessageBody& body) {
    std::size_t units = first.size();
    for (const WideVersitProperty& line : rest) units += kLineEnd.size() + line.text().size();
    TextBlock block(units);
    block.append(first);
    for (const WideVersitProperty& line : rest) {
        block.append(kLineEnd);
        block.append(line.text());
    }
    block.give_to(body);
}

// Takes the '=' of a soft line break off the end of `line`; false when there is none.
bool take_soft_break(std::u16string_view& line) {
    if (!line.ends_with(u'=')) return false;
    line.remove_suffix(1);
    return true;
}

// The quoted-printable value of `property` with its continuations: an '=' at the end of a line joins the next
// one to it, any other line end is part of the text (RFC 2045, section 6.7).
std::u16string encoded_text(const WideVersitProperty& property, Lines rest) {
    std::u16string_view line = property.value();
    bool joined = take_soft_break(line);
    std::u16string encoded(line);
    for (const WideVersitProperty& next : rest) {
        if (!joined) encoded.append(kLineEnd);
        line = next.text();
        joined = take_soft_break(line);
        encoded.append(line);
    }
    return encoded;
}

}  // namespace

MessageBody read_body(Lines lines) {
    MessageBody body;
    if (!lines.empty()) {
        if (const std::optional<MessageTime> time = date_of(lines.front().text())) {
            body.time = *time;
            lines = lines.subspan(1);
        }
    }
    if (lines.empty()) {
        set_text({}, body);
        return body;
    }
    const WideVersitProperty& first = lines.front();
    const Lines rest = lines.subspan(1);
    if (!carries_text(first)) {
        set_joined_text(first.text(), rest, body);
    } else if (is_quoted_printable(first)) {
        set_text(decode_quoted_printable(encoded_text(first, rest), first), body);
    } else {
        set_joined_text(first.value(), rest, body);
    }
    return body;
}

}  // namespace vzapi::vmessage
