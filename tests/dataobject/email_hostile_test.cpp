// Documents made to hurt: they are refused or read, fast, and nothing outside them is opened.
#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "dataobject/email_text.h"
#include "support/loopback_listener.h"
#include "support/watched_file.h"

namespace {

using namespace vzapi::test;

constexpr const char* kRefused = "80100013";
constexpr std::size_t kHuge = 64U << 20;

// Doubles what there is: the documents are long, and many.
std::string repeated(const std::string& text, std::size_t count) {
    const std::size_t size = text.size() * count;
    std::string result = text;
    result.reserve(size * 2);
    while (result.size() < size) result += result;
    result.resize(size);
    return result;
}

TEST(EmailItemHostile, TheListenerOfTheseTestsNotices) {
    const LoopbackListener listener;
    EXPECT_FALSE(listener.was_touched());
    listener.touch();
    EXPECT_TRUE(listener.was_touched());
    EXPECT_FALSE(listener.was_touched());
}

TEST(EmailItemHostile, NothingIsFetchedFromTheNetwork) {
    const LoopbackListener listener;
    const std::string url = listener.url("a.dtd");
    const std::string email = "<Email><emailitem>&e;</emailitem></Email>";
    EXPECT_EQ(email_of("<!DOCTYPE Email SYSTEM '" + url + "'><Email><read>1</read></Email>"), kRefused);
    EXPECT_EQ(email_of("<!DOCTYPE Email PUBLIC '-//x//y' '" + url + "'><Email/>"), kRefused);
    EXPECT_EQ(email_of("<!DOCTYPE Email [<!ENTITY e SYSTEM '" + url + "'>]>" + email), kRefused);
    EXPECT_EQ(email_of("<!DOCTYPE Email [<!ENTITY % p SYSTEM '" + url + "'>%p;]>" + email), kRefused);
    EXPECT_EQ(email_of("<?xml-stylesheet type='text/xsl' href='" + url +
                       "'?>"
                       "<Email xmlns:xi='http://www.w3.org/2001/XInclude' "
                       "xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
                       "xsi:schemaLocation='" +
                       url + "' xmlns='x-schema:" + url +
                       "'>"
                       "<xi:include href='" +
                       url + "'/><read>1</read></Email>"),
              "read=1");
    EXPECT_FALSE(listener.was_touched());
}

TEST(EmailItemHostile, TheFileOfTheseTestsNotices) {
    const WatchedFile file;
    EXPECT_FALSE(file.was_opened());
    EXPECT_TRUE(std::ifstream(file.path()).is_open());
    EXPECT_TRUE(file.was_opened());
    EXPECT_FALSE(file.was_opened());
}

TEST(EmailItemHostile, NoFileIsOpened) {
    const WatchedFile file;
    const std::string email = "<Email><emailitem>&e;</emailitem></Email>";
    for (const std::string& name : {file.url(), file.path()}) {
        EXPECT_EQ(email_of("<!DOCTYPE Email SYSTEM '" + name + "'><Email><read>1</read></Email>"), kRefused);
        EXPECT_EQ(email_of("<!DOCTYPE Email SYSTEM '" + name + "'>" + email), kRefused);
        EXPECT_EQ(email_of("<!DOCTYPE Email PUBLIC '-//x//y' '" + name + "'><Email/>"), kRefused);
        EXPECT_EQ(email_of("<!DOCTYPE Email [<!ENTITY e SYSTEM '" + name + "'>]>" + email), kRefused);
        EXPECT_EQ(email_of("<!DOCTYPE Email [<!ENTITY % p SYSTEM '" + name + "'>%p;]>" + email), kRefused);
        EXPECT_EQ(email_of("<?xml-stylesheet type='text/xsl' href='" + name +
                           "'?>"
                           "<Email xmlns:xi='http://www.w3.org/2001/XInclude' xmlns='x-schema:" +
                           name + "'><xi:include href='" + name + "'/><read>1</read></Email>"),
                  "read=1");
        EXPECT_FALSE(file.was_opened()) << name;
    }
}

TEST(EmailItemHostile, EveryDoctypeIsRefused) {
    EXPECT_EQ(email_of("<!DOCTYPE Email><Email><read>1</read></Email>"), kRefused);
    EXPECT_EQ(email_of("<?xml version='1.0'?>\n<!-- c -->\n<!DOCTYPE Email []><Email><read>1</read></Email>"),
              kRefused);
    EXPECT_EQ(email_of("<!doctype Email><Email><read>1</read></Email>"), kRefused);
    EXPECT_EQ(email_of("<Email><!DOCTYPE Email><read>1</read></Email>"), kRefused);
    EXPECT_EQ(email_of("<Email><!ENTITY e 'x'><read>1</read></Email>"), kRefused);
}

TEST(EmailItemHostile, EntitiesAreNotExpanded) {
    std::string bomb = "<!DOCTYPE Email [<!ENTITY e0 'ha'>";
    for (int i = 1; i <= 60; ++i) {
        const std::string inner = "&e" + std::to_string(i - 1) + ";";
        bomb += "<!ENTITY e" + std::to_string(i) + " '" + inner + inner + inner + "'>";
    }
    EXPECT_EQ(email_of(bomb + "]><Email><emailitem>&e60;</emailitem></Email>"), kRefused);
    const std::string quadratic = "<!DOCTYPE Email [<!ENTITY e '" + std::string(1U << 20, 'x') + "'>]>";
    EXPECT_EQ(email_of(quadratic + "<Email><emailitem>" + repeated("&e;", 100'000) + "</emailitem></Email>"),
              kRefused);
}

std::string nested(std::size_t depth, const std::string& inside) {
    return repeated("<a>", depth) + inside + repeated("</a>", depth);
}

TEST(EmailItemHostile, DepthHasALimit) {
    const std::string email = "<Email><read>1</read></Email>";
    EXPECT_EQ(email_of(nested(248, email)), "read=1") << "250 elements deep";
    EXPECT_EQ(email_of(nested(249, email)), kRefused);
    EXPECT_EQ(email_of(nested(1'000'000, email)), kRefused);
    EXPECT_EQ(email_of(repeated("<a>", 1'000'000)), kRefused);
    EXPECT_EQ(email_of("<Email><emailitem>" + nested(248, "x") + "</emailitem></Email>"), "text=x");
}

TEST(EmailItemHostile, TheNumberOfElementsHasALimit) {
    const std::string begin = "<Email><read>1</read>";
    EXPECT_EQ(email_of(begin + repeated("<x/>", 100'000 - 2) + "</Email>"), "read=1");
    EXPECT_EQ(email_of(begin + repeated("<x/>", 100'000 - 1) + "</Email>"), kRefused);
    EXPECT_EQ(email_of("<Email>" + repeated("<read>1</read>", kHuge / 14) + "</Email>"), kRefused);
}

TEST(EmailItemHostile, NamesHaveALimit) {
    const auto named = [](std::size_t length) {
        const std::string name(length, 'n');
        return "<" + name + "><Email><read>1</read></Email></" + name + ">";
    };
    EXPECT_EQ(email_of(named(1'000)), "read=1");
    EXPECT_EQ(email_of(named(1'001)), kRefused);
    EXPECT_EQ(email_of(named(kHuge)), kRefused);
}

TEST(EmailItemHostile, TagsAndTextTogetherHaveALimit) {
    const std::string begin = "<Email><emailitem>";
    const std::string end = "</emailitem></Email>";
    const std::size_t room = 3'000'000 - begin.size() - end.size();
    EXPECT_EQ(email_of(begin + std::string(room, 'x') + end), "text=" + std::string(room, 'x'));
    EXPECT_EQ(email_of(begin + std::string(room + 1, 'x') + end), kRefused);
    EXPECT_EQ(email_of(begin + std::string(kHuge, 'x') + end), kRefused);
    EXPECT_EQ(email_of(begin + repeated("&amp;", kHuge / 5) + end), kRefused);
    // The widest text that fits: three bytes a unit in UTF-8.
    const std::string wide = email_of(begin + repeated("\xE6\x97\xA5", room) + end);
    EXPECT_EQ(wide.size(), 5 + 6 * room);
}

TEST(EmailItemHostile, WhatIsLeftOutMayBeOfAnySize) {
    const std::string email = "<Email><read>1</read></Email>";
    EXPECT_EQ(email_of("<!-- " + std::string(kHuge, 'x') + " -->" + email), "read=1");
    EXPECT_EQ(email_of("<?x " + std::string(kHuge, '?') + "?>" + email), "read=1");
    EXPECT_EQ(email_of("<a b='" + std::string(kHuge, 'x') + "'>" + email + "</a>"), "read=1");
    EXPECT_EQ(email_of(std::string(kHuge, ' ') + email), "read=1");
    std::string attributes = "<a";
    for (int i = 0; i < 1'000'000; ++i) attributes += " b" + std::to_string(i) + "=''";
    EXPECT_EQ(email_of(attributes + ">" + email + "</a>"), "read=1");
}

TEST(EmailItemHostile, WhatDoesNotEndIsRefused) {
    for (const std::string begin :
         {"<!-", "<!--", "<![CDATA[", "<a><![CDATA[", "<?x ", "<a b='", "<a ", "</", "&", "<a>&#", "<a>&#x",
          "<a>&", "<?xml version='1.", "<?xml encoding='"}) {
        for (const std::string filler : {"-", "]", "?", "<", "&", "0", " ", "x", "[", "\xC3\xA9"}) {
            EXPECT_EQ(email_of(begin + repeated(filler, 1'000'000)), kRefused) << begin << filler;
        }
    }
}

// Puts random pieces at random places of a document, or takes some of it away.
class Mutations {
public:
    std::string next() {
        std::string document = kDocument;
        const std::size_t count = number(4);
        for (std::size_t i = 0; i < count; ++i) {
            const std::string_view piece = kPieces[number(std::size(kPieces))];
            const std::size_t at = number(document.size());
            const std::size_t removed = number(3) == 0 ? number(12) : 0;
            document.replace(at, removed, piece);
        }
        return document;
    }

private:
    static constexpr const char* kDocument =
        "<?xml version='1.0'?><a b='c'><Email><read>false</read><!-- d --><flagged e=\"&lt;\">1</flagged>"
        "<created>2024-05-06T07:08:09</created><emailitem>f<![CDATA[g]]>&#65;</emailitem></Email></a>";
    static constexpr std::string_view kPieces[] = {
        "<",        ">",    "</",  "/>",   "<Email>", "</Email>",   "<read>", "</read>", "&",    "&amp;",
        "&#9;",     "<!--", "-->", "]]>",  "<a:b/>",  "<![CDATA[",  "'",      "\"",      "=",    " x=''",
        "\xC3\xA9", "\xC3", "\r",  "\r\n", " ",       "<!DOCTYPE ", "<?y ",   "?>",      "\x7F", "&#xD;"};

    std::size_t number(std::size_t below) {
        state_ = state_ * 6364136223846793005 + 1442695040888963407;
        return static_cast<std::size_t>(state_ >> 33) % below;
    }

    std::uint64_t state_ = 20240506;
};

// The numbers are those of every system: all of them read each document alike.
TEST(EmailItemHostile, MutilatedDocumentsAreReadAlikeOnEverySystem) {
    Mutations mutations;
    std::size_t read = 0;
    std::uint64_t hash = 14695981039346656037U;
    for (int round = 0; round < 20'000; ++round) {
        const std::string result = email_of(mutations.next());
        read += result == kRefused ? 0 : 1;
        for (const char byte : result) hash = (hash ^ static_cast<unsigned char>(byte)) * 1099511628211U;
    }
    EXPECT_EQ(read, 5871U);
    EXPECT_EQ(hash, 10336428361238039730U);
}

}  // namespace
