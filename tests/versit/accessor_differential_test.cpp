// Holds the accessors of a line, the tests for property lines and the value encodings against their literal
// twins, over VZAPI_DIFFERENTIAL_TEXTS generated inputs each.
#include <gtest/gtest.h>

#include <span>
#include <string>
#include <string_view>

#include "reference/base64_reference.h"
#include "reference/line_list_comparison.h"
#include "reference/property_reference.h"
#include "reference/quoted_printable_reference.h"
#include "versit/base64.h"
#include "versit/differential_size.h"
#include "versit/property.h"
#include "versit/property_line.h"
#include "versit/quoted_printable.h"
#include "versit/versit_text_generator.h"

namespace vzapi::test {
namespace {

using reference::literal_of;

template <class Unit>
void expect_same_parts(const std::basic_string<Unit>& line) {
    const versit::BasicVersitProperty<Unit> property{std::basic_string_view<Unit>(line)};
    SCOPED_TRACE(literal_of(line));
    EXPECT_EQ(property.name(), reference::property_name(line));
    EXPECT_EQ(static_cast<int>(property.id()), reference::property_id(line));
    EXPECT_EQ(property.value(), reference::property_value(line));
    EXPECT_EQ(static_cast<int>(property.encoding()), reference::property_encoding(line));
    EXPECT_EQ(versit::begins_known_property<Unit>(line), reference::begins_known_property(line));
    EXPECT_EQ(versit::has_property_form<Unit>(line), reference::has_property_form(line));
}

TEST(AccessorDifferential, PartsOfALine) {
    VersitTextGenerator generator(20'260'103);
    for (std::size_t i = differential_text_count(); i > 0 && !testing::Test::HasFailure(); --i) {
        const std::string line = generator.line();
        expect_same_parts(line);
        expect_same_parts(widened(line));
    }
}

// Every name of the table, each a character too long, too short, in a group, in small letters.
TEST(AccessorDifferential, NamesAroundTheTable) {
    for (const std::string& name : reference::property_names<char>()) {
        for (const std::string& near : {name, name + "S", name.substr(1), name.substr(0, name.size() - 1),
                                        "g." + name, "." + name, name + ".", " " + name, "X-" + name}) {
            for (const char* rest : {":1", ";A:1", "", ":", ";", "=1"}) {
                expect_same_parts(near + rest);
                expect_same_parts(widened(near + rest));
            }
        }
        std::string small = name;
        for (char& letter : small)
            letter = letter >= 'A' && letter <= 'Z' ? char(letter + ('a' - 'A')) : letter;
        expect_same_parts(small + ":1");
        expect_same_parts(widened(small + ":1"));
    }
}

TEST(AccessorDifferential, DecodedValue) {
    VersitTextGenerator generator(20'260'104);
    for (std::size_t i = differential_text_count(); i > 0 && !testing::Test::HasFailure(); --i) {
        const std::string line = generator.line();
        for (int encoding = -2; encoding <= 5; ++encoding) {
            EXPECT_EQ(versit::decoded_value(versit::VersitProperty(line), versit::Encoding(encoding)),
                      reference::decoded_value(line, encoding))
                << literal_of(line) << " with default " << encoding;
        }
    }
}

TEST(AccessorDifferential, Base64) {
    VersitTextGenerator generator(20'260'105);
    for (std::size_t i = differential_text_count(); i > 0 && !testing::Test::HasFailure(); --i) {
        const std::string text = generator.encoded_value();
        EXPECT_EQ(versit::decode_base64(text), reference::decode_base64(text)) << literal_of(text);
        const std::string bytes = generator.bytes();
        std::string encoded = "before";
        versit::append_base64(std::as_bytes(std::span(bytes)), encoded);
        EXPECT_EQ(encoded, "before" + reference::encode_base64(bytes)) << literal_of(bytes);
        EXPECT_EQ(reference::decode_base64(reference::encode_base64(bytes)), bytes) << literal_of(bytes);
    }
}

TEST(AccessorDifferential, QuotedPrintable) {
    VersitTextGenerator generator(20'260'106);
    for (std::size_t i = differential_text_count(); i > 0 && !testing::Test::HasFailure(); --i) {
        const std::string text = generator.encoded_value();
        EXPECT_EQ(versit::decode_quoted_printable(text), reference::decode_quoted_printable(text))
            << literal_of(text);
        const std::u16string value = generator.value();
        std::string encoded = "before";
        versit::append_quoted_printable(value, encoded);
        EXPECT_EQ(encoded, "before" + reference::encode_quoted_printable(value)) << literal_of(value);
        EXPECT_EQ(versit::needs_encoding(value), reference::needs_encoding(value)) << literal_of(value);
    }
}

TEST(AccessorDifferential, EveryPairOfCharactersBehindAnEqualsSign) {
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            const std::string text = {'=', static_cast<char>(first), static_cast<char>(second), '4'};
            EXPECT_EQ(versit::decode_quoted_printable(text), reference::decode_quoted_printable(text))
                << literal_of(text);
        }
    }
}

