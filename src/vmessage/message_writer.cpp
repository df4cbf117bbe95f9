#include "vmessage/message_writer.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "platform/pointer_probe.h"
#include "platform/utf8.h"
#include "versit/line_builder.h"
#include "vmessage/message_codes.h"
#include "vmessage/message_time.h"
#include "vzapi/vzapi.h"

namespace vzapi::vmessage {
namespace {

using versit::PropertyId;

// What the extended form adds: a line of the header, whose line end devices expect bare, and the property
// that the text is the value of, as it stands and over as many lines as it has.
constexpr std::string_view kSmsHeaderLine = "X-IRMC-TYPE:SMS\n";
constexpr std::string_view kSmsTextHead = "X-SMS;TYPE=TEXT;CHARSET=UTF-8:";

constexpr std::string_view kDateName = "Date";  // written in these letters

bool is_extended(const WriterContext& context) {
    return context.option1 == VZ_PROFILE_10 && context.option2 == VZ_PROFILE_10_MESSENGERS_AND_SMS;
}

// A message as it may stand in a caller's memory: nothing is touched before it has been found readable.
class CallerMessage {
public:
    explicit CallerMessage(const void* item) noexcept { std::memcpy(&item_, item, sizeof item_); }

    [[nodiscard]] const MessageTime& time() const noexcept { return item_.timestamp; }
    [[nodiscard]] std::size_t address_count() const noexcept { return item_.addressCount; }
    [[nodiscard]] std::string_view status() const noexcept {
        return status_name((item_.flags & VZ_MESSAGE_STATUS_MASK) >> VZ_MESSAGE_STATUS_SHIFT);
    }
    [[nodiscard]] std::string_view type() const noexcept {
        return type_name((item_.flags & VZ_MESSAGE_TYPE_MASK) >> VZ_MESSAGE_TYPE_SHIFT);
    }

    // The number of an address; data() is null when there is none. Lives until the next call.
    [[nodiscard]] std::u16string_view number(std::size_t index) {
        if (index >= item_.addressCount || item_.addresses == nullptr) return {};
        // As a number: a wild pointer must not be carried around the end of the address space.
        const std::uintptr_t at =
            reinterpret_cast<std::uintptr_t>(item_.addresses) + index * sizeof(MessageAddress);
        const auto* entry = reinterpret_cast<const void*>(at);  // NOLINT(performance-no-int-to-ptr)
        if (!probe_.readable(entry, sizeof(MessageAddress))) return {};
        MessageAddress address;
        std::memcpy(&address, entry, sizeof address);  // the array may be misaligned
        return probe_.text(address.number, storage_);
    }

    // Units of the text.
    [[nodiscard]] std::size_t text_size() noexcept {
        const std::size_t units = item_.textLength / sizeof(char16_t);
        return units != 0 && probe_.readable(item_.text, units * sizeof(char16_t)) ? units : 0;
    }

    // Appends the `units` of the text.
    void append_text(std::size_t units, std::u16string& out) const {
        if (units == 0) return;
        const std::size_t begin = out.size();
        out.resize(begin + units);
        std::memcpy(out.data() + begin, static_cast<const void*>(item_.text), units * sizeof(char16_t));
    }

private:
    MessageItem item_;
    platform::PointerProbe probe_;
    std::u16string storage_;
};

void write_card(std::u16string_view number, versit::LineBuilder& lines) {
    lines.line("BEGIN:VCARD");
    lines.line("VERSION:3.0");
    lines.property(PropertyId::N, "", std::string_view{});
    if (number.data() != nullptr) lines.property(PropertyId::Tel, "", number);
    lines.line("END:VCARD");
}

// Writes the cards and opens the envelopes. Returns how many of these are open.
std::size_t write_outgoing_envelopes(CallerMessage& message, versit::LineBuilder& lines) {
    write_card({}, lines);
    lines.line("BEGIN:VENV");
    write_card(message.number(0), lines);
    lines.line("BEGIN:VENV");
    return 2;
}

std::size_t write_incoming_envelopes(CallerMessage& message, versit::LineBuilder& lines) {
    std::size_t open = 0;
    write_card(message.number(0), lines);
    for (std::size_t i = 1; i < message.address_count(); ++i, ++open) {
        lines.line("BEGIN:VENV");
        write_card(message.number(i), lines);
    }
    lines.line("BEGIN:VENV");
    return open + 1;
}

struct Frame {
    std::string before;  // everything in front of the text
    std::string behind;
};

Frame frame_of(CallerMessage& message, bool extended) {
    Frame frame;
    versit::LineBuilder lines;
    lines.line("BEGIN:VMSG");
    lines.line("VERSION:1.1");
    lines.property(PropertyId::XIrmcStatus, "", message.status());
    lines.property(PropertyId::XIrmcBox, "", folder_name(VZ_FOLDER_INBOX));  // whatever the message
    const std::size_t behind_box = lines.text().size();
    lines.property(PropertyId::XNrdDt, "", header_time(message.time()));
    lines.property(PropertyId::XMessageType, "", message.type());
    const bool outgoing = message.type() == type_name(VZ_MESSAGE_TYPE_SUBMIT);
    const std::size_t envelopes =
        outgoing ? write_outgoing_envelopes(message, lines) : write_incoming_envelopes(message, lines);
    lines.line("BEGIN:VBODY");
    lines.property(kDateName, "", body_time(message.time()));
    frame.before = lines.take();
    if (extended) frame.before.insert(behind_box, kSmsHeaderLine).append(kSmsTextHead);

    versit::LineBuilder end;
    end.line("END:VBODY");
    for (std::size_t i = 0; i < envelopes; ++i) end.line("END:VENV");
    end.line("END:VMSG");
    frame.behind = end.take();
    return frame;
}

// Makes each CR LF from `begin` on a LF.
void shorten_line_ends(std::size_t begin, std::u16string& text) {
    std::size_t to = text.find(u'\r', begin);
    if (to == std::u16string::npos) return;
    for (std::size_t at = to; at < text.size(); ++at) {
        const bool ends_line = text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n';
        if (!ends_line) text[to++] = text[at];
    }
    text.resize(to);
}

}  // namespace

std::u16string write(const void* item, const WriterContext& context) {
    CallerMessage message(item);
    const Frame frame = frame_of(message, is_extended(context));
    const std::size_t units = message.text_size();

    std::u16string text;
    text.reserve(frame.before.size() + units + 1 + frame.behind.size());
    platform::append_utf16_from_utf8(frame.before, text);
    const std::size_t begin = text.size();
    message.append_text(units, text);
    shorten_line_ends(begin, text);
    text.push_back(u'\n');
    platform::append_utf16_from_utf8(frame.behind, text);
    return text;
}

}  // namespace vzapi::vmessage
