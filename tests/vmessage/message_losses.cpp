#include "vmessage/message_losses.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

#include "reference/quoted_printable_reference.h"
#include "reference/text_reference.h"
#include "vcard/contact_losses.h"

namespace vzapi::test {
namespace {

using reference::ends_with;

constexpr std::u16string_view kExtendedHead = u"X-SMS;TYPE=TEXT;CHARSET=UTF-8:";

// What the writer puts between the line "Date:" and the END:VBODY.
std::u16string written_text(const std::u16string& text, Form form) {
    std::u16string written(form == Form::Extended ? kExtendedHead : std::u16string_view{});
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool is_line_end = text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n';
        if (!is_line_end) written += text[i];
    }
    return written + u"\n";
}

// Lines as a reader cuts them, at LF or CR LF.
std::vector<std::u16string> lines_of(const std::u16string& text) {
    std::vector<std::u16string> lines(1);
    for (const char16_t unit : text) {
        if (unit != u'\n') {
            lines.back() += unit;
            continue;
        }
        if (ends_with(lines.back(), '\r')) lines.back().pop_back();
        lines.emplace_back();
    }
    if (lines.back().empty()) lines.pop_back();
    return lines;
}

bool is_frame(std::u16string line, const std::u16string& frame) {
    while (ends_with(line, ' ') || ends_with(line, '\t')) line.pop_back();
    return reference::upper_cased(line) == frame;
}

// The lines that a reader finds in the body, its end frame with them unless a NUL comes before that.
std::vector<std::u16string> body_lines(const std::u16string& text, Form form) {
    const std::u16string written = written_text(text, form);
    const std::u16string visible = reference::up_to_first_nul(written);
    std::vector<std::u16string> lines = lines_of(visible);
    if (visible.size() == written.size()) lines.emplace_back(u"END:VBODY");
    return lines;
}

// The line that closes the body: the last END:VBODY before a BEGIN:VBODY that has one before it; none when
// there is no END:VBODY.
std::optional<std::size_t> closing_line(const std::vector<std::u16string>& lines) {
    std::optional<std::size_t> closing;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (is_frame(lines[i], u"END:VBODY")) closing = i;
        if (is_frame(lines[i], u"BEGIN:VBODY") && closing) break;
    }
    return closing;
}

bool is_lost_number(const std::u16string& number) {
    return is_lost(PropertyValue{number, reference::needs_encoding(number)});
}

// The addresses that are written at all: of a message that goes out the first.
std::vector<std::u16string> written_numbers(const Message& message) {
    std::vector<std::u16string> numbers;
    for (std::size_t i = 0; i < message.numbers.size(); ++i) {
        const bool is_written = i == 0 || message.type != VZ_MESSAGE_TYPE_SUBMIT;
        if (is_written && message.numbers[i]) numbers.push_back(*message.numbers[i]);
    }
    return numbers;
}

}  // namespace

bool ends_its_body(std::u16string_view text, Form form) {
    const std::vector<std::u16string> lines = body_lines(std::u16string(text), form);
    const std::optional<std::size_t> closing = closing_line(lines);
    const bool has_own_end = text.find(u'\0') == text.npos;
    return closing && (!has_own_end || *closing + 1 < lines.size());
}

bool looks_extended(std::u16string_view text) {
    const std::u16string line = reference::upper_cased(std::u16string(text.substr(0, text.find(u'\n'))));
    const std::size_t colon = line.find(u':');
    if (colon == line.npos || !line.starts_with(u"X-SMS;")) return false;
    // The first TYPE counts.
    std::u16string parameters = line.substr(0, colon) + u";";
    const std::size_t type = parameters.find(u";TYPE=");
    return type != parameters.npos && parameters.substr(type).starts_with(u";TYPE=TEXT;");
}

bool breaks_numbers(const Message& message) {
    bool mentioned = makes_a_bookmark(message.text.value_or(u""));
    bool broken = false;
    for (const std::u16string& number : written_numbers(message)) {
        mentioned = mentioned || makes_a_bookmark(number);
        constexpr std::string_view kHead = "TEL;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:";
        broken = broken || (reference::needs_encoding(number) &&
                            kHead.size() + reference::encode_quoted_printable(number).size() > 76);
    }
    return mentioned && broken;
}

bool has_an_ambiguous_date(const Time& time) {
    return time.year != 0 && std::max(time.month, time.day) > 99;
}

bool comes_back(const Message& message, Form form) {
    const std::u16string text = message.text.value_or(u"");
    const std::vector<std::u16string> numbers = written_numbers(message);
    return !ends_its_body(text, form) && (form == Form::Extended || !looks_extended(text)) &&
           !breaks_numbers(message) && !has_an_ambiguous_date(message.time) &&
           std::none_of(numbers.begin(), numbers.end(), is_lost_number);
}

std::u16string text_after_the_trip(const std::u16string& text, Form form) {
    std::vector<std::u16string> lines = body_lines(text, form);
    lines.resize(closing_line(lines).value_or(lines.size()));
    if (form == Form::Extended) lines.front().erase(0, kExtendedHead.size());
    std::u16string back;
    for (std::size_t i = 0; i < lines.size(); ++i) back += (i == 0 ? u"" : u"\r\n") + lines[i];
    return back;
}

Message after_the_trip(const Message& message, Form form) {
    Message back;
    back.status = message.status <= VZ_MESSAGE_STATUS_SENDING ? message.status : 0;
    back.type = message.type <= VZ_MESSAGE_TYPE_SMS_COMMAND ? message.type : 0;
    for (const std::u16string& number : written_numbers(message)) back.numbers.emplace_back(number);
    back.text = text_after_the_trip(message.text.value_or(u""), form);
    if (message.time.year != 0) back.time = message.time;
    return back;
}

}  // namespace vzapi::test