TEST(AccessorDifferential, EveryPairOfCharactersInBase64) {
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            const std::string text = {'Q', static_cast<char>(first), 'J', static_cast<char>(second), 'R'};
            EXPECT_EQ(versit::decode_base64(text), reference::decode_base64(text)) << literal_of(text);
        }
    }
}

TEST(AccessorDifferential, EveryUnitEncoded) {
    for (char32_t code = 0; code < 0x10000; ++code) {
        const std::u16string value = {u'a', static_cast<char16_t>(code), 0xDC01};
        std::string encoded;
        versit::append_quoted_printable(value, encoded);
        EXPECT_EQ(encoded, reference::encode_quoted_printable(value)) << literal_of(value);
        EXPECT_EQ(versit::needs_encoding(value.substr(0, 2)), reference::needs_encoding(value.substr(0, 2)));
    }
}

// The twins by themselves, on the examples of RFC 4648, section 10, and of the rules.
TEST(ValueReference, KnownValues) {
    const std::pair<std::string, std::string> base64[] = {
        {"", ""}, {"f", "Zg=="}, {"fo", "Zm8="}, {"foo", "Zm9v"}, {"foobar", "Zm9vYmFy"}};
    for (const auto& [bytes, text] : base64) {
        EXPECT_EQ(reference::encode_base64(bytes), text);
        EXPECT_EQ(reference::decode_base64(text), bytes);
    }
    EXPECT_EQ(reference::decode_base64(" Zm \t9v\r\nYg*Fy"), "foob");
    EXPECT_EQ(reference::encode_quoted_printable(u"a=b\u00E9\U0001F600\xD800\r\n"),
              "a=3Db=C3=A9=F0=9F=98=80=EF=BF=BD=0D=0A");
    EXPECT_EQ(reference::decode_quoted_printable("a=3db=C3=A9=4=G0="), "a=b\xC3\xA9=4=G0=");
    EXPECT_TRUE(reference::needs_encoding(u"a\n"));
    EXPECT_FALSE(reference::needs_encoding(u"a=\x7F\t"));
}

TEST(PropertyReference, KnownLines) {
    EXPECT_EQ(reference::property_names<char>().size(), 90U);
    EXPECT_EQ(reference::property_names<char16_t>().size(), 74U);
    EXPECT_EQ(reference::property_id<char>("TEL;TYPE=CELL:+123"), 13);
    EXPECT_EQ(reference::property_id<char>("tel:+123"), 13);
    EXPECT_EQ(reference::property_id<char>("item1.TEL:+123"), -1);
    EXPECT_EQ(reference::property_id<char>("NICKNAME:a"), -1);
    EXPECT_EQ(reference::property_id<char16_t>(u"NICKNAME:a"), 27);
    EXPECT_EQ(reference::property_id<char>("X-GENDER:a"), 89);
    EXPECT_EQ(reference::property_name<char>("no name"), "");
    EXPECT_EQ(reference::property_encoding<char>("NOTE:see 8BIT docs"), 1);
    EXPECT_EQ(reference::decoded_value("NOTE:see 8BIT docs=41", 2), "see 8BIT docs=41");
    EXPECT_EQ(reference::decoded_value("NOTE;ENCODING=X-FOO:abc=41", 2), "abc=41");
    EXPECT_EQ(reference::decoded_value("NOTE:abc=41", 2), "abcA");
    EXPECT_TRUE(reference::begins_known_property<char>("item1.tel:1"));
    EXPECT_FALSE(reference::begins_known_property<char>("a.b.TEL:1"));
    EXPECT_FALSE(reference::begins_known_property<char>("X-A.B:1"));
    EXPECT_TRUE(reference::has_property_form<char>("a.foo-1;"));
    EXPECT_FALSE(reference::has_property_form<char>("a.b.c:"));
    EXPECT_FALSE(reference::has_property_form<char>(".c:"));
}

}  // namespace
}  // namespace vzapi::test
