#include "vzconv/text_lines.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vzconv {
namespace {

// The lines as "number@begin:text|ending", so that a row of a table says all of them.
std::vector<std::string> lines_of(std::string_view text) {
    std::vector<std::string> result;
    TextLines lines(text);
    for (TextLine line; lines.next(line);) {
        std::string ending;
        for (const char c : line.ending) ending += c == '\r' ? "CR" : "LF";
        result.push_back(std::to_string(line.number) + "@" + std::to_string(line.begin) + ":" +
                         std::string(line.text) + "|" + ending);
    }
    return result;
}

struct LinesRow {
    const char* name;
    std::string_view text;
    std::vector<std::string> lines;
};

TEST(TextLines, EveryKindOfLineEndEndsALine) {
    const LinesRow rows[] = {
        {"empty text", "", {}},
        {"no line end", "ab", {"1@0:ab|"}},
        {"CR LF", "ab\r\ncd\r\n", {"1@0:ab|CRLF", "2@4:cd|CRLF"}},
        {"LF", "ab\ncd\n", {"1@0:ab|LF", "2@3:cd|LF"}},
        {"CR", "ab\rcd\r", {"1@0:ab|CR", "2@3:cd|CR"}},
        {"mixed", "a\nb\rc\r\nd", {"1@0:a|LF", "2@2:b|CR", "3@4:c|CRLF", "4@7:d|"}},
        {"empty lines", "\n\r\r\n\r", {"1@0:|LF", "2@1:|CR", "3@2:|CRLF", "4@4:|CR"}},
        {"LF CR is two", "a\n\rb", {"1@0:a|LF", "2@2:|CR", "3@3:b|"}},
    };
    for (const LinesRow& row : rows) EXPECT_EQ(lines_of(row.text), row.lines) << row.name;
}

}  // namespace
}  // namespace vzconv
