// What becomes of a message that is written and read again: the same, but for what the rules of vMessage text
// lose. Each such loss is told here; docs/limits.md lists them.
#pragma once

#include <string>
#include <string_view>

#include "vmessage/message_builder.h"

namespace vzapi::test {

// ---- Losses that after_the_trip() does not tell.

// A line END:VBODY with a line BEGIN:VBODY further down, or with a NUL: the text ends early, and what follows
// is taken for lines of the message.
[[nodiscard]] bool ends_its_body(std::u16string_view text, Form form);

// Its first line is that of the extended form.
[[nodiscard]] bool looks_extended(std::u16string_view text);

// A mention of a bookmark undoes the soft line breaks of numbers.
[[nodiscard]] bool breaks_numbers(const Message& message);

// A month or day of three digits, which the header writes without separators.
[[nodiscard]] bool has_an_ambiguous_date(const Time& time);

// True when after_the_trip() tells what comes back: none of these losses, nor any of a property's value.
[[nodiscard]] bool comes_back(const Message& message, Form form);

// ---- Losses that it tells: line ends, and what a text cannot say.

[[nodiscard]] Message after_the_trip(const Message& message, Form form);

// The text alone. REQUIRES: it does not look extended, or is written in the extended form.
[[nodiscard]] std::u16string text_after_the_trip(const std::u16string& text, Form form);

}  // namespace vzapi::test
