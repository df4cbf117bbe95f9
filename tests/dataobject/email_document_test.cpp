// E-mail items: what each document is read as. The same on every platform.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "dataobject/email_text.h"
#include "vzapi/vzapi.h"

namespace {

using namespace std::string_literals;
using namespace vzapi::test;

constexpr const char* kRefused = "80100013";

struct Row {
    const char* what;
    std::string document;
    const char* expected;
};

void expect_rows(std::span<const Row> rows) {
    for (const Row& row : rows) EXPECT_EQ(email_of(row.document), row.expected) << row.what;
}

std::string in_email(const std::string& children) {
    return "<Email>" + children + "</Email>";
}

TEST(EmailItem, FlagsTimesAndTextOfTheChildren) {
    const Row rows[] = {
        {"two flags", in_email("<read>false</read><flagged>true</flagged>"), "read=0 flagged=1"},
        {"no year", in_email("<created>0000-01-01T00:00:00</created>"), ""},
        {"no Email", "<Message><read>true</read></Message>", ""},
        {"Email without children", "<Email/>", ""},
        {"every element",
         in_email("<read>true</read><forwarded>false</forwarded><replied>1</replied><deleted>no</deleted>"
                  "<flagged>false</flagged><created>2024-05-06T07:08:09</created>"
                  "<modified>2023-04-05T06:07:08</modified><received>2022-03-04T05:06:07</received>"
                  "<emailitem>a text</emailitem>"),
         "read=1 forwarded=0 replied=1 deleted=1 flagged=0 created=2024-05-06T07:08:09 "
         "modified=2023-04-05T06:07:08 received=2022-03-04T05:06:07 text=a text"},
        {"document order, not that of the ids",
         in_email("<flagged>false</flagged><received>2001-01-01</received><read>true</read>"
                  "<created>2002-02-02</created>"),
         "flagged=0 read=1 received=2001-01-01T00:00:00 created=2002-02-02T00:00:00"},
        {"one flag twice", in_email("<read>false</read><read>true</read>"), "read=0 read=1"},
        {"capitalised False", in_email("<read>False</read>"), "read=1"},
        {"FALSE", in_email("<read>FALSE</read>"), "read=1"},
        {"0", in_email("<read>0</read>"), "read=1"},
        {"falsehood", in_email("<read>falsehood</read>"), "read=1"},
        {"white space around false", in_email("<read>\r\n\t false \n</read>"), "read=0"},
        {"no-break space around false", in_email("<read>&#160;false</read>"), "read=1"},
        {"a later text replaces", in_email("<emailitem>a</emailitem><emailitem>b</emailitem>"), "text=b"},
        {"a later empty text does not", in_email("<emailitem>a</emailitem><emailitem> </emailitem>"),
         "text=a"},
        {"missing texts", in_email("<read/><read></read><flagged> \n</flagged><created/><emailitem/>"), ""},
        {"unknown elements", in_email("<size>5</size>x<Read>false</Read><read2>1</read2><read>1</read>"),
         "read=1"},
        {"an unknown element with known children", in_email("<state><read>true</read></state>"), ""},
        {"known names as attributes", "<Email read='false' flagged='true'/>", ""},
    };
    expect_rows(rows);
}

TEST(EmailItem, TheFirstEmailAtAnyDepthCounts) {
    const Row rows[] = {
        {"inside", "<a><b/><c><d><Email><read>true</read></Email></d></c></a>", "read=1"},
        {"the first of two", "<a><Email><read>true</read></Email><Email><flagged>1</flagged></Email></a>",
         "read=1"},
        {"the first, though it is empty", "<a><b><Email/></b><Email><read>1</read></Email></a>", ""},
        {"document order, not depth",
         "<a><b><c><Email><read>1</read></Email></c></b><Email><flagged>1</flagged></Email></a>", "read=1"},
        {"an Email in an Email",
         in_email("<read>1</read><Email><flagged>1</flagged></Email><deleted>1</deleted>"),
         "read=1 deleted=1"},
        {"another case", "<email><read>1</read></email>", ""},
        {"in a comment", "<a><!-- <Email><read>1</read></Email> --></a>", ""},
        {"in a CDATA section", "<a><![CDATA[<Email><read>1</read></Email>]]></a>", ""},
    };
    expect_rows(rows);
}

TEST(EmailItem, TheTextOfAnElementIsAllItsCharacterData) {
    const Row rows[] = {
        {"elements inside", in_email("<emailitem> a <b>b <c>c</c></b> d </emailitem>"), "text=a b c d"},
        {"white space between", in_email("<emailitem>a<b> </b>c</emailitem>"), "text=a c"},
        {"CDATA", in_email("<emailitem><![CDATA[ <x> & ]]]]><![CDATA[> ]]></emailitem>"), "text=<x> & ]]>"},
        {"a comment and an instruction", in_email("<emailitem>a<!-- no -->b<?no no?>c</emailitem>"),
         "text=abc"},
        {"predefined entities", in_email("<emailitem>&lt;&gt;&amp;&apos;&quot;</emailitem>"), "text=<>&'\""},
        {"character references", in_email("<emailitem>&#65;&#x42;&#x000043;&#x1F600;</emailitem>"),
         "text=ABC\\uD83D\\uDE00"},
        {"an entity of an entity", in_email("<emailitem>&amp;lt;</emailitem>"), "text=&lt;"},
        {"line ends", in_email("<emailitem>a\r\nb\rc\nd&#13;&#10;e</emailitem>"),
         "text=a\\u000Ab\\u000Ac\\u000Ad\\u000D\\u000Ae"},
        {"line ends in CDATA", in_email("<emailitem><![CDATA[a\r\nb\rc]]></emailitem>"),
         "text=a\\u000Ab\\u000Ac"},
        {"references to white space at the ends", in_email("<emailitem>&#32;a&#9;&#10;</emailitem>"),
         "text=a"},
        {"a flag in pieces", in_email("<read>fa<!-- -->l<i>s</i><![CDATA[e]]></read>"), "read=0"},
        {"a date in pieces", in_email("<created>2024<b>-05-</b>06</created>"), "created=2024-05-06T00:00:00"},
        {"text that ends an entity", in_email("<emailitem>a]]&gt;</emailitem>"), "text=a]]>"},
    };
    expect_rows(rows);
}

TEST(EmailItem, EncodingsAreFoundByMarkAndDeclaration) {
    const std::string text = in_email("<emailitem>\xC3\xA9\xE6\x97\xA5</emailitem>");
    const std::string latin1 = in_email("<emailitem>caf\xE9 \x85</emailitem>");
    const std::string shift_jis = in_email("<emailitem>\x93\xFA\x96\x7B \x83\x5C\xB1 \x81\x60</emailitem>");
    const Row rows[] = {
        {"UTF-8 by default", text, "text=\\u00E9\\u65E5"},
        {"UTF-8 by declaration", "<?xml version='1.0' encoding='utf-8'?>" + text, "text=\\u00E9\\u65E5"},
        {"UTF-8 by mark", "\xEF\xBB\xBF" + text, "text=\\u00E9\\u65E5"},
        {"the mark wins", "\xEF\xBB\xBF<?xml version='1.0' encoding='ISO-8859-1'?>" + text,
         "text=\\u00E9\\u65E5"},
        {"four bytes", in_email("<emailitem>\xF0\x9F\x98\x80</emailitem>"), "text=\\uD83D\\uDE00"},
        {"a mark inside is a character", in_email("<emailitem>a\xEF\xBB\xBF</emailitem>"), "text=a\\uFEFF"},
        {"ISO-8859-1", "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" + latin1, "text=caf\\u00E9 \\u0085"},
        {"iso-8859-1", "<?xml version = '1.0' encoding\n=\t'iso-8859-1' standalone='yes' ?>" + latin1,
         "text=caf\\u00E9 \\u0085"},
        {"Shift_JIS", "<?xml version='1.0' encoding='Shift_JIS'?>" + shift_jis,
         "text=\\u65E5\\u672C \\u30BD\\uFF71 \\uFF5E"},
        {"SHIFT_JIS", "<?xml version='1.0' encoding='SHIFT_JIS'?>" + shift_jis,
         "text=\\u65E5\\u672C \\u30BD\\uFF71 \\uFF5E"},
        {"ASCII", "<?xml version='1.0' encoding='US-ASCII'?>" + in_email("<read>1</read>"), "read=1"},
        {"said to be UTF-16, and is not", "<?xml version='1.0' encoding='UTF-16'?>" + text,
         "text=\\u00E9\\u65E5"},
        {"an instruction that is no declaration", "<?xml-model encoding='ISO-8859-1'?>" + text,
         "text=\\u00E9\\u65E5"},
        {"one with an unknown name", "<?xmlx encoding='X-NONE'?>" + text, "text=\\u00E9\\u65E5"},
        {"ISO-8859-1 not declared", latin1, kRefused},
        {"ASCII with another byte", "<?xml version='1.0' encoding='US-ASCII'?>" + text, kRefused},
        {"unknown", "<?xml version='1.0' encoding='X-NONE'?>" + in_email("<read>1</read>"), kRefused},
        {"overlong UTF-8", in_email("<emailitem>\xC0\x80</emailitem>"), kRefused},
        {"a surrogate in UTF-8", in_email("<emailitem>\xED\xA0\x80</emailitem>"), kRefused},
        {"UTF-8 cut off", "<a/>\xC3", kRefused},
        {"undefined in Shift_JIS", "<?xml version='1.0' encoding='Shift_JIS'?><a>\x81\xAD</a>", kRefused},
        {"the byte 80 in Shift_JIS", "<?xml version='1.0' encoding='Shift_JIS'?><a>\x80</a>", kRefused},
        {"the trail byte 80",
         "<?xml version='1.0' encoding='Shift_JIS'?><Email><emailitem>\x83\x80</emailitem></Email>",
         "text=\\u30E0"},
        {"Shift_JIS cut off", "<?xml version='1.0' encoding='Shift_JIS'?><a/>\x93", kRefused},
        {"the mark of UTF-32", "\xFF\xFE\0\0<\0\0\0a\0\0\0/\0\0\0>\0\0\0"s, kRefused},
    };
    expect_rows(rows);
}

TEST(EmailItem, EveryNameOfACharacterSet) {
    const struct {
        const char* bytes;
        const char* expected;
        std::initializer_list<const char*> names;
    } rows[] = {
        {"\xC3\xA9", "text=\\u00E9", {"UTF-8", "utf-8", "UTF8", "UTF-16"}},
        {"\xE9", "text=\\u00E9", {"ISO-8859-1", "iso-8859-1", "ISO8859-1", "LATIN1", "Latin1"}},
        {"\x93\xFA",
         "text=\\u65E5",
         {"Shift_JIS", "shift_jis", "Shift-JIS", "SJIS", "x-sjis", "Windows-31J", "CP932"}},
        {"e", "text=e", {"US-ASCII", "us-ascii", "ASCII"}},
        {"e",
         kRefused,
         {"UTF", "UTF-80", "UTF-7", "UTF-32", "ISO-8859", "ISO-8859-15", "SHIFT", "WINDOWS-1252", "A", "8"}},
    };
    for (const auto& row : rows) {
        for (const char* const name : row.names) {
            const std::string declaration = "<?xml version='1.0' encoding='" + std::string(name) + "'?>";
            EXPECT_EQ(
                email_of(declaration + in_email("<emailitem>" + std::string(row.bytes) + "</emailitem>")),
                row.expected)
                << name;
        }
    }
}

std::string utf16(std::u16string_view text, bool is_big_endian) {
    std::string bytes;
    for (const char16_t unit : text) {
        const char low = static_cast<char>(unit & 0xFF);
        const char high = static_cast<char>(unit >> 8);
        bytes += is_big_endian ? high : low;
        bytes += is_big_endian ? low : high;
    }
    return bytes;
}

TEST(EmailItem, Utf16InBothByteOrders) {
    for (const bool is_big_endian : {false, true}) {
        const auto read = [&](const std::u16string& text) { return email_of(utf16(text, is_big_endian)); };
        const std::u16string email = u"<Email><emailitem>\u00E9\u65E5\U0001F600</emailitem></Email>";
        EXPECT_EQ(read(u"\uFEFF" + email), "text=\\u00E9\\u65E5\\uD83D\\uDE00");
        EXPECT_EQ(read(email), "text=\\u00E9\\u65E5\\uD83D\\uDE00") << "without a mark";
        EXPECT_EQ(read(u"\uFEFF<?xml version='1.0' encoding='UTF-16'?>" + email),
                  "text=\\u00E9\\u65E5\\uD83D\\uDE00");
        EXPECT_EQ(read(u"\uFEFF<?xml version='1.0' encoding='ISO-8859-1'?>" + email),
                  "text=\\u00E9\\u65E5\\uD83D\\uDE00")
            << "what the bytes show wins";
        EXPECT_EQ(read(u"\uFEFF"), kRefused);
        EXPECT_EQ(email_of(utf16(u"\uFEFF" + email, is_big_endian) + "\n"), kRefused) << "an odd length";
        for (const std::u16string& unpaired :
             {u"\xD800"s, u"\xDC00"s, u"\xDC00\xD800"s, u"\xD800\xD800\xDC00"s}) {
            EXPECT_EQ(read(u"\uFEFF<a>" + unpaired + u"</a>"), kRefused);
        }
    }
}

TEST(EmailItem, NamespacesAreNotLookedAt) {
    const Row rows[] = {
        {"a default namespace", "<Email xmlns='urn:x'><read>1</read></Email>", "read=1"},
        {"a prefix is part of the name", "<x:Email xmlns:x='urn:x'><x:read>1</x:read></x:Email>", ""},
        {"of children too", "<Email xmlns:x='urn:x'><x:read>1</x:read><flagged>1</flagged></Email>",
         "flagged=1"},
        {"an undeclared prefix", "<Email><x:read>1</x:read></Email>", ""},
        {"an undeclared prefix of Email", "<x:Email><read>1</read></x:Email>", ""},
        {"an undeclared prefix of an attribute", "<Email x:y='1'><read>1</read></Email>", "read=1"},
        {"a prefix bound to nothing", "<Email xmlns:x=''><x:a/><read>1</read></Email>", "read=1"},
        {"reserved prefixes", "<a xmlns:xml='u'><xml:b/><xmlns:c/><Email><read>1</read></Email></a>",
         "read=1"},
        {"colons anywhere", "<:a><b:/><c:d:e/><Email><read>1</read></Email></:a>", "read=1"},
        {"names that only look alike match no end", "<a:b></a_003ab>", kRefused},
    };
    expect_rows(rows);
}

TEST(EmailItem, WhatIsNotWellFormedIsRefused) {
    const Row rows[] = {
        {"nothing", "", kRefused},
        {"white space", " \r\n", kRefused},
        {"text", "read", kRefused},
        {"no root", "<?xml version='1.0'?><!-- c -->", kRefused},
        {"text before", "x<a/>", kRefused},
        {"text behind", "<a/>x", kRefused},
        {"a reference behind", "<a/>&#32;", kRefused},
        {"CDATA behind", "<a/><![CDATA[ ]]>", kRefused},
        {"two roots", "<a/><b/>", kRefused},
        {"not closed", "<Email><read>1</read>", kRefused},
        {"not opened", "</Email>", kRefused},
        {"closed twice", "<a></a></a>", kRefused},
        {"crossed", "<a><b></a></b>", kRefused},
        {"another case", "<a></A>", kRefused},
        {"a space before the name", "< a/>", kRefused},
        {"a space in the end", "</ a>", kRefused},
        {"a space in the empty tag", "<a/ >", kRefused},
        {"attributes of an end", "<a></a b=''>", kRefused},
        {"a name that begins with a digit", "<1a/>", kRefused},
        {"a name that begins with a dash", "<-a/>", kRefused},
        {"an attribute without value", "<a b/>", kRefused},
        {"without quotes", "<a b=c/>", kRefused},
        {"twice", "<a b='1' b='2'/>", kRefused},
        {"without space between", "<a b='1'c='2'/>", kRefused},
        {"< in a value", "<a b='<'/>", kRefused},
        {"an open value", "<a b='1/>", kRefused},
        {"an unknown entity in a value", "<a b='&c;'/>", kRefused},
        {"a bare & in a value", "<a b='&'/>", kRefused},
        {"an unknown entity", "<a>&b;</a>", kRefused},
        {"a bare &", "<a>b & c</a>", kRefused},
        {"an entity without end", "<a>&lt</a>", kRefused},
        {"NUL by reference", "<a>&#0;</a>", kRefused},
        {"a surrogate by reference", "<a>&#xD800;</a>", kRefused},
        {"FFFE by reference", "<a>&#xFFFE;</a>", kRefused},
        {"a control character by reference", "<a>&#1;</a>", kRefused},
        {"beyond Unicode", "<a>&#x110000;</a>", kRefused},
        {"beyond 32 bits", "<a>&#x100000041;</a>", kRefused},
        {"no digits", "<a>&#;</a>", kRefused},
        {"no hexadecimal digits", "<a>&#x;</a>", kRefused},
        {"a capital X", "<a>&#X41;</a>", kRefused},
        {"a control character", "<a>\x01</a>", kRefused},
        {"one in a value", "<a b='\x01'/>", kRefused},
        {"one in a comment", "<a><!-- \x01 --></a>", kRefused},
        {"one in an instruction", "<a><?b \x01?></a>", kRefused},
        {"one in a CDATA section", "<a><![CDATA[\x01]]></a>", kRefused},
        {"one behind the root", "<a/>\x0C", kRefused},
        {"NUL", "<a>\0</a>"s, kRefused},
        {"NUL behind", "<a/>\0"s, kRefused},
        {"FFFF", "<a>\xEF\xBF\xBF</a>", kRefused},
        {"]]>", "<a>]]></a>", kRefused},
        {"CDATA without end", "<a><![CDATA[ ]] ></a>", kRefused},
        {"-- in a comment", "<a><!-- -- --></a>", kRefused},
        {"a comment that ends in --->", "<a><!-- ---></a>", kRefused},
        {"a comment without end", "<a/><!-- ->", kRefused},
        {"an instruction without end", "<a><?b c ></a>", kRefused},
        {"an instruction without target", "<a><? b?></a>", kRefused},
        {"an instruction without space", "<a><?b=c?></a>", kRefused},
        {"an instruction called xml", "<a><?XmL b?></a>", kRefused},
        {"white space before the declaration", " <?xml version='1.0'?><a/>", kRefused},
        {"no version", "<?xml encoding='UTF-8'?><a/>", kRefused},
        {"an empty declaration", "<?xml?><a/>", kRefused},
        {"version 2.0", "<?xml version='2.0'?><a/>", kRefused},
        {"version 1.", "<?xml version='1.'?><a/>", kRefused},
        {"version 1.x", "<?xml version='1.x'?><a/>", kRefused},
        {"an empty version", "<?xml version=''?><a/>", kRefused},
        {"a version without quotes", "<?xml version=1.0?><a/>", kRefused},
        {"an empty encoding", "<?xml version='1.0' encoding=''?><a/>", kRefused},
        {"an encoding that begins with a digit", "\xEF\xBB\xBF<?xml version='1.0' encoding='8'?><a/>",
         kRefused},
        {"more in the declaration", "<?xml version='1.0' a='b'?><a/>", kRefused},
        {"the version twice", "<?xml version='1.0' version='1.0'?><a/>", kRefused},
        {"no space in the declaration", "<?xml version='1.0'encoding='UTF-8'?><a/>", kRefused},
        {"wrong order in the declaration", "<?xml version='1.0' standalone='no' encoding='UTF-8'?><a/>",
         kRefused},
        {"standalone maybe", "<?xml version='1.0' standalone='maybe'?><a/>", kRefused},
        {"a declaration without end", "<?xml version='1.0'", kRefused},
        {"an error behind the Email", in_email("<read>1</read>") + "<", kRefused},
    };
    expect_rows(rows);
}

TEST(EmailItem, WhatIsWellFormedIsRead) {
    const std::string email = in_email("<read>1</read>");
    const Row rows[] = {
        {"version 1.1", "<?xml version='1.1'?>" + email, "read=1"},
        {"another instruction first", "<?xml-stylesheet href='a'?>" + email, "read=1"},
        {"white space and comments around", "\r\n<!-- a --><?b?>" + email + "\n<!-- c -->\n<?d e?>\t",
         "read=1"},
        {"white space in tags", "<Email\n><read\t>1</read\r\n></Email >", "read=1"},
        {"attributes", "<Email a = \"'&lt;&#65;>\" b='\"'\tc=''><read d='e'/><read>1</read></Email>",
         "read=1"},
        {"names of all kinds",
         "<_.-:\xC3\xA9\xCC\x81\xE6\x97\xA5\xF0\x90\x80\x80>" + email +
             "</_.-:\xC3\xA9\xCC\x81\xE6\x97\xA5\xF0\x90\x80\x80>",
         "read=1"},
        {"> in text", "<a>></a>", ""},
        {"]] in text", "<a>]] >]</a>", ""},
        {"an empty comment", "<a><!----></a>", ""},
        {"an empty CDATA section", in_email("<read><![CDATA[]]></read>"), ""},
        {"many zeros",
         in_email("<read>"
                  "&#" +
                  std::string(1000, '0') +
                  "49;"
                  "</read>"),
         "read=1"},
    };
    expect_rows(rows);
}

TEST(EmailItem, EveryBeginningOfADocumentIsRefused) {
    const std::string document =
        "<?xml version='1.0' encoding='UTF-8'?><a b='&lt;'><Email><read>1</read>"
        "<!-- c --><emailitem><![CDATA[x]]>&#65;</emailitem></Email></a>";
    EXPECT_EQ(email_of(document), "read=1 text=xA");
    for (std::size_t size = 0; size < document.size(); ++size) {
        EXPECT_EQ(email_of(std::string_view(document).substr(0, size)), kRefused) << size;
    }
}

TEST(EmailItem, ARefusedDocumentLeavesAnEmptyRecordWithItsSize) {
    for (const std::uint32_t size : {40U, 0U, 7U, UINT32_MAX}) {
        EmailItem item;
        std::memset(&item, 0xA5, sizeof item);
        item.size = size;
        const DataObject in = object_of("<Email><read>1</read><emailitem>x</emailitem>");
        EXPECT_EQ(ODCAPI_ParseDataObject(VZ_OBJECT_EMAIL, &in, &item), VZ_ERR_BAD_VALUE);
        EmailItem expected{};
        expected.size = size;
        EXPECT_EQ(std::memcmp(&item, &expected, sizeof item), 0) << size;
    }
}

TEST(EmailItem, TheTextIsAnOleStringAndReleaseEmptiesTheRecord) {
    const DataObject in =
        object_of("<Email><read>1</read><created>2024-01-02</created><emailitem>ab</emailitem></Email>");
    EmailItem item{};
    item.size = 17;
    ASSERT_EQ(ODCAPI_ParseDataObject(VZ_OBJECT_EMAIL, &in, &item), VZ_OK);
    std::uint32_t bytes = 0;
    std::memcpy(&bytes, reinterpret_cast<const char*>(item.itemText) - sizeof bytes, sizeof bytes);
    EXPECT_EQ(bytes, 4U);
    EXPECT_EQ(item.flagCount, 1U);
    EXPECT_EQ(item.timeCount, 1U);
    for (int times = 0; times < 2; ++times) {
        EXPECT_EQ(ODCAPI_FreeParsedData(VZ_OBJECT_EMAIL, &item), VZ_OK);
        EmailItem expected{};
        expected.size = 17;
        EXPECT_EQ(std::memcmp(&item, &expected, sizeof item), 0) << "release " << times;
    }
}

}  // namespace
