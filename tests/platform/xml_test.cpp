// What lies behind the reading of an XML document: the reduction, the characters, and the system's parser by
// itself.
#include "platform/xml.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "platform/utf8.h"
#include "platform/xml_characters.h"
#include "platform/xml_parser.h"
#include "platform/xml_reduction.h"
#include "support/loopback_listener.h"
#include "support/watched_file.h"

namespace vzapi::platform {
namespace {

struct Row {
    std::u16string_view document;
    const char* reduced;
};

constexpr Row kReductions[] = {
    {u"<a/>", "<a/>"},
    {u"<?xml version='1.0'?>\r\n<!-- c --><?d e?> <a b='c'>\r\n</a>\n", "<a>\n</a>"},
    {u"<a> x &amp; &quot;&#60;&#x26;&#13;y> </a>", "<a> x &amp; \"&lt;&amp;&#13;y&gt; </a>"},
    {u"<a><![CDATA[<b>&amp;\r\n]]]]><![CDATA[>]]></a>", "<a>&lt;b&gt;&amp;amp;\n]]&gt;</a>"},
    {u"<x:a_b.c-1 d='1' ></x:a_b.c-1\n>", "<x_003aa_005fb.c-1></x_003aa_005fb.c-1>"},
    {u"<\u00E9\U00010000/>", "<_00e9_d800_dc00/>"},
    {u"<a>\u00E9\U0001F600</a>", "<a>\xC3\xA9\xF0\x9F\x98\x80</a>"},
    {u"<a></b>", "<a></b>"},  // for the parser to see
    {u"<a/><b/>", "refused"},
    {u"<a></a><b></b>", "refused"},
    {u"</a>", "refused"},
    {u"<a></a></a>", "refused"},
    {u"</a><a>", "refused"},
    {u"<a><b></b>", "refused"},
};

TEST(XmlReduction, LeavesTagsAndText) {
    for (const Row& row : kReductions) {
        const std::optional<std::u16string> reduced = reduce_xml(row.document);
        EXPECT_EQ(reduced ? utf16_to_utf8(*reduced) : "refused", row.reduced);
    }
}

TEST(XmlReduction, NamesComeBack) {
    for (const std::u16string_view name :
         {u"", u"a", u"x:a_b.c-1", u"_003a", u"\u00E9\U00010000", u"emailitem"}) {
        EXPECT_EQ(original_name(reduced_name(name)), name);
    }
    EXPECT_EQ(reduced_name(u"emailitem"), u"emailitem");
}

TEST(XmlCharacters, AreThoseOfTheStandard) {
    std::size_t characters = 0;
    std::size_t name_starts = 0;
    std::size_t name_characters = 0;
    for (char32_t code = 0; code <= 0x110010; ++code) {
        characters += is_xml_character(code) ? 1 : 0;
        name_starts += may_begin_xml_name(code) ? 1 : 0;
        name_characters += may_continue_xml_name(code) ? 1 : 0;
    }
    // All of Unicode but 29 control characters, the surrogates, U+FFFE and U+FFFF.
    EXPECT_EQ(characters, 0x110000U - 29 - 0x800 - 2);
    EXPECT_EQ(name_starts, 54U + 23 + 31 + 520 + 14 + 7297 + 2 + 288 + 1008 + 43007 + 1232 + 526 + 0xE0000);
    EXPECT_EQ(name_characters, name_starts + 2 + 10 + 1 + 112 + 2);
}

TEST(XmlChildren, GivesNamesAndTextAsTheyStand) {
    std::vector<XmlElement> children;
    const std::string document =
        "<r><p> a <x:\xC3\xA9_> b&#13;\r\n<i> c </i></x:\xC3\xA9_><e/>d<p>f</p></p><p><g/></p></r>";
    ASSERT_EQ(xml_children(document, u"p", children), XmlOutcome::Read);
    ASSERT_EQ(children.size(), 3U);
    EXPECT_EQ(children[0].name, u"x:\u00E9_");
    EXPECT_EQ(children[0].text, u" b\r\n c ");
    EXPECT_EQ(children[1].name, u"e");
    EXPECT_EQ(children[1].text, u"");
    EXPECT_EQ(children[2].name, u"p");
    EXPECT_EQ(children[2].text, u"f");
}

TEST(XmlChildren, FindsAParentOfAnyName) {
    std::vector<XmlElement> children;
    ASSERT_EQ(xml_children("<r><x:\xC3\xA9_><a/></x:\xC3\xA9_></r>", u"x:\u00E9_", children),
              XmlOutcome::Read);
    EXPECT_EQ(children.size(), 1U);
}

// Should a document ever come to it unreduced: it opens nothing by itself either.
TEST(XmlParser, OpensNothingByItself) {
    const test::LoopbackListener listener;
    const test::WatchedFile file;
    for (const std::string& name : {listener.url("a.dtd"), file.url(), file.path()}) {
        const std::u16string url = utf8_to_utf16(name);
        for (const std::u16string& document :
             {u"<!DOCTYPE p SYSTEM '" + url + u"'><p><a>&e;</a></p>",
              u"<!DOCTYPE p [<!ENTITY e SYSTEM '" + url + u"'>]><p><a>&e;</a></p>",
              u"<!DOCTYPE p [<!ENTITY % e SYSTEM '" + url + u"'>%e;]><p><a/></p>"}) {
            std::vector<XmlElement> children;
            static_cast<void>(parse_reduced_xml(document, u"p", children));
            for (const XmlElement& child : children) EXPECT_EQ(child.text, u"");
        }
    }
    EXPECT_FALSE(listener.was_touched());
    EXPECT_FALSE(file.was_opened());
}

}  // namespace
}  // namespace vzapi::platform
