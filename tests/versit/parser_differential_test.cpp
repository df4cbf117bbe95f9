// Holds the one-pass parsers against the literal ones. VZAPI_DIFFERENTIAL_TEXTS says over how many generated
// texts.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "reference/line_list_comparison.h"
#include "reference/versit_parser_reference.h"
#include "reference/wide_parser_reference.h"
#include "versit/differential_size.h"
#include "versit/parser.h"
#include "versit/text_shrinker.h"
#include "versit/versit_text_generator.h"

namespace vzapi::test {
namespace {

using std::string_view_literals::operator""sv;

// The longest of the sequences that are tried one and all.
std::size_t sequence_length() {
    return differential_text_count() >= kAllTexts ? 6 : 4;
}

template <class Unit>
std::vector<std::basic_string<Unit>> copied_lines(const versit::BasicVersitObject<Unit>& object) {
    std::vector<std::basic_string<Unit>> lines;
    for (const auto& line : object.lines()) lines.emplace_back(line.text());
    return lines;
}

reference::BodyRanges copied_bodies(const versit::WideVersitObject& object) {
    reference::BodyRanges bodies;
    for (const versit::LineRange& body : object.bodies()) bodies.emplace_back(body.begin, body.end);
    return bodies;
}

// Without the zero that ends a std::string, so that a sanitizer sees a parser look behind the text.
template <class Unit>
std::vector<Unit> without_terminator(const std::basic_string<Unit>& text) {
    return {text.begin(), text.end()};
}

std::string narrow_difference(const std::string& text) {
    const std::vector<char> units = without_terminator(text);
    const versit::VersitObject object = versit::parse({units.data(), units.size()});
    return reference::line_difference<char>(reference::parse(text), copied_lines(object)) +
           reference::body_difference(
               {}, std::vector<std::pair<std::size_t, std::size_t>>(object.bodies().size()));
}

std::string wide_difference(const std::u16string& text) {
    const std::vector<char16_t> units = without_terminator(text);
    const versit::WideVersitObject object = versit::parse_wide({units.data(), units.size()});
    const reference::WideParse expected = reference::parse_wide(text);
    return reference::line_difference<char16_t>(expected.lines, copied_lines(object)) +
           reference::body_difference(expected.bodies, copied_bodies(object));
}

// Empty when `difference(text)` is; else the shortest text found that differs, and how.
template <class Text>
std::string report(const Text& text, const std::function<std::string(const Text&)>& difference) {
    if (difference(text).empty()) return {};
    const Text shortest = shrunk(text, [&](const Text& shorter) { return !difference(shorter).empty(); });
    return "text: " + reference::literal_of(text) + "\nshortest: " + reference::literal_of(shortest) + "\n" +
           difference(shortest);
}

std::string narrow_report(const std::string& text) {
    return report<std::string>(text, narrow_difference);
}
std::string wide_report(const std::u16string& text) {
    return report<std::u16string>(text, wide_difference);
}

// The first texts that differ are enough to see what is wrong.
constexpr int kMostReports = 5;

class Reports {
public:
    void add(const std::string& text_report) {
        if (text_report.empty()) return;
        if (++count_ <= kMostReports) ADD_FAILURE() << text_report;
    }
    ~Reports() { EXPECT_EQ(count_, 0) << "texts on which the parsers differ"; }
    Reports() = default;
    Reports(const Reports&) = delete;
    Reports& operator=(const Reports&) = delete;

private:
    int count_ = 0;
};

TEST(ParserDifferential, GeneratedTexts) {
    VersitTextGenerator generator(20'260'101);
    Reports reports;
    for (std::size_t i = differential_text_count(); i > 0; --i) reports.add(narrow_report(generator.text()));
}

TEST(ParserDifferential, GeneratedWideTexts) {
    VersitTextGenerator generator(20'260'102);
    Reports reports;
    for (std::size_t i = differential_text_count(); i > 0; --i)
        reports.add(wide_report(generator.wide_text()));
}

struct Alphabet {
    const char* name;
    const char* before;  // stands in front of every sequence
    std::vector<std::string_view> tokens;
};

// What decides about a line, one subject a row.
const std::vector<Alphabet>& alphabets() {
    static const std::vector<Alphabet> all = {
        {"characters", "", {"\r", "\n", " ", "=", ":", "\x1B", "A", ";"}},
        {"characters in a line", "N:", {"\r", "\n", " ", "=", "\x1B", "A", "\0"sv}},
        {"soft breaks", "", {"NOTE;QUOTED-PRINTABLE:", "=\r\n", "\r\n", "\n", " ", "TEL:", "FOO:", "a"}},
        {"a soft break", "N;QUOTED-PRINTABLE:=\r\n", {"=", "\r\n", "\n", " ", "x-", "FOO", ":", "g."}},
        {"small letters", "n;quoted-printable:=", {"=", "\r\n", "\n", "quoted-printable", "a", "N:", ";"}},
        {"Base64", "KEY;BASE64:", {"\r\n", "\n", " ", "\t", "base64", "=", "TEL:", "\x1B"}},
        {"Base64 in a fold", "", {"TEL:", "\r\n", "\n", "  ", "BASE64", "B", "=", "\x1B"}},
        {"bookmarks", "BEGIN:VBKM", {"\r\n", "\n", "=", ":", "a", " ", ";QUOTED-PRINTABLE", "BASE64"}},
        {"message bodies", "", {"BEGIN:VBODY", "END:VBODY", "\r\n", "\n", "\r", " ", "TEL:", "="}},
        {"open bodies",
         "BEGIN:VBODY\r\n",
         {"BEGIN:VBODY", "END:VBODY\r\n", "\r\n", "\n", "\0"sv, "TEL:", "=", "N:\n"}},
        {"line feeds in a message", "N:", {"\n", "\r\n", "X-", "NICKNAME:", "X-SELF;", "g.", " ", "foo:"}},
    };
    return all;
}

TEST(ParserDifferential, EveryShortSequence) {
    Reports reports;
    for (const Alphabet& alphabet : alphabets()) {
        SCOPED_TRACE(alphabet.name);
        for_each_sequence(alphabet.tokens, sequence_length(), [&](const std::string& sequence) {
            const std::string text = alphabet.before + sequence;
            reports.add(narrow_report(text));
            reports.add(wide_report(widened(text)));
        });
    }
}

TEST(ParserDifferential, ComparisonSeesEveryKindOfDifference) {
    const std::vector<std::string> lines = {"A:1", "B:2"};
    const std::vector<std::vector<std::string>> wrong = {
        {},         {"A:1"},        {"B:2", "A:1"}, {"A:1", "B:2", "C:3"}, {"A:1", "B:2", ""}, {"A:1", "B:3"},
        {"A:1B:2"}, {"A:1", "b:2"},
    };
    EXPECT_EQ(reference::line_difference<char>(lines, lines), "");
    for (const auto& actual : wrong) EXPECT_NE(reference::line_difference<char>(lines, actual), "");
    EXPECT_EQ(reference::body_difference({{1, 2}}, {{1, 2}}), "");
    for (const reference::BodyRanges& actual :
         {reference::BodyRanges{}, {{1, 3}}, {{0, 2}}, {{1, 2}, {3, 3}}}) {
        EXPECT_NE(reference::body_difference({{1, 2}}, actual), "");
    }
}

// A parser that forgets the soft-break rule for one spelling is found, and the report boils down to it.
TEST(ParserDifferential, WrongParserIsFoundAndItsTextShrunk) {
    const auto difference = [](const std::string& text) {
        const bool is_wrong = text.find("=\r\n") != std::string::npos;
        std::vector<std::string> lines = reference::parse(text);
        if (is_wrong && !lines.empty()) lines.front() += '=';
        return reference::line_difference<char>(reference::parse(text), lines);
    };
    VersitTextGenerator generator(1);
    std::string found;
    for (int i = 0; i < 1000 && found.empty(); ++i) found = report<std::string>(generator.text(), difference);
    EXPECT_NE(found.find("shortest: \":=\\r\\n\"\n"), std::string::npos) << found;
}

TEST(ParserDifferential, ReportQuotesTextAsLiteral) {
    EXPECT_EQ(reference::literal_of(std::string("a\r\n\t\"\\\x1B\xFF\0001", 10)),
              R"("a\r\n\t\"\\\033\377\0001")");
    EXPECT_EQ(reference::literal_of(u"\xD83D\n"
                                    u"A\x1B"
                                    u"Ax"),
              "u\"\\xD83D\\nA\\x001B\" u\"Ax\"");
}

TEST(VersitTextGenerator, SameSeedGivesTheSameTexts) {
    VersitTextGenerator one(7);
    VersitTextGenerator other(7);
    VersitTextGenerator third(8);
    int differing = 0;
    for (int i = 0; i < 100; ++i) {
        const std::string text = one.text();
        EXPECT_EQ(text, other.text());
        differing += text != third.text() ? 1 : 0;
    }
    EXPECT_GT(differing, 50);
}

TEST(VersitTextGenerator, SequencesAreAllThere) {
    std::vector<std::string> sequences;
    for_each_sequence(std::vector<std::string_view>{"a", "b"}, 2,
                      [&](const std::string& text) { sequences.push_back(text); });
    EXPECT_EQ(sequences, (std::vector<std::string>{"", "a", "b", "aa", "ba", "ab", "bb"}));
}

}  // namespace
}  // namespace vzapi::test
