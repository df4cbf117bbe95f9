#include "versit/line_builder.h"

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <vector>

#include "versit/base64.h"
#include "versit/property_line.h"

namespace vzapi::versit {
namespace {

std::string built(std::string_view name, std::string_view parameters, std::u16string_view value,
                  ValueForm form = ValueForm::Automatic) {
    LineBuilder builder;
    builder.property(name, parameters, value, form);
    return builder.take();
}

std::string built_quoted(std::string_view name, std::string_view parameters, std::string_view encoded) {
    LineBuilder builder;
    builder.quoted_printable(name, parameters, encoded);
    return builder.take();
}

std::string built_base64(std::string_view name, std::string_view parameters, std::string_view bytes) {
    LineBuilder builder;
    builder.base64(name, parameters, std::as_bytes(std::span(bytes)));
    return builder.take();
}

std::string repeated(std::string_view text, std::size_t count) {
    std::string result;
    for (std::size_t i = 0; i < count; ++i) result += text;
    return result;
}

TEST(LineBuilder, FrameLinesEndInCrLf) {
    LineBuilder builder;
    EXPECT_EQ(builder.text(), "");
    builder.line("BEGIN:VBKM");
    builder.line("");
    builder.line("END:VBKM");
    EXPECT_EQ(builder.text(), "BEGIN:VBKM\r\n\r\nEND:VBKM\r\n");
    EXPECT_EQ(builder.take(), "BEGIN:VBKM\r\n\r\nEND:VBKM\r\n");
}

TEST(LineBuilder, LinesFollowEachOtherInOneText) {
    LineBuilder builder;
    builder.line("BEGIN:VCARD");
    builder.property(PropertyId::N, "", std::u16string_view(u"Doe;Jo"));
    builder.property(PropertyId::Tel, ";CELL", std::string_view("+123"));
    builder.property(PropertyId::Nickname, "", std::u16string_view(u"J\u00F6"));
    builder.property(PropertyId::Url, "", std::u16string_view());
    builder.line("END:VCARD");
    EXPECT_EQ(builder.text(),
              "BEGIN:VCARD\r\n"
              "N:Doe;Jo\r\n"
              "TEL;CELL:+123\r\n"
              "X-NICKNAME;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:J=C3=B6\r\n"
              "URL:\r\n"
              "END:VCARD\r\n");
}

struct ValueRow {
    std::string_view parameters;
    std::u16string_view value;
    ValueForm form;
    std::string_view expected;
};

constexpr ValueRow kValues[] = {
    {"", u"", ValueForm::Automatic, "NOTE:\r\n"},
    {"", u"", ValueForm::Plain, "NOTE:\r\n"},
    {"", u"", ValueForm::QuotedPrintable, "NOTE;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:\r\n"},
    {"", u"a=b;c", ValueForm::Automatic, "NOTE:a=b;c\r\n"},
    {"", u"a=b;c", ValueForm::QuotedPrintable, "NOTE;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:a=3Db;c\r\n"},
    {";HOME", u"caf\u00E9", ValueForm::Automatic,
     "NOTE;HOME;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:caf=C3=A9\r\n"},
    {";CHARSET=UTF-8", u"caf\u00E9", ValueForm::Plain, "NOTE;CHARSET=UTF-8:caf\xC3\xA9\r\n"},
    {"", u"a\r\nb", ValueForm::Automatic, "NOTE;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:a=0D=0Ab\r\n"},
    {"", u"a\nb", ValueForm::Automatic, "NOTE;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:a=0Ab\r\n"},
    {"", u"\xD800", ValueForm::Plain, "NOTE:\xEF\xBF\xBD\r\n"},
    {"", u" \t", ValueForm::Automatic, "NOTE: \t\r\n"},
    {"", u" \t", ValueForm::QuotedPrintable, "NOTE;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8: \t\r\n"},
    // A line break ends a plain line: the rest is a line of its own.
    {"", u"a\r\nTEL:1", ValueForm::Plain, "NOTE:a\r\nTEL:1\r\n"},
};

TEST(LineBuilder, WritesAValueInTheFormAskedFor) {
    for (const ValueRow& row : kValues) {
        SCOPED_TRACE(row.expected);
        EXPECT_EQ(built("NOTE", row.parameters, row.value, row.form), row.expected);
    }
}

TEST(LineBuilder, PlainValuesAreNeverFolded) {
    const std::u16string value(10000, u'a');
    EXPECT_EQ(built("NOTE", "", value), "NOTE:" + std::string(10000, 'a') + "\r\n");
    LineBuilder builder;
    builder.property("NOTE", ";CHARSET=UTF-8", std::string_view(std::string(500, '\xE9')));
    EXPECT_EQ(builder.text(), "NOTE;CHARSET=UTF-8:" + std::string(500, '\xE9') + "\r\n");
}

struct FoldRow {
    std::string name;  // with its parameters and colon, the head of the line
    std::string encoded;
    std::string expected;
};

// Heads and values are measured so that each row stands at a border of the 76 columns.
std::vector<FoldRow> fold_rows() {
    const std::string x60(60, 'x');
    const std::string x70(70, 'x');
    const std::string x72(72, 'x');
    const std::string x75(75, 'x');
    const std::string x76(76, 'x');
    return {
        // A value that ends at the last column needs no break, one column more needs one.
        {"NOTE", std::string(71, 'x'), "NOTE:" + std::string(71, 'x')},
        {"NOTE", x72, "NOTE:" + x70 + "=\r\nxx"},
        {"NOTE", x70 + x76, "NOTE:" + x70 + "=\r\n" + x76},
        {"NOTE", x70 + x76 + "x", "NOTE:" + x70 + "=\r\n" + x75 + "=\r\nxx"},
        // An escape is not split.
        {"NOTE", x70 + "=3D", "NOTE:" + x70 + "=\r\n=3D"},
        {"NOTE", x70.substr(1) + "=3D", "NOTE:" + x70.substr(1) + "=\r\n=3D"},
        {"NOTE", x70.substr(2) + "=3D", "NOTE:" + x70.substr(2) + "=3D"},
        {"NOTE", x70.substr(2) + "=3Dx", "NOTE:" + x70.substr(2) + "=\r\n=3Dx"},
        {"NOTE", x70.substr(3) + "=3Dxx", "NOTE:" + x70.substr(3) + "=3D=\r\nxx"},
        // Nor is a character of two, three or four bytes.
        {"NOTE", x70.substr(6) + "=C3=A9xx", "NOTE:" + x70.substr(6) + "=C3=A9=\r\nxx"},
        {"NOTE", x70.substr(5) + "=C3=A9xx", "NOTE:" + x70.substr(5) + "=\r\n=C3=A9xx"},
        {"NOTE", x70.substr(1) + "=E2=82=ACx", "NOTE:" + x70.substr(1) + "=\r\n=E2=82=ACx"},
        {"NOTE", x60 + "=F0=9F=98=80", "NOTE:" + x60 + "=\r\n=F0=9F=98=80"},
        {"NOTE", x60.substr(1) + "=F0=9F=98=80", "NOTE:" + x60.substr(1) + "=F0=9F=98=80"},
        // Bytes that are no UTF-8 are broken between escapes.
        {"NOTE", repeated("=80", 30), "NOTE:" + repeated("=80", 23) + "=\r\n" + repeated("=80", 7)},
        {"NOTE", "x" + repeated("=80", 30), "NOTE:x" + repeated("=80", 23) + "=\r\n" + repeated("=80", 7)},
        // Heads that leave little or no room.
        {x72 + "xx", "a", x72 + "xx:a"},
        {x72 + "xx", "ab", x72 + "xx:=\r\nab"},
        {x72 + "x", "ab", x72 + "x:ab"},
        {x72 + "x", "abc", x72 + "x:a=\r\nbc"},
        {x72 + "x", "=41", x72 + "x:=\r\n=41"},
        {x75, "", x75 + ":"},
        {x75, "a", x75 + ":=\r\na"},
        {x76, "", x76 + ":"},
        {x76, "a", x76 + ":=\r\na"},
        {x76 + x76, x76 + "x", x76 + x76 + ":=\r\n" + x75 + "=\r\nxx"},
        // A blank or a tab in front of a line would be taken for a fold.
        {"NOTE", x70 + " ", "NOTE:" + x70 + " "},
        {"NOTE", x70 + " ab", "NOTE:" + x70 + "=\r\n=20ab"},
        {"NOTE", x70 + "\tab", "NOTE:" + x70 + "=\r\n=09ab"},
        {"NOTE", x70 + "  ab", "NOTE:" + x70 + "=\r\n=20 ab"},
        {"NOTE", x70 + "  ", "NOTE:" + x70 + "=\r\n=20 "},
        // A line that begins like a property would be taken for one.
        {"NOTE", x70 + "TEL:1", "NOTE:" + x70 + "=\r\n=54EL:1"},
        {"NOTE", x70 + "end:vcard", "NOTE:" + x70 + "=\r\n=65nd:vcard"},
        {"NOTE", x70 + "X-A;", "NOTE:" + x70 + "=\r\n=58-A;"},
        {"NOTE", x70 + "item1.TEL;HOME:1", "NOTE:" + x70 + "=\r\n=69tem1.TEL;HOME:1"},
        {"NOTE", x70 + "nickname:", "NOTE:" + x70 + "=\r\n=6Eickname:"},  // known in UTF-16 text
        {"NOTE", x70 + "a.NICKNAME;", "NOTE:" + x70 + "=\r\n=61.NICKNAME;"},
        {"NOTE", x70 + "X-A and no more", "NOTE:" + x70 + "=\r\nX-A and no more"},
        {"NOTE", x70 + "FOO:1", "NOTE:" + x70 + "=\r\nFOO:1"},
        {"NOTE", x70 + "=54EL:1", "NOTE:" + x70 + "=\r\n=54EL:1"},
        // The two columns that the escape takes may ask for one more break.
        {"NOTE", x70 + "TEL:" + x72, "NOTE:" + x70 + "=\r\n=54EL:" + std::string(69, 'x') + "=\r\nxxx"},
        // What makes the name of an extension a property's must stand on the same physical line.
        {"NOTE", x70 + "X-" + x72 + "xx;", "NOTE:" + x70 + "=\r\nX-" + std::string(73, 'x') + "=\r\nx;"},
        {"NOTE", x70 + "X-" + x72 + "x;", "NOTE:" + x70 + "=\r\n=58-" + x70 + "x=\r\nxx;"},
    };
}

TEST(LineBuilder, BreaksQuotedPrintableSoftly) {
    for (const FoldRow& row : fold_rows()) {
        SCOPED_TRACE(row.expected);
        EXPECT_EQ(built_quoted(row.name, "", row.encoded), row.expected + "\r\n");
    }
}

TEST(LineBuilder, ParametersCountAsColumns) {
    const std::string parameters = ";WORK;ENCODING=QUOTED-PRINTABLE";
    const std::size_t head = 3 + parameters.size() + 1;
    EXPECT_EQ(built_quoted("ADR", parameters, std::string(76 - head, ';')),
              "ADR" + parameters + ":" + std::string(76 - head, ';') + "\r\n");
    EXPECT_EQ(built_quoted("ADR", parameters, std::string(77 - head, ';')),
              "ADR" + parameters + ":" + std::string(75 - head, ';') + "=\r\n;;\r\n");
}

TEST(LineBuilder, Base64BeginsRightAfterTheColonAndIsPadded) {
    EXPECT_EQ(built_base64("PHOTO", ";ENCODING=BASE64", ""), "PHOTO;ENCODING=BASE64:\r\n");
    EXPECT_EQ(built_base64("PHOTO", ";ENCODING=BASE64", "f"), "PHOTO;ENCODING=BASE64:Zg==\r\n");
    EXPECT_EQ(built_base64("PHOTO", ";TYPE=JPEG;ENCODING=BASE64", "foo"),
              "PHOTO;TYPE=JPEG;ENCODING=BASE64:Zm9v\r\n");
}

TEST(LineBuilder, Base64IsFoldedAtSeventySixColumns) {
    const std::string head = "PHOTO;ENCODING=BASE64:";                           // 22 columns
    EXPECT_EQ(built_base64("PHOTO", ";ENCODING=BASE64", std::string(39, '\0')),  // 52
              head + std::string(52, 'A') + "\r\n");
    EXPECT_EQ(built_base64("PHOTO", ";ENCODING=BASE64", std::string(42, '\0')),  // 56
              head + std::string(54, 'A') + "\r\n AA\r\n\r\n");
    EXPECT_EQ(built_base64("PHOTO", ";ENCODING=BASE64", std::string(96, '\0')),  // 128 = 54 + 74
              head + std::string(54, 'A') + "\r\n " + std::string(74, 'A') + "\r\n\r\n");
    EXPECT_EQ(built_base64("PHOTO", ";ENCODING=BASE64", std::string(99, '\0')),  // 132 = 54 + 75 + 3
              head + std::string(54, 'A') + "\r\n " + std::string(75, 'A') + "\r\n AAA\r\n\r\n");
}

TEST(LineBuilder, Base64AfterALongHeadBeginsOnTheNextLine) {
    const std::string parameters = ";X=" + std::string(90, 'x') + ";ENCODING=BASE64";
    EXPECT_EQ(built_base64("PHOTO", parameters, "foo"), "PHOTO" + parameters + ":\r\n Zm9v\r\n\r\n");
    EXPECT_EQ(built_base64("PHOTO", parameters, ""), "PHOTO" + parameters + ":\r\n");
}

TEST(LineBuilder, Base64FillsEveryLineButTheLast) {
    for (std::size_t size = 0; size < 400; ++size) {
        const std::string text = built_base64("PHOTO", ";ENCODING=BASE64", std::string(size, '\x55'));
        std::vector<std::string> lines;
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t end = text.find("\r\n", at);
            ASSERT_NE(end, std::string::npos);
            lines.push_back(text.substr(at, end - at));
            at = end + 2;
        }
        std::string data = lines.front().substr(22);
        if (lines.size() > 1) {
            ASSERT_EQ(lines.back(), "");
            lines.pop_back();
        }
        for (std::size_t i = 0; i < lines.size(); ++i) {
            ASSERT_TRUE(i + 1 == lines.size() || lines[i].size() == 76) << i;
            if (i == 0) continue;
            ASSERT_EQ(lines[i].front(), ' ');
            data += lines[i].substr(1);
        }
        ASSERT_LE(lines.back().size(), 76U);
        ASSERT_EQ(data.size(), (size + 2) / 3 * 4);
        ASSERT_EQ(decode_base64(data), std::string(size, '\x55'));
    }
}

}  // namespace
}  // namespace vzapi::versit
