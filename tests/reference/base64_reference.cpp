#include "reference/base64_reference.h"

#include <bitset>
#include <cstddef>

namespace vzapi::reference {
namespace {

const std::string kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

std::string encode_base64(const std::string& bytes) {
    std::string bits;
    for (const char byte : bytes) bits += std::bitset<8>(static_cast<unsigned char>(byte)).to_string();
    while (bits.size() % 6 != 0) bits += '0';
    std::string text;
    for (std::size_t i = 0; i < bits.size(); i += 6) {
        text += kAlphabet[std::bitset<6>(bits.substr(i, 6)).to_ulong()];
    }
    while (text.size() % 4 != 0) text += '=';
    return text;
}

std::string decode_base64(const std::string& text) {
    std::string bits;
    for (const char character : text) {
        if (std::string(" \t\r\n").find(character) != std::string::npos) continue;
        const std::size_t value = kAlphabet.find(character);
        if (value == std::string::npos) break;
        bits += std::bitset<6>(value).to_string();
    }
    std::string bytes;
    for (std::size_t i = 0; i + 8 <= bits.size(); i += 8) {
        bytes += static_cast<char>(std::bitset<8>(bits.substr(i, 8)).to_ulong());
    }
    return bytes;
}

}  // namespace vzapi::reference
