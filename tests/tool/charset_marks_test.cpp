#include "vzconv/charset_marks.h"

#include <gtest/gtest.h>

namespace vzconv {
namespace {

std::string marked(std::string_view object, TextCharset charset) {
    std::string storage;
    return std::string(with_charset_marks(object, charset, storage));
}

struct MarkRow {
    const char* name;
    std::string text;
    std::string marked;
};

TEST(CharsetMarks, LinesThatNeedACharsetGetOne) {
    const MarkRow rows[] = {
        {"ASCII", "N:a\r\n", "N:a\r\n"},
        {"text", "N:\xC3\xA9\r\n", "N;CHARSET=UTF-8:\xC3\xA9\r\n"},
        {"behind parameters", "TEL;HOME;X=1:\xC3\xA9\r\n", "TEL;HOME;X=1;CHARSET=UTF-8:\xC3\xA9\r\n"},
        {"a colon in the value", "N:a:\xC3\xA9\r\n", "N;CHARSET=UTF-8:a:\xC3\xA9\r\n"},
        {"one line of three", "N:a\r\nFN:\xC3\xA9\r\nTEL:1\r\n",
         "N:a\r\nFN;CHARSET=UTF-8:\xC3\xA9\r\nTEL:1\r\n"},
        {"without a line end", "N:\xC3\xA9", "N;CHARSET=UTF-8:\xC3\xA9"},
        {"has a charset", "N;CHARSET=UTF-8:\xC3\xA9\r\n", "N;CHARSET=UTF-8:\xC3\xA9\r\n"},
        {"has another charset", "N;charset=KOI8-R:\xC3\xA9\r\n", "N;charset=KOI8-R:\xC3\xA9\r\n"},
        {"has a charset in a folded head", "N;CHAR\r\n SET=X:\xC3\xA9\r\n", "N;CHAR\r\n SET=X:\xC3\xA9\r\n"},
        {"charset in the value", "N:CHARSET=X;\xC3\xA9\r\n", "N;CHARSET=UTF-8:CHARSET=X;\xC3\xA9\r\n"},
        {"charset in another name", "N;XCHARSET=1:\xC3\xA9\r\n", "N;XCHARSET=1;CHARSET=UTF-8:\xC3\xA9\r\n"},
        {"folded value", "N:a\r\n \xC3\xA9\r\n", "N;CHARSET=UTF-8:a\r\n \xC3\xA9\r\n"},
        {"folded inside a character", "N:\xC3\r\n \xA9\r\n", "N;CHARSET=UTF-8:\xC3\r\n \xA9\r\n"},
        {"colon behind a fold", "N;X\r\n :\xC3\xA9\r\n", "N;X\r\n ;CHARSET=UTF-8:\xC3\xA9\r\n"},
        {"bare line feed", "N:a\n\xC3\xA9\r\n", "N;CHARSET=UTF-8:a\n\xC3\xA9\r\n"},
        {"no colon", "\xC3\xA9\r\n", "\xC3\xA9\r\n"},
        {"escapes", "N;ENCODING=QUOTED-PRINTABLE:=C3=A9\r\n",
         "N;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=A9\r\n"},
        {"escapes in small letters", "N;quoted-printable:=c3=a9\r\n",
         "N;quoted-printable;CHARSET=UTF-8:=c3=a9\r\n"},
        {"escapes of ASCII", "N;QUOTED-PRINTABLE:=41=3D\r\n", "N;QUOTED-PRINTABLE:=41=3D\r\n"},
        {"no escapes where none are", "N:=C3=A9\r\n", "N:=C3=A9\r\n"},
        {"escapes behind a soft break", "N;QUOTED-PRINTABLE:a=\r\nb:=C3=\r\n=A9\r\nFN:c\r\n",
         "N;QUOTED-PRINTABLE;CHARSET=UTF-8:a=\r\nb:=C3=\r\n=A9\r\nFN:c\r\n"},
        {"quoted-printable named behind a fold", "N;X=1\r\n ;QUOTED-PRINTABLE:a=\r\nb:=C3=A9\r\n",
         "N;X=1\r\n ;QUOTED-PRINTABLE;CHARSET=UTF-8:a=\r\nb:=C3=A9\r\n"},
        {"a final = of another line", "N:a=\r\nFN:\xC3\xA9\r\n", "N:a=\r\nFN;CHARSET=UTF-8:\xC3\xA9\r\n"},
    };
    for (const MarkRow& row : rows) {
        EXPECT_EQ(marked(row.text, TextCharset::Unknown), row.marked) << row.name;
        EXPECT_EQ(marked(row.text, TextCharset::Utf8), row.marked) << row.name;
    }
}

TEST(CharsetMarks, OneLineThatIsNoUtf8LeavesAllToTheLibrary) {
    for (const std::string text : {"N:\xC3\xA9\r\nFN:\xE9\r\n", "N:\xC3\xA9\r\nFN;QUOTED-PRINTABLE:=E9\r\n",
                                   "N:\xC3\r\nFN:\xA9\r\n", "N:\xC3\r\n", "N:\xED\xA0\x80\r\n"}) {
        EXPECT_EQ(marked(text, TextCharset::Unknown), text);
    }
}

TEST(CharsetMarks, LinesOfACharsetSayNothingAboutTheOthers) {
    EXPECT_EQ(marked("N;CHARSET=ISO-8859-1:\xE9\r\nFN:\xC3\xA9\r\n", TextCharset::Unknown),
              "N;CHARSET=ISO-8859-1:\xE9\r\nFN;CHARSET=UTF-8:\xC3\xA9\r\n");
}

TEST(CharsetMarks, TextKnownToBeUtf8IsMarkedWhateverItHolds) {
    EXPECT_EQ(marked("N:\xE9\r\nFN;QUOTED-PRINTABLE:=E9\r\n", TextCharset::Utf8),
              "N;CHARSET=UTF-8:\xE9\r\nFN;QUOTED-PRINTABLE;CHARSET=UTF-8:=E9\r\n");
}

TEST(CharsetMarks, TheTextMayStandInTheStorage) {
    std::string storage = "N:\xC3\xA9\r\n";
    EXPECT_EQ(with_charset_marks(storage, TextCharset::Unknown, storage), "N;CHARSET=UTF-8:\xC3\xA9\r\n");
}

}  // namespace
}  // namespace vzconv
