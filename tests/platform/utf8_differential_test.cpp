// The fast conversions against the literal ones, on random bytes and on good text with damage.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "platform/utf8.h"
#include "reference/utf8_reference.h"

namespace vzapi::platform {
namespace {

using Random = std::mt19937;

std::size_t below(Random& random, std::size_t limit) {
    return random() % limit;
}

char random_byte(Random& random) {
    return static_cast<char>(static_cast<unsigned char>(random() & 0xFF));
}

char16_t random_unit(Random& random) {
    switch (below(random, 5)) {
        case 0:
            return static_cast<char16_t>(random() & 0x7F);
        case 1:
            return static_cast<char16_t>(random() & 0x7FF);
        case 2:
            return static_cast<char16_t>(0xD800 + (random() & 0x3FF));
        case 3:
            return static_cast<char16_t>(0xDC00 + (random() & 0x3FF));
        default:
            return static_cast<char16_t>(random() & 0xFFFF);
    }
}

// Runs of ASCII between other characters, pairs among them.
std::u16string random_text(Random& random) {
    std::u16string text;
    for (std::size_t pieces = below(random, 12); pieces != 0; --pieces) {
        text.append(below(random, 40), static_cast<char16_t>(u'a' + below(random, 26)));
        for (std::size_t units = below(random, 6); units != 0; --units) text += random_unit(random);
    }
    return text;
}

std::string damaged(std::string bytes, Random& random) {
    for (std::size_t count = below(random, 4); count != 0 && !bytes.empty(); --count) {
        const std::size_t place = below(random, bytes.size());
        switch (below(random, 4)) {
            case 0:
                bytes[place] = random_byte(random);
                break;
            case 1:
                bytes.erase(place, 1 + below(random, 3));
                break;
            case 2:
                bytes.insert(place, 1, random_byte(random));
                break;
            default:
                bytes.resize(place);
                break;
        }
    }
    return bytes;
}

// Bytes that are lead bytes and continuations more often than chance has it.
std::string random_bytes(Random& random) {
    static constexpr unsigned char kTelling[] = {0x00, 0x41, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF,
                                                 0xC0, 0xC1, 0xC2, 0xDF, 0xE0, 0xE1, 0xEC, 0xED, 0xEE,
                                                 0xEF, 0xF0, 0xF1, 0xF3, 0xF4, 0xF5, 0xF8, 0xFE, 0xFF};
    std::string bytes(below(random, 60), '\0');
    for (char& byte : bytes) {
        byte = below(random, 4) == 0 ? random_byte(random)
                                     : static_cast<char>(kTelling[below(random, std::size(kTelling))]);
    }
    return bytes;
}

TEST(Utf8Differential, RandomBytesBecomeTheSameText) {
    Random random(1234);
    for (int i = 0; i < 30000; ++i) {
        const std::string bytes = random_bytes(random);
        ASSERT_EQ(utf8_to_utf16(bytes), reference::utf16_of_utf8(bytes)) << "text " << i;
    }
}

TEST(Utf8Differential, EverySequenceOfTwoBytesBecomesTheSameText) {
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            const std::string bytes = {static_cast<char>(first), static_cast<char>(second), '\x80', '\x80',
                                       'z'};
            for (std::size_t size = 2; size <= bytes.size(); ++size) {
                const std::string prefix = bytes.substr(0, size);
                ASSERT_EQ(utf8_to_utf16(prefix), reference::utf16_of_utf8(prefix)) << first << " " << second;
            }
        }
    }
}

TEST(Utf8Differential, RandomUnitsBecomeTheSameBytes) {
    Random random(1235);
    for (int i = 0; i < 30000; ++i) {
        const std::u16string text = random_text(random);
        ASSERT_EQ(utf16_to_utf8(text), reference::utf8_of_utf16(text)) << "text " << i;
    }
}

TEST(Utf8Differential, DamagedTextBecomesTheSameText) {
    Random random(1236);
    for (int i = 0; i < 30000; ++i) {
        const std::string bytes = damaged(reference::utf8_of_utf16(random_text(random)), random);
        ASSERT_EQ(utf8_to_utf16(bytes), reference::utf16_of_utf8(bytes)) << "text " << i;
    }
}

}  // namespace
}  // namespace vzapi::platform
