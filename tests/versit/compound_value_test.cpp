// Compound values, and the whole values that a ValueReader gives.
#include "versit/compound_value.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>
#include <vector>

#include "versit/quoted_printable.h"
#include "versit/value_reader.h"

namespace vzapi::versit {
namespace {

using Texts = std::vector<std::u16string>;

struct EscapeCase {
    std::u16string text;
    std::u16string components;  // as vCard 2.1 takes it back
    std::u16string whole_text;  // as vCard 3.0 does
};

TEST(Unescape, EachTextByEachRule) {
    const EscapeCase cases[] = {
        {u"", u"", u""},
        {u"abc", u"abc", u"abc"},
        {u"a\\;b", u"a;b", u"a;b"},
        {u"a\\\\b", u"a\\b", u"a\\b"},
        {u"a\\,b", u"a\\,b", u"a,b"},
        {u"a\\nb\\Nc", u"a\\nb\\Nc", u"a\nb\nc"},
        {u"\\\\n", u"\\n", u"\\n"},
        {u"C:\\\\new", u"C:\\new", u"C:\\new"},
        {u"\\\\\\;", u"\\;", u"\\;"},
        {u"a\\x", u"a\\x", u"a\\x"},
        {u"a\\", u"a\\", u"a\\"},
        {u"\\", u"\\", u"\\"},
        {u"\\\\\\", u"\\\\", u"\\\\"},
        {u"a;b", u"a;b", u"a;b"},
    };
    for (const EscapeCase& row : cases) {
        EXPECT_EQ(unescape(row.text, Escapes::Components), row.components);
        EXPECT_EQ(unescape(row.text, Escapes::Text), row.whole_text);
    }
}

TEST(AppendComponent, EscapesWhatSeparates) {
    const std::pair<std::u16string, std::u16string> cases[] = {
        {u"", u""},           {u"abc", u"abc"},           {u";", u"\\;"},   {u"\\", u"\\\\"},
        {u"a;b", u"a\\;b"},   {u"\\;", u"\\\\\\;"},       {u"a,b", u"a,b"}, {u"a\nb", u"a\nb"},
        {u";;a", u"\\;\\;a"}, {u"\u3042;", u"\u3042\\;"},
    };
    for (const auto& [component, expected] : cases) {
        std::u16string value = u"x";
        append_component(component, value);
        EXPECT_EQ(value, u"x" + expected);
    }
}

struct ComponentCase {
    std::string line;
    Texts components;   // vCard 2.1
    Texts components3;  // vCard 3.0, where they differ
};

TEST(ComponentTexts, EachLineGivesItsComponents) {
    const ComponentCase cases[] = {
        {"N:", {u""}, {}},
        {"N", {u""}, {}},
        {"N:a", {u"a"}, {}},
        {"N:a;b;c", {u"a", u"b", u"c"}, {}},
        {"N:;;", {u"", u"", u""}, {}},
        {"N:a\\;b;c", {u"a;b", u"c"}, {}},
        {"N:a\\\\;b", {u"a\\", u"b"}, {}},
        {"N:a\\\\\\;b", {u"a\\;b"}, {}},
        {"N:a\\", {u"a\\"}, {}},
        {"N:a\\,b\\n;c", {u"a\\,b\\n", u"c"}, {u"a,b\n", u"c"}},
        {"N;ENCODING=QUOTED-PRINTABLE:a=3Bb;c", {u"a;b", u"c"}, {}},
        {"N;ENCODING=QUOTED-PRINTABLE:a\\;b;c\\\\;d", {u"a;b", u"c\\", u"d"}, {}},
        {"N;ENCODING=QUOTED-PRINTABLE:a=5C;b", {u"a\\", u"b"}, {}},
        {"N;ENCODING=QUOTED-PRINTABLE:a=5C=3Bb", {u"a;b"}, {}},
        {"N;ENCODING=QUOTED-PRINTABLE:a=5C=5C;b", {u"a\\", u"b"}, {}},
        {"N;ENCODING=QUOTED-PRINTABLE:a\\=3Bb;c", {u"a;b", u"c"}, {}},
        {"N;ENCODING=QUOTED-PRINTABLE:;", {u"", u""}, {}},
        {"N;ENCODING=QUOTED-PRINTABLE:a\\,b;c", {u"a\\,b", u"c"}, {u"a,b", u"c"}},
        {"N;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=A9;=E3=81=82", {u"\u00E9", u"\u3042"}, {}},
        {"N;ENCODING=QUOTED-PRINTABLE;CHARSET=ISO-8859-1:=E9;b", {u"\u00E9", u"b"}, {}},
        {"N;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:a=C3;=A9", {u"a\uFFFD", u"\uFFFD"}, {}},
        {"N;ENCODING=QUOTED-PRINTABLE:a=00b;c", {u"a", u"c"}, {}},
        {"N;CHARSET=SHIFT_JIS:\x95\x5C;\x83\x5C\x5C;a", {u"\u8868", u"\u30BD;a"}, {}},
        {"N;CHARSET=SHIFT_JIS;QUOTED-PRINTABLE:=95=5C;=83\\;\\;a;\x95\\",
         {u"\u8868", u"\u30BD", u";a", u"\u8868"},
         {}},
        {"N;CHARSET=SHIFT_JIS;QUOTED-PRINTABLE:=B1\\;b;c", {u"\uFF71;b", u"c"}, {}},
        {"N;CHARSET=SHIFT_JIS;QUOTED-PRINTABLE:a;=", {u"a", u"="}, {}},
        {"N;ENCODING=BASE64:YTtiO2M=", {u"a", u"b", u"c"}, {}},
        {"N;ENCODING=8BIT;CHARSET=UTF-8:\xC3\xA9;b", {u"\u00E9", u"b"}, {}},
        {"N;ENCODING=X-OWN:a;b", {u"a", u"b"}, {}},
    };
    for (const ComponentCase& row : cases) {
        const VersitProperty line{std::string_view(row.line)};
        EXPECT_EQ(component_texts(line, Escapes::Components), row.components) << row.line;
        const Texts& components3 = row.components3.empty() ? row.components : row.components3;
        EXPECT_EQ(component_texts(line, Escapes::Text), components3) << row.line;
    }
}

// Behind the first byte of a Shift_JIS character a '\\' is the second one, behind any other it keeps the ';'.
TEST(ComponentTexts, FirstBytesOfShiftJis) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    ValueReader values;
    for (unsigned byte = 0; byte < 256; ++byte) {
        const bool is_first = (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
        const std::string head = "N;CHARSET=Shift_JIS;ENCODING=QUOTED-PRINTABLE:";
        const std::string escape{'=', kDigits[byte / 16], kDigits[byte % 16]};
        const std::string escaped = head + escape + "\\;a";
        const std::string twice = head + escape + "=5C;a";
        const std::string bare = head + static_cast<char>(byte) + "\\;a";
        const VersitProperty line{std::string_view(escaped)};
        EXPECT_EQ(values.split(line, Escapes::Components, 9), is_first ? 2U : 1U) << byte;
        const VersitProperty all_escaped{std::string_view(twice)};
        EXPECT_EQ(values.split(all_escaped, Escapes::Components, 9), 2U) << byte;
        if (byte < 0x80) continue;
        const VersitProperty as_it_stands{std::string_view(bare)};
        EXPECT_EQ(values.split(as_it_stands, Escapes::Components, 9), is_first ? 2U : 1U) << byte;
    }
}

// Any components, joined and written plain or quoted-printable, come back.
TEST(ComponentTexts, AreWhatWasAppended) {
    std::mt19937 random(20240229);
    const std::u16string alphabet = u";\\,nN= a\u00E9\u8868\u3042";
    for (int round = 0; round < 2000; ++round) {
        Texts components(1 + random() % 7);
        std::u16string value;
        for (std::u16string& component : components) {
            for (std::size_t i = random() % 6; i > 0; --i) component += alphabet[random() % alphabet.size()];
            if (&component != components.data()) value += u';';
            append_component(component, value);
        }
        std::string encoded = "N;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:";
        append_quoted_printable(value, encoded);
        EXPECT_EQ(component_texts(VersitProperty{std::string_view(encoded)}, Escapes::Components), components)
            << encoded;
    }
}

TEST(ValueReader, GivesWholeTexts) {
    ValueReader values;
    const std::pair<std::string, std::u16string> cases[] = {
        {"FN:abc;d\\;e", u"abc;d\\;e"},
        {"FN:", u""},
        {"FN;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=A9=0D=0Ab", u"\u00E9\r\nb"},
        {"FN;ENCODING=BASE64:SGVsbG8=", u"Hello"},
        {"FN;ENCODING=QUOTED-PRINTABLE:a=00b", u"a"},
        {"FN;CHARSET=ISO-8859-1:\xE9", u"\u00E9"},
        {"FN;CHARSET=\"iso-8859-1\":\xE9", u"\u00E9"},
        // A quote that is not closed belongs to the name, which the table does not know then.
        {"FN;CHARSET=\"ISO-8859-1X:\xC3\xA9", u"\u00E9"},
        {"FN;CHARSET=ISO-8859-1\":\xC3\xA9", u"\u00E9"},
        {"FN;CHARSET=\":\xC3\xA9", u"\u00E9"},
        {"FN;CHARSET=SHIFT_JIS:\x95\x5C", u"\u8868"},
        {"FN;CHARSET=UTF-8:\xE3\x81\x82", u"\u3042"},
    };
    for (const auto& [line, expected] : cases) {
        EXPECT_EQ(values.text(VersitProperty{std::string_view(line)}), expected) << line;
    }
    const std::string escaped = "FN:a\\,b\\nc\\\\";
    EXPECT_EQ(values.text(VersitProperty{std::string_view(escaped)}, Escapes::Text), u"a,b\nc\\");
}

TEST(ValueReader, SplitsAtMostAsOftenAsAsked) {
    ValueReader values;
    for (const std::string line : {"N:a;b;c;d", "N;QUOTED-PRINTABLE:a;b;c;d"}) {
        const VersitProperty property{std::string_view(line)};
        EXPECT_EQ(values.split(property, Escapes::Components, 2), 2U);
        EXPECT_EQ(values.component(0), u"a");
        EXPECT_EQ(values.component(1), u"b");
        EXPECT_EQ(values.component(2), u"");
        EXPECT_EQ(values.split(property, Escapes::Components, 9), 4U);
        EXPECT_EQ(values.component(3), u"d");
        EXPECT_EQ(values.component(4), u"");
        EXPECT_EQ(values.component(std::numeric_limits<std::size_t>::max()), u"");
    }
}

}  // namespace
}  // namespace vzapi::versit
