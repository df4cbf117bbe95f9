#include "vzconv/line_ends.h"

#include <gtest/gtest.h>

namespace vzconv {
namespace {

struct LineEndRow {
    const char* name;
    std::string_view object;
    std::string_view expected;
};

TEST(LineEnds, BareLineEndsOfTheWriterBecomeCrLf) {
    const LineEndRow rows[] = {
        {"LF", "BEGIN:VBKM\nA:1\nEND:VBKM\n", "BEGIN:VBKM\r\nA:1\r\nEND:VBKM\r\n"},
        {"CR", "BEGIN:VBKM\rA:1\rEND:VBKM\r", "BEGIN:VBKM\r\nA:1\r\nEND:VBKM\r\n"},
        {"no last one", "BEGIN:VBKM\nA:1\nEND:VBKM", "BEGIN:VBKM\r\nA:1\r\nEND:VBKM\r\n"},
        {"nothing inside", "BEGIN:VBKM\nEND:VBKM\n", "BEGIN:VBKM\r\nEND:VBKM\r\n"},
        {"empty lines", "BEGIN:VBKM\n\n\nA:1\nEND:VBKM\n", "BEGIN:VBKM\r\n\r\n\r\nA:1\r\nEND:VBKM\r\n"},
        {"LF at first, then CR LF", "BEGIN:VBKM\nA:1\r\nB:2\nEND:VBKM\n",
         "BEGIN:VBKM\r\nA:1\r\nB:2\r\nEND:VBKM\r\n"},
        {"CR LF at first, then LF", "BEGIN:VBKM\r\nA:1\nB:2\nEND:VBKM\n",
         "BEGIN:VBKM\r\nA:1\r\nB:2\r\nEND:VBKM\r\n"},
        {"CR in a value of LF text stays", "BEGIN:VBKM\nA:1\r2\nEND:VBKM\n",
         "BEGIN:VBKM\r\nA:1\r2\r\nEND:VBKM\r\n"},
        {"LF in a value of CR text stays", "BEGIN:VBKM\rA:1\n2\rEND:VBKM\r",
         "BEGIN:VBKM\r\nA:1\n2\r\nEND:VBKM\r\n"},
        {"blanks of the markers", " BEGIN : VBKM\t\r\nA: 1 \r\nEND:VBKM \r\n",
         "BEGIN:VBKM\r\nA: 1 \r\nEND:VBKM\r\n"},
    };
    for (const LineEndRow& row : rows) {
        std::string storage;
        EXPECT_EQ(with_library_line_ends(row.object, storage), row.expected) << row.name;
    }
}

TEST(LineEnds, TextThatIsAsItShouldBeIsNotCopied) {
    const std::string_view rows[] = {
        "BEGIN:VBKM\r\nA:1\r\nEND:VBKM\r\n",
        "BEGIN:VBKM\r\nA:1\r\nEND:VBKM",
        "BEGIN:VBKM\r\nEND:VBKM\r\n",
        "BEGIN:VBKM\r\nA:1\nstill the value\r\nEND:VBKM\r\n",
        "BEGIN:VBKM\r\nA:1\rstill the value\r\nEND:VBKM\r\n",
    };
    for (const std::string_view object : rows) {
        std::string storage;
        EXPECT_EQ(with_library_line_ends(object, storage).data(), object.data()) << object;
    }
}

}  // namespace
}  // namespace vzconv
