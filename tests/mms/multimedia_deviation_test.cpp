// What writers get wrong, in whole PDUs: each is read as the one that its writer meant.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "mms/multimedia_text.h"
#include "mms/pdu_bytes.h"
#include "vzapi/odcapi.h"

namespace vzapi::test {
namespace {

struct Deviation {
    const char* what;
    const char* pdu;
    const char* meant;
};

const Deviation kDeviations[] = {
    {"the type is not first", "98 't' 00 8D 92 8C 85", "8C 85 98 't' 00 8D 92"},
    {"the version is before the transaction id", "8C 85 8D 92 98 't' 00", "8C 85 98 't' 00 8D 92"},
    {"other headers are before the version", "8C 85 91 80 8D 92 98 't' 00", "8C 85 98 't' 00 8D 92 91 80"},
    {"bytes that are no header are behind the last one", "8C 85 98 't' 00 8D 92 00 00 00",
     "8C 85 98 't' 00 8D 92"},
    {"headers are behind the type of the body", "8C 84 8D 92 85 01 05 84 A3 96 'a' 00 01 01 01 83 'x'",
     "8C 84 8D 92 85 01 05 96 'a' 00 84 A3 01 01 01 83 'x'"},
    {"a text has a charset that it is not in", "8C 85 98 't' 00 8D 92 93 (83 'a' E9 00)",
     "8C 85 98 't' 00 8D 92 93 (84 'a' E9 00)"},
    {"an encoded text has no end", "8C 85 98 't' 00 8D 92 96 03 EA 'ab' 91 80",
     "8C 85 98 't' 00 8D 92 96 (EA 'ab' 00) 91 80"},
    {"the length of a text is too small", "8C 85 98 't' 00 8D 92 96 03 EA 'abc' 00 91 80",
     "8C 85 98 't' 00 8D 92 96 (EA 'abc' 00) 91 80"},
    {"the length of a text is too large", "8C 85 98 't' 00 8D 92 96 07 EA 'abc' 00 91 80 91 80",
     "8C 85 98 't' 00 8D 92 96 (EA 'abc' 00) 91 80"},
    {"an empty To is followed by the next header", "8C 85 98 't' 00 8D 92 97 91 80",
     "8C 85 98 't' 00 8D 92 97 00 91 80"},
    {"From has no token", "8C 85 98 't' 00 8D 92 89 'a@b' 00", "8C 85 98 't' 00 8D 92 89 (80 'a@b' 00)"},
    {"the length of From is not its own", "8C 85 98 't' 00 8D 92 89 03 80 'a@b' 00",
     "8C 85 98 't' 00 8D 92 89 (80 'a@b' 00)"},
    {"the type of an address is in lower case", "8C 85 98 't' 00 8D 92 97 '+1/type=plmn' 00",
     "8C 85 98 't' 00 8D 92 97 '+1/TYPE=PLMN' 00"},
    {"a content id is a text without brackets", "84 A3 01 05 01 83 C0 'i' 00 'x'",
     "84 A3 01 08 01 83 C0 22 '<i>' 00 'x'"},
    {"a content id has a closing quote", "84 A3 01 09 01 83 C0 22 '<i>' 22 00 'x'",
     "84 A3 01 08 01 83 C0 22 '<i>' 00 'x'"},
    {"the start is quoted", "84 (B3 99 22 '<i>' 00) 01 08 01 83 C0 22 '<i>' 00 'x'",
     "84 (B3 8A '<i>' 00) 01 08 01 83 C0 22 '<i>' 00 'x'"},
    {"a name is the later parameter, quoted", "84 A3 01 06 01 (83 97 22 'n' 00) 'x'",
     "84 A3 01 05 01 (83 85 'n' 00) 'x'"},
    {"a media type with a number is a text", "84 A3 01 0B 01 'Text/PLAIN' 00 'x'", "84 A3 01 01 01 83 'x'"},
    {"and has a charset behind it", "84 A3 01 19 01 'text/plain;charset=utf-8' 00 'x'",
     "84 A3 01 04 01 (83 81 EA) 'x'"},
    {"a disposition has no length", "84 A3 01 03 01 83 AE 81 'x'", "84 A3 01 04 01 83 AE (81) 'x'"},
    {"times and sizes are short", "8C 82 98 't' 00 8D 92 88 (81 BC) 8E 85",
     "8C 82 98 't' 00 8D 92 88 (81 01 3C) 8E 01 05"},
    {"a head is longer than what is in it", "84 A3 01 05 01 83 8E 'a' 00 00 'x'",
     "84 A3 01 04 01 83 8E 'a' 00 'x'"},
    {"a quote is before ASCII", "8C 85 98 7F 't' 00 8D 92 96 7F 'a' 00", "8C 85 98 't' 00 8D 92 96 'a' 00"},
    {"lengths are not the shortest", "84 A3 80 01 80 01 80 80 01 83 'x'", "84 A3 01 01 01 83 'x'"},
    {"integers begin with zeros", "8C 82 98 't' 00 8D 92 8E 04 00 00 7D 00 88 (81 02 00 3C)",
     "8C 82 98 't' 00 8D 92 8E 02 7D 00 88 (81 01 3C)"},
    {"a push header is before it", "01 06 04 BE AF 84 B4 8C 85 98 't' 00 8D 92", "8C 85 98 't' 00 8D 92"},
    {"a push header is before it, its type a text",
     "01 06 22 'application/vnd.wap.mms-message' 00 AF 84 8C 85", "8C 85"},
};

TEST(MultimediaDeviation, IsReadAsItWasMeant) {
    for (const Deviation& row : kDeviations) {
        const ReadMultimedia read(pdu_bytes(row.pdu));
        ASSERT_EQ(read.result(), VZ_OK) << row.what;
        const ReadMultimedia meant(pdu_bytes(row.meant));
        ASSERT_EQ(meant.result(), VZ_OK) << row.what;
        EXPECT_EQ(shown(read.item()), shown(meant.item())) << row.what;
    }
}

// Here there is no PDU without the deviation that says the same: what the record says is spelt out.
const Deviation kOwnRecords[] = {
    {"no version", "8C 85 98 't' 00", "type 133 flags 1\nheader 24 24/0 kind 3 t\n"},
    {"headers twice", "8C 85 98 't' 00 8D 92 91 80 91 81 98 'u' 00",
     "type 133 flags 1\nheader 24 24/0 kind 3 t\nheader 13 24/0 kind 1 18\nheader 17 24/0 kind 1 128\n"
     "header 17 24/0 kind 1 129\nheader 24 24/0 kind 3 u\n"},
    {"a named header between the others", "8C 85 'X-A' 00 'b' 00 98 't' 00 8D 92",
     "type 133 flags 1\nheader 24 24/0 kind 3 t\nheader 13 24/0 kind 1 18\n"
     "header 0 24/0 kind 13 56/0/0/0/0 name X-A text b bytes -\n"},
    {"an address without a type", "8C 85 97 '+1555' 00",
     "type 133 flags 1\nheader 23 24/0 kind 5 56/0/0/0/0 name - text +1555 bytes -\n"},
    {"reserved codes", "8C 85 95 FE 99 D0 9B 8F",
     "type 133 flags 1\nheader 21 24/0 kind 1 254\nheader 25 24/0 kind 1 208\nheader 27 24/0 kind 1 143\n"},
    {"a time long past", "8C 80 87 (80 01 01)",
     "type 128 flags 1\nheader 7 24/0 kind 6 56/128/0/0/1 name - text - bytes -\n"},
    {"a text without its charset", "8C 85 96 'a' C3 A9 00 96 'a' E9 00",
     "type 133 flags 1\nheader 22 24/0 kind 4 56/0/0/106/0 name - text a\\u00E9 bytes -\n"
     "header 22 24/0 kind 4 56/0/0/4/0 name - text a\\u00E9 bytes -\n"},
};

TEST(MultimediaDeviation, IsKeptAsItIs) {
    for (const Deviation& row : kOwnRecords) {
        const ReadMultimedia read(pdu_bytes(row.pdu));
        ASSERT_EQ(read.result(), VZ_OK) << row.what;
        EXPECT_EQ(shown(read.item()), row.meant) << row.what;
    }
}

// The parts, one a line: container, mark, name, data.
std::string shown_parts(const ReadMultimedia& read) {
    std::string lines;
    for (std::size_t i = 0; i < read.item().partCount; ++i) {
        const MultimediaPart& part = read.part(i);
        lines += std::to_string(part.container) + " " + std::to_string(part.flags) + " " + shown(part.name) +
                 " '" + read.data(i) + "'\n";
    }
    return lines;
}

const Deviation kBodies[] = {
    {"a start that no part has: the first of SMIL",
     "84 (B3 8A '<z>' 00) 02 01 01 83 'x' 11 01 'application/smil' 00 'y'",
     "0 1 Part_0.1 ''\n1 0 Part_1.1 'x'\n1 2 Part_1.2 'y'\n"},
    {"SMIL first, and without an id", "84 B3 02 11 01 'application/smil' 00 'y' 01 01 83 'x'",
     "0 1 Part_0.1 ''\n1 2 Part_1.1 'y'\n1 0 Part_1.2 'x'\n"},
    {"a head longer than its entry: what is there of it", "84 A3 02 03 01 83 8E 'ab' 01 01 83 'x'",
     "0 1 Part_0.1 ''\n1 0 Part_1.1 'b'\n1 0 Part_1.2 'x'\n"},
    {"a part without data", "84 A3 02 01 00 83 01 01 83 'x'",
     "0 1 Part_0.1 ''\n1 0 Part_1.1 ''\n1 0 Part_1.2 'x'\n"},
    {"more entries promised than there are", "84 A3 05 01 01 83 'x'", "0 5 Part_0.1 ''\n1 0 Part_1.1 'x'\n"},
    {"data that are cut off", "84 A3 02 01 01 83 'x' 01 09 83 'yz'",
     "0 5 Part_0.1 ''\n1 0 Part_1.1 'x'\n1 4 Part_1.2 'yz'\n"},
    {"containers in containers, and parts of any type", "84 A3 01 01 0A A6 02 01 01 80 'x' 02 01 C0 D9 'y'",
     "0 1 Part_0.1 ''\n1 1 Part_1.1 ''\n2 0 Part_2.1 'x'\n2 0 Part_2.2 'y'\n"},
    {"places that are files, and the same",
     "84 A3 02 0A 01 83 8E 'file:/a' 00 'x' 0A 01 83 8E 'file:/a' 00 'y'",
     "0 1 Part_0.1 ''\n1 0 file:/a 'x'\n1 0 file:/a 'y'\n"},
};

TEST(MultimediaDeviation, OfABodyLosesNoPart) {
    for (const Deviation& row : kBodies) {
        const ReadMultimedia read(pdu_bytes(row.pdu));
        ASSERT_EQ(read.result(), VZ_OK) << row.what;
        EXPECT_EQ(shown_parts(read), row.meant) << row.what;
    }
}

}  // namespace
}  // namespace vzapi::test
