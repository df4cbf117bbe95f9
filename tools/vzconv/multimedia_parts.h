// The parts of a multimedia record, named for code.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "vzapi/multimedia.h"

namespace vzconv {

std::span<const MultimediaHeader> headers_of(const MultimediaItem& item);
std::span<const MultimediaHeader> headers_of(const MultimediaPart& part);
std::span<const MultimediaPart> parts_of(const MultimediaItem& item);
std::span<const MultimediaParameter> parameters_of(const MultimediaPart& part);
std::span<const MultimediaParameter> disposition_parameters_of(const MultimediaPart& part);
std::string_view data_of(const MultimediaPart& part);

bool is_container(const MultimediaPart& part);
// Whether it tells how the others are shown: the root of its container, and no picture or text that merely
// comes first.
bool is_presentation(const MultimediaPart& part);

// Whether a part of that type is text: "text/plain", "application/smil".
bool is_text_type(std::string_view content_type);

// Whether its bytes stand for text as they are: UTF-8, and nothing that the part says about its charset
// contradicts it.
bool is_plain_utf8(std::string_view data, uint32_t charset);

// The text of a part's data, read by the library in that charset, a MIBenum; 0: the part names none.
std::string text_in_charset(std::string_view data, uint32_t charset);

}  // namespace vzconv
