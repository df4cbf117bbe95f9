// XML documents that are e-mail items.
#pragma once

#include <string_view>

namespace vzconv {

// What such a document is about, in the brackets of its tag.
inline constexpr std::string_view kEmailElement = "<Email>";

// Whether `text` is XML, as far as its first character says, and has the tag of an element "Email". What
// stands in comments and the like is not told apart: the library decides whether there is one.
bool is_email_document(std::string_view text);

}  // namespace vzconv
