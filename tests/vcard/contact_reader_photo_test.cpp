// PHOTO: its parameters alone tell how its bytes are written.
#include <gtest/gtest.h>

#include <span>
#include <string>

#include "support/failing_allocations.h"
#include "vcard/owned_contact.h"
#include "versit/base64.h"

namespace vzapi::test {
namespace {

struct PhotoCase {
    std::string line;
    std::string expected;  // type and bytes; empty: no entry
};

const PhotoCase kCases[] = {
    {"PHOTO;ENCODING=BASE64;TYPE=JPEG:QUJD", "JPEG ABC"},
    {"PHOTO;TYPE=JPEG;ENCODING=BASE64:QUJD", "JPEG ABC"},
    {"PHOTO;TYPE=PNG;ENCODING=B:QUJD", "PNG ABC"},
    {"PHOTO;TYPE=PNG;ENCODING=b:QUJD", "PNG ABC"},
    {"PHOTO;GIF;BASE64:QUJD", "GIF ABC"},
    {"PHOTO;BASE64;GIF:QUJD", "GIF ABC"},
    {"photo;type=gif;encoding=base64:QUJD", "GIF ABC"},
    {"PHOTO;TYPE=\"png\":QUJD", "PNG ABC"},
    {"PHOTO;TYPE=image/png;ENCODING=b:QUJD", "PNG ABC"},
    {"PHOTO;TYPE=PN:QUJD", "PN ABC"},
    {"PHOTO;TYPE=JPEG,PNG:QUJD", "JPEG ABC"},
    {"PHOTO;ENCODING=BASE64:QUJD", "(null) ABC"},
    {"PHOTO:QUJD", "(null) ABC"},
    {"PHOTO;INLINE:QUJD", "(null) ABC"},
    {"PHOTO;BINARY;PNG:QUJD", "PNG ABC"},
    {"PHOTO;PNG;JPEG:QUJD", "PNG ABC"},
    {"PHOTO;PNG;TYPE=JPEG:QUJD", "PNG ABC"},
    {"PHOTO;B:QUJD", "B ABC"},
    {"PHOTO;B;PNG:QUJD", "B ABC"},
    {"PHOTO;VALUE=INLINE;TYPE=JPEG:QUJD", "JPEG ABC"},
    {"PHOTO;VALUE=BINARY;TYPE=JPEG:QUJD", "JPEG ABC"},
    {"PHOTO;X-OWN=1;CHARSET=UTF-8:QUJD", "(null) ABC"},
    // The padding of the last line is taken off by the parser; bits short of a byte are dropped.
    {"PHOTO;ENCODING=BASE64:QUI=", "(null) AB"},
    {"PHOTO;ENCODING=BASE64:QUI", "(null) AB"},
    {"PHOTO;ENCODING=BASE64:QU\r\n  JD\r\n  RE VG", "(null) ABCDEF"},
    {"PHOTO;ENCODING=QUOTED-PRINTABLE;TYPE=BMP:A=42C", "BMP ABC"},
    {"PHOTO;ENCODING=8BIT;TYPE=BMP:A=42C", "BMP A=42C"},
    {"PHOTO;ENCODING=7BIT;TYPE=BMP:ABC", "BMP ABC"},
    {"PHOTO;ENCODING=X-OWN;TYPE=BMP:QUJD", "BMP QUJD"},
    {"PHOTO;ENCODING=JPEG;TYPE=BMP:QUJD", "BMP QUJD"},
    {"PHOTO;ENCODING=URL;TYPE=BMP:QUJD", "BMP QUJD"},
    {"PHOTO;QUOTED-PRINTABLE;BMP:A=42C", "BMP ABC"},
    {"PHOTO;BMP;8BIT:A=42C", "BMP A=42C"},
    {"PHOTO;BMP;7BIT:A=42C", "BMP A=42C"},
    // References, and nothing to show.
    {"PHOTO;VALUE=URL:http://example.com/a.jpg", ""},
    {"PHOTO;VALUE=uri;TYPE=JPEG:http://example.com/a.jpg", ""},
    {"PHOTO;URL:http://example.com/a.jpg", ""},
    {"PHOTO;uri:http://example.com/a.jpg", ""},
    {"PHOTO;CONTENT-ID:QUJD", ""},
    {"PHOTO;VALUE=CID:QUJD", ""},
    {"PHOTO;cid:QUJD", ""},
    {"PHOTO;VALUE=INLINE,URL:http://example.com/a.jpg", ""},
    {"PHOTO;VALUE=CONTENT-ID:<a@example.com>", ""},
    {"PHOTO;VALUE=CONTENT-ID:QUJD", ""},
    {"PHOTO;ENCODING=BASE64:", ""},
    {"PHOTO;ENCODING=BASE64:!", ""},
    {"PHOTO;ENCODING=8BIT:", ""},
    {"PHOTO;ENCODING=QUOTED-PRINTABLE:", ""},
    {"PHOTO", ""},
};

TEST(ContactReaderPhoto, EachLineGivesItsPicture) {
    for (const PhotoCase& row : kCases) {
        const std::string expected = row.expected.empty() ? "" : "G10 " + row.expected + "\n";
        EXPECT_EQ(read_lines(row.line, "2.1"), expected) << row.line;
        EXPECT_EQ(read_lines(row.line, "3.0"), expected) << row.line;
    }
}

TEST(ContactReaderPhoto, PrefMarksAPictureAndIsNoImageType) {
    EXPECT_EQ(read_lines("PHOTO;PREF:QUJD"), "G10* (null) ABC\n");
    EXPECT_EQ(read_lines("PHOTO;PREF;PNG;8BIT:ABC"), "G10* PNG ABC\n");
    EXPECT_EQ(read_lines("PHOTO;TYPE=pref,PNG:QUJD"), "G10* PNG ABC\n");
    EXPECT_EQ(read_lines("PHOTO;TYPE=PNG,PREF;QUOTED-PRINTABLE:A=42C"), "G10* PNG ABC\n");
}

TEST(ContactReaderPhoto, DataThatSpellTheNameOfAnEncodingAreData) {
    OwnedContact contact;
    ASSERT_EQ(contact.read(card("PHOTO;ENCODING=B:7BIT8BITENCODING")), VZ_OK);
    ASSERT_EQ(contact.item.generalCount, 1U);
    EXPECT_EQ(contact.item.general[0].value.photo->dataLength, 12U);
}

TEST(ContactReaderPhoto, HasTheSizesOfItsRecords) {
    OwnedContact contact;
    ASSERT_EQ(contact.read(card("PHOTO;TYPE=PNG:QUJD")), VZ_OK);
    ASSERT_EQ(contact.item.generalCount, 1U);
    const ContactPhoto& photo = *contact.item.general[0].value.photo;
    EXPECT_EQ(photo.size, 32U);
    EXPECT_EQ(photo.dataLength, 3U);
    EXPECT_EQ(std::u16string(photo.imageType), u"PNG");
}

TEST(ContactReaderPhoto, ALargePictureIsDecodedIntoOneBlock) {
    std::string data(1'000'000, '\0');
    for (std::size_t i = 0; i < data.size(); ++i) data[i] = static_cast<char>(i * 7 + i / 256);
    std::string line = "PHOTO;TYPE=PNG;ENCODING=BASE64:";
    versit::append_base64(std::as_bytes(std::span(data)), line);
    const versit::VersitObject object = versit::parse(card(line));
    OwnedContact contact;
    FailingAllocations counting(FailingAllocations::kNone);
    vcard::read_contact(object, &contact.item, {});
    counting.stop();
    EXPECT_LT(counting.asked(), 12U);
    ASSERT_EQ(contact.item.generalCount, 1U);
    const ContactPhoto& photo = *contact.item.general[0].value.photo;
    EXPECT_TRUE(std::string_view(reinterpret_cast<const char*>(photo.data), photo.dataLength) == data);
}

}  // namespace
}  // namespace vzapi::test
