#include "vzconv/size_words.h"

namespace vzconv {
namespace {

// With one decimal below 10, where it says something.
std::string in_units(uint64_t bytes, uint64_t unit, const char* name) {
    const uint64_t tenths = (bytes / unit) * 10 + ((bytes % unit) * 10 + unit / 2) / unit;
    std::string words;
    if (tenths < 100) {
        words = std::to_string(tenths / 10);
        if (tenths % 10 != 0) words += "." + std::to_string(tenths % 10);
    } else {
        words = std::to_string(bytes / unit + (bytes % unit >= unit / 2 ? 1 : 0));
    }
    return words + " " + name;
}

}  // namespace

std::string size_in_words(uint64_t bytes) {
    constexpr uint64_t kKilobyte = 1024;
    constexpr uint64_t kMegabyte = 1024 * kKilobyte;
    if (bytes < kKilobyte) return std::to_string(bytes) + (bytes == 1 ? " byte" : " bytes");
    if (bytes < kMegabyte) return in_units(bytes, kKilobyte, "KB");
    return in_units(bytes, kMegabyte, "MB");
}

}  // namespace vzconv
