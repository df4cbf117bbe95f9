// Files that are multimedia messages: one PDU each, which is binary.
#pragma once

#include <string_view>

namespace vzconv {

// What stands for such a file where versit text has a component.
inline constexpr std::string_view kMultimediaPdu = "<PDU>";

// Whether `bytes` begin as a PDU does: with its type, X-Mms-Message-Type. No versit text, JSON or XML in any
// form of Unicode begins so.
inline bool is_multimedia_pdu(std::string_view bytes) {
    return bytes.size() >= 2 && bytes[0] == '\x8C' && (bytes[1] & 0x80) != 0;
}

}  // namespace vzconv
