#include "vzconv/safe_name.h"

#include <gtest/gtest.h>

#include <string>

namespace vzconv {
namespace {

struct NameRow {
    std::string name;
    const char* type;
    std::string safe;
};

const std::string kLong(300, 'x');

const NameRow kRows[] = {
    {"photo.jpg", "image/jpeg", "photo.jpg"},
    {"Photo.JPEG", "Image/JPEG", "Photo.JPEG"},
    {"photo", "image/jpeg", "photo.jpg"},
    {"photo.gif", "image/jpeg", "photo.gif.jpg"},
    {"evil.exe", "image/jpeg", "evil.exe.jpg"},
    {"photo.jpg", "image/jpeg; q=1", "photo.jpg"},
    {"thing", "application/x-thing", "thing.bin"},
    {"thing.dat", "application/x-thing", "thing.dat"},
    {"Part_1.2", "application/octet-stream", "Part_1.2.bin"},
    {"J. R. Smith", "image/png", "J. R. Smith.png"},
    {"", "text/plain", "unnamed.txt"},
    // Paths.
    {"/etc/passwd", "text/plain", "passwd.txt"},
    {"../../../a.txt", "text/plain", "a.txt"},
    {"..\\..\\a.txt", "text/plain", "a.txt"},
    {"C:\\a\\b.txt", "text/plain", "b.txt"},
    {"C:b.txt", "text/plain", "C_b.txt"},
    {"\\\\server\\share\\b.txt", "text/plain", "b.txt"},
    {"folder/", "text/plain", "unnamed.txt"},
    {"..", "text/plain", "unnamed.txt"},
    {".", "", "unnamed.bin"},
    {"http://www.example.com/a/b.jpg?size=1", "image/jpeg", "b.jpg_size=1.jpg"},
    {"a.txt:stream", "text/plain", "a.txt_stream.txt"},
    // Dots and blanks.
    {".profile", "text/plain", "profile.txt"},
    {" . .a.txt", "text/plain", "a.txt"},
    {"a.txt. . ", "text/plain", "a.txt"},
    {"...", "text/plain", "unnamed.txt"},
    {".txt", "text/plain", "txt.txt"},
    // Devices.
    {"CON", "text/plain", "_CON.txt"},
    {"con.txt", "text/plain", "_con.txt"},
    {"NUL", "", "_NUL.bin"},
    {"nul .txt", "text/plain", "_nul .txt"},
    {"aux.tar.txt", "text/plain", "_aux.tar.txt"},
    {"prn", "text/plain", "_prn.txt"},
    {"COM1", "text/plain", "_COM1.txt"},
    {"com\xC2\xB9.txt", "text/plain", "_com\xC2\xB9.txt"},
    {"LPT9.txt", "text/plain", "_LPT9.txt"},
    {"CONOUT$", "text/plain", "_CONOUT$.txt"},
    {"clock$.txt", "text/plain", "_clock$.txt"},
    {"COM10.txt", "text/plain", "COM10.txt"},
    {"CONTACT.txt", "text/plain", "CONTACT.txt"},
    {"COM.txt", "text/plain", "COM.txt"},
    // Characters.
    {"<a>\"b|c?d*.txt", "text/plain", "_a__b_c_d_.txt"},
    {"a\x01\x1F\x7F\n\tb.txt", "text/plain", "a_____b.txt"},
    {std::string("a\0b.txt", 7), "text/plain", "a_b.txt"},
    {"a\xC2\x85"
     "b.txt",
     "text/plain", "a_b.txt"},
    {"annex\xE2\x80\xAEgpj.exe", "text/plain", "annex_gpj.exe.txt"},
    {"a\xE2\x81\xA6\xE2\x80\x8B\xEF\xBB\xBF.txt", "text/plain", "a___.txt"},
    {"a\xFF.txt", "text/plain", "a\xEF\xBF\xBD.txt"},
    {"\xD0\x9F\xD1\x80.txt", "text/plain", "\xD0\x9F\xD1\x80.txt"},
    {"\xF0\x9F\x98\x80.txt", "text/plain", "\xF0\x9F\x98\x80.txt"},
    // Lengths.
    {kLong + ".txt", "text/plain", std::string(196, 'x') + ".txt"},
    {kLong, "", std::string(196, 'x') + ".bin"},
    {"a." + kLong, "text/plain", "a." + std::string(194, 'x') + ".txt"},
};

TEST(SafeName, NamesAreHarmlessEverywhere) {
    for (const NameRow& row : kRows) EXPECT_EQ(safe_name(row.name, row.type), row.safe) << row.name;
}

TEST(SafeName, ASafeNameIsSafe) {
    for (const NameRow& row : kRows) EXPECT_EQ(safe_name(row.safe, row.type), row.safe);
}

TEST(SafeName, LongNamesAreCutBetweenCharacters) {
    for (std::size_t ahead = 0; ahead < 4; ++ahead) {
        std::string name(ahead, 'a');
        for (int i = 0; i < 100; ++i) name += "\xF0\x9F\x98\x80";
        const std::string cut = safe_name(name + ".txt", "text/plain");
        EXPECT_LE(cut.size(), kLongestName);
        EXPECT_GT(cut.size() + 4, kLongestName);
        EXPECT_EQ((cut.size() - ahead) % 4, 0U);
        EXPECT_EQ(safe_name(cut, "text/plain"), cut) << "well-formed";
    }
}

TEST(SafeName, ACutNameDoesNotEndInBlanks) {
    const std::string name = std::string(190, 'a') + std::string(30, ' ') + "b.txt";
    EXPECT_EQ(safe_name(name, "text/plain"), std::string(190, 'a') + ".txt");
}

TEST(SafeName, NumbersStandInFrontOfTheExtension) {
    EXPECT_EQ(numbered_name("a.jpg", 2), "a (2).jpg");
    EXPECT_EQ(numbered_name("a.tar.gz", 10), "a.tar (10).gz");
    EXPECT_EQ(numbered_name("Part_1.2", 3), "Part_1.2 (3)");
    const std::string longest = safe_name(kLong + ".txt", "text/plain");
    EXPECT_EQ(numbered_name(longest, 12), std::string(191, 'x') + " (12).txt");
}

TEST(SafeName, NamesThatDifferInCaseAreFoldedIntoOne) {
    EXPECT_EQ(folded_name("a.TXT"), folded_name("A.txt"));
    EXPECT_EQ(folded_name("\xC3\xBC\xC5\x91\xD0\xB6\xD1\x91\xCF\x89"),
              folded_name("\xC3\x9C\xC5\x90\xD0\x96\xD0\x81\xCE\xA9"));
    EXPECT_NE(folded_name("a"), folded_name("b"));
    EXPECT_NE(folded_name("\xC3\xB7"), folded_name("\xC3\x97")) << "signs of division and multiplication";
    EXPECT_NE(folded_name("\xC5\x91"), folded_name("\xC5\x92"));
}

}  // namespace
}  // namespace vzconv
