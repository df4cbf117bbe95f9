// Texts made to be slow, at full size. What they prove is that the result is right and comes at all: a parser
// that is not linear in the text does not come back from any of them.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "versit/parser.h"

namespace vzapi::versit {
namespace {

constexpr std::size_t kMegabyte = std::size_t{1} << 20;

std::string repeated(std::string_view piece, std::size_t times) {
    std::string text;
    text.reserve(piece.size() * times);
    for (std::size_t i = 0; i < times; ++i) text += piece;
    return text;
}

std::u16string widened(const std::string& text) {
    return {text.begin(), text.end()};
}

TEST(HostileText, SixtyFourMegabytesInOneLine) {
    const std::string text = "NOTE:" + std::string(64 * kMegabyte, 'a') + "\r\n";
    const VersitObject object = parse(text);
    ASSERT_EQ(object.count(), 1U);
    EXPECT_EQ(object.lines()[0].value().size(), 64 * kMegabyte);
}

TEST(HostileText, SixtyFourMegabytesOfShortLines) {
    const std::string line = "TEL;TYPE=CELL:+15550100\r\n";
    const std::size_t count = 64 * kMegabyte / line.size();
    EXPECT_EQ(parse(repeated(line, count)).count(), count);
}

TEST(HostileText, OneValueFoldedOverAMillionLines) {
    const std::string text = "NOTE:" + repeated("abc\r\n ", 1'000'000);
    const VersitObject object = parse(text);
    ASSERT_EQ(object.count(), 1U);
    EXPECT_EQ(object.lines()[0].value().size(), 3'000'000U);
    const WideVersitObject wide = parse_wide(widened(text));
    ASSERT_EQ(wide.count(), 1U);
    EXPECT_EQ(wide.lines()[0].value().size(), 3'000'000U);
}

TEST(HostileText, ABase64ValueFoldedOverAMillionLines) {
    const VersitObject object = parse("PHOTO;ENCODING=BASE64:" + repeated("AAAA\r\n    ", 1'000'000));
    ASSERT_EQ(object.count(), 1U);
    EXPECT_EQ(object.lines()[0].value().size(), 4'000'000U);
}

TEST(HostileText, AMillionSoftBreaks) {
    const VersitObject object = parse("NOTE;ENCODING=QUOTED-PRINTABLE:" + repeated("abc=\r\n", 1'000'000));
    ASSERT_EQ(object.count(), 1U);
    EXPECT_EQ(object.lines()[0].value().size(), 3'000'000U);
}

TEST(HostileText, AMillionLinesOfOneCharacter) {
    EXPECT_EQ(parse(repeated("a\r\n", 1'000'000)).count(), 0U);
    EXPECT_EQ(parse(repeated(":\r\n", 1'000'000)).count(), 1'000'000U);
    EXPECT_EQ(parse_wide(widened(repeated("a\r\n", 1'000'000))).count(), 0U);
}

TEST(HostileText, TenMegabytesOfLineFeeds) {
    const std::string feeds(10 * kMegabyte, '\n');
    EXPECT_EQ(parse(feeds).count(), 0U);
    EXPECT_EQ(parse_wide(widened(feeds)).count(), 0U);
    const VersitObject object = parse("NOTE:a" + feeds);
    ASSERT_EQ(object.count(), 1U);
    EXPECT_EQ(object.lines()[0].value().size(), 1 + feeds.size());
}

TEST(HostileText, TenMegabytesOfMarkersThatAlmostMatch) {
    for (const std::string_view piece :
         {"BEGIN:VBK", "bk", "QUOTED-PRINTABLE=\r\n", "BASE6\r\n\t", "X-", "=\r\n", "\x1B\r\n"}) {
        const std::string text = "A:" + repeated(piece, 10 * kMegabyte / piece.size());
        EXPECT_GE(parse(text).count(), 1U) << piece;
    }
}

TEST(HostileText, AMillionBodiesAndQuotedEnds) {
    const std::u16string pair = u"BEGIN:VBODY\nEND:VBODY\n";
    std::u16string text;
    for (int i = 0; i < 1'000'000; ++i) text += pair;
    EXPECT_EQ(parse_wide(text).bodies().size(), 1'000'000U);

    text = u"BEGIN:VBODY\n";
    for (int i = 0; i < 1'000'000; ++i) text += u"END:VBODY\n";
    const WideVersitObject object = parse_wide(text);
    ASSERT_EQ(object.bodies().size(), 1U);
    EXPECT_EQ(object.bodies()[0].end, 1'000'000U);

    text.clear();
    for (int i = 0; i < 1'000'000; ++i) text += u"BEGIN:VBODY\n";
    EXPECT_EQ(parse_wide(text).bodies().size(), 1U);
}

}  // namespace
}  // namespace vzapi::versit
